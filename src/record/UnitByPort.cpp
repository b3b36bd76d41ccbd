#include "record/UnitByPort.h"

#include "common/Settings.h"

#include <QJsonDocument>
#include <QJsonObject>

namespace {

// A stored text that is not such an object counts as none.
QJsonObject stored()
{
    return QJsonDocument::fromJson(Settings::read(Setting::UnitByPort).toUtf8()).object();
}

} // namespace

QString UnitByPort::lastFor(const QString& port)
{
    return stored().value(port).toString();
}

void UnitByPort::remember(const QString& port, const QString& unit)
{
    QJsonObject units = stored();
    units.insert(port, unit);
    Settings::write(Setting::UnitByPort, QString::fromUtf8(QJsonDocument(units).toJson(QJsonDocument::Compact)));
}
