#pragma once

#include "common/SettingsKeys.h"

#include <QString>

// The per-user settings store: section "Settings", values kept as decimal
// text and read back as 16-bit integers (the window position as a number).
// A missing key gives its default; nothing is ever deleted.
class Settings {
public:
    static QString section() { return QStringLiteral("Settings"); }

    static qint16 read(const IntSetting& key);
    static float read(const SingleSetting& key);
    static QString read(const TextSetting& key);
    static void write(const IntSetting& key, qint16 value);
    static void write(const TextSetting& key, const QString& value);

    // The stored text as it is, whatever the key holds (empty when missing):
    // lets tests store what a hand-edited file may hold.
    template<typename T>
    static QString readText(const SettingsKey<T>& key)
    {
        return textOf(key.name, {});
    }
    template<typename T>
    static void writeText(const SettingsKey<T>& key, const QString& text)
    {
        store(key.name, text);
    }

    // Keeps the store in dir instead of the user's own (tests only).
    static void useLocation(const QString& dir);

private:
    static QString textOf(const char* name, const QString& defaultValue);
    static void store(const char* name, const QString& text);
};
