#include "print/ParaPrintout.h"

#include "common/MessageTable.h"
#include "common/NumberText.h"
#include "common/RuntimeError.h"
#include "print/PrintCanvas.h"
#include "print/PrintFooter.h"

namespace {

constexpr double LabelX = 20;
constexpr double ValueX = 80;
constexpr double RuleLeftX = 10;
constexpr int TitleRow = 1;
constexpr int RuleRow = 2;

constexpr int TitleMsg = 4700;
constexpr int FileNameMsg = 25;
constexpr int ProposedFileMsg = 4302;
constexpr int SpecialSizeMsg = 4721;
constexpr int MotorEntry = 7;

// How the value of a row is printed.
enum class Shown {
    Nothing,
    AsText,
    AsSwitch,
    AsMotor
};

struct SheetRow {
    int row;
    int label;
    int entry = 0;
    Shown shown = Shown::Nothing;
    QList<int> switchTexts = {};
};

// The sheet, row by row: section titles on rows 4, 9, 14, 18 and 22.
const QList<SheetRow>& sheetRows()
{
    static const QList<SheetRow> rows = {
        {4, 4701},
        {5, 4702, 1, Shown::AsText},
        {6, 4703, 2, Shown::AsText},
        {7, 4704, 3, Shown::AsText},
        {9, 4705},
        {10, 4706, 4, Shown::AsText},
        {11, 4707, 5, Shown::AsSwitch, {641, 642}},
        {12, 4708, MotorEntry, Shown::AsMotor},
        {14, 4709},
        {15, 4710, 8, Shown::AsSwitch, {652, 653}},
        {16, 4711, 9, Shown::AsText},
        {18, 4712},
        {19, 4713, 10, Shown::AsSwitch, {657, 658, 659, 660}},
        {20, 4714, 11, Shown::AsText},
        {22, 4715},
        {23, 4716, 12, Shown::AsText},
        {24, 4717, 13, Shown::AsSwitch, {655, 656}},
        {25, 4718, 14, Shown::AsText},
        {26, 4719, 15, Shown::AsSwitch, {691, 690}},
        {27, 4720, 16, Shown::AsSwitch, {655, 656}},
    };
    return rows;
}

} // namespace

ParaPrintout::ParaPrintout(const PrintParaList& list, bool fromFile, const QDateTime& printedAt)
    : m_list(list)
    , m_fromFile(fromFile)
    , m_printedAt(printedAt)
{
}

QString ParaPrintout::switchText(const QVariant& value, const QList<int>& messages)
{
    const QString text = value.toString();
    qint16 n = -1;
    try {
        n = RoundToInt16(LeadingNumber(text));
    } catch (const RuntimeError&) {
        // Too large for a switch: it can only be printed as it is.
    }
    return n >= 0 && n < messages.size() ? Msg(messages[n]) : text;
}

QString ParaPrintout::motorText(const QVariant& value)
{
    const QString size = value.toString().left(2);
    return size == QStringLiteral("20") ? Msg(SpecialSizeMsg) : size;
}

QString ParaPrintout::pdfFileName() const
{
    if (m_fromFile)
        return pdfNameFor(m_list[0].toString());
    return pdfNameFor(Msg(ProposedFileMsg));
}

void ParaPrintout::draw(PrintCanvas& canvas)
{
    drawHeading(canvas);
    drawSections(canvas);
    PrintFooter(m_printedAt).draw(canvas);
}

void ParaPrintout::drawHeading(PrintCanvas& canvas) const
{
    const PageMetrics& m = canvas.metrics();
    canvas.text(LabelX, TitleRow * m.gLinePitch, Msg(TitleMsg));
    if (m_fromFile)
        canvas.text(ValueX, TitleRow * m.gLinePitch, Msg(FileNameMsg) + m_list[0].toString());
    canvas.rule(RuleRow * m.gLinePitch, RuleLeftX, m.gRightEdge);
}

void ParaPrintout::drawSections(PrintCanvas& canvas) const
{
    const int pitch = canvas.metrics().gLinePitch;
    for (const SheetRow& row : sheetRows()) {
        const double top = row.row * pitch;
        canvas.text(LabelX, top, Msg(row.label));
        const QVariant& value = m_list[row.entry];
        switch (row.shown) {
        case Shown::Nothing:
            break;
        case Shown::AsText:
            canvas.text(ValueX, top, value.toString());
            break;
        case Shown::AsSwitch:
            canvas.text(ValueX, top, switchText(value, row.switchTexts));
            break;
        case Shown::AsMotor:
            canvas.text(ValueX, top, motorText(value));
            break;
        }
    }
}
