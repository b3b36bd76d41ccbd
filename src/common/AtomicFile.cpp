#include "common/AtomicFile.h"

#include <QSaveFile>

bool AtomicFile::write(const QString& path, const QByteArray& bytes, QString* errorString)
{
    QSaveFile file(path);
    // The explicit flush matters: commit() alone has been seen to accept a
    // short write on a full disk and put the truncated file in place.
    const bool ok = file.open(QIODevice::WriteOnly)
        && file.write(bytes) == bytes.size()
        && file.flush()
        && file.commit();
    if (!ok && errorString)
        *errorString = file.errorString();
    return ok;
}
