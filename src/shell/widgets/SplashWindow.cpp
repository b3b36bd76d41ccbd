#include "shell/widgets/SplashWindow.h"

#include "common/MessageTable.h"
#include "common/VersionText.h"
#include "common/Waiter.h"
#include "shell/widgets/AppIcon.h"

#include <QFrame>
#include <QHBoxLayout>
#include <QLabel>
#include <QTimer>
#include <QVBoxLayout>

namespace {

// Messages in Japanese, then the same in English, one to a line.
QString bothLanguages(std::initializer_list<int> ns)
{
    const MessageTable& table = MessageTable::instance();
    QStringList lines;
    for (int n : ns)
        lines << table.text(n);
    for (int n : ns)
        lines << table.text(MessageTable::EnglishBase + n);
    return lines.join(u'\n');
}

QLabel* label(QWidget* parent, const char* name, const QString& text)
{
    auto* l = new QLabel(text, parent);
    l->setObjectName(QString::fromLatin1(name));
    return l;
}

} // namespace

SplashWindow::SplashWindow(QWidget* parent)
    : QWidget(parent, Qt::SplashScreen | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint)
{
    setObjectName(QStringLiteral("frmSplash"));
    setAttribute(Qt::WA_DeleteOnClose, false);

    auto* icon = new QLabel(this);
    icon->setPixmap(AppIcon::pixmap(96, devicePixelRatioF()));
    lblProduct = label(this, "lblProduct", QStringLiteral("KTR-W5"));
    QFont big = lblProduct->font();
    big.setPointSizeF(big.pointSizeF() * 2.4);
    big.setBold(true);
    lblProduct->setFont(big);
    lblSubtitle = label(this, "lblSubtitle", bothLanguages({4130, 4131}));
    lblVersion = label(this, "lblVersion", {});
    lblWarning = label(this, "lblWarning", bothLanguages({4132}));
    QFont small = lblWarning->font();
    small.setPointSizeF(small.pointSizeF() * 0.85);
    lblWarning->setFont(small);

    auto* text = new QVBoxLayout;
    text->addWidget(lblProduct);
    text->addWidget(lblSubtitle);
    text->addSpacing(8);
    text->addWidget(lblVersion);
    text->addStretch();
    text->addWidget(lblWarning);

    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(28, 24, 28, 20);
    row->setSpacing(24);
    row->addWidget(icon, 0, Qt::AlignTop);
    row->addLayout(text);

    setAutoFillBackground(true);
    QPalette pal = palette();
    pal.setColor(QPalette::Window, QColor(0xf2, 0xf6, 0xfb));
    setPalette(pal);

    timerSplash = new QTimer(this);
    timerSplash->setObjectName(QStringLiteral("timerSplash"));
    timerSplash->setInterval(2000);
    // A coarse timer may end the splash up to a twentieth early.
    timerSplash->setTimerType(Qt::PreciseTimer);
    connect(timerSplash, &QTimer::timeout, this, &SplashWindow::timerSplash_Timer);
}

void SplashWindow::Form_Load()
{
    lblVersion->setText(ProgramVersionText());
}

void SplashWindow::startTimer()
{
    timerSplash->start();
}

void SplashWindow::timerSplash_Timer()
{
    m_done = true;
    timerSplash->stop();
    Waiter::wake();
}
