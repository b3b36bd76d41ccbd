#include "common/DataFiles.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

namespace {
QString g_folder;
}

QString DataFiles::programFolder()
{
    if (!g_folder.isEmpty())
        return g_folder;
    return QCoreApplication::applicationDirPath();
}

void DataFiles::setProgramFolder(const QString& folder)
{
    g_folder = folder;
}

QString DataFiles::path(const QString& name)
{
    const QString beside = QDir(programFolder()).filePath(name);
    if (QFileInfo::exists(beside) || !g_folder.isEmpty())
        return beside;
    const QString installed = QDir(QStringLiteral(KTR_DATA_DIR)).filePath(name);
    return QFileInfo::exists(installed) ? installed : beside;
}
