#include "cli/ReportCommand.h"

#include "cli/CliSession.h"
#include "cli/CommandArguments.h"
#include "cli/CommandRegistry.h"
#include "cli/ExitStatus.h"
#include "common/AtomicFile.h"
#include "common/MessageTable.h"
#include "print/PdfPrinter.h"
#include "record/ReportCollector.h"
#include "record/ReportJson.h"
#include "record/ReportPrintout.h"

namespace {

constexpr int Usage = 5680;
constexpr int Detail = 5681;
constexpr int NotWritten = 5682;
constexpr int WrongKind = 5683;
constexpr int InvalidValue = 4814;
constexpr int MissingArgument = 4317;
constexpr int CannotWrite = 4318;

const QString Output = QStringLiteral("-o");
const QString Note = QStringLiteral("--note");
const QString Paper = QStringLiteral("--paper");

bool endsWith(const QString& path, const char* extension)
{
    return path.endsWith(QLatin1String(extension), Qt::CaseInsensitive);
}

// Everything is checked before the controller is read.
int parse(CliSession& session, const CommandArguments& parsed, std::optional<QPageSize::PageSizeId>& paper)
{
    if (!parsed.has(Output))
        return session.usageError(Msg(MissingArgument).arg(QStringLiteral("-o FILE.pdf|FILE.json")));
    const QString path = parsed.value(Output);
    if (!endsWith(path, ".pdf") && !endsWith(path, ".json"))
        return session.usageError(Msg(WrongKind).arg(path));
    paper = parsed.has(Paper) ? ReportPrintout::paperNamed(parsed.value(Paper)) : ReportPrintout::defaultPaper();
    if (!paper)
        return session.usageError(Msg(InvalidValue).arg(Paper, parsed.value(Paper)));
    return ExitDone;
}

bool write(const QString& path, const ReportData& data, QPageSize::PageSizeId paper, QString* error)
{
    if (endsWith(path, ".json"))
        return AtomicFile::write(path, ReportJson::document(data), error);
    ReportPrintout printout(data, paper);
    return PdfPrinter::write(printout, path, error);
}

int report(CliSession& session, const QStringList& args)
{
    CommandArguments parsed({Output, Note, Paper}, {}, 0);
    if (const int bad = parsed.parse(session, args))
        return bad;
    std::optional<QPageSize::PageSizeId> paper;
    if (const int bad = parse(session, parsed, paper))
        return bad;

    ReportData data;
    data.unit = session.unit();
    data.note = parsed.value(Note);
    if (ReportCollector(session.context()).collect(data) != 0) {
        session.report(Msg(NotWritten));
        return ExitLinkFailed;
    }
    QString error;
    if (!write(parsed.value(Output), data, *paper, &error)) {
        session.report(Msg(CannotWrite).arg(parsed.value(Output), error));
        return ExitLinkFailed;
    }
    return ExitDone;
}

} // namespace

void addReportCommand(CommandRegistry& registry)
{
    registry.add({QStringLiteral("report"), Usage, true, report, Detail});
}
