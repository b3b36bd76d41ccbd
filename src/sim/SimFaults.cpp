#include "sim/SimFaults.h"

#include <QStringList>

CommandMatch CommandMatch::all()
{
    CommandMatch m;
    m.m_all = true;
    return m;
}

std::optional<CommandMatch> CommandMatch::parse(const QString& text)
{
    if (text.compare(QLatin1String("all"), Qt::CaseInsensitive) == 0)
        return all();
    CommandMatch m;
    for (QString item : text.split(u',')) {
        item = item.trimmed().toUpper();
        if (item.size() == 3 && item.startsWith(u'0'))
            item.remove(0, 1);
        if (item.size() != 2)
            return std::nullopt;
        m.m_letters.append(item.toLatin1());
    }
    return m;
}

bool CommandMatch::matches(const QByteArray& letters) const
{
    return m_all || m_letters.contains(letters);
}
