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
    // An installed tree is found relative to the program first, so a copy
    // moved or installed under another prefix still finds its own files;
    // the folder compiled in is the last resort.
    const QString relative = QDir::cleanPath(QDir(programFolder()).filePath(QStringLiteral(KTR_DATA_RELATIVE_DIR)));
    for (const QString& folder : {relative, QStringLiteral(KTR_DATA_DIR)}) {
        const QString installed = QDir(folder).filePath(name);
        if (QFileInfo::exists(installed))
            return installed;
    }
    return beside;
}
