#pragma once

#include <QByteArray>
#include <QString>

// Replaces a file's content in one step: the bytes go to a temporary file
// that takes the file's place only when everything was written, so a failed
// save never leaves a truncated file where a good one was.
class AtomicFile {
public:
    // Returns true on success; otherwise errorString says why.
    static bool write(const QString& path, const QByteArray& bytes, QString* errorString = nullptr);
};
