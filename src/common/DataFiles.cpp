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

// An installed tree is found relative to the program first, so a copy
// moved or installed under another prefix still finds its own files; the
// folder compiled in is the last resort. A folder set by a test is the only one.
QStringList DataFiles::folders()
{
    QStringList found{programFolder()};
    if (!g_folder.isEmpty())
        return found;
    for (const QString& folder :
         {QDir::cleanPath(QDir(programFolder()).filePath(QStringLiteral(KTR_DATA_RELATIVE_DIR))),
          QStringLiteral(KTR_DATA_DIR)}) {
        if (!found.contains(folder))
            found << folder;
    }
    return found;
}

QString DataFiles::path(const QString& name)
{
    for (const QString& folder : folders()) {
        const QString candidate = QDir(folder).filePath(name);
        if (QFileInfo::exists(candidate))
            return candidate;
    }
    return QDir(programFolder()).filePath(name);
}
