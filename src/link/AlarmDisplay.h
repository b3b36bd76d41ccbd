#pragma once

#include <QString>

// The alarm lamps (imgAlarmLed red, imgAlarmGreen green) and the status
// label lblstatus of the main window, as the link sees them.
class AlarmDisplay {
public:
    virtual ~AlarmDisplay() = default;

    // true: red lamp shown, green hidden; false: the reverse.
    virtual void showAlarm(bool on) = 0;
    virtual void setStatusText(const QString& text) = 0;
};
