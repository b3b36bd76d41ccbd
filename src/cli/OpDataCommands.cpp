#include "cli/OpDataCommands.h"

#include "cli/CliSession.h"
#include "cli/CommandArguments.h"
#include "cli/CommandRegistry.h"
#include "cli/ExitStatus.h"
#include "cli/IoCommand.h"
#include "cli/MoveCommands.h"
#include "cli/NumberArgument.h"
#include "cli/ReadBackOutput.h"
#include "common/MessageTable.h"
#include "opdata/HeadlessOpDataView.h"
#include "opdata/OpDataFile.h"
#include "opdata/OpDataFileCommands.h"
#include "opdata/OpDataHyoji.h"
#include "opdata/OpDataState.h"
#include "opdata/ReadFromCt.h"
#include "opdata/VelocityRules.h"
#include "opdata/WriteToCt.h"
#include "print/OpDataPrintSource.h"
#include "print/OpDataPrintout.h"
#include "print/PdfPrinter.h"
#include "record/JournalAction.h"
#include "record/JournalWritten.h"

namespace {

constexpr int InvalidValue = 4814;
constexpr int FileOrValues = 4522;
constexpr int Missing = 4523;
constexpr int PdfNotWritten = 4525;
constexpr int ValuesOnStdout = 5302;
constexpr int IoWatchDetail = 5303;
constexpr int ConfirmHelp = 5565;

const QString OutputOption = QStringLiteral("-o");
const QString DirOption = QStringLiteral("--dir");
const QString ConfirmFlag = QStringLiteral("--confirm");
const QStringList ValueOptions = {QStringLiteral("--speed"), QStringLiteral("--acc"),
                                  QStringLiteral("--division"), QStringLiteral("--gear")};

struct Range {
    int low;
    int high;
};
// The ranges the page's entry rules leave.
const QList<Range> ValueRanges = {{1, 30}, {1, 3}, {2, 100}, {1, 100}};

void printValues(CliSession& session, const OpDataState& state)
{
    OpDataScreen screen;
    OpDataHyoji::PosiDataHyoji(state.PosiData, screen);
    OpDataHyoji::ChoicesFromValues(screen);
    QTextStream& out = session.out();
    out << "VEL=" << screen.txtVEL << '\n'
        << "ACC=" << screen.txtACC << '\n'
        << "DIR=" << (screen.optCW ? "CW" : "CCW") << '\n'
        << "DIVISION=" << screen.txtDIVISION << '\n'
        << "GEAR=" << screen.txtGEAR << '\n'
        << "SPEED=" << screen.comboVEL << '\n';
}

// opdata read [-o FILE.qmd]. A file that cannot be written has been
// reported with its name and the reason; the values go to stdout instead,
// so that the read is not lost.
int readCommand(CliSession& session, const QStringList& args)
{
    CommandArguments parsed({OutputOption}, {}, 0);
    if (const int bad = parsed.parse(session, args))
        return bad;

    OpDataState state;
    HeadlessOpDataView view;
    const int result = ReadFromCt(session.context(), state, view).ReadPosidataFromCt();
    session.link().CloseCommPort();
    if (result != 0)
        return ExitLinkFailed;
    state.PosiData.copyRow0(state.PosiDataRead, PosiTable::VEL, PosiTable::Spare3);

    if (parsed.has(OutputOption)) {
        const SequenceContext& ctx = session.context();
        OpDataFileCommands files(ctx.prompter, ctx.lock, ctx.progress, ctx.files, state, view);
        if (files.SaveFileAs(parsed.value(OutputOption)) == 0)
            return ExitDone;
        session.report(Msg(ValuesOnStdout));
        printValues(session, state);
        return ExitLinkFailed;
    }
    printValues(session, state);
    return ExitDone;
}

// The record of a file as Open would put it on a fresh page.
int screenFromFile(CliSession& session, const QString& path, OpDataState& state,
                   OpDataScreen& screen)
{
    int generationLabel = 0;
    if (OpDataFile::ReadPosidataFile(path, state.PosiDataRead, generationLabel, session.prompter())
        != 0)
        return ExitUsage;
    OpDataHyoji::PosiDataHyoji(state.PosiDataRead, screen);
    return ExitDone;
}

// The record from the four choices, VEL computed as a click in the speed
// list computes it.
int screenFromValues(CliSession& session, const CommandArguments& parsed, OpDataScreen& screen)
{
    QStringList values;
    for (int i = 0; i < ValueOptions.size(); ++i) {
        const QString& option = ValueOptions[i];
        if (!parsed.has(option))
            return session.usageError(Msg(FileOrValues));
        const QString text = parsed.value(option);
        const Range range = ValueRanges[i];
        if (!NumberArgument::valid(text, range.low, range.high))
            return NumberArgument::reject(session, option, range.low, range.high);
        values << QString::number(text.toInt());
    }
    screen.comboVEL = values[0];
    screen.txtACC = values[1];
    screen.txtDIVISION = values[2];
    screen.txtGEAR = values[3];
    screen.txtVEL = VelocityRules::VelOnSpeedClick(screen.comboVEL, screen.txtGEAR, false)
                        .value_or(QString());
    return ExitDone;
}

// opdata write FILE.qmd [--dir cw|ccw] [--confirm]
// opdata write --speed N --acc N --division N --gear N [--dir cw|ccw] [--confirm]
int writeCommand(CliSession& session, const QStringList& args)
{
    CommandArguments parsed(ValueOptions + QStringList{DirOption}, {ConfirmFlag}, 1);
    if (const int bad = parsed.parse(session, args))
        return bad;
    const QString dir = parsed.value(DirOption).toLower();
    if (parsed.has(DirOption) && dir != u"cw" && dir != u"ccw")
        return session.usageError(Msg(InvalidValue).arg(DirOption, parsed.value(DirOption)));
    const bool fromFile = !parsed.words().isEmpty();
    for (const QString& option : ValueOptions)
        if (fromFile && parsed.has(option))
            return session.usageError(Msg(FileOrValues));

    OpDataState state;
    HeadlessOpDataView view;
    const int loaded = fromFile ? screenFromFile(session, parsed.words().first(), state, view.shown)
                                : screenFromValues(session, parsed, view.shown);
    if (loaded != ExitDone)
        return loaded;
    view.shown.optCW = dir != u"ccw";
    const bool confirm = parsed.has(ConfirmFlag);
    JournalAction entry(session.journal(), JournalEntry::OpDataWrite);
    WriteToCt write(session.context(), state, view);
    const int result = write.run(confirm);
    entry.setWritten(JournalWritten::operationData(state.PosiData));
    entry.finish(result == 0);
    if (result != 0)
        return ExitLinkFailed;
    return confirm ? printReadBack(session, write.readBack()) : ExitDone;
}

// opdata print FILE.qmd -o OUT.pdf
int printCommand(CliSession& session, const QStringList& args)
{
    CommandArguments parsed({OutputOption}, {}, 1);
    if (const int bad = parsed.parse(session, args))
        return bad;
    if (parsed.words().isEmpty() || !parsed.has(OutputOption))
        return session.usageError(Msg(Missing).arg(
            parsed.words().isEmpty() ? QStringLiteral("FILE.qmd") : OutputOption));

    OpDataPrintData data;
    if (OpDataPrintSource::fromFile(parsed.words().first(), PosiTable(), session.prompter(), data)
        != 0)
        return ExitUsage;
    OpDataPrintout printout(data);
    QString error;
    if (!PdfPrinter::write(printout, parsed.value(OutputOption), &error)) {
        session.report(Msg(PdfNotWritten).arg(error));
        return ExitUsage;
    }
    return ExitDone;
}

} // namespace

void addOpDataCommands(CommandRegistry& registry)
{
    registry.add({QStringLiteral("opdata read"), 4510, true, readCommand});
    registry.add({QStringLiteral("opdata write"), 4511, true, writeCommand, ConfirmHelp});
    registry.add({QStringLiteral("opdata print"), 4513, false, printCommand});
    registry.add({QStringLiteral("home"), 4514, true, home});
    registry.add({QStringLiteral("move"), 4515, true, move});
    registry.add({QStringLiteral("io"), 4516, true, io, IoWatchDetail});
}
