#pragma once

#include <QWidget>

class QLabel;
class QTimer;

// The window shown while the program starts (frmSplash). Its timer, once
// enabled, marks the splash done after two seconds; start-up waits for that.
// The language is not decided yet when it shows, so its texts are given in
// both languages.
class SplashWindow : public QWidget {
    Q_OBJECT
public:
    explicit SplashWindow(QWidget* parent = nullptr);

    void Form_Load();
    // Enables timerSplash.
    void startTimer();
    bool done() const { return m_done; }

    QLabel* lblProduct;
    QLabel* lblSubtitle;
    QLabel* lblVersion;
    QLabel* lblWarning;
    QTimer* timerSplash;

private:
    void timerSplash_Timer();

    bool m_done = false;
};
