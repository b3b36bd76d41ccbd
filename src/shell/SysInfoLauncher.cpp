#include "shell/SysInfoLauncher.h"

#include "common/MessageTable.h"
#include "common/RegistryValue.h"
#include "link/Prompter.h"

#include <QFileInfo>
#include <QProcess>
#include <QStandardPaths>

QStringList SysInfoLauncher::knownPrograms()
{
    return {QStringLiteral("hardinfo2"), QStringLiteral("hardinfo"),
            QStringLiteral("kinfocenter"), QStringLiteral("lshw-gtk"),
            QStringLiteral("gnome-system-monitor")};
}

#ifdef Q_OS_WIN

QString SysInfoLauncher::findProgram()
{
    QString path;
    if (RegistryValue::GetKeyValue(HKEY_LOCAL_MACHINE,
                                   QStringLiteral("SOFTWARE\\Microsoft\\Shared Tools\\MSINFO"),
                                   QStringLiteral("PATH"), path))
        return path;
    // Only this second place is checked for the file's existence; a first
    // entry naming a missing file fails when it is started.
    QString folder;
    if (RegistryValue::GetKeyValue(HKEY_LOCAL_MACHINE,
                                   QStringLiteral("SOFTWARE\\Microsoft\\Shared Tools Location"),
                                   QStringLiteral("MSINFO"), folder)) {
        path = folder + QStringLiteral("\\MSINFO32.EXE");
        if (QFileInfo::exists(path))
            return path;
    }
    return {};
}

#else

QString SysInfoLauncher::findProgram()
{
    for (const QString& name : knownPrograms()) {
        const QString path = QStandardPaths::findExecutable(name);
        if (!path.isEmpty())
            return path;
    }
    return {};
}

#endif

void SysInfoLauncher::StartSysInfo(Prompter& prompter) const
{
    const QString program = findProgram();
    if (!program.isEmpty() && start(program))
        return;
    prompter.tell(Msg(1206));
}

bool SysInfoLauncher::start(const QString& program) const
{
    if (m_start)
        return m_start(program);
    return QProcess::startDetached(program, {});
}
