#include "opdata/widgets/OpDataPage.h"

#include "common/widgets/CaptionLoader.h"
#include "common/widgets/Lamp.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

namespace {

template<typename T>
T* named(QWidget* parent, const char* name, int caption = 0)
{
    auto* w = new T(parent);
    w->setObjectName(QString::fromLatin1(name));
    if (caption > 0)
        CaptionLoader::setTag(w, caption);
    return w;
}

QLabel* caption(QWidget* parent, const char* name, int n)
{
    return named<QLabel>(parent, name, n);
}

// A text box sized for a few digits.
QLineEdit* numberBox(QWidget* parent, const char* name, int digits)
{
    auto* box = named<QLineEdit>(parent, name);
    box->setAlignment(Qt::AlignRight);
    box->setMaximumWidth(box->fontMetrics().horizontalAdvance(u'0') * (digits + 4));
    return box;
}

QPushButton* bigButton(QWidget* parent, const char* name, int n)
{
    auto* button = named<QPushButton>(parent, name, n);
    button->setMinimumHeight(button->fontMetrics().height() * 5 / 2);
    return button;
}

} // namespace

OpDataPage::OpDataPage(QWidget* parent)
    : QWidget(parent)
{
    setObjectName(QStringLiteral("OpDataPage"));
    auto* left = new QVBoxLayout;
    left->addWidget(buildEntryFrame());
    left->addWidget(buildDataFrame());
    left->addStretch();

    auto* right = new QVBoxLayout;
    right->addWidget(buildMoveTestFrame());
    right->addWidget(buildIoFrame());
    right->addStretch();

    auto* columns = new QHBoxLayout(this);
    columns->addLayout(left, 1);
    columns->addLayout(right, 1);
}

QGroupBox* OpDataPage::buildEntryFrame()
{
    Frame2 = named<QGroupBox>(this, "Frame2", 4030);
    comboVEL = named<QComboBox>(Frame2, "comboVEL");
    comboACC = named<QComboBox>(Frame2, "comboACC");
    txtVEL = numberBox(Frame2, "txtVEL", 5);
    txtACC = numberBox(Frame2, "txtACC", 5);
    txtDIVISION = numberBox(Frame2, "txtDIVISION", 3);
    txtGEAR = numberBox(Frame2, "txtGEAR", 3);
    txtDenryu = numberBox(Frame2, "txtDenryu", 5);
    // Set by the program from the choices, never typed.
    txtVEL->setReadOnly(true);
    txtACC->setReadOnly(true);
    txtVEL->setFocusPolicy(Qt::NoFocus);
    txtACC->setFocusPolicy(Qt::NoFocus);

    auto* direction = new QWidget(Frame2);
    optCW = named<QRadioButton>(direction, "optCW", 4040);
    optCCW = named<QRadioButton>(direction, "optCCW", 4041);
    optCW->setChecked(true);
    auto* dirRow = new QHBoxLayout(direction);
    dirRow->setContentsMargins(0, 0, 0, 0);
    dirRow->addWidget(optCW);
    dirRow->addWidget(optCCW);
    dirRow->addStretch();

    auto* g = new QGridLayout(Frame2);
    g->setHorizontalSpacing(12);
    g->addWidget(caption(Frame2, "lblSpeed", 4031), 0, 0);
    g->addWidget(comboVEL, 0, 1);
    g->addWidget(caption(Frame2, "lblSpeedRange", 4032), 0, 2);
    g->addWidget(caption(Frame2, "lblVEL", 4042), 0, 3, Qt::AlignRight);
    g->addWidget(txtVEL, 0, 4);
    g->addWidget(caption(Frame2, "lblAcc", 4033), 1, 0);
    g->addWidget(comboACC, 1, 1);
    g->addWidget(caption(Frame2, "lblAccRange", 4034), 1, 2);
    g->addWidget(caption(Frame2, "lblACC", 4043), 1, 3, Qt::AlignRight);
    g->addWidget(txtACC, 1, 4);
    g->addWidget(caption(Frame2, "lblDivision", 4035), 2, 0);
    g->addWidget(txtDIVISION, 2, 1);
    g->addWidget(caption(Frame2, "lblDivisionRange", 4036), 2, 2);
    g->addWidget(caption(Frame2, "lblGear", 4037), 3, 0);
    g->addWidget(txtGEAR, 3, 1);
    g->addWidget(caption(Frame2, "lblGearRange", 4038), 3, 2);
    g->addWidget(caption(Frame2, "lblDirection", 4039), 4, 0);
    g->addWidget(direction, 4, 1, 1, 4);
    g->addWidget(caption(Frame2, "lblDenryu", 4044), 5, 0);
    g->addWidget(txtDenryu, 5, 1);
    g->addWidget(caption(Frame2, "lblDenryuUnit", 4045), 5, 2);
    g->setColumnStretch(2, 1);
    return Frame2;
}

