#pragma once

#include "opdata/IoMonitor.h"
#include "opdata/IoMonitorView.h"
#include "record/OutputJournal.h"

#include <QList>
#include <QObject>
#include <QStringList>

#include <array>

class CliSession;

// io [--watch] [--toggle OUT]...: the input/output monitor of the page on
// the command line. The monitor's reading is printed as one line of lamp
// states ("STB=0 STOP=1 ALM=0 RDY=1 IN-P=1 OUT1=0 OUT2=0"). Outputs named
// with --toggle are switched after the first reading, and the line shows
// them read back, each switch entered in the journal. --watch prints the first line and then every change until
// Ctrl-C; the controller leaves its monitoring mode at the end either way.
class IoCommand : public QObject, public IoMonitorView {
    Q_OBJECT
public:
    explicit IoCommand(CliSession& session, QObject* parent = nullptr);

    int run(const QStringList& args);

    // The lamp states as the line prints them, in the lamps' order.
    static QString lampLine(const std::array<bool, AllIoLamps.size()>& lamps);

    void setLamp(IoLamp lamp, bool on) override;
    void setMonitorCaption(const QString&) override {}
    void setOtherCommandsEnabled(bool) override {}

private:
    int parse(const QStringList& args);
    void readingShown();
    void print();
    void finish();

    CliSession& m_session;
    IoMonitor m_monitor;
    OutputJournal m_journal;
    std::array<bool, AllIoLamps.size()> m_lamps{};
    QList<IoLamp> m_toggles;
    bool m_watch = false;
    int m_readings = 0;
    bool m_finishing = false;
    bool m_failureTold = false;
    QString m_printed;
};

int io(CliSession& session, const QStringList& args);
