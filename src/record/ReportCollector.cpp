#include "record/ReportCollector.h"

#include "common/ControlLock.h"
#include "common/MessageTable.h"
#include "common/ProgramState.h"
#include "common/RuntimeError.h"
#include "common/Waiter.h"
#include "link/CommandHold.h"
#include "link/Link.h"
#include "link/Prompter.h"
#include "link/SequenceContext.h"
#include "link/VersionQuery.h"
#include "opdata/HeadlessOpDataView.h"
#include "opdata/IoMonitor.h"
#include "opdata/IoMonitorView.h"
#include "opdata/OpDataHyoji.h"
#include "opdata/OpDataScreen.h"
#include "opdata/OpDataState.h"
#include "opdata/ReadFromCt.h"
#include "params/ActuatorSize.h"
#include "params/MotorCode.h"
#include "params/ParaCompare.h"
#include "params/ParaCtRead.h"
#include "params/ParaEntries.h"
#include "params/SpCurrent.h"
#include "params/StandardPara.h"
#include "params/TakeCtParaImage.h"
#include "record/Journal.h"
#include "record/JournalQuery.h"

#include <QScopedValueRollback>

namespace {

constexpr int ReadingText = 5686;
constexpr int ValueDoesNotFit = 4303;
constexpr int Steps = 4;
constexpr int HoursOfJournal = 24;

// The lamps as the monitor shows them.
class LampSnapshot : public IoMonitorView {
public:
    void setLamp(IoLamp lamp, bool on) override { lamps[size_t(IoBits::index(lamp))] = on; }
    void setMonitorCaption(const QString&) override {}
    void setOtherCommandsEnabled(bool) override {}

    std::array<bool, AllIoLamps.size()> lamps{};
};

// What the standard-parameters button sets for the actuator read: its size
// as the device dialog records it, the encoder as FUNCTION says, the motor
// code joined as the page then holds it. Nothing when the common list
// cannot be used (its message has been given).
std::optional<ParaSet> standardFor(const ParaSet& read, Prompter& prompter)
{
    ParaSet standard = read;
    const ParaSet record = StandardPara::StandardRecordForSize(SizeDisplayText(read.axis.sizeText));
    if (StandardPara::ApplyStandardTo(standard, record, read.pg.function != 0, prompter) != 0)
        return std::nullopt;
    ParaAxis& axis = standard.axis;
    axis.motorCode = MotorCodeText(axis.sizeText, axis.letter, axis.motorNumber);
    return standard;
}

// The reserved fields are never set by the standard parameters: they have
// no standard value.
QList<ReportParameter> parameters(const ParaSet& read, const std::optional<ParaSet>& standard)
{
    QList<ReportParameter> list;
    for (const ParaMapRow* row : NamedParaRows()) {
        const int entry = ComparedEntry(*row);
        ReportParameter p{row->name, ParaEntryValue(read, entry), {}};
        if (standard && row->group != ParaGroup::Reserved)
            p.standard = ParaEntryValue(*standard, entry);
        list << p;
    }
    return list;
}

} // namespace

ReportCollector::ReportCollector(SequenceContext& ctx, QString journalDirectory)
    : m_ctx(ctx)
    , m_journalDirectory(journalDirectory.isEmpty() ? Journal::defaultDirectory() : std::move(journalDirectory))
{
}

QString ReportCollector::portText(const SequenceContext& ctx)
{
    const QString name = ctx.link.portName();
    return name.isEmpty() ? ctx.link.deviceOf(ProgramState::instance().gPortNo) : name;
}

int ReportCollector::collect(ReportData& data)
{
    if (!CommandHold::mayStart(m_ctx))
        return 1;
    {
        const CommandHold hold(m_ctx);
        m_ctx.progress.showTransfer(Msg(ReadingText), Steps);
        const int result = readSteps(data);
        m_ctx.progress.hideTransfer();
        if (result != 0)
            return 1;
    }
    data.readAt = QDateTime::currentDateTime();
    data.port = portText(m_ctx);
    readJournal(data);
    return 0;
}

