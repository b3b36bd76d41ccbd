#pragma once

#include "link/AlarmDisplay.h"

// Keeps what the link last showed on the lamps and the status label.
class RecordingAlarmDisplay : public AlarmDisplay {
public:
    void showAlarm(bool on) override
    {
        alarm = on;
        ++changes;
    }
    void setStatusText(const QString& text) override { status = text; }

    bool alarm = false;
    int changes = 0;
    QString status;
};
