#include "FuzzEnvironment.h"

#include "common/DataFiles.h"
#include "common/ProgramState.h"
#include "shell/Settings.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QLoggingCategory>

FuzzEnvironment& FuzzEnvironment::instance()
{
    static FuzzEnvironment environment;
    return environment;
}

FuzzEnvironment::FuzzEnvironment()
{
    static int argc = 1;
    static char name[] = "ktr-fuzz";
    static char* argv[] = {name, nullptr};
    static QCoreApplication app(argc, argv);
    if (!m_dir.isValid())
        qFatal("no scratch folder: %s", qPrintable(m_dir.errorString()));
    // The link's own log lines would cost more than the runs themselves.
    QLoggingCategory::setFilterRules(QStringLiteral("ktr.*=false"));
    DataFiles::setProgramFolder(m_dir.path());
    Settings::useLocation(m_dir.path());
    ProgramState::instance().gMsgBase = 10000;
}

QString FuzzEnvironment::writeFile(const QString& name, const QByteArray& data) const
{
    const QString path = QDir(m_dir.path()).filePath(name);
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate) || file.write(data) != data.size())
        qFatal("cannot write %s", qPrintable(path));
    return path;
}
