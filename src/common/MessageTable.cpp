#include "common/MessageTable.h"

#include "common/ProgramState.h"

#include <QFile>
#include <QStringList>

namespace {

QString unescape(const QString& field)
{
    QString out;
    out.reserve(field.size());
    for (qsizetype i = 0; i < field.size(); ++i) {
        if (field[i] == u'\\' && i + 1 < field.size()) {
            const QChar next = field[i + 1];
            if (next == u'n') {
                out += u'\n';
                ++i;
                continue;
            }
            if (next == u't') {
                out += u'\t';
                ++i;
                continue;
            }
            if (next == u'\\') {
                out += u'\\';
                ++i;
                continue;
            }
        }
        out += field[i];
    }
    return out;
}

} // namespace

MessageTable MessageTable::fromTsv(const QByteArray& tsv)
{
    MessageTable table;
    const QStringList lines = QString::fromUtf8(tsv).split(u'\n');
    for (QString line : lines) {
        if (line.endsWith(u'\r'))
            line.chop(1);
        if (line.isEmpty() || line.startsWith(u'#'))
            continue;
        const QStringList fields = line.split(u'\t');
        bool ok = false;
        const int n = fields.value(0).toInt(&ok);
        if (!ok || fields.size() < 3)
            continue;
        if (!fields[1].isEmpty())
            table.m_texts.insert(n, unescape(fields[1]));
        if (!fields[2].isEmpty())
            table.m_texts.insert(EnglishBase + n, unescape(fields[2]));
    }
    return table;
}

const MessageTable& MessageTable::instance()
{
    static const MessageTable table = [] {
        QFile file(QStringLiteral(":/messages.tsv"));
        file.open(QIODevice::ReadOnly);
        return fromTsv(file.readAll());
    }();
    return table;
}

QString Msg(int n)
{
    return MessageTable::instance().text(ProgramState::instance().gMsgBase + n);
}

QString MsgLines(std::initializer_list<int> ns)
{
    QStringList lines;
    for (int n : ns)
        lines << (n == 0 ? QString() : Msg(n));
    return lines.join(QStringLiteral("\r\n"));
}
