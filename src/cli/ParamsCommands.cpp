#include "cli/ParamsCommands.h"

#include "cli/CliSession.h"
#include "cli/CommandRegistry.h"
#include "cli/ExitStatus.h"
#include "cli/ListFiles.h"
#include "cli/ParamsArguments.h"
#include "cli/ReadBackOutput.h"
#include "common/MessageTable.h"
#include "common/ProgramState.h"
#include "common/RuntimeError.h"
#include "device/DeviceList.h"
#include "params/ActuatorSize.h"
#include "params/ParaCompare.h"
#include "params/ParaCtRead.h"
#include "params/ParaData.h"
#include "params/ParaEntries.h"
#include "params/ParaFile.h"
#include "params/ParaReadCommand.h"
#include "params/ParaScreen.h"
#include "params/ParaScreenTransfer.h"
#include "params/ParaValueCheck.h"
#include "params/ParaWriteCommand.h"
#include "params/SpCurrent.h"
#include "params/TakeCtParaImage.h"
#include "print/ParaPrintCommands.h"
#include "print/ParaPrintout.h"
#include "print/PdfPrinter.h"
#include "record/JournalAction.h"

namespace {

const QString Output = QStringLiteral("-o");
const QString Current = QStringLiteral("--current");
const QString Confirm = QStringLiteral("--confirm");
const QString ParaFileArg = QStringLiteral("FILE.pmt");

constexpr int InvalidValue = 4814;
constexpr int CurrentNeeded = 4315;
constexpr int CurrentNotTaken = 4316;
constexpr int MissingArgument = 4317;
constexpr int CannotWrite = 4318;
constexpr int ValuesOnStdout = 5302;
constexpr int ConfirmHelp = 5564;

// A parameter file as the page holds it after Open. A file that cannot be
// taken in whole is refused here (message 681), before anything is sent.
bool loadFile(CliSession& session, const QString& path, ParaData& data)
{
    if (LoadParaFile(path, data.image, session.prompter()) == 0) {
        try {
            TakeCtParaImage(data.image, data.set);
            return true;
        } catch (const RuntimeError&) {
        }
    }
    session.prompter().tell(Msg(681));
    return false;
}

// The checks the page makes before a write or a verification, on the
// file's values shown as the page would show them.
bool screenAccepted(CliSession& session, ParaData& data, const ParaScreen& screen)
{
    if (CheckParaInput(screen) != 0) {
        session.prompter().tell(MsgLines({7, 8}));
        return false;
    }
    if (TorikomiParametaValue(screen, data.set) != 0 || ParametaValueCheck(data.set) != 0) {
        session.prompter().tell(MsgLines({1524, 1525}));
        return false;
    }
    return true;
}

int printReport(CliSession& session, const CtParaImage& image, const ParaSet& set)
{
    ParaCompareLines lines;
    const int result = MakeParaCompareList(image, set, lines);
    printBoxText(session, ParaVerifyReport(result, lines));
    return result == 0 ? ExitDone : ExitDiffer;
}

void printValues(CliSession& session, const ParaSet& set)
{
    for (const ParaMapRow* row : NamedParaRows())
        session.out() << row->name << u'=' << ParaEntryValue(set, ComparedEntry(*row)).toString() << '\n';
}

// The values read go to the file, or to stdout when the file cannot be
// written, so that a read is never lost.
int keepValues(CliSession& session, const ParamsArguments& arguments, ParaSet& set)
{
    if (!arguments.has(Output)) {
        printValues(session, set);
        return ExitDone;
    }
    const QString path = arguments.value(Output);
    QString error;
    if (SaveParaFile(path, set, &error) != 0) {
        session.prompter().tell(Msg(13));
        session.report(Msg(CannotWrite).arg(path, error));
        session.report(Msg(ValuesOnStdout));
        printValues(session, set);
        return ExitLinkFailed;
    }
    session.prompter().tell(Msg(14));
    return ExitDone;
}

// Parameters that were read are kept even when the current that follows
// them was not (its message has been given): the exit status says so.
int readParams(CliSession& session, const QStringList& args)
{
    ParamsArguments arguments({Output}, {});
    if (const int bad = arguments.parse(session, args))
        return bad;
    if (const int missing = requireDeviceList(session))
        return missing;
    ParaData data;
    ParaScreen screen;
    DeviceList devices;
    ParaReadCommand read(session.context(), data, devices);
    const int result = read.GetParametaValue(screen);
    session.link().CloseCommPort();
    if (!read.parametersShown())
        return ExitLinkFailed;
    const int kept = keepValues(session, arguments, data.set);
    return result == 0 ? kept : ExitLinkFailed;
}

// The operating current of the special actuator: required for it, refused
// for the others, and checked before anything is sent.
int takeCurrent(CliSession& session, const ParamsArguments& arguments, const ParaSet& set, ParaScreen& screen)
{
    const bool special = set.axis.sizeText == SpecialSizeText();
    if (special && !arguments.has(Current))
        return session.usageError(Msg(CurrentNeeded));
    if (!special && arguments.has(Current))
        return session.usageError(Msg(CurrentNotTaken));
    if (!special)
        return ExitDone;
    const QString amps = arguments.value(Current);
    if (!SpCurrentToBlock7(QString(32, u'0'), amps))
        return session.usageError(Msg(InvalidValue).arg(Current, amps));
    screen.txtDenryu = amps;
    return ExitDone;
}

int writeParams(CliSession& session, const QStringList& args)
{
    ParamsArguments arguments({Current}, {ParaFileArg}, {Confirm});
    if (const int bad = arguments.parse(session, args))
        return bad;
    ParaData data;
    ParaScreen screen;
    if (!loadFile(session, arguments.file(0), data))
        return ExitUsage;
    ParametaHyoji(data.set, screen);
    if (const int bad = takeCurrent(session, arguments, data.set, screen))
        return bad;
    if (!screenAccepted(session, data, screen))
        return ExitUsage;

    JournalAction entry(session.journal(), JournalEntry::ParamsWrite);
    entry.setWritten(session.journal().writtenParameters(data.set));
    ParaWriteCommand write(session.context(), data);
    const int result = write.WriteParaWorker(screen, arguments.has(Confirm));
    session.link().CloseCommPort();
    entry.finish(result == 0);
    if (result != 0)
        return ExitLinkFailed;
    if (arguments.has(Confirm))
        return printReadBack(session, write.readBack());
    session.out() << Msg(1527) << '\n';
    return ExitDone;
}

int verifyParams(CliSession& session, const QStringList& args)
{
    ParamsArguments arguments({}, {ParaFileArg});
    if (const int bad = arguments.parse(session, args))
        return bad;
    ParaData data;
    ParaScreen screen;
    if (!loadFile(session, arguments.file(0), data))
        return ExitUsage;
    ParametaHyoji(data.set, screen);
    if (!screenAccepted(session, data, screen))
        return ExitUsage;

    CtParaImage controller;
    const int result = ReadParaFromCt(session.context(), controller);
    session.link().CloseCommPort();
    if (result != 0)
        return ExitLinkFailed;
    return printReport(session, controller, data.set);
}

// The first file stands where the page's values stand, the second where
// the controller's.
int diffParams(CliSession& session, const QStringList& args)
{
    ParamsArguments arguments({}, {QStringLiteral("A.pmt"), QStringLiteral("B.pmt")});
    if (const int bad = arguments.parse(session, args))
        return bad;
    ParaData shown;
    ParaData other;
    if (!loadFile(session, arguments.file(0), shown) || !loadFile(session, arguments.file(1), other))
        return ExitUsage;
    return printReport(session, other.image, shown.set);
}

int printParams(CliSession& session, const QStringList& args)
{
    ParamsArguments arguments({Output}, {ParaFileArg});
    if (const int bad = arguments.parse(session, args))
        return bad;
    if (!arguments.has(Output))
        return session.usageError(Msg(MissingArgument).arg(QStringLiteral("-o OUT.pdf")));
    PrintParaList list;
    if (ParaPrintCommands::ReadPrintList(arguments.file(0), session.prompter(), list) != 0)
        return ExitUsage;
    ParaPrintout printout(list, true);
    QString error;
    if (!PdfPrinter::write(printout, arguments.value(Output), &error)) {
        session.report(Msg(CannotWrite).arg(arguments.value(Output), error));
        return ExitUsage;
    }
    return ExitDone;
}

} // namespace

void addParamsCommands(CommandRegistry& registry)
{
    registry.add({QStringLiteral("params read"), 4310, true, readParams});
    registry.add({QStringLiteral("params write"), 4311, true, writeParams, ConfirmHelp});
    registry.add({QStringLiteral("params verify"), 4312, true, verifyParams});
    registry.add({QStringLiteral("params diff"), 4313, false, diffParams});
    registry.add({QStringLiteral("params print"), 4314, false, printParams});
}
