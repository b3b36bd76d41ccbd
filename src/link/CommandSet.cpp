#include "link/CommandSet.h"

#include "common/Pad.h"
#include "link/CommandCatalogue.h"
#include "link/Link.h"

using Id = CommandCatalogue::Id;

CommandSet::CommandSet(Link& link)
    : m_link(link)
{
}

QString CommandSet::field(int pos, int count) const
{
    return reply().mid(pos - 1, count);
}

int CommandSet::send(CommandCatalogue::Id id, const QString& data, int timeoutMs)
{
    const CommandCatalogue::Command& c = CommandCatalogue::command(id);
    m_link.setTimeoutMs(timeoutMs > 0 ? timeoutMs : c.timeoutMs);
    m_last = m_link.SendRecvCommand(QLatin1String(c.code), c.replyLength, data);
    return m_last.ok() ? 0 : 1;
}

int CommandSet::CheckCommunication()
{
    return send(Id::CheckCommunication, QStringLiteral("6"));
}

int CommandSet::SetCommMode(int mode)
{
    const int sent = mode >= 0 && mode <= 7 ? mode : 0;
    return send(Id::SetCommMode, QString::number(sent));
}

int CommandSet::ReadRunStatus()
{
    if (send(Id::ReadRunStatus) != 0)
        return -1;
    const QString digit = field(4, 1);
    if (digit.size() == 1 && digit[0] >= u'0' && digit[0] <= u'3')
        return digit[0].unicode() - u'0';
    return -1;
}

int CommandSet::ReadParaBlock(int block, int timeoutMs)
{
    return send(Id::ReadParaBlock, QString::number(block), timeoutMs);
}

int CommandSet::WriteParaBlock(const QString& blockText)
{
    return send(Id::WriteParaBlock, blockText);
}

int CommandSet::WriteParaBlock7(const QString& digits)
{
    return send(Id::WriteParaBlock, u'7' + digits);
}

int CommandSet::EndParaWrite()
{
    return send(Id::EndParaWrite);
}

int CommandSet::EndParaWriteAlt()
{
    return send(Id::EndParaWriteAlt);
}

int CommandSet::ReadPosition(int n)
{
    return send(Id::ReadPosition, HexPad(n, 2));
}

int CommandSet::WritePosition(const QString& text)
{
    return send(Id::WritePosition, text);
}

int CommandSet::EndPositionWrite()
{
    return send(Id::EndPositionWrite, QStringLiteral("0101"));
}

int CommandSet::MoveToPosition(int n)
{
    return send(Id::MoveToPosition, HexPad(n, 2));
}

int CommandSet::AlarmReset()
{
    return send(Id::AlarmReset);
}

int CommandSet::ReadInputs()
{
    return send(Id::ReadInputs);
}

int CommandSet::ReadOutputs()
{
    return send(Id::ReadOutputs);
}

int CommandSet::WriteOutputs(const QString& digits)
{
    return send(Id::WriteOutputs, digits);
}

int CommandSet::ReadVersion()
{
    return send(Id::ReadVersion);
}

int CommandSet::ReadVersionOld()
{
    return send(Id::ReadVersionOld);
}
