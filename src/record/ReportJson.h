#pragma once

#include <QByteArray>
#include <QJsonObject>

struct ReportData;

// The commissioning report as one JSON document, for a plant's own
// database. Its fields are described in docs/REPORT.md; a field that was
// not read is null, never a made-up value.
class ReportJson {
public:
    static constexpr int FormatVersion = 1;

    static QJsonObject toJson(const ReportData& data);
    static QByteArray document(const ReportData& data);
};
