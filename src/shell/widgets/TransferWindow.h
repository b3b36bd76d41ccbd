#pragma once

#include <QWidget>

class QLabel;
class QProgressBar;

// The small window shown while the program talks to the controller
// (frmTrance): one line saying what is being done and a progress bar.
// The user cannot close it; the transfer hides it when done.
class TransferWindow : public QWidget {
    Q_OBJECT
public:
    explicit TransferWindow(QWidget* parent = nullptr);

    QLabel* lblMessage;
    QProgressBar* ProgressBar1;

protected:
    void closeEvent(QCloseEvent* event) override;
};
