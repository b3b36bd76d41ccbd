#include "cli/Interrupt.h"

#include "common/SignalWatch.h"
#include "common/Waiter.h"

#include <csignal>

void Interrupt::blockSignal()
{
    SignalWatch::hold({SIGINT});
}

Interrupt::Interrupt(QObject* parent)
    : QObject(parent)
{
    connect(new SignalWatch({SIGINT}, this), &SignalWatch::arrived, this, &Interrupt::onSignal);
}

void Interrupt::onSignal(int count)
{
    m_count += count;
    emit raised();
    if (m_abortsWaits || m_count > 1)
        Waiter::abortAll();
    Waiter::wake();
}
