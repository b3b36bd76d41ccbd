#pragma once

#include <QStringList>

class CliSession;

// home: drives the unit to its home position.
int home(CliSession& session, const QStringList& args);
// move [--continuous] [--dwell TENTHS]: the move test; Ctrl-C is STOP.
int move(CliSession& session, const QStringList& args);
