#pragma once

#include <QObject>

// Discards the F1 key in every window while the stored language is not
// Japanese: the help exists in Japanese only. Installed on the application.
class F1Filter : public QObject {
    Q_OBJECT
public:
    using QObject::QObject;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
};
