#include "link/TransactionMessages.h"

#include "common/MessageTable.h"

namespace {
const QString CrLf = QStringLiteral("\r\n");
constexpr int ErrorNoLabel = 4800;
constexpr int OtherCommandRuns = 5200;
constexpr int DeviceGone = 5201;
constexpr int PortReleased = 5202;
constexpr int OwnErrorNotice = 5203;
constexpr int OpenFailed = 109;
} // namespace

QString TransactionMessages::timedOut()
{
    return MsgLines({100, 0, 101, 102, 103});
}

QString TransactionMessages::errorReply(bool found, const QString& errorNo,
                                        const QString& errorText)
{
    const QString bracketed = u'[' + errorText + u']';
    if (found)
        return Msg(104) + CrLf + Msg(ErrorNoLabel).arg(errorNo) + CrLf + bracketed;
    return Msg(104) + CrLf + bracketed;
}

QString TransactionMessages::lengthError()
{
    return MsgLines({105, 106});
}

QString TransactionMessages::ownError(const QString& errorReplyText)
{
    return Msg(OwnErrorNotice) + CrLf + errorReplyText;
}

QString TransactionMessages::portLost()
{
    return MsgLines({DeviceGone, PortReleased});
}

QString TransactionMessages::lostPortNotReopened()
{
    return MsgLines({DeviceGone, OpenFailed});
}

QString TransactionMessages::refusedWhileBusy()
{
    return Msg(OtherCommandRuns);
}
