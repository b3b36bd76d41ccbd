#include "device/widgets/DeviceDialog.h"

#include "common/widgets/CaptionLoader.h"
#include "common/widgets/F1Filter.h"
#include "common/widgets/Twips.h"
#include "device/widgets/SizeListCombo.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFocusEvent>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

constexpr int TitleMsg = 4320;
constexpr int ExplanationMsg = 4321;
constexpr int SizeMsg = 4322;
constexpr int PgUseMsg = 4323;
constexpr int SetMsg = 4750;
constexpr int CancelMsg = 4751;
constexpr int OffsetTwips = 500;

template<typename T>
T* control(QWidget* parent, const char* name, int caption)
{
    auto* w = new T(parent);
    w->setObjectName(QString::fromLatin1(name));
    CaptionLoader::setTag(w, caption);
    return w;
}

} // namespace

DeviceDialog::DeviceDialog(DeviceList& devices, Prompter& prompter, const QComboBox* mainActSize,
                           QWidget* mainWindow)
    : QDialog(mainWindow)
    , m_selection(devices, prompter)
    , m_mainActSize(mainActSize)
    , m_mainWindow(mainWindow)
{
    setObjectName(QStringLiteral("frmDevice"));
    CaptionLoader::setTag(this, TitleMsg);
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    installEventFilter(new F1Filter(this));
    buildControls();
}

void DeviceDialog::buildControls()
{
    lblDeviceSetumei = control<QLabel>(this, "lblDeviceSetumei", ExplanationMsg);
    lblDeviceSetumei->setWordWrap(true);
    lblDeviceSize = control<QLabel>(this, "lblDeviceSize", SizeMsg);
    comboDeviceSize = control<QComboBox>(this, "comboDeviceSize", 0);
    comboDeviceSize->setMinimumContentsLength(4);
    lblDeviceSize->setBuddy(comboDeviceSize);
    chkDevPgUse = control<QCheckBox>(this, "chkDevPgUse", PgUseMsg);
    // Offered once the device list has been read.
    chkDevPgUse->setEnabled(false);
    chkDevPgUse->setVisible(false);
    cmdDeviceSet = control<QPushButton>(this, "cmdDeviceSet", SetMsg);
    cmdDeviceSet->setDefault(true);
    cmdDeviceCancel = control<QPushButton>(this, "cmdDeviceCancel", CancelMsg);

    auto* choice = new QGridLayout;
    choice->addWidget(lblDeviceSize, 0, 0);
    choice->addWidget(comboDeviceSize, 0, 1, Qt::AlignLeft);
    choice->addWidget(chkDevPgUse, 1, 1);
    choice->setColumnStretch(1, 1);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(cmdDeviceSet);
    buttons->addWidget(cmdDeviceCancel);
    auto* v = new QVBoxLayout(this);
    v->addWidget(lblDeviceSetumei);
    v->addSpacing(8);
    v->addLayout(choice);
    v->addStretch();
    v->addLayout(buttons);
    // A fixed dialog, as wide as the explanation reads well in either language.
    v->setSizeConstraint(QLayout::SetFixedSize);
    lblDeviceSetumei->setFixedWidth(fontMetrics().height() * 20);

    connect(cmdDeviceSet, &QPushButton::clicked, this, &DeviceDialog::cmdDeviceSet_Click);
    connect(cmdDeviceCancel, &QPushButton::clicked, this, &DeviceDialog::cmdDeviceCancel_Click);
    connect(comboDeviceSize, &QComboBox::activated, this, &DeviceDialog::comboDeviceSize_Click);
    comboDeviceSize->installEventFilter(this);
}

bool DeviceDialog::selectDevice()
{
    Form_Load();
    exec();
    return m_selection.Cancelled;
}

void DeviceDialog::Form_Load()
{
    if (m_mainWindow) {
        const int offset = Twips::toPixels(OffsetTwips);
        move(m_mainWindow->window()->pos() + QPoint(offset, offset));
    }
    CaptionLoader::apply(this);
    m_selection.Form_Load(m_mainActSize ? m_mainActSize->currentText() : QString());
    showSelection();
}

void DeviceDialog::cmdDeviceSet_Click()
{
    takeControls();
    m_selection.cmdDeviceSet_Click();
    accept();
}

void DeviceDialog::cmdDeviceCancel_Click()
{
    m_selection.cmdDeviceCancel_Click();
    QDialog::reject();
}

void DeviceDialog::reject()
{
    m_selection.Form_QueryUnload(0);
    QDialog::reject();
}

// A click in the size list and leaving it refresh the encoder box.
void DeviceDialog::comboDeviceSize_Click()
{
    takeControls();
    m_selection.DispPgUse();
    showSelection();
}

bool DeviceDialog::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == comboDeviceSize && event->type() == QEvent::FocusOut
        && static_cast<QFocusEvent*>(event)->reason() != Qt::PopupFocusReason)
        comboDeviceSize_Click();
    return QDialog::eventFilter(watched, event);
}

void DeviceDialog::takeControls()
{
    m_selection.comboDeviceSize.setText(comboDeviceSize->currentText());
    m_selection.chkDevPgUse = chkDevPgUse->isChecked() ? 1 : 0;
}

void DeviceDialog::showSelection()
{
    SizeListCombo::show(m_selection.comboDeviceSize, comboDeviceSize);
    chkDevPgUse->setChecked(m_selection.chkDevPgUse == 1);
    chkDevPgUse->setEnabled(m_selection.chkDevPgUseEnabled);
    chkDevPgUse->setVisible(m_selection.chkDevPgUseVisible);
}
