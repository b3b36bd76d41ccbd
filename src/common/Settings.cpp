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

QSettings store()
{
    if (!g_location.isEmpty())
        return QSettings(g_location + QStringLiteral("/KTR-W5.ini"), QSettings::IniFormat);
    return QSettings(storeFormat(), QSettings::UserScope,
                     QStringLiteral("KTR-W5"), QStringLiteral("KTR-W5"));
}

QString key(const QString& name)
{
    return Settings::section() + u'/' + name;
}

} // namespace

QString Settings::readText(const QString& name, const QString& defaultValue)
{
    return store().value(key(name), defaultValue).toString();
}

// A stored text that is not a number gives the default rather than stopping
// the program at start-up.
qint16 Settings::readInt(const QString& name, qint16 defaultValue)
{
    try {
        return TextToInt16(readText(name, QString::number(defaultValue)));
    } catch (const RuntimeError&) {
        return defaultValue;
    }
}

float Settings::readSingle(const QString& name, float defaultValue)
{
    try {
        return float(ToNumber(readText(name, QString::number(defaultValue))));
    } catch (const RuntimeError&) {
        return defaultValue;
    }
}

void Settings::writeInt(const QString& name, qint16 value)
{
    writeText(name, QString::number(value));
}

void Settings::writeText(const QString& name, const QString& value)
{
    QSettings s = store();
    s.setValue(key(name), value);
    s.sync();
}

void Settings::useLocation(const QString& dir)
{
    g_location = dir;
}
