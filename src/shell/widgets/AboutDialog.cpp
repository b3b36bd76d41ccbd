#include "shell/widgets/AboutDialog.h"

#include "common/VersionText.h"
#include "common/widgets/CaptionLoader.h"
#include "shell/widgets/AppIcon.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

QLabel* label(QWidget* parent, const char* name, int caption)
{
    auto* l = new QLabel(parent);
    l->setObjectName(QString::fromLatin1(name));
    if (caption > 0)
        CaptionLoader::setTag(l, caption);
    l->setWordWrap(true);
    return l;
}

} // namespace

AboutDialog::AboutDialog(Prompter& prompter, QWidget* parent)
    : QDialog(parent)
    , m_prompter(prompter)
{
    setObjectName(QStringLiteral("frmAbout"));
    CaptionLoader::setTag(this, 4140);

    picIcon = label(this, "picIcon", 0);
    picIcon->setPixmap(AppIcon::pixmap(64, devicePixelRatioF()));
    lblTitle = label(this, "lblTitle", 4141);
    QFont big = lblTitle->font();
    big.setPointSizeF(big.pointSizeF() * 1.6);
    big.setBold(true);
    lblTitle->setFont(big);
    lblVersion = label(this, "lblVersion", 0);
    lblDescription = label(this, "lblDescription", 4142);
    lblDisclaimer = label(this, "lblDisclaimer", 4143);
    lblHpAddress = label(this, "lblHpAddress", 4144);
    lblHpAddress->setTextInteractionFlags(Qt::TextSelectableByMouse);
    cmdOK = new QPushButton(this);
    cmdOK->setObjectName(QStringLiteral("cmdOK"));
    CaptionLoader::setTag(cmdOK, 4145);
    cmdOK->setDefault(true);
    cmdSysInfo = new QPushButton(this);
    cmdSysInfo->setObjectName(QStringLiteral("cmdSysInfo"));
    CaptionLoader::setTag(cmdSysInfo, 4146);

    auto* text = new QVBoxLayout;
    text->addWidget(lblTitle);
    text->addWidget(lblVersion);
    text->addSpacing(6);
    text->addWidget(lblDescription);
    text->addSpacing(6);
    text->addWidget(lblHpAddress);
    text->addStretch();
    auto* top = new QHBoxLayout;
    top->setSpacing(18);
    top->addWidget(picIcon, 0, Qt::AlignTop);
    top->addLayout(text, 1);

    auto* line = new QFrame(this);
    line->setFrameShape(QFrame::HLine);
    line->setFrameShadow(QFrame::Sunken);

    auto* buttons = new QVBoxLayout;
    buttons->addWidget(cmdOK);
    buttons->addWidget(cmdSysInfo);
    auto* bottom = new QHBoxLayout;
    bottom->addWidget(lblDisclaimer, 1);
    bottom->addLayout(buttons);

    auto* v = new QVBoxLayout(this);
    v->addLayout(top);
    v->addWidget(line);
    v->addLayout(bottom);
    setFixedWidth(fontMetrics().height() * 28);

    connect(cmdOK, &QPushButton::clicked, this, &QDialog::accept);
    connect(cmdSysInfo, &QPushButton::clicked, this, [this] { m_sysInfo.StartSysInfo(m_prompter); });
}

void AboutDialog::Form_Load()
{
    CaptionLoader::apply(this);
    lblVersion->setText(ProgramVersionText());
}
