#pragma once

#include "device/DeviceSelection.h"
#include "device/DeviceSelector.h"

#include <QDialog>

class DeviceList;
class Prompter;
class QCheckBox;
class QComboBox;
class QLabel;
class QPushButton;

// frmDevice: the user picks the actuator size and whether an encoder (PG)
// is fitted. Created for each opening; selectDevice shows it modally and
// tells whether it was cancelled (Cancel, Escape or the window frame).
// The logic lives in DeviceSelection; this form shows its values and
// passes the user's actions on.
class DeviceDialog : public QDialog, public DeviceSelector {
    Q_OBJECT
public:
    // mainActSize: the main window's size list, whose text the dialog
    // starts from. mainWindow: the dialog is placed from its corner.
    DeviceDialog(DeviceList& devices, Prompter& prompter, const QComboBox* mainActSize, QWidget* mainWindow);

    bool selectDevice() override;
    // Loads the form (placement, captions, values); selectDevice does it
    // before showing, tests call it to look at the form.
    void Form_Load();
    bool Cancelled() const { return m_selection.Cancelled; }

    QLabel* lblDeviceSetumei;
    QLabel* lblDeviceSize;
    QComboBox* comboDeviceSize;
    QCheckBox* chkDevPgUse;
    QPushButton* cmdDeviceSet;
    QPushButton* cmdDeviceCancel;

public slots:
    // Escape and the window frame: Form_QueryUnload, which counts as Cancel.
    void reject() override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void buildControls();
    void cmdDeviceSet_Click();
    void cmdDeviceCancel_Click();
    void comboDeviceSize_Click();
    void takeControls();
    void showSelection();

    DeviceSelection m_selection;
    const QComboBox* m_mainActSize;
    QWidget* m_mainWindow;
};
