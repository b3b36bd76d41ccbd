#pragma once

#include "opdata/IoMonitorView.h"
#include "opdata/OpDataState.h"
#include "opdata/OpDataView.h"

#include "support/RecordingLock.h"

#include <QHash>
#include <QStringList>

// Stand-ins for the widgets the operation data sequences drive. Each records
// what it was asked to do, in order, so tests can check what reached the screen.

class FakeOpDataView : public OpDataView {
public:
    explicit FakeOpDataView(const OpDataState& state)
        : m_state(state)
    {
    }

    OpDataScreen screen() const override { return shown; }
    void showScreen(const OpDataScreen& screen) override
    {
        shown = screen;
        ++showCount;
        eventsOffWhileShown = eventsOffWhileShown && m_state.mEventsOff;
    }
    void setSpeedChoiceEnabled(bool on) override { calls << QStringLiteral("comboVEL %1").arg(on); }
    void setHomeEnabled(bool on) override { calls << QStringLiteral("cmdHOME %1").arg(on); }
    void setResetEnabled(bool on) override { calls << QStringLiteral("cmdRESET %1").arg(on); }
    void setStopEnabled(bool on) override { calls << QStringLiteral("cmdSTOP %1").arg(on); }

    OpDataScreen shown;
    int showCount = 0;
    bool eventsOffWhileShown = true; // every load happened with mEventsOff set
    QStringList calls;

private:
    const OpDataState& m_state;
};

class FakeIoView : public IoMonitorView {
public:
    void setLamp(IoLamp lamp, bool on) override { lamps[IoBits::objectName(lamp)] = on; }
    void setMonitorCaption(const QString& text) override { caption = text; }
    void setOtherCommandsEnabled(bool on) override { othersEnabled = on; }

    int lit() const { return int(lamps.values().count(true)); }

    QHash<QString, bool> lamps;
    QString caption;
    bool othersEnabled = true;
};

// A screen with the example data: speed choice 30, VEL 9000, ACC 1,
// 12 divisions, gear 1, CW.
inline OpDataScreen exampleScreen()
{
    OpDataScreen s;
    s.comboVEL = QStringLiteral("30");
    s.comboACC = QStringLiteral("1");
    s.txtVEL = QStringLiteral("9000");
    s.txtACC = QStringLiteral("1");
    s.txtDIVISION = QStringLiteral("12");
    s.txtGEAR = QStringLiteral("1");
    s.optCW = true;
    return s;
}

// Row 0's numbers at the given columns, so several compare at once.
inline QList<qint64> numbers(const PosiTable& table, std::initializer_list<PosiTable::Column> columns)
{
    QList<qint64> out;
    for (PosiTable::Column column : columns)
        out << table.number(column);
    return out;
}

// The screen's text fields: speed, acceleration, divisions, gear, then the
// speed and acceleration choices.
inline QStringList fieldTexts(const OpDataScreen& s)
{
    return {s.txtVEL, s.txtACC, s.txtDIVISION, s.txtGEAR, s.comboVEL, s.comboACC};
}
