#include "common/RegistryValue.h"

#include "common/NumberText.h"

namespace {

QByteArray beforeFirstNul(const QByteArray& buffer)
{
    const qsizetype nul = buffer.indexOf('\0');
    return nul < 0 ? buffer : buffer.left(nul);
}

// Hexadecimal text read as the runtime reads an "&h" number: up to four
// digits make a 16-bit value, up to eight a 32-bit one, both signed.
qint64 signedHexValue(const QString& digits)
{
    const qint64 v = HexDigitsValue(digits);
    if (v < 0)
        return 0;
    if (digits.size() <= 4)
        return qint16(quint16(v));
    return qint32(quint32(v));
}

} // namespace

QString RegistryValue::text(const QByteArray& buffer, int type)
{
    switch (type) {
    case String:
        return QString::fromLocal8Bit(beforeFirstNul(buffer));
    case Number:
        return numberText(buffer);
    default:
        return {};
    }
}

QString RegistryValue::numberText(const QByteArray& buffer)
{
    const QByteArray bytes = beforeFirstNul(buffer);
    QString digits;
    for (qsizetype i = bytes.size() - 1; i >= 0; --i)
        digits += QString::number(quint8(bytes[i]), 16).toUpper();
    return QString::number(signedHexValue(digits));
}

#ifdef Q_OS_WIN

bool RegistryValue::GetKeyValue(HKEY keyRoot, const QString& keyName,
                                const QString& valueName, QString& keyValue)
{
    keyValue.clear();
    // The access mask the lookup has always asked for (read and write).
    constexpr REGSAM fullAccess = 0x2003F;
    HKEY key = nullptr;
    const QByteArray name = keyName.toLocal8Bit();
    if (RegOpenKeyExA(keyRoot, name.constData(), 0, fullAccess, &key) != ERROR_SUCCESS) {
        if (key)
            RegCloseKey(key);
        return false;
    }

    QByteArray buffer(1024, '\0');
    DWORD size = DWORD(buffer.size());
    DWORD type = 0;
    const QByteArray value = valueName.toLocal8Bit();
    const LONG rc = RegQueryValueExA(key, value.constData(), nullptr, &type,
                                     reinterpret_cast<LPBYTE>(buffer.data()), &size);
    RegCloseKey(key);
    if (rc != ERROR_SUCCESS)
        return false;

    keyValue = text(buffer, int(type));
    return true;
}

#endif
