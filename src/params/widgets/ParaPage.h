#pragma once

#include "common/LockList.h"

#include <QWidget>

class QCheckBox;
class QComboBox;
class QGroupBox;
class QLineEdit;
class QPushButton;
class QRadioButton;
class QTabWidget;

// The parameter tab of the main window: the FILE and CONTROLLER command
// tabs and the parameter groups. Each control is a public member named as
// its objectName.
//
// Option pairs are two buttons whose names end in the value they stand for:
// optEmgLogic_0 "Logic B(0)" / optEmgLogic_1 "Logic A(1)",
// optAlarmAutoClear_0 "0. Disable" / optAlarmAutoClear_1 "1. Enable".
//
// The SPECIAL group's value controls start disabled: they are unlocked with
// chkTokuParaChange.
class ParaPage : public QWidget {
    Q_OBJECT
public:
    explicit ParaPage(QWidget* parent = nullptr);

    // The nine command buttons of the FILE and CONTROLLER tabs, as
    // ParaCMDBTN_Muko/Yuko switch them.
    LockList commandLocks() const;

    QTabWidget* SSTabPrm;
    // FILE tab.
    QPushButton* cmdReadParaFile;
    QPushButton* cmdSaveParaFile;
    QPushButton* cmdConpareFile;
    QPushButton* cmdParaFilePrint;
    QPushButton* cmdParaPrint;
    QPushButton* cmdIniPrm;
    // CONTROLLER tab.
    QPushButton* cmdParaRead;
    QPushButton* cmdParaWrite;
    QPushButton* cmdConpareCT;

    // HOME.
    QGroupBox* framHome;
    QLineEdit* txtHomeOffset;
    QLineEdit* txtHomeVel;
    QLineEdit* txtHomeOfsVel;
    // AXIS.
    QGroupBox* framAxis;
    QLineEdit* txtAxisPulse;
    QComboBox* comboAxisAutoDrv;
    QComboBox* comboActSize;
    // PG.
    QGroupBox* framPg;
    QComboBox* comboPgFunc;
    QLineEdit* txtPgAlarm;
    // ETC.
    QGroupBox* framEtc;
    QComboBox* comboHomeOut;
    QLineEdit* txtInpLimit;
    // SPECIAL.
    QGroupBox* framSpecial;
    QLineEdit* txtPgCheckTimer;
    QComboBox* comboAutoHome;
    QLineEdit* txtLsSerchTimer;
    QRadioButton* optEmgLogic_0;
    QRadioButton* optEmgLogic_1;
    QRadioButton* optAlarmAutoClear_0;
    QRadioButton* optAlarmAutoClear_1;
    QCheckBox* chkTokuParaChange;

private:
    QTabWidget* buildCommandTabs();
    QGroupBox* buildHomeGroup();
    QGroupBox* buildAxisGroup();
    QGroupBox* buildPgGroup();
    QGroupBox* buildEtcGroup();
    QGroupBox* buildSpecialGroup();
};
