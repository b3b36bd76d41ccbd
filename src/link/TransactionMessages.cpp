#include "link/TransactionMessages.h"

#include "common/MessageTable.h"

namespace {
const QString CrLf = QStringLiteral("\r\n");
constexpr int ErrorNoLabel = 4800;
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
