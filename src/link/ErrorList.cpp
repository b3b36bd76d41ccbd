#include "link/ErrorList.h"

#include "common/DataFiles.h"
#include "common/MessageTable.h"
#include "common/NumberText.h"
#include "common/RuntimeError.h"
#include "common/SeqReader.h"
#include "link/LinkLog.h"
#include "link/Prompter.h"

int ErrorList::Get_ErrorList(Prompter& prompter)
{
    if (load(DataFiles::path(Msg(120))))
        return 0;
    prompter.tell(MsgLines({30, 31}));
    return 1;
}

bool ErrorList::load(const QString& path)
{
    try {
        SeqReader in = SeqReader::fromFile(path);
        const int count = RoundToInt16(in.readNumber());
        QList<Entry> entries;
        for (int i = 1; i <= count; ++i) {
            // The table has room for MaxEntries; a longer list is an error.
            if (i > MaxEntries)
                throw RuntimeError(RuntimeError::Kind::Subscript, path);
            Entry entry;
            entry.key = in.readText();
            entry.text = in.readText();
            entries << entry;
        }
        m_entries = entries;
        m_missing = false;
        return true;
    } catch (const RuntimeError& e) {
        qCWarning(lcLink) << "error list" << path << "not read:" << e.what();
        m_entries.clear();
        m_missing = true;
        return false;
    }
}

std::optional<ErrorList::Entry> ErrorList::find(const QString& key) const
{
    for (const Entry& entry : m_entries) {
        if (entry.key == key)
            return entry;
    }
    return std::nullopt;
}
