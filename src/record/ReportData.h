#pragma once

#include "opdata/IoBits.h"
#include "record/JournalEntry.h"

#include <QDateTime>
#include <QList>
#include <QString>
#include <QVariant>

#include <array>
#include <optional>

// One named parameter as the report lists it.
struct ReportParameter {
    QString name;
    QVariant value;    // as read: a number, or the motor code's text
    QVariant standard; // what the standard-parameters button sets; invalid when it sets none

    bool differs() const { return standard.isValid() && standard != value; }
};

// The operation data as read, with the speed choice derived back from VEL.
struct ReportOpData {
    int vel = 0;
    int acc = 0;
    bool ccw = false;
    int division = 0;
    int gear = 0;
    int speedChoice = 0;
};

// Everything one commissioning report shows, each value read from the
// controller, the journal or given by the user; nothing filled in.
struct ReportData {
    QDateTime readAt;
    QString port;
    QString unit;
    QString note;
    QString controllerVersion; // "1.00"
    QString controllerType;    // the type code of the version reply
    QString motorCode;         // the actuator as its parameters name it
    QString actuatorSize;      // as the size list shows it ("28", "SP")
    bool encoder = false;      // FUNCTION: an encoder is fitted
    QList<ReportParameter> parameters;
    std::optional<double> currentAmperes; // the special actuator's only
    ReportOpData opData;
    std::array<bool, AllIoLamps.size()> lamps{};
    QList<JournalEntry> journal;
    int journalDamaged = 0;
};