int ReportCollector::readSteps(ReportData& data)
{
    if (readVersion(data) != 0 || readParameters(data) != 0 || readOpData(data) != 0)
        return 1;
    return readLamps(data);
}

void ReportCollector::step(int done)
{
    m_ctx.progress.showTransfer(Msg(ReadingText), Steps);
    m_ctx.progress.setTransferProgress(done);
}

int ReportCollector::readVersion(ReportData& data)
{
    VersionQuery version(m_ctx);
    if (version.query() != 0)
        return 1;
    data.controllerVersion = version.version();
    data.controllerType = version.typeCode();
    step(1);
    return 0;
}

// The read must not leave the window's actuator choices changed, as
// taking an image into a set does for the page.
int ReportCollector::readParameters(ReportData& data)
{
    CtParaImage image;
    QString block7;
    if (ReadParaFromCt(m_ctx, image) != 0 || ReadParaBlock7(m_ctx, block7) != 0)
        return 1;
    ProgramState& g = ProgramState::instance();
    const QScopedValueRollback keepPgUse(g.gPgUse);
    const QScopedValueRollback keepDialogMode(g.gDeviceDialogMode);
    ParaSet read;
    try {
        TakeCtParaImage(image, read);
    } catch (const RuntimeError&) {
        m_ctx.prompter.tell(Msg(ValueDoesNotFit), Prompter::Icon::Exclamation);
        return 1;
    }
    data.motorCode = read.axis.motorCode;
    data.actuatorSize = SizeDisplayText(read.axis.sizeText);
    data.encoder = read.pg.function != 0;
    data.parameters = parameters(read, standardFor(read, m_ctx.prompter));
    if (read.axis.sizeText == SpecialSizeText())
        data.currentAmperes = SpCurrentAmperes(block7);
    step(2);
    return 0;
}

int ReportCollector::readOpData(ReportData& data)
{
    OpDataState state;
    HeadlessOpDataView view;
    if (ReadFromCt(m_ctx, state, view).ReadPosidataFromCt() != 0)
        return 1;
    const PosiTable& read = state.PosiDataRead;
    OpDataScreen screen;
    OpDataHyoji::PosiDataHyoji(read, screen);
    OpDataHyoji::ChoicesFromValues(screen);
    data.opData = {int(read.number(PosiTable::VEL)), int(read.number(PosiTable::ACC)),
                   read.number(PosiTable::DIR) != 0, int(read.number(PosiTable::DIVISION)),
                   int(read.number(PosiTable::GEAR)), screen.comboVEL.toInt()};
    step(3);
    return 0;
}

// The monitor runs on a lock of its own: the window's controls stay held
// by this read until it ends, not given back when the monitor stops.
int ReportCollector::readLamps(ReportData& data)
{
    ControlLock monitorLock;
    SequenceContext monitorContext{m_ctx.link, m_ctx.commands, m_ctx.prompter, monitorLock, m_ctx.progress, m_ctx.files};
    LampSnapshot view;
    IoMonitor monitor(monitorContext, view);
    // Stopping puts every lamp out: the reading is kept as it was shown.
    bool shown = false;
    QObject::connect(&monitor, &IoMonitor::lampsShown, [&] {
        data.lamps = view.lamps;
        shown = true;
        monitor.stop();
    });
    monitor.start();
    Waiter::waitUntil([&monitor] { return !monitor.mIoRunning; });
    if (!shown || Waiter::aborted())
        return 1;
    step(Steps);
    return 0;
}

void ReportCollector::readJournal(ReportData& data) const
{
    JournalQuery query;
    query.since = data.readAt.addSecs(-HoursOfJournal * 3600);
    query.until = data.readAt;
    query.port = data.port;
    query.unit = data.unit;
    query.anyUnit = false;
    const JournalListing listing = JournalListing::read(m_journalDirectory, query);
    data.journal = listing.entries;
    data.journalDamaged = listing.damaged;
}
