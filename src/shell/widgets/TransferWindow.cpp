#include "shell/widgets/TransferWindow.h"

#include "common/widgets/CaptionLoader.h"

#include <QCloseEvent>
#include <QLabel>
#include <QProgressBar>
#include <QVBoxLayout>

TransferWindow::TransferWindow(QWidget* parent)
    : QWidget(parent, Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint)
{
    setObjectName(QStringLiteral("frmTrance"));
    CaptionLoader::setTag(this, 4120);
    lblMessage = new QLabel(this);
    lblMessage->setObjectName(QStringLiteral("lblMessage"));
    lblMessage->setMinimumWidth(lblMessage->fontMetrics().averageCharWidth() * 45);
    ProgressBar1 = new QProgressBar(this);
    ProgressBar1->setObjectName(QStringLiteral("ProgressBar1"));
    ProgressBar1->setTextVisible(false);

    auto* v = new QVBoxLayout(this);
    v->setContentsMargins(18, 14, 18, 14);
    v->setSpacing(10);
    v->addWidget(lblMessage);
    v->addWidget(ProgressBar1);

    CaptionLoader::apply(this);
}

void TransferWindow::closeEvent(QCloseEvent* event)
{
    // Only the transfer that opened it may close it.
    event->ignore();
}
