#include "link/PortNaming.h"

#include "common/Settings.h"

#include <QSerialPortInfo>

#include <algorithm>
#include <tuple>

namespace {

int groupOf(const QString& location)
{
    static const QStringList groups{QStringLiteral("/dev/ttyUSB"), QStringLiteral("/dev/ttyACM"),
                                    QStringLiteral("/dev/ttyS")};
    for (int i = 0; i < groups.size(); ++i) {
        const QString& prefix = groups[i];
        if (location.startsWith(prefix) && location.size() > prefix.size()
            && location[prefix.size()].isDigit())
            return i;
    }
    return int(groups.size());
}

// A name split into its stem and trailing number, so numbers sort as numbers.
std::tuple<int, QString, qint64, QString> sortKey(const QString& location)
{
    qsizetype digits = location.size();
    while (digits > 0 && location[digits - 1].isDigit())
        --digits;
    const QString stem = location.left(digits);
    const qint64 number = location.mid(digits).toLongLong();
    return {groupOf(location), stem, number, location};
}

QStringList systemLocations()
{
    QStringList locations;
    for (const QSerialPortInfo& info : QSerialPortInfo::availablePorts())
        locations << info.systemLocation();
    return locations;
}

} // namespace

QStringList PortNaming::ordered(const QStringList& locations)
{
    QStringList out = locations;
    std::sort(out.begin(), out.end(), [](const QString& a, const QString& b) {
        return sortKey(a) < sortKey(b);
    });
    return out;
}

QString PortNaming::deviceFor(int n, const QStringList& locations)
{
    const QStringList devices = ordered(locations);
    if (n < 1 || n > devices.size())
        return {};
    return devices[n - 1];
}

QString PortNaming::deviceFor(int n)
{
#ifdef Q_OS_WIN
    return n < 1 ? QString() : QStringLiteral("COM%1").arg(n);
#else
    return deviceFor(n, systemLocations());
#endif
}

QString PortNaming::storedName()
{
    return Settings::read(Setting::PortName).trimmed();
}

void PortNaming::storeName(const QString& device)
{
    Settings::write(Setting::PortName, device.trimmed());
}
