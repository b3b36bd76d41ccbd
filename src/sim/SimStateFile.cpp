#include "sim/SimStateFile.h"

#include "common/AtomicFile.h"
#include "common/MessageTable.h"
#include "sim/HexField.h"
#include "sim/OperationRecord.h"
#include "sim/SimDefaults.h"

#include <QFile>

namespace {
constexpr qint64 MaxStateFileSize = 64 * 1024;
}

bool SimStateFile::read(const QString& path, MemoryImage& image, QString* errorString)
{
    QFile file(path);
    if (!file.exists())
        return true;
    if (file.size() > MaxStateFileSize || !file.open(QIODevice::ReadOnly)) {
        *errorString = file.errorString();
        return false;
    }
    const QList<QByteArray> lines = file.readAll().split('\n');
    for (qsizetype i = 0; i < lines.size(); ++i) {
        const QByteArray line = lines[i].trimmed();
        if (line.isEmpty() || line.startsWith('#'))
            continue;
        if (!applyLine(line, image)) {
            *errorString = Msg(4941).arg(i + 1);
            return false;
        }
    }
    return true;
}

bool SimStateFile::applyLine(const QByteArray& line, MemoryImage& image)
{
    const qsizetype eq = line.indexOf('=');
    const QByteArray key = line.left(eq);
    const QByteArray value = line.mid(eq + 1);
    if (eq < 0 || !HexField::isHex(value))
        return false;
    bool ok = false;
    if (key.startsWith("BLOCK")) {
        const int n = key.mid(5).toInt(&ok);
        if (!ok || !MemoryImage::isBlock(n) || value.size() != SimDefaults::DataDigits)
            return false;
        image.blocks[n] = value;
        return true;
    }
    if (key.startsWith("RECORD")) {
        const int n = key.mid(6).toInt(&ok, 16);
        if (!ok || !MemoryImage::isRecord(n) || value.size() != OperationRecord::HexLength)
            return false;
        image.records[n] = value;
        return true;
    }
    return false;
}

bool SimStateFile::write(const QString& path, const MemoryImage& image, QString* errorString)
{
    QByteArray text;
    for (auto it = image.blocks.cbegin(); it != image.blocks.cend(); ++it)
        text += "BLOCK" + QByteArray::number(it.key()) + '=' + it.value() + '\n';
    for (int n = MemoryImage::FirstRecord; n <= MemoryImage::LastRecord; ++n)
        text += "RECORD" + HexField::digits(n, 2) + '=' + image.records[n] + '\n';
    return AtomicFile::write(path, text, errorString);
}
