#include "print/ParaPrintCommands.h"

#include "common/ControlLock.h"
#include "common/FileChooser.h"
#include "common/MessageTable.h"
#include "common/ProgramState.h"
#include "link/Prompter.h"
#include "link/SequenceGuard.h"
#include "params/CtParaImage.h"
#include "params/ParaData.h"
#include "params/ParaFile.h"
#include "params/ParaScreenTransfer.h"
#include "params/ParaValueCheck.h"
#include "print/ParaPrintList.h"
#include "print/ParaPrintout.h"

#include <QFileInfo>

ParaPrintCommands::ParaPrintCommands(Prompter& prompter, FileChooser& files, ControlLock& lock,
                                     PrintFunction print)
    : m_prompter(prompter)
    , m_files(files)
    , m_lock(lock)
    , m_print(std::move(print))
{
}

void ParaPrintCommands::cmdParaPrint_Click(ParaData& data, const ParaScreen& screen)
{
    whileLocked([&] { printShown(data, screen); });
}

void ParaPrintCommands::cmdParaFilePrint_Click()
{
    whileLocked([&] { printFile(); });
}

int ParaPrintCommands::ReadPrintList(const QString& path, Prompter& prompter, PrintParaList& list)
{
    CtParaImage image;
    if (LoadParaFile(path, image, prompter) != 0) {
        prompter.tell(Msg(681));
        return 1;
    }
    list = PrintParaListFromImage(image, QFileInfo(path).fileName());
    return 0;
}

void ParaPrintCommands::whileLocked(const std::function<void()>& command)
{
    using Step = SequenceGuard::Step;
    static const SequenceGuard::Bracket held{{Step::Tabs, Step::Menus}, {Step::Menus, Step::Tabs}};
    const SequenceGuard guard(m_lock, nullptr, held);
    command();
}

void ParaPrintCommands::printShown(ParaData& data, const ParaScreen& screen)
{
    if (CheckParaInput(screen) != 0) {
        m_prompter.tell(MsgLines({7, 8}));
        return;
    }
    if (TorikomiParametaValue(screen, data.set) != 0 || ParametaValueCheck(data.set) != 0) {
        m_prompter.tell(MsgLines({1524, 1525}));
        return;
    }
    print(PrintParaListFromSet(data.set), false);
}

void ParaPrintCommands::printFile()
{
    const QString path = m_files.openFile(Msg(686), Msg(1827), QStringLiteral("pmt"));
    PrintParaList list;
    if (path.isEmpty() || ReadPrintList(path, m_prompter, list) != 0)
        return;
    print(list, true);
}

void ParaPrintCommands::print(const PrintParaList& list, bool fromFile)
{
    ParaPrintout printout(list, fromFile);
    m_print(printout);
}
