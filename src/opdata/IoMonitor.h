#pragma once

#include "opdata/IoBits.h"

#include <QObject>
#include <QTimer>

struct SequenceContext;
class IoMonitorView;

// The input/output monitor: while it runs, every tick of timerInputOutput1
// reads the controller's inputs ("0RI") and outputs ("0RO") and shows them on
// the lamps; an output lamp clicked by the user is inverted with "0WO" on the
// next tick. The controller is put into its monitoring mode ("0CM" "7") on
// the first tick and back ("0CM" "0") when the monitor stops.
class IoMonitor : public QObject {
    Q_OBJECT
public:
    // A poll is about 26 characters on the line (10 sent, 15 received), some
    // 27 ms at 9600 bit/s; every 200 ms keeps the lamps live and leaves the
    // line mostly idle.
    static constexpr int PollIntervalMs = 200;

    IoMonitor(SequenceContext& ctx, IoMonitorView& view, QObject* parent = nullptr);

    // cmdIoMonitor: starts when stopped, stops when running.
    void toggle();
    void start();
    // The user asked to stop: the next tick leaves monitoring mode, and
    // the other commands come back after it.
    void stop();

    // One tick of timerInputOutput1.
    void poll();

    // An output lamp was clicked: inverted on the next tick.
    void outputClicked(IoLamp lamp);

    // Lamps from the bit tables, or all off.
    void IoStateHyoji();
    void AllLED_Off();

    QTimer timerInputOutput1;

    IoBits::InputTable InputBits{};
    IoBits::OutputTable OutputBits{};
    IoBits::OutputTable OutputToggle{};

    bool mIoRunning = false;
    bool mIoFirstPoll = false;
    bool mIoStopRequest = false;
    bool mIoWritePending = false;
    bool mIoReading = false;

signals:
    // The lamps show a new reading of the inputs and outputs.
    void lampsShown();

private:
    bool readInputsAndOutputs();
    void writeToggledOutputs();
    void leaveMonitorMode();
    void releaseCommands();
    void failed();
    void clearFlags();

    SequenceContext& m_ctx;
    IoMonitorView& m_view;
    bool m_inPoll = false;
};
