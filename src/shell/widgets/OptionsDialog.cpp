#include "shell/widgets/OptionsDialog.h"

#include "common/MessageTable.h"
#include "common/NumberText.h"
#include "common/ProgramState.h"
#include "common/Settings.h"
#include "common/widgets/CaptionLoader.h"
#include "common/widgets/Twips.h"
#include "link/Link.h"
#include "link/PortNaming.h"
#include "link/Prompter.h"
#include "link/ReadBack.h"
#include "record/UnitByPort.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSerialPortInfo>
#include <QTabWidget>
#include <QVBoxLayout>

namespace {

constexpr int FirstPort = 1;
constexpr int LastPort = PortNaming::ScanPorts;
constexpr int DialogOffsetTwips = 500;
constexpr int VirtualControllerEntry = 5001;
constexpr int UnitCaption = 5627;

template<typename W>
W* named(QWidget* parent, const char* name, int caption)
{
    auto* w = new W(parent);
    w->setObjectName(QString::fromLatin1(name));
    if (caption > 0)
        CaptionLoader::setTag(w, caption);
    return w;
}

QLabel* note(QWidget* parent, const char* name, int caption)
{
    auto* l = named<QLabel>(parent, name, caption);
    l->setWordWrap(true);
    return l;
}

} // namespace

OptionsDialog::OptionsDialog(Link& link, Prompter& prompter, bool simulator, QWidget* mainWindow)
    : QDialog(mainWindow)
    , m_link(link)
    , m_prompter(prompter)
    , m_simulator(simulator)
    , m_mainWindow(mainWindow)
{
    setObjectName(QStringLiteral("frmOption"));
    CaptionLoader::setTag(this, 4151);

    SSTabOption = named<QTabWidget>(this, "SSTabOption", 0);
    SSTabOption->addTab(buildPortTab(), QString());
    SSTabOption->addTab(buildUnitTab(), QString());
    SSTabOption->addTab(buildLanguageTab(), QString());

    cmdOK = named<QPushButton>(this, "cmdOK", 4152);
    cmdOK->setDefault(true);
    cmdApply = named<QPushButton>(this, "cmdApply", 4153);
    cmdCancel = named<QPushButton>(this, "cmdCancel", 4154);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(cmdOK);
    buttons->addWidget(cmdApply);
    buttons->addWidget(cmdCancel);

    auto* v = new QVBoxLayout(this);
    v->addWidget(SSTabOption);
    v->addLayout(buttons);
    setMinimumWidth(fontMetrics().height() * 30);

    connect(cmdOK, &QPushButton::clicked, this, &OptionsDialog::cmdOK_Click);
    connect(cmdApply, &QPushButton::clicked, this, &OptionsDialog::cmdApply_Click);
    connect(cmdCancel, &QPushButton::clicked, this, &OptionsDialog::cmdCancel_Click);
    // Rounding is taken at the click itself; Cancel does not take it back.
    connect(optSutiSyori_0, &QRadioButton::clicked, this,
            [] { ProgramState::instance().gMmRoundUp = true; });
    connect(optSutiSyori_1, &QRadioButton::clicked, this,
            [] { ProgramState::instance().gMmRoundUp = false; });
}

QWidget* OptionsDialog::buildPortTab()
{
    auto* page = new QWidget(this);
    comboPortNo = named<QComboBox>(page, "comboPortNo", 0);
    comboPortName = named<QComboBox>(page, "comboPortName", 0);
    comboPortName->setEditable(true);
    comboPortName->setInsertPolicy(QComboBox::NoInsert);
    chkPortOccupy = named<QCheckBox>(page, "chkPortOccupy", 4157);
    chkConfirmWrites = named<QCheckBox>(page, "chkConfirmWrites", 5563);
    lblSimulatorNote = note(page, "lblSimulatorNote", 4158);
    lblSimulatorNote->setVisible(m_simulator);
    txtUnit = named<QLineEdit>(page, "txtUnit", 0);
    auto* unitCaption = named<QLabel>(page, "lblUnit", UnitCaption);
    unitCaption->setBuddy(txtUnit);
    connect(comboPortNo, &QComboBox::currentTextChanged, this, &OptionsDialog::showUnitOfChosenPort);
    connect(comboPortName, &QComboBox::currentTextChanged, this, &OptionsDialog::showUnitOfChosenPort);

    auto* portCaption = named<QLabel>(page, "lblPortNo", 4155);
    portCaption->setBuddy(comboPortNo);
    auto* deviceCaption = note(page, "lblPortName", 4156);
    deviceCaption->setBuddy(comboPortName);

    auto* v = new QVBoxLayout(page);
    auto* port = new QHBoxLayout;
    port->addWidget(portCaption);
    port->addWidget(comboPortNo, 1);
    v->addLayout(port);
    v->addSpacing(6);
    v->addWidget(deviceCaption);
    v->addWidget(comboPortName);
    v->addSpacing(6);
    auto* unit = new QHBoxLayout;
    unit->addWidget(unitCaption);
    unit->addWidget(txtUnit, 1);
    v->addLayout(unit);
    v->addSpacing(6);
    v->addWidget(chkPortOccupy);
    v->addWidget(chkConfirmWrites);
    v->addWidget(lblSimulatorNote);
    v->addStretch();
    return page;
}

