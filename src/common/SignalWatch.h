#pragma once

#include <QObject>

#include <initializer_list>
#include <memory>

// Termination signals (Ctrl-C, SIGTERM) turned into an event-loop signal:
// nothing but counting happens when a signal comes in, the program reacts
// in the event loop, so it can leave through its normal path. Where it can,
// the platform hands the signals to the loop directly; elsewhere a signal
// handler only counts and a short timer looks at the count.
class SignalWatch : public QObject {
    Q_OBJECT
public:
    // Call first thing in main, before any thread exists: from here on the
    // signals no longer end the program but wait for a SignalWatch.
    static void hold(std::initializer_list<int> signalNumbers);

    explicit SignalWatch(std::initializer_list<int> signalNumbers, QObject* parent = nullptr);
    ~SignalWatch() override;

signals:
    // count: how many of the signals came in since the last time (at least one).
    void arrived(int count);

private:
    struct Source;
    std::unique_ptr<Source> m_source;
};
