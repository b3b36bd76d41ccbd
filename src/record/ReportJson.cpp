#include "record/ReportJson.h"

#include "common/VersionText.h"
#include "record/ReportData.h"

#include <QJsonArray>
#include <QJsonDocument>

namespace {

QJsonArray parameters(const ReportData& data)
{
    QJsonArray list;
    for (const ReportParameter& p : data.parameters) {
        list.append(QJsonObject{{"name", p.name},
                                {"value", QJsonValue::fromVariant(p.value)},
                                {"standard", p.standard.isValid() ? QJsonValue::fromVariant(p.standard) : QJsonValue()},
                                {"differs", p.differs()}});
    }
    return list;
}

QJsonObject opData(const ReportOpData& o)
{
    return {{"VEL", o.vel}, {"ACC", o.acc}, {"DIR", o.ccw ? "CCW" : "CW"}, {"DIVISION", o.division}, {"GEAR", o.gear}, {"SPEED", o.speedChoice}};
}

QJsonObject lamps(const ReportData& data)
{
    QJsonObject io;
    for (IoLamp lamp : AllIoLamps)
        io.insert(IoBits::label(lamp), data.lamps[size_t(IoBits::index(lamp))]);
    return io;
}

QJsonArray journal(const ReportData& data)
{
    QJsonArray list;
    for (const JournalEntry& entry : data.journal)
        list.append(entry.toJson());
    return list;
}

} // namespace

QJsonObject ReportJson::toJson(const ReportData& data)
{
    return {
        {"formatVersion", FormatVersion},
        {"programVersion", ProgramVersionText()},
        {"readAt", data.readAt.toOffsetFromUtc(data.readAt.offsetFromUtc()).toString(Qt::ISODate)},
        {"port", data.port},
        {"unit", data.unit},
        {"note", data.note},
        {"controller", QJsonObject{{"version", data.controllerVersion}, {"typeCode", data.controllerType}}},
        {"actuator", QJsonObject{{"size", data.actuatorSize}, {"motorCode", data.motorCode}, {"encoder", data.encoder}}},
        {"parameters", parameters(data)},
        {"currentA", data.currentAmperes ? QJsonValue(*data.currentAmperes) : QJsonValue()},
        {"operationData", opData(data.opData)},
        {"io", lamps(data)},
        {"journal", journal(data)},
        {"journalDamagedLines", data.journalDamaged},
    };
}

QByteArray ReportJson::document(const ReportData& data)
{
    return QJsonDocument(toJson(data)).toJson(QJsonDocument::Indented);
}
