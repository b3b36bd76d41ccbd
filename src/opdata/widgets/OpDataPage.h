#pragma once

#include "common/LockList.h"

#include <QWidget>

class Lamp;
class QCheckBox;
class QComboBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;

// The operation data tab of the main window: the indexing data, the move
// test, the input/output monitor and the data commands. Each control is a
// public member named as its objectName, so the code that drives the tab
// reads like the program's own routines.
//
// Frames: Frame2 holds the operation data entry, Frame1 the move test (with
// STOP and the alarm reset), Frame4 the input/output monitor with its
// button and lamps; framData holds the file, transfer and print buttons.
class OpDataPage : public QWidget {
    Q_OBJECT
public:
    explicit OpDataPage(QWidget* parent = nullptr);

    // What the tab's enable/disable routines switch, each in its order:
    // CMDBTN, HOMEBTN and MoveCMDBTN. Unlocking after a move brings the
    // dwell box back only in continuous mode and its time only while the
    // box is ticked.
    LockList commandLocks() const;
    LockList homeLocks() const;
    LockList moveLocks() const;

    // Operation data (Frame2).
    QGroupBox* Frame2;
    QComboBox* comboVEL;
    QComboBox* comboACC;
    QLineEdit* txtVEL;
    QLineEdit* txtACC;
    QLineEdit* txtDIVISION;
    QLineEdit* txtGEAR;
    QRadioButton* optCW;
    QRadioButton* optCCW;
    QLineEdit* txtDenryu;

    // Move test (Frame1).
    QGroupBox* Frame1;
    QRadioButton* optSTEP;
    QRadioButton* optCNT;
    QCheckBox* chkTimerUse;
    QLineEdit* txtTimer;
    QPushButton* cmdHOME;
    QPushButton* cmdMOVE;
    QPushButton* cmdSTOP;
    QPushButton* cmdRESET;

    // Input/output monitor (Frame4).
    QGroupBox* Frame4;
    QPushButton* cmdIoMonitor;
    Lamp* imgInputStb;
    Lamp* imgInputStop;
    Lamp* imgOutputAlm;
    Lamp* imgOutputRdy;
    Lamp* imgOutputInp;
    Lamp* imgOutputOut1;
    Lamp* imgOutputOut2;

    // Data commands.
    QGroupBox* framData;
    QPushButton* cmdFileOpen;
    QPushButton* cmdSaveFile;
    QPushButton* cmdFilePrint;
    QPushButton* cmdGetfromCt;
    QPushButton* cmdLoadtoCt;
    QPushButton* cmdDataPrint;

signals:
    // One of the five output lamps was clicked.
    void outputLampClicked(Lamp* lamp);

private:
    QGroupBox* buildEntryFrame();
    QGroupBox* buildMoveTestFrame();
    QGroupBox* buildIoFrame();
    QGroupBox* buildDataFrame();
    QWidget* lampWithLabel(Lamp*& lamp, const char* name, int caption, bool output);
    LockList dataCommandLocks() const;
};
