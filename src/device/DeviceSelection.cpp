#include "device/DeviceSelection.h"

#include "common/ProgramState.h"
#include "device/DeviceList.h"

DeviceSelection::DeviceSelection(DeviceList& devices, Prompter& prompter)
    : m_devices(devices)
    , m_prompter(prompter)
{
}

void DeviceSelection::Form_Load(const QString& mainActSize)
{
    ProgramState& g = ProgramState::instance();
    if (g.gDeviceDialogMode) {
        familyText = QStringLiteral("QM");
        chkDevPgUseEnabled = true;
        chkDevPgUse = g.gPgUse ? 1 : 0;
    }
    Cancelled = false;

    if (m_devices.ReadDeviceList(m_prompter) != 0)
        return;
    AddFixedSizes(comboDeviceSize);
    comboDeviceSize.setText(mainActSize);
    if (comboDeviceSize.text().isEmpty())
        comboDeviceSize.setText(QStringLiteral("28"));
    DispPgUse();
}

void DeviceSelection::DispPgUse()
{
    chkDevPgUseEnabled = true;
    chkDevPgUseVisible = true;
    chkDevPgUse = ProgramState::instance().gPgUse ? 1 : 0;
}

void DeviceSelection::cmdDeviceSet_Click()
{
    ProgramState& g = ProgramState::instance();
    g.gActSize = comboDeviceSize.text();
    g.gActKindChar = standardKindChar();
    g.gActNumber = StandardNumber;
    g.gPgUse = chkDevPgUse == 1;
    m_devices.ReadDeviceList(m_prompter);
    closeRequested = true;
}

void DeviceSelection::cmdDeviceCancel_Click()
{
    Cancelled = true;
    closeRequested = true;
}

void DeviceSelection::Form_QueryUnload(int unloadMode)
{
    if (unloadMode == 0) {
        Cancelled = true;
        closeRequested = true;
    }
}
