#include "params/ParaFileCommands.h"

#include "common/FileChooser.h"
#include "common/MessageTable.h"
#include "common/RuntimeError.h"
#include "link/Prompter.h"
#include "params/ParaData.h"
#include "params/ParaFile.h"
#include "params/ParaScreen.h"
#include "params/ParaScreenTransfer.h"
#include "params/ParaValueCheck.h"
#include "params/TakeCtParaImage.h"

namespace {

const QString Extension = QStringLiteral("pmt");
constexpr int ProposedFileName = 4302;

} // namespace

ParaFileCommands::ParaFileCommands(Prompter& prompter, FileChooser& files)
    : m_prompter(prompter)
    , m_files(files)
{
}

int ParaFileCommands::cmdSaveParaFile_Click(ParaData& data, const ParaScreen& screen)
{
    if (CheckParaInput(screen) != 0) {
        m_prompter.tell(MsgLines({7, 8}));
        return 1;
    }
    if (TorikomiParametaValue(screen, data.set) != 0 || ParametaValueCheck(data.set) != 0) {
        m_prompter.tell(Msg(9));
        return 1;
    }
    const QString proposed = data.fileName.isEmpty() ? Msg(ProposedFileName) : data.fileName;
    const QString path = m_files.saveFile(Msg(11), Msg(1827), Extension, proposed);
    if (path.isEmpty())
        return 1;
    if (SaveParaFile(path, data.set) != 0) {
        m_prompter.tell(Msg(13));
        return 1;
    }
    data.fileName = path;
    data.paraEdited = false;
    m_prompter.tell(Msg(14));
    return 0;
}

void ParaFileCommands::cmdReadParaFile_Click(ParaData& data, ParaScreen& screen)
{
    const QString path = m_files.openFile(Msg(686), Msg(1827), Extension);
    if (path.isEmpty())
        return;
    const int result = LoadParaFile(path, data.image, m_prompter);
    if (result == -1) {
        m_prompter.tell(Msg(681));
        return;
    }
    try {
        TakeCtParaImage(data.image, data.set);
    } catch (const RuntimeError&) {
        m_prompter.tell(Msg(681));
        return;
    }
    ParametaHyoji(data.set, screen);
    data.paraEdited = false;
    if (result == 0)
        data.fileName = path;
}
