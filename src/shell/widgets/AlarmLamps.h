#pragma once

#include "link/AlarmDisplay.h"

#include <QPointer>

class Lamp;
class QLabel;

// The controller's alarm state on the main window: the red lamp
// imgAlarmLed while an alarm is shown, the green imgAlarmGreen otherwise,
// and the error text in lblstatus.
class AlarmLamps : public AlarmDisplay {
public:
    AlarmLamps(Lamp* red, Lamp* green, QLabel* status);

    void showAlarm(bool on) override;
    void setStatusText(const QString& text) override;

private:
    QPointer<Lamp> m_red;
    QPointer<Lamp> m_green;
    QPointer<QLabel> m_status;
};
