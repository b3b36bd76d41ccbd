#include "device/ActSizeList.h"

#include "device/DeviceList.h"
#include "device/SizeListBox.h"

void RefreshActSizeList(SizeListBox& comboActSize, const DeviceList& devices, Prompter& prompter)
{
    comboActSize.clearItems();
    AddFixedSizes(comboActSize);

    if (!comboActSize.text().isEmpty()) {
        if (DeviceList::FindSizeInDeviceList(QStringLiteral("QM"), comboActSize.text(), prompter) != 0)
            comboActSize.setText(devices.gSizeKinds[0]);
        return;
    }
    // An empty text would take the recorded size only when an item of the
    // list were empty; the fixed sizes never are.
    comboActSize.setText(devices.gSizeKinds[0]);
}

int LoadDeviceListAtStart(DeviceList& devices, SizeListBox& comboActSize, Prompter& prompter)
{
    const int result = devices.ReadDeviceList(prompter);
    if (result == 0)
        RefreshActSizeList(comboActSize, devices, prompter);
    return result;
}
