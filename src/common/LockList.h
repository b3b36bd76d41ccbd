#pragma once

#include <QList>
#include <QObject>
#include <QPointer>

#include <functional>

// One control that an enable/disable routine switches: a widget or a menu's
// action. A control with a condition comes back, on unlocking, only while
// the condition holds.
struct LockEntry {
    QPointer<QObject> control;
    std::function<bool()> enableWhen = {};
};

// The controls of one routine, in the order the routine switches them.
using LockList = QList<LockEntry>;
