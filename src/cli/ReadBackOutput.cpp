#include "cli/ReadBackOutput.h"

#include "cli/CliSession.h"
#include "cli/ExitStatus.h"
#include "link/ReadBack.h"

void printBoxText(CliSession& session, const QString& text)
{
    QString lines = QString(text).replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    if (!lines.endsWith(u'\n'))
        lines += u'\n';
    session.out() << lines;
}

int printReadBack(CliSession& session, const ReadBack& readBack)
{
    const bool confirmed = readBack.result == ReadBack::Result::Confirmed;
    if (!confirmed && readBack.result != ReadBack::Result::Differs)
        return ExitLinkFailed;
    printBoxText(session, readBack.message());
    return confirmed ? ExitDone : ExitDiffer;
}
