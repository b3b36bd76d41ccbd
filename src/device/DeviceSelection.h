#pragma once

#include "device/SizeListBox.h"

#include <QString>

class DeviceList;
class Prompter;

// The logic of the device dialog (frmDevice), in which the user picks the
// actuator size and whether an encoder (PG) is fitted. The dialog widget
// shows these members and calls the handlers; the opener reads Cancelled
// after the modal dialog has closed.
class DeviceSelection {
public:
    DeviceSelection(DeviceList& devices, Prompter& prompter);

    // The kind letter and motor number Set records, whatever size is chosen.
    static QString standardKindChar() { return QStringLiteral("L"); }
    static constexpr qint16 StandardNumber = 100;

    // mainActSize: the text of the main window's size list.
    void Form_Load(const QString& mainActSize);
    // Also run on a click in the size list and on leaving it: the encoder
    // box shows the recorded encoder use, whatever size is chosen.
    void DispPgUse();
    void cmdDeviceSet_Click();
    void cmdDeviceCancel_Click();
    // unloadMode 0: closed from the window frame, which counts as Cancel.
    void Form_QueryUnload(int unloadMode);

    // The controls.
    QString familyText;
    SizeListBox comboDeviceSize{true};
    int chkDevPgUse = 0; // 1 ticked, 0 clear
    bool chkDevPgUseEnabled = false;
    bool chkDevPgUseVisible = false;

    bool Cancelled = false;
    bool closeRequested = false; // the dialog is to close

private:
    DeviceList& m_devices;
    Prompter& m_prompter;
};
