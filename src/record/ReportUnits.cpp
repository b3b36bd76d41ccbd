#include "record/ReportUnits.h"

#include "common/Settings.h"

#include <QJsonDocument>
#include <QJsonObject>

namespace {

// A stored text that is not such an object counts as none.
QJsonObject stored()
{
    return QJsonDocument::fromJson(Settings::read(Setting::ReportUnits).toUtf8()).object();
}

} // namespace

QString ReportUnits::lastFor(const QString& port)
{
    return stored().value(port).toString();
}

void ReportUnits::remember(const QString& port, const QString& unit)
{
    QJsonObject units = stored();
    units.insert(port, unit);
    Settings::write(Setting::ReportUnits, QString::fromUtf8(QJsonDocument(units).toJson(QJsonDocument::Compact)));
}
