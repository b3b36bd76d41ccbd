#include "shell/widgets/AlarmLamps.h"

#include "common/widgets/Lamp.h"

#include <QLabel>

AlarmLamps::AlarmLamps(Lamp* red, Lamp* green, QLabel* status)
    : m_red(red)
    , m_green(green)
    , m_status(status)
{
}

void AlarmLamps::showAlarm(bool on)
{
    if (m_red)
        m_red->setVisible(on);
    if (m_green)
        m_green->setVisible(!on);
}

void AlarmLamps::setStatusText(const QString& text)
{
    if (m_status)
        m_status->setText(text);
}
