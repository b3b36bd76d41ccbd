#include "common/Settings.h"

#include "common/NumberText.h"
#include "common/RuntimeError.h"

#include <QSettings>

namespace {

QString g_location;

QSettings::Format storeFormat()
{
#ifdef Q_OS_WIN
    if (g_location.isEmpty())
        return QSettings::NativeFormat;
#endif
    return QSettings::IniFormat;
}

QSettings openStore()
{
    if (!g_location.isEmpty())
        return QSettings(g_location + QStringLiteral("/KTR-W5.ini"), QSettings::IniFormat);
    return QSettings(storeFormat(), QSettings::UserScope,
                     QStringLiteral("KTR-W5"), QStringLiteral("KTR-W5"));
}

QString key(const char* name)
{
    return Settings::section() + u'/' + QLatin1StringView(name);
}

} // namespace

QString Settings::textOf(const char* name, const QString& defaultValue)
{
    return openStore().value(key(name), defaultValue).toString();
}

QString Settings::read(const TextSetting& key)
{
    return textOf(key.name, QString::fromLatin1(key.defaultValue));
}

// A stored text that is not a number gives the default rather than stopping
// the program at start-up.
qint16 Settings::read(const IntSetting& key)
{
    try {
        return TextToInt16(textOf(key.name, QString::number(key.defaultValue)));
    } catch (const RuntimeError&) {
        return key.defaultValue;
    }
}

float Settings::read(const SingleSetting& key)
{
    try {
        return float(ToNumber(textOf(key.name, QString::number(key.defaultValue))));
    } catch (const RuntimeError&) {
        return key.defaultValue;
    }
}

void Settings::write(const IntSetting& key, qint16 value)
{
    store(key.name, QString::number(value));
}

void Settings::write(const TextSetting& key, const QString& value)
{
    store(key.name, value);
}

void Settings::store(const char* name, const QString& text)
{
    QSettings s = openStore();
    s.setValue(key(name), text);
    s.sync();
}

void Settings::useLocation(const QString& dir)
{
    g_location = dir;
}
