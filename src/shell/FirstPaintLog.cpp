#include "shell/FirstPaintLog.h"

#include <QDateTime>
#include <QEvent>
#include <QLoggingCategory>

namespace {
Q_LOGGING_CATEGORY(lcStartup, "ktr.startup", QtWarningMsg)
} // namespace

FirstPaintLog::FirstPaintLog(QObject& window)
    : QObject(&window)
{
    window.installEventFilter(this);
}

bool FirstPaintLog::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Paint) {
        qCInfo(lcStartup).noquote() << watched->objectName() << "first painted at"
                                    << QDateTime::currentMSecsSinceEpoch() << "ms since the epoch";
        watched->removeEventFilter(this);
    }
    return false;
}
