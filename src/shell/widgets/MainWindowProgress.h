#pragma once

#include "common/ControlLock.h"

#include <QObject>
#include <QPointer>

class QProgressBar;
class QStatusBar;
class QWidget;
class TransferWindow;

// Progress of long transfers: the bar ProgressBar1 laid over the main
// window's status bar beside its texts, and the transfer window with its
// own bar.
class MainWindowProgress : public QObject, public ProgressDisplay {
    Q_OBJECT
public:
    MainWindowProgress(QWidget* mainWindow, QStatusBar* statusBar, QProgressBar* bar);

    void Disp_ProgressBar(int maximum) override;
    void setProgress(int value) override;
    int progress() const override;
    void Hide_ProgressBar() override;

    void showTransfer(const QString& text, int maximum) override;
    void setTransferProgress(int value) override;
    void hideTransfer() override;
    bool watched() const override { return true; }

    TransferWindow* transferWindow() const;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void placeBar();
    int textsRight() const;
    void paintNow(QWidget* w);

    QPointer<QWidget> m_mainWindow;
    QPointer<QStatusBar> m_statusBar;
    QPointer<QProgressBar> m_bar;
    QPointer<TransferWindow> m_transfer;
};
