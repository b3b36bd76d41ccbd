#include "params/widgets/ParaPage.h"

#include "common/widgets/CaptionLoader.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTabWidget>
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

QLineEdit* numberBox(QWidget* parent, const char* name, int digits)
{
    auto* box = named<QLineEdit>(parent, name);
    box->setAlignment(Qt::AlignRight);
    box->setFixedWidth(box->fontMetrics().horizontalAdvance(u'0') * (digits + 4));
    return box;
}

QLabel* label(QWidget* parent, int n)
{
    auto* l = new QLabel(parent);
    CaptionLoader::setTag(l, n);
    return l;
}

// One row of a parameter group: name, then the control with its range
// beside it when it has one.
void addRow(QGridLayout* g, int row, QWidget* group, int name, QWidget* control, int range = 0)
{
    auto* value = new QHBoxLayout;
    value->setSpacing(8);
    value->addWidget(control);
    if (range > 0)
        value->addWidget(label(group, range));
    value->addStretch();
    g->addWidget(label(group, name), row, 0);
    g->addLayout(value, row, 1);
}

QGridLayout* groupGrid(QGroupBox* group)
{
    auto* g = new QGridLayout(group);
    g->setHorizontalSpacing(12);
    g->setColumnStretch(1, 1);
    return g;
}

// A pair of option buttons in a container of their own, so the pair is
// exclusive by itself.
QWidget* optionPair(QWidget* parent, QRadioButton*& first, const char* firstName, int firstCaption,
                    QRadioButton*& second, const char* secondName, int secondCaption)
{
    auto* pair = new QWidget(parent);
    first = named<QRadioButton>(pair, firstName, firstCaption);
    second = named<QRadioButton>(pair, secondName, secondCaption);
    auto* row = new QHBoxLayout(pair);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(first);
    row->addWidget(second);
    row->addStretch();
    return pair;
}

QPushButton* commandButton(QWidget* parent, const char* name, int caption)
{
    auto* b = named<QPushButton>(parent, name, caption);
    b->setMinimumHeight(b->fontMetrics().height() * 2);
    return b;
}

} // namespace

ParaPage::ParaPage(QWidget* parent)
    : QWidget(parent)
{
    setObjectName(QStringLiteral("ParaPage"));
    auto* groups = new QGridLayout;
    groups->addWidget(buildHomeGroup(), 0, 0);
    groups->addWidget(buildAxisGroup(), 1, 0);
    groups->addWidget(buildPgGroup(), 0, 1);
    groups->addWidget(buildEtcGroup(), 1, 1);
    groups->addWidget(buildSpecialGroup(), 0, 2, 2, 1);
    groups->setRowStretch(2, 1);

    auto* v = new QVBoxLayout(this);
    v->addWidget(buildCommandTabs());
    v->addLayout(groups, 1);
}

QTabWidget* ParaPage::buildCommandTabs()
{
    SSTabPrm = named<QTabWidget>(this, "SSTabPrm");
    auto* file = new QWidget(SSTabPrm);
    auto* controller = new QWidget(SSTabPrm);
    SSTabPrm->addTab(file, QString());
    SSTabPrm->addTab(controller, QString());

    cmdReadParaFile = commandButton(file, "cmdReadParaFile", 4080);
    cmdSaveParaFile = commandButton(file, "cmdSaveParaFile", 4081);
    cmdConpareFile = commandButton(file, "cmdConpareFile", 4082);
    cmdParaFilePrint = commandButton(file, "cmdParaFilePrint", 4068);
    cmdParaPrint = commandButton(file, "cmdParaPrint", 4071);
    cmdIniPrm = commandButton(file, "cmdIniPrm", 4085);
    auto* fileRow = new QHBoxLayout(file);
    for (QPushButton* b : {cmdReadParaFile, cmdSaveParaFile, cmdConpareFile,
                           cmdParaFilePrint, cmdParaPrint, cmdIniPrm})
        fileRow->addWidget(b);

    cmdParaRead = commandButton(controller, "cmdParaRead", 4069);
    cmdParaWrite = commandButton(controller, "cmdParaWrite", 4070);
    cmdConpareCT = commandButton(controller, "cmdConpareCT", 4088);
    auto* ctRow = new QHBoxLayout(controller);
    for (QPushButton* b : {cmdParaRead, cmdParaWrite, cmdConpareCT})
        ctRow->addWidget(b);
    ctRow->addStretch();

    SSTabPrm->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Maximum);
    return SSTabPrm;
}