QWidget* OptionsDialog::buildUnitTab()
{
    auto* page = new QWidget(this);
    framDispUnit = named<QGroupBox>(page, "framDispUnit", 4159);
    optDispPos_0 = named<QRadioButton>(framDispUnit, "optDispPos_0", 4160);
    optDispPos_1 = named<QRadioButton>(framDispUnit, "optDispPos_1", 4161);
    auto* unit = new QVBoxLayout(framDispUnit);
    unit->addWidget(optDispPos_0);
    unit->addWidget(optDispPos_1);

    auto* rounding = named<QGroupBox>(page, "framRounding", 4162);
    optSutiSyori_0 = named<QRadioButton>(rounding, "optSutiSyori_0", 4163);
    optSutiSyori_1 = named<QRadioButton>(rounding, "optSutiSyori_1", 4164);
    auto* round = new QVBoxLayout(rounding);
    round->addWidget(optSutiSyori_0);
    round->addWidget(optSutiSyori_1);

    lblTyuijikou = note(page, "lblTyuijikou", 4165);

    auto* v = new QVBoxLayout(page);
    v->addWidget(framDispUnit);
    v->addWidget(rounding);
    v->addWidget(lblTyuijikou);
    v->addStretch();
    return page;
}

QWidget* OptionsDialog::buildLanguageTab()
{
    auto* page = new QWidget(this);
    optLanguege_0 = named<QRadioButton>(page, "optLanguege_0", 4166);
    optLanguege_1 = named<QRadioButton>(page, "optLanguege_1", 4167);
    auto* v = new QVBoxLayout(page);
    v->addWidget(optLanguege_0);
    v->addWidget(optLanguege_1);
    v->addSpacing(6);
    v->addWidget(note(page, "lblLanguageNote", 4168));
    v->addStretch();
    return page;
}

void OptionsDialog::Form_Load()
{
    ProgramState& s = ProgramState::instance();
    CaptionLoader::apply(this);
    SSTabOption->setTabText(0, Msg(2505));
    SSTabOption->setTabText(1, Msg(2507));
    SSTabOption->setTabText(2, Msg(2508));

    // Only a number in range is read again; one outside is kept.
    if (s.gPortNo >= FirstPort && s.gPortNo <= LastPort)
        m_link.ReadPortSetting();
    m_link.ScanPorts();
    fillPortList();
    fillDeviceList();

    (s.gDispMmUnit ? optDispPos_0 : optDispPos_1)->setChecked(true);
    (s.gMmRoundUp ? optSutiSyori_0 : optSutiSyori_1)->setChecked(true);

    if (s.gLanguage != 1 && s.gLanguage != 2)
        s.gLanguage = Settings::read(Setting::Language);
    selectLanguage();

    chkPortOccupy->setChecked(s.gPortOccupy);
    chkConfirmWrites->setChecked(ReadBack::chosen());
    placeBesideMainWindow();
    lblTyuijikou->hide();
    framDispUnit->hide();
}

void OptionsDialog::fillPortList()
{
    comboPortNo->clear();
    // The virtual controller answers on every port number: listing them all
    // would offer ports that are not there.
    comboPortNo->setEnabled(!m_simulator);
    if (m_simulator) {
        comboPortNo->addItem(Msg(VirtualControllerEntry));
        return;
    }
    for (int n = FirstPort; n <= LastPort; ++n) {
        if (!m_link.portAvailable(n))
            continue;
        QString entry = QStringLiteral("COM%1").arg(n);
        const QString device = m_link.deviceOf(n);
        if (!m_simulator && !device.isEmpty() && device != entry)
            entry += QStringLiteral("  (%1)").arg(device);
        comboPortNo->addItem(entry, n);
    }
    comboPortNo->setCurrentIndex(comboPortNo->findData(int(ProgramState::instance().gPortNo)));
    m_shownPortNo = portNumberOf(comboPortNo->currentText());
}

