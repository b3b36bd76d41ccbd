#include "opdata/OpDataFileCommands.h"

#include "common/ControlLock.h"
#include "common/FileChooser.h"
#include "common/MessageTable.h"
#include "common/ProgramState.h"
#include "link/Prompter.h"
#include "link/SequenceGuard.h"
#include "opdata/OpDataFile.h"
#include "opdata/OpDataHyoji.h"
#include "opdata/OpDataState.h"
#include "opdata/OpDataTorikomi.h"
#include "opdata/OpDataView.h"

namespace {

using Step = SequenceGuard::Step;
const SequenceGuard::Bracket Held{{Step::CommandButtons, Step::Menus, Step::Busy},
                                  {Step::Busy, Step::CommandButtons, Step::Menus}};

constexpr int OpenTitle = 364;
constexpr int SaveTitle = 406;
constexpr int FileFilter = 351;
constexpr int DefaultExtension = 51;
constexpr int ProposedName = 3006;
constexpr int SavingText = 4500;
constexpr int SaveFailed = 4501;

// The data's title is its file name without the ".qmd".
QString titleOf(const QString& path)
{
    return path.chopped(qMin<qsizetype>(4, path.size()));
}

} // namespace

OpDataFileCommands::OpDataFileCommands(Prompter& prompter, ControlLock& lock,
                                       ProgressDisplay& progress, FileChooser& files,
                                       OpDataState& state, OpDataView& view)
    : m_prompter(prompter)
    , m_lock(lock)
    , m_progress(progress)
    , m_files(files)
    , m_state(state)
    , m_view(view)
{
}

void OpDataFileCommands::Open()
{
    const SequenceGuard guard(m_lock, nullptr, Held);
    openSteps();
}

int OpDataFileCommands::openSteps()
{
    const QString path = m_files.openFile(Msg(OpenTitle), Msg(FileFilter), Msg(DefaultExtension));
    if (path.isEmpty())
        return 1;
    if (OpDataFile::ReadPosidataFile(path, m_state.PosiDataRead, m_state.generationLabel,
                                     m_prompter)
        != 0)
        return 1;

    m_state.PosiData.copyRow0(m_state.PosiDataRead, PosiTable::VEL, PosiTable::Spare3);
    OpDataScreen screen = m_view.screen();
    OpDataHyoji::PosiDataHyoji(m_state.PosiDataRead, screen);
    m_state.mDataTitle = titleOf(path);
    ProgramState::instance().gDataChanged = false;
    OpDataHyoji::ChoicesFromValues(screen);

    m_state.mEventsOff = true;
    m_view.showScreen(screen);
    m_state.mEventsOff = false;
    return 0;
}

void OpDataFileCommands::SaveAs()
{
    const SequenceGuard guard(m_lock, nullptr, Held);
    saveAsSteps();
}

int OpDataFileCommands::saveAsSteps()
{
    if (OpDataTorikomi::PosiDataCheckAndTorikomi(m_view.screen(), m_state.PosiData, m_prompter) != 0)
        return 1;
    const QString path = m_files.saveFile(Msg(SaveTitle), Msg(FileFilter), Msg(DefaultExtension),
                                          Msg(ProposedName));
    if (path.isEmpty())
        return 1;
    return SaveFileAs(path);
}

int OpDataFileCommands::SaveFileAs(const QString& path)
{
    QString error;
    m_progress.showTransfer(Msg(SavingText), 0);
    const bool written = OpDataFile::write(path, m_state.PosiData, &error);
    m_progress.hideTransfer();
    if (!written) {
        m_prompter.tell(Msg(SaveFailed) + QStringLiteral("\r\n") + path
                            + QStringLiteral("\r\n") + error,
                        Prompter::Icon::Exclamation);
        return 1;
    }
    m_state.mDataTitle = titleOf(path);
    ProgramState::instance().gDataChanged = false;
    return 0;
}
