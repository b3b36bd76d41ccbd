#pragma once

#include <QObject>

// Logs, under the category ktr.startup (off unless switched on, as with
// QT_LOGGING_RULES="ktr.startup.info=true"), the wall-clock time at which a
// window is painted for the first time, so that start-up can be timed from
// outside the program.
class FirstPaintLog : public QObject {
    Q_OBJECT
public:
    explicit FirstPaintLog(QObject& window);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
};
