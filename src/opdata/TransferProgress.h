#pragma once

#include "common/ControlLock.h"
#include "common/Waiter.h"

#include <QString>

// The progress of an operation data transfer, shown twice as the program
// always did: in the communicating window and in the bar over the status bar.
class TransferProgress {
public:
    // How long a finished step stays on the screen before the window goes:
    // long enough to be seen, short enough not to slow the work down.
    static constexpr int PauseMs = 100;

    explicit TransferProgress(ProgressDisplay& display)
        : m_display(display)
    {
    }

    void show(const QString& text, int maximum)
    {
        m_display.showTransfer(text, maximum);
        m_display.Disp_ProgressBar(maximum);
    }
    void step(int value)
    {
        m_display.setTransferProgress(value);
        m_display.setProgress(value);
    }
    // Keeps the step in sight for a moment; a display nobody watches does
    // not wait.
    void pause()
    {
        if (m_display.watched())
            Waiter::sleep(PauseMs);
    }
    void hide()
    {
        m_display.Hide_ProgressBar();
        m_display.hideTransfer();
    }

private:
    ProgressDisplay& m_display;
};