QGroupBox* ParaPage::buildHomeGroup()
{
    framHome = named<QGroupBox>(this, "framHome", 673);
    txtHomeOffset = numberBox(framHome, "txtHomeOffset", 5);
    txtHomeVel = numberBox(framHome, "txtHomeVel", 2);
    txtHomeOfsVel = numberBox(framHome, "txtHomeOfsVel", 2);
    QGridLayout* g = groupGrid(framHome);
    addRow(g, 0, framHome, 4090, txtHomeOffset, 4110);
    addRow(g, 1, framHome, 4091, txtHomeVel, 4111);
    addRow(g, 2, framHome, 4092, txtHomeOfsVel, 4111);
    return framHome;
}

QGroupBox* ParaPage::buildAxisGroup()
{
    framAxis = named<QGroupBox>(this, "framAxis", 675);
    txtAxisPulse = numberBox(framAxis, "txtAxisPulse", 5);
    comboAxisAutoDrv = named<QComboBox>(framAxis, "comboAxisAutoDrv");
    comboActSize = named<QComboBox>(framAxis, "comboActSize");
    // The size box can show a size from the device list that is not one of
    // its fixed items.
    comboActSize->setEditable(true);
    comboActSize->setMinimumContentsLength(4);
    QGridLayout* g = groupGrid(framAxis);
    addRow(g, 0, framAxis, 4093, txtAxisPulse, 4110);
    addRow(g, 1, framAxis, 4094, comboAxisAutoDrv);
    addRow(g, 2, framAxis, 4095, comboActSize);
    return framAxis;
}

QGroupBox* ParaPage::buildPgGroup()
{
    framPg = named<QGroupBox>(this, "framPg", 676);
    comboPgFunc = named<QComboBox>(framPg, "comboPgFunc");
    txtPgAlarm = numberBox(framPg, "txtPgAlarm", 5);
    QGridLayout* g = groupGrid(framPg);
    addRow(g, 0, framPg, 4096, comboPgFunc);
    addRow(g, 1, framPg, 4097, txtPgAlarm, 4112);
    return framPg;
}

QGroupBox* ParaPage::buildEtcGroup()
{
    framEtc = named<QGroupBox>(this, "framEtc", 677);
    comboHomeOut = named<QComboBox>(framEtc, "comboHomeOut");
    txtInpLimit = numberBox(framEtc, "txtInpLimit", 3);
    QGridLayout* g = groupGrid(framEtc);
    addRow(g, 0, framEtc, 4098, comboHomeOut);
    addRow(g, 1, framEtc, 4099, txtInpLimit);
    return framEtc;
}

QGroupBox* ParaPage::buildSpecialGroup()
{
    framSpecial = named<QGroupBox>(this, "framSpecial", 678);
    txtPgCheckTimer = numberBox(framSpecial, "txtPgCheckTimer", 3);
    comboAutoHome = named<QComboBox>(framSpecial, "comboAutoHome");
    txtLsSerchTimer = numberBox(framSpecial, "txtLsSerchTimer", 3);
    QWidget* emg = optionPair(framSpecial, optEmgLogic_0, "optEmgLogic_0", 691,
                              optEmgLogic_1, "optEmgLogic_1", 690);
    QWidget* clear = optionPair(framSpecial, optAlarmAutoClear_0, "optAlarmAutoClear_0", 655,
                                optAlarmAutoClear_1, "optAlarmAutoClear_1", 656);
    chkTokuParaChange = named<QCheckBox>(framSpecial, "chkTokuParaChange", 4105);

    QGridLayout* g = groupGrid(framSpecial);
    addRow(g, 0, framSpecial, 4100, txtPgCheckTimer, 4113);
    addRow(g, 1, framSpecial, 4101, comboAutoHome);
    addRow(g, 2, framSpecial, 4102, txtLsSerchTimer, 4113);
    addRow(g, 3, framSpecial, 4103, emg);
    addRow(g, 4, framSpecial, 4104, clear);
    g->setRowStretch(5, 1);
    g->addWidget(chkTokuParaChange, 6, 0, 1, 2);

    for (QWidget* w : std::initializer_list<QWidget*>{txtPgCheckTimer, comboAutoHome, txtLsSerchTimer,
                                                      optEmgLogic_0, optEmgLogic_1,
                                                      optAlarmAutoClear_0, optAlarmAutoClear_1})
        w->setEnabled(false);
    return framSpecial;
}

LockList ParaPage::commandLocks() const
{
    return {{cmdReadParaFile}, {cmdSaveParaFile}, {cmdConpareFile}, {cmdParaFilePrint}, {cmdParaPrint}, {cmdIniPrm}, {cmdParaRead}, {cmdParaWrite}, {cmdConpareCT}};
}
