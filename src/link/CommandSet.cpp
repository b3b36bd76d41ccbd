#include "link/CommandSet.h"

#include "common/Pad.h"
#include "link/Link.h"

CommandSet::CommandSet(Link& link)
    : m_link(link)
{
}

QString CommandSet::field(int pos, int count) const
{
    return reply().mid(pos - 1, count);
}

int CommandSet::send(const QString& command, int expectedLength, const QString& data, int timeoutMs)
{
    m_link.setTimeoutMs(timeoutMs);
    m_last = m_link.SendRecvCommand(command, expectedLength, data);
    return m_last.ok() ? 0 : 1;
}

int CommandSet::CheckCommunication()
{
    return send(QStringLiteral("0CM"), 6, QStringLiteral("6"), 2000);
}

int CommandSet::SetCommMode(int mode)
{
    const int sent = mode >= 0 && mode <= 7 ? mode : 0;
    return send(QStringLiteral("0CM"), 6, QString::number(sent), 5000);
}

int CommandSet::ReadRunStatus()
{
    if (send(QStringLiteral("0RA"), 6, {}, 2000) != 0)
        return -1;
    const QString digit = field(4, 1);
    if (digit.size() == 1 && digit[0] >= u'0' && digit[0] <= u'3')
        return digit[0].unicode() - u'0';
    return -1;
}

int CommandSet::ReadParaBlock(int block, int timeoutMs)
{
    return send(QStringLiteral("0RD"), 38, QString::number(block), timeoutMs);
}

int CommandSet::WriteParaBlock(const QString& blockText)
{
    return send(QStringLiteral("0WD"), 6, blockText, 5000);
}

int CommandSet::WriteParaBlock7(const QString& digits)
{
    return send(QStringLiteral("0WD"), 6, u'7' + digits, 5000);
}

int CommandSet::EndParaWrite()
{
    return send(QStringLiteral("0WE"), 5, {}, 5000);
}

int CommandSet::EndParaWriteAlt()
{
    return send(QStringLiteral("0WF"), 5, {}, 5000);
}

int CommandSet::ReadPosition(int n)
{
    return send(QStringLiteral("0RP"), 23, HexPad(n, 2), 5000);
}

int CommandSet::WritePosition(const QString& text)
{
    return send(QStringLiteral("0WP"), 7, text, 5000);
}

int CommandSet::EndPositionWrite()
{
    return send(QStringLiteral("0WA"), 5, QStringLiteral("0101"), 5000);
}

int CommandSet::MoveToPosition(int n)
{
    return send(QStringLiteral("0MP"), 7, HexPad(n, 2), 5000);
}

int CommandSet::AlarmReset()
{
    return send(QStringLiteral("0AR"), 5, {}, 2000);
}

int CommandSet::ReadInputs()
{
    return send(QStringLiteral("0RI"), 8, {}, 1000);
}

int CommandSet::ReadOutputs()
{
    return send(QStringLiteral("0RO"), 7, {}, 1000);
}

int CommandSet::WriteOutputs(const QString& digits)
{
    return send(QStringLiteral("0WO"), 7, digits, 1000);
}

int CommandSet::ReadVersion()
{
    return send(QStringLiteral("0RV"), 11, {}, 5000);
}

int CommandSet::ReadVersionOld()
{
    return send(QStringLiteral("0%C"), 16, {}, 5000);
}
