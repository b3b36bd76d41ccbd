#include "shell/HelpModule.h"

#include "common/DataFiles.h"
#include "common/MessageTable.h"
#include "link/Prompter.h"

#include <QDesktopServices>
#include <QDir>
#include <QFileInfo>

namespace {
constexpr int NoBrowser = 5002;
}

QString HelpModule::joinFolder(const QString& folder, const QString& name)
{
    if (folder.endsWith(u'/') || folder.endsWith(u'\\'))
        return folder + name;
    return folder + u'/' + name;
}

void HelpModule::SetHelpFilePath()
{
    // DataFiles decides where the shipped files are; the folder is what is
    // left of its answer without the help file's own name.
    const QString full = DataFiles::path(bareName());
    SetHelpFilePath(full.left(full.size() - bareName().size()));
}

void HelpModule::SetHelpFilePath(const QString& folder)
{
    m_helpFile = joinFolder(folder, bareName());
}

void HelpModule::ShowHelpContents(Prompter& prompter, const QString& missingText) const
{
    if (m_helpFile.size() < 1 || !QFileInfo(m_helpFile).isFile()) {
        prompter.tell(missingText, Prompter::Icon::Information);
        return;
    }
    const QString path = QFileInfo(m_helpFile).absoluteFilePath();
    const QUrl url = QUrl::fromLocalFile(path);
    const bool opened = m_open ? m_open(url) : QDesktopServices::openUrl(url);
    // Without a browser the user can still open the page by hand.
    if (!opened)
        prompter.tell(Msg(NoBrowser) + QStringLiteral("\r\n") + QDir::toNativeSeparators(path),
                      Prompter::Icon::Information);
}