QGroupBox* OpDataPage::buildMoveTestFrame()
{
    Frame1 = named<QGroupBox>(this, "Frame1", 4046);
    optSTEP = named<QRadioButton>(Frame1, "optSTEP", 4047);
    optCNT = named<QRadioButton>(Frame1, "optCNT", 4048);
    chkTimerUse = named<QCheckBox>(Frame1, "chkTimerUse", 4049);
    txtTimer = numberBox(Frame1, "txtTimer", 3);
    cmdHOME = bigButton(Frame1, "cmdHOME", 4051);
    cmdMOVE = bigButton(Frame1, "cmdMOVE", 4052);
    cmdSTOP = bigButton(Frame1, "cmdSTOP", 4053);
    cmdRESET = named<QPushButton>(Frame1, "cmdRESET", 4054);
    // Step mode at start; the dwell belongs to continuous runs.
    optSTEP->setChecked(true);
    chkTimerUse->setEnabled(false);
    txtTimer->setEnabled(false);

    auto* mode = new QHBoxLayout;
    mode->addWidget(optSTEP);
    mode->addWidget(optCNT);
    mode->addSpacing(fontMetrics().horizontalAdvance(u'M') * 2);
    mode->addWidget(chkTimerUse);
    mode->addWidget(txtTimer);
    mode->addWidget(caption(Frame1, "lblTimerUnit", 4050));
    mode->addStretch();

    auto* buttons = new QHBoxLayout;
    buttons->addWidget(cmdHOME);
    buttons->addWidget(cmdMOVE);
    buttons->addWidget(cmdSTOP);

    auto* reset = new QHBoxLayout;
    reset->addStretch();
    reset->addWidget(cmdRESET);

    auto* v = new QVBoxLayout(Frame1);
    v->addLayout(mode);
    v->addLayout(buttons);
    v->addLayout(reset);
    return Frame1;
}

QWidget* OpDataPage::lampWithLabel(Lamp*& lamp, const char* name, int n, bool output)
{
    auto* cell = new QWidget(Frame4);
    lamp = new Lamp(output ? Lamp::Color::Orange : Lamp::Color::Green, cell);
    lamp->setObjectName(QString::fromLatin1(name));
    lamp->setSizeInLines(2.0);
    QLabel* label = new QLabel(cell);
    label->setObjectName(QStringLiteral("lbl") + QString::fromLatin1(name).mid(3));
    CaptionLoader::setTag(label, n);
    label->setAlignment(Qt::AlignHCenter);
    if (output) {
        lamp->setClickable(true);
        lamp->setToolTip(QString::number(4064));
        connect(lamp, &Lamp::clicked, this, [this, lamp] { emit outputLampClicked(lamp); });
    }
    auto* v = new QVBoxLayout(cell);
    v->setContentsMargins(4, 0, 4, 0);
    v->addWidget(lamp, 0, Qt::AlignHCenter);
    v->addWidget(label);
    return cell;
}

