#include "sim/SignalQuit.h"

#include "common/SignalWatch.h"

#include <QCoreApplication>

#include <csignal>

void SignalQuit::blockTermination()
{
    SignalWatch::hold({SIGINT, SIGTERM});
}

SignalQuit::SignalQuit(QObject* parent)
    : QObject(parent)
{
    connect(new SignalWatch({SIGINT, SIGTERM}, this), &SignalWatch::arrived, this, [] { QCoreApplication::quit(); });
}
