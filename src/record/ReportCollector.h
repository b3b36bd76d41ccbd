#pragma once

#include "record/ReportData.h"

#include <QString>

struct SequenceContext;

// Reads the controller once for a commissioning report, with the other
// commands held off for the whole read and the transfer window showing it:
// the version ("0CM6", "0RV", "0%C" after an error reply), the parameter
// blocks 0, 1, 2 and 7, the operation data ("0CM6", "0RP01") and one reading
// of the inputs and outputs ("0CM7", "0RI", "0RO", "0CM0"). Then the
// journal's entries of the last 24 hours for the same port and unit.
class ReportCollector {
public:
    explicit ReportCollector(SequenceContext& ctx, QString journalDirectory = {});

    // 0 with data filled (its unit and note are kept as given); 1 when
    // another command runs or a read failed, the user told why.
    int collect(ReportData& data);

    // The device the link talks to, as the journal names it.
    static QString portText(const SequenceContext& ctx);

private:
    int readSteps(ReportData& data);
    int readVersion(ReportData& data);
    int readParameters(ReportData& data);
    int readOpData(ReportData& data);
    int readLamps(ReportData& data);
    void readJournal(ReportData& data) const;
    void step(int done);

    SequenceContext& m_ctx;
    QString m_journalDirectory;
};