// The system's serial devices are offered; any other device can be typed.
// The virtual controller needs no device, so what is stored for a later
// run is shown instead of the run's own name.
void OptionsDialog::fillDeviceList()
{
    QStringList devices;
    for (const QSerialPortInfo& info : QSerialPortInfo::availablePorts())
        devices << info.systemLocation();
    comboPortName->clear();
    comboPortName->addItem(QString());
    comboPortName->addItems(PortNaming::ordered(devices));
    m_shownDevice = m_simulator ? PortNaming::storedName() : m_link.portName();
    comboPortName->setCurrentText(m_shownDevice);
}

// A system whose country is not Japan runs in English only.
void OptionsDialog::selectLanguage()
{
    const ProgramState& s = ProgramState::instance();
    (s.gLanguage == 1 && !s.gForeignOs ? optLanguege_0 : optLanguege_1)->setChecked(true);
    optLanguege_0->setEnabled(!s.gForeignOs);
}

void OptionsDialog::placeBesideMainWindow()
{
    if (!m_mainWindow)
        return;
    const int offset = Twips::toPixels(DialogOffsetTwips);
    move(m_mainWindow->frameGeometry().topLeft() + QPoint(offset, offset));
}

int OptionsDialog::portNumberOf(const QString& entry)
{
    const double n = LeadingNumber(entry.trimmed().mid(3));
    return n >= FirstPort && n <= LastPort ? int(n) : 0;
}

void OptionsDialog::cmdOK_Click()
{
    applyChoices();
    accept();
}

void OptionsDialog::cmdApply_Click()
{
    applyChoices();
}

void OptionsDialog::cmdCancel_Click()
{
    reject();
}

// A port number that fails the check is reported and leaves the port as it
// was; the other choices are taken all the same.
void OptionsDialog::applyChoices()
{
    ProgramState& s = ProgramState::instance();
    const bool numberChanged = takePortNumber();
    const bool deviceChanged = takeDeviceName();
    takeUnit();
    if (numberChanged || deviceChanged) {
        if (m_link.isPortOpen()) {
            m_link.ClosePortNow();
            emit openPortClosed();
        }
        emit portChanged();
    }

    s.gLanguageChangePending = optLanguege_0->isChecked() != (s.gLanguage == 1);
    s.gPortOccupy = chkPortOccupy->isChecked();
    Settings::write(Setting::PortOccupy, s.gPortOccupy ? 1 : 0);
    // Stored only when changed, so a store that never used it stays as it was.
    if (chkConfirmWrites->isChecked() != ReadBack::chosen())
        Settings::write(Setting::ConfirmWrites, chkConfirmWrites->isChecked() ? 1 : 0);
    s.gDispMmUnit = optDispPos_0->isChecked();
}

// True when a valid choice differs from the port the window was using. The
// virtual controller's run keeps the port number as it was.
bool OptionsDialog::takePortNumber()
{
    if (m_simulator)
        return false;
    ProgramState& s = ProgramState::instance();
    const int n = portNumberOf(comboPortNo->currentText());
    if (n == 0) {
        m_prompter.tell(Msg(110));
        return false;
    }
    if (n != s.gPortNo && m_link.portAvailable(n))
        s.gPortNo = qint16(n);
    const bool changed = s.gPortNo != m_shownPortNo;
    m_shownPortNo = s.gPortNo;
    return changed;
}

// True when the device named for the port differs from the one in use. The
// virtual controller keeps answering for this run; the name is only stored.
QString OptionsDialog::chosenPort() const
{
    if (m_simulator)
        return m_link.portName();
    const QString device = comboPortName->currentText().trimmed();
    return device.isEmpty() ? m_link.deviceOf(portNumberOf(comboPortNo->currentText())) : device;
}

void OptionsDialog::showUnitOfChosenPort()
{
    txtUnit->setText(UnitByPort::lastFor(chosenPort()));
}

// Stored only when changed, as the other choices.
void OptionsDialog::takeUnit()
{
    const QString unit = txtUnit->text().trimmed();
    if (unit != UnitByPort::lastFor(chosenPort()))
        UnitByPort::remember(chosenPort(), unit);
}

bool OptionsDialog::takeDeviceName()
{
    const QString device = comboPortName->currentText().trimmed();
    if (device == m_shownDevice)
        return false;
    PortNaming::storeName(device);
    if (!m_simulator)
        m_link.setPortName(device);
    m_shownDevice = device;
    return true;
}
