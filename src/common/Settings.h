#pragma once

#include <QString>

// The per-user settings store: section "Settings", values kept as decimal
// text and read back as 16-bit integers (the window position as a number).
// A missing key gives its default; nothing is ever deleted.
class Settings {
public:
    static QString section() { return QStringLiteral("Settings"); }

    static qint16 readInt(const QString& key, qint16 defaultValue);
    static float readSingle(const QString& key, float defaultValue);
    static QString readText(const QString& key, const QString& defaultValue = {});
    static void writeInt(const QString& key, qint16 value);
    static void writeText(const QString& key, const QString& value);

    // Keeps the store in dir instead of the user's own (tests only).
    static void useLocation(const QString& dir);
};
