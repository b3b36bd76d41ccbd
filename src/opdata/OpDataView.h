#pragma once

#include "opdata/OpDataScreen.h"

// The operation data tab as the sequences see it. The page implements it.
class OpDataView {
public:
    virtual ~OpDataView() = default;

    // What the controls hold now.
    virtual OpDataScreen screen() const = 0;
    // Loads values into the controls. The caller sets mEventsOff meanwhile;
    // the page suppresses the speed calculation around loading txtGEAR, so loading
    // never recomputes the speed value.
    virtual void showScreen(const OpDataScreen& screen) = 0;

    virtual void setSpeedChoiceEnabled(bool enabled) = 0; // comboVEL
    virtual void setHomeEnabled(bool enabled) = 0;        // cmdHOME
    virtual void setResetEnabled(bool enabled) = 0;       // cmdRESET
    virtual void setStopEnabled(bool enabled) = 0;        // cmdSTOP
};
