#pragma once

#include "sim/MemoryImage.h"

#include <QString>

// The stored copy of the virtual controller between runs: a text file of
// "BLOCKn=<32 hex digits>" and "RECORDnn=<16 hex digits>" lines (record
// numbers in two hex digits). Lines that are absent keep their factory value.
class SimStateFile {
public:
    // A missing file leaves the image as it is and succeeds; a file that
    // cannot be read or holds a line that is not understood fails, with
    // the reason in errorString.
    static bool read(const QString& path, MemoryImage& image, QString* errorString);
    // Replaces the file in one step (a failed save keeps the old file).
    static bool write(const QString& path, const MemoryImage& image, QString* errorString);

private:
    static bool applyLine(const QByteArray& line, MemoryImage& image);
};
