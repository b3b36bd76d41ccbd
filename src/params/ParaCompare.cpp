#include "params/ParaCompare.h"

#include "common/MessageTable.h"
#include "common/NumberText.h"
#include "params/ParaEntries.h"

#include <algorithm>

namespace {

constexpr int ReportedLines = 5;
constexpr std::array<int, ReportedLines> groupTitles{673, 675, 676, 677, 678};

bool isNumber(const QVariant& v)
{
    return v.typeId() != QMetaType::QString || IsNumeric(v.toString());
}

bool sameValue(const QVariant& image, const QVariant& field)
{
    if (isNumber(image) && isNumber(field))
        return ParaEntryNumber(image) == ParaEntryNumber(field);
    return image.toString() == field.toString();
}

bool differs(const ParaMapRow& row, const CtParaImage& image, const ParaSet& set)
{
    if (row.entry == MotorSizeEntry)
        return image[MotorCodeEntry].toString().left(3) != set.axis.motorCode.left(3);
    return !sameValue(image[row.entry], ParaEntryValue(set, row.entry));
}

bool replacesReservedLine(const QString& name)
{
    return name == QLatin1String("Reserved2") || name == QLatin1String("Reserved3")
        || name == QLatin1String("Reserved5");
}

void appendName(const ParaMapRow& row, const ParaSet& set, QString& line)
{
    if (row.entry == MotorSizeEntry)
        line += row.name;
    else if (replacesReservedLine(row.name))
        line = QString::number(set.reserved[5]) + row.name + u',';
    else
        line += row.name + u',';
}

} // namespace

int ComparedEntry(const ParaMapRow& row)
{
    return row.entry == MotorSizeEntry ? MotorCodeEntry : row.entry;
}

std::vector<const ParaMapRow*> NamedParaRows()
{
    std::vector<const ParaMapRow*> rows;
    for (const ParaMapRow& row : ParaMemoryMap())
        if (!row.name.isEmpty())
            rows.push_back(&row);
    std::sort(rows.begin(), rows.end(), [](const ParaMapRow* a, const ParaMapRow* b) {
        return ComparedEntry(*a) < ComparedEntry(*b);
    });
    return rows;
}

int MakeParaCompareList(const CtParaImage& image, const ParaSet& set, ParaCompareLines& lines)
{
    lines.fill(QString());
    int result = 0;
    for (const ParaMapRow* row : NamedParaRows()) {
        if (!differs(*row, image, set))
            continue;
        appendName(*row, set, lines.at(size_t(row->group)));
        result = 1;
    }
    return result;
}

QString ParaVerifyReport(int compareResult, const ParaCompareLines& lines)
{
    if (compareResult == 0)
        return Msg(826);
    QString text = Msg(823) + QStringLiteral("\r\n");
    for (int i = 0; i < ReportedLines; ++i) {
        const QString& line = lines.at(size_t(i));
        if (!line.isEmpty())
            text += u'<' + Msg(groupTitles.at(size_t(i))) + QStringLiteral("> :") + line + QStringLiteral("\r\n");
    }
    return text;
}
