#include "params/StdParaList.h"

#include "common/DataFiles.h"
#include "common/MessageTable.h"
#include "common/NumberText.h"
#include "common/RuntimeError.h"
#include "common/SeqReader.h"
#include "link/Prompter.h"

#include <QFileInfo>

namespace {

const char* const sectionNames[] = {"PG", "ETC", "SPECIAL"};
constexpr int SectionCount = 3;

} // namespace

// The rows of one section into the table from row on; row moves past them.
void StdParaList::readRows(SeqReader& in, int& row, int rows, int columns)
{
    for (int r = 0; r < rows; ++r, ++row) {
        for (int c = 0; c < columns; ++c) {
            if (row >= MaxRows || c >= MaxColumns)
                throw RuntimeError(RuntimeError::Kind::Subscript, QStringLiteral("standard table"));
            m_table.at(size_t(row)).at(size_t(c)) = in.readNumber();
        }
    }
}

int StdParaList::ReadStdParaList(Prompter& prompter)
{
    const QString path = DataFiles::path(QStringLiteral("hb4cmstpr.lst"));
    if (!QFileInfo::exists(path)) {
        prompter.tell(MsgLines({28, 29}));
        return 1;
    }
    try {
        SeqReader in = SeqReader::fromFile(path);
        const QString model = in.readText();
        const QString kind = in.readText();
        const int sections = RoundToInt16(in.readNumber());
        if (model != QLatin1String("QM-B4") || kind != QLatin1String("QM-CMNPRM")) {
            prompter.tell(Msg(27));
            return 1;
        }
        int row = 0;
        for (int s = 0; s < sections && s < SectionCount; ++s) {
            const QString name = in.readText();
            const int rows = RoundToInt16(in.readNumber());
            const int columns = RoundToInt16(in.readNumber());
            if (name != QLatin1String(sectionNames[s]))
                break;
            readRows(in, row, rows, columns);
        }
        return 0;
    } catch (const RuntimeError&) {
        prompter.tell(Msg(27));
        return 1;
    }
}
