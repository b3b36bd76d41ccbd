#include "shell/widgets/MainWindowProgress.h"

#include "common/widgets/Twips.h"
#include "shell/widgets/TransferWindow.h"

#include <QEvent>
#include <QLabel>
#include <QProgressBar>
#include <QStatusBar>

namespace {
// The bar sits this far below the status bar's top edge.
constexpr int BarTopTwips = 35;
// Room between the texts of the status bar and the bar.
constexpr int GapPixels = 6;
} // namespace

MainWindowProgress::MainWindowProgress(QWidget* mainWindow, QStatusBar* statusBar, QProgressBar* bar)
    : QObject(mainWindow)
    , m_mainWindow(mainWindow)
    , m_statusBar(statusBar)
    , m_bar(bar)
{
    m_bar->hide();
    m_statusBar->installEventFilter(this);
}

void MainWindowProgress::Disp_ProgressBar(int maximum)
{
    placeBar();
    m_bar->setMinimum(0);
    m_bar->setMaximum(maximum);
    m_bar->setValue(m_bar->minimum());
    m_bar->show();
    m_bar->raise();
    paintNow(m_bar);
}

void MainWindowProgress::setProgress(int value)
{
    m_bar->setValue(value);
    paintNow(m_bar);
}

int MainWindowProgress::progress() const
{
    return m_bar->value();
}

void MainWindowProgress::Hide_ProgressBar()
{
    m_bar->hide();
    m_bar->setValue(0);
}

void MainWindowProgress::showTransfer(const QString& text, int maximum)
{
    if (!m_transfer)
        m_transfer = new TransferWindow(m_mainWindow);
    m_transfer->lblMessage->setText(text);
    m_transfer->ProgressBar1->setRange(0, maximum);
    m_transfer->ProgressBar1->setValue(0);
    m_transfer->adjustSize();
    if (m_mainWindow) {
        const QRect frame = m_mainWindow->frameGeometry();
        m_transfer->move(frame.center() - m_transfer->rect().center());
    }
    m_transfer->show();
    m_transfer->raise();
    paintNow(m_transfer);
}

void MainWindowProgress::setTransferProgress(int value)
{
    if (!m_transfer)
        return;
    m_transfer->ProgressBar1->setValue(value);
    paintNow(m_transfer);
}

void MainWindowProgress::hideTransfer()
{
    if (m_transfer)
        m_transfer->hide();
}

bool MainWindowProgress::eventFilter(QObject* watched, QEvent* event)
{
    // The event type first: comparing with the guarded pointer casts to
    // QStatusBar, which the bar no longer is while it is being destroyed.
    if (event->type() == QEvent::Resize && watched == m_statusBar && m_bar->isVisible())
        placeBar();
    return QObject::eventFilter(watched, event);
}

// The bar takes the status bar's room right of its texts (the port in
// use), so that neither hides the other.
void MainWindowProgress::placeBar()
{
    const int top = Twips::toPixels(BarTopTwips);
    const int left = textsRight() + GapPixels;
    m_bar->setGeometry(left, top, qMax(0, m_statusBar->width() - left), m_statusBar->height() - top);
}

int MainWindowProgress::textsRight() const
{
    int right = 0;
    for (QLabel* text : m_statusBar->findChildren<QLabel*>(Qt::FindDirectChildrenOnly))
        if (text->isVisible())
            right = qMax(right, text->geometry().right() + 1);
    return right;
}

// The transfers wait with the events served, but a progress step should be
// on the screen before the next frame goes out.
void MainWindowProgress::paintNow(QWidget* w)
{
    if (w->isVisible())
        w->repaint();
}

TransferWindow* MainWindowProgress::transferWindow() const
{
    return m_transfer;
}
