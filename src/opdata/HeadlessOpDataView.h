#pragma once

#include "opdata/OpDataView.h"

// The operation data tab of a program without a window: the sequences read
// and fill a screen held as plain values, and nothing is there to enable.
class HeadlessOpDataView : public OpDataView {
public:
    OpDataScreen shown;

    OpDataScreen screen() const override { return shown; }
    void showScreen(const OpDataScreen& screen) override { shown = screen; }
    void setSpeedChoiceEnabled(bool) override {}
    void setHomeEnabled(bool) override {}
    void setResetEnabled(bool) override {}
    void setStopEnabled(bool) override {}
};
