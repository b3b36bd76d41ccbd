#pragma once

#include <QByteArray>
#include <QString>

#ifdef Q_OS_WIN
#include <qt_windows.h>
#endif

// Reading one value from the system registry the way the system information
// lookup needs it. The value's bytes land in a NUL-filled buffer that is cut
// at its first NUL before it is interpreted, for numbers too.
class RegistryValue {
public:
    enum Type {
        String = 1,
        Number = 4
    };

    // The text of a value of the given type from its raw buffer; empty for
    // any other type.
    static QString text(const QByteArray& buffer, int type);

    // A 32-bit number: the bytes before the first NUL, taken from the last to
    // the first, each written as hexadecimal digits without leading zeros and
    // joined, read as a hexadecimal number. Bytes 02 01 00 00 give "18"; a
    // zero byte or an inner byte below 16 gives a different number than the
    // value holds, which callers rely on as it is.
    static QString numberText(const QByteArray& buffer);

#ifdef Q_OS_WIN
    // True when the value was read; keyValue holds its text (empty for an
    // unsupported type). keyValue is empty whenever false is returned.
    static bool GetKeyValue(HKEY keyRoot, const QString& keyName,
                            const QString& valueName, QString& keyValue);
#endif
};
