#pragma once

#include <QObject>

#include <functional>

// The one primitive that waits. Sequences are straight lines of steps; where
// one must wait (a reply, a pause, a status poll, a dwell) it waits here, in a
// nested event loop that keeps the window painting and the timers ticking and
// costs no CPU while nothing happens.
//
// A condition is looked at again whenever wake() is called: whoever changes a
// flag that a wait may be watching calls wake() after changing it.
// abortAll() (the window closing, Ctrl-C, the application quitting) ends
// every wait, and every later one at once, so the stacks unwind before
// anything is deleted.
class Waiter {
public:
    enum class Result {
        Done,
        TimedOut,
        Aborted
    };

    // timeoutMs < 0: no time limit.
    static Result waitUntil(const std::function<bool()>& done, int timeoutMs = -1);

    // A plain pause that still serves events.
    static Result sleep(int ms);

    static void wake();
    static void abortAll();
    // A wait is in progress somewhere down the stack.
    static bool waiting();
    static bool aborted();
    // Only for tests that abort on purpose and go on with the next case.
    static void clearAbort();
};