QGroupBox* OpDataPage::buildIoFrame()
{
    Frame4 = named<QGroupBox>(this, "Frame4", 4055);
    cmdIoMonitor = named<QPushButton>(Frame4, "cmdIoMonitor", 702);

    auto* inputs = new QHBoxLayout;
    inputs->addWidget(lampWithLabel(imgInputStb, "imgInputStb", 4058, false));
    inputs->addWidget(lampWithLabel(imgInputStop, "imgInputStop", 4053, false));
    inputs->addStretch();

    auto* outputs = new QHBoxLayout;
    outputs->addWidget(lampWithLabel(imgOutputAlm, "imgOutputAlm", 4059, true));
    outputs->addWidget(lampWithLabel(imgOutputRdy, "imgOutputRdy", 4060, true));
    outputs->addWidget(lampWithLabel(imgOutputInp, "imgOutputInp", 4061, true));
    outputs->addWidget(lampWithLabel(imgOutputOut1, "imgOutputOut1", 4062, true));
    outputs->addWidget(lampWithLabel(imgOutputOut2, "imgOutputOut2", 4063, true));
    outputs->addStretch();

    auto* g = new QGridLayout(Frame4);
    g->addWidget(cmdIoMonitor, 0, 0, 1, 2, Qt::AlignLeft);
    g->addWidget(caption(Frame4, "lblInputs", 4056), 1, 0, Qt::AlignTop);
    g->addLayout(inputs, 1, 1);
    g->addWidget(caption(Frame4, "lblOutputs", 4057), 2, 0, Qt::AlignTop);
    g->addLayout(outputs, 2, 1);
    g->setColumnStretch(1, 1);
    return Frame4;
}

QGroupBox* OpDataPage::buildDataFrame()
{
    framData = named<QGroupBox>(this, "framData", 4065);
    cmdFileOpen = named<QPushButton>(framData, "cmdFileOpen", 4066);
    cmdSaveFile = named<QPushButton>(framData, "cmdSaveFile", 4067);
    cmdFilePrint = named<QPushButton>(framData, "cmdFilePrint", 4068);
    cmdGetfromCt = named<QPushButton>(framData, "cmdGetfromCt", 4069);
    cmdLoadtoCt = named<QPushButton>(framData, "cmdLoadtoCt", 4070);
    cmdDataPrint = named<QPushButton>(framData, "cmdDataPrint", 4071);

    auto* g = new QGridLayout(framData);
    g->addWidget(cmdFileOpen, 0, 0);
    g->addWidget(cmdSaveFile, 0, 1);
    g->addWidget(cmdFilePrint, 0, 2);
    g->addWidget(cmdGetfromCt, 1, 0);
    g->addWidget(cmdLoadtoCt, 1, 1);
    g->addWidget(cmdDataPrint, 1, 2);
    return framData;
}

LockList OpDataPage::dataCommandLocks() const
{
    return {{cmdFileOpen}, {cmdSaveFile}, {cmdLoadtoCt}, {cmdGetfromCt}, {cmdDataPrint}, {cmdFilePrint}};
}

LockList OpDataPage::commandLocks() const
{
    return dataCommandLocks()
        + LockList{{Frame2}, {cmdMOVE}, {cmdSTOP}, {cmdHOME}, {Frame1}, {cmdIoMonitor}, {Frame4}, {cmdRESET}};
}

LockList OpDataPage::homeLocks() const
{
    return dataCommandLocks()
        + LockList{{Frame2}, {cmdIoMonitor}, {Frame4}, {cmdRESET}, {cmdMOVE}, {cmdSTOP}, {optSTEP}, {optCNT}, {chkTimerUse}};
}

LockList OpDataPage::moveLocks() const
{
    const LockList dwell = {{optSTEP},
                            {optCNT},
                            {cmdMOVE},
                            {chkTimerUse, [this] { return optCNT->isChecked(); }},
                            {txtTimer, [this] { return chkTimerUse->isChecked(); }},
                            {cmdHOME}};
    return dwell + dataCommandLocks() + LockList{{Frame2}, {cmdIoMonitor}, {Frame4}, {cmdRESET}};
}
