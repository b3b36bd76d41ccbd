// The device list on arbitrary bytes: read at start, the size list filled
// from it, and every size kind it found is found again by the search that
// reads the file afresh.
#include "FuzzSupport.h"

#include "device/ActSizeList.h"
#include "device/DeviceList.h"
#include "device/SizeListBox.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    FuzzEnvironment::instance().writeFile(QStringLiteral("nqmdevice.lst"), data, size);
    DeviceList devices;
    SizeListBox comboActSize;
    comboActSize.setText(QStringLiteral("42"));
    const int result = checkedRead([&](Prompter& prompter) { return LoadDeviceListAtStart(devices, comboActSize, prompter); });
    FUZZ_CHECK(devices.gDevListMissing == (result == 1));
    if (result == 1)
        return 0;
    FUZZ_CHECK(devices.gDeviceCount <= DeviceList::MaxRecords);
    FUZZ_CHECK(devices.gSizeKindMax >= 0 && devices.gSizeKindMax < DeviceList::MaxSizeKinds);
    FUZZ_CHECK(comboActSize.count() == 4);
    if (devices.gDeviceCount < 1)
        return 0;
    CountingPrompter prompter;
    for (int j = 0; j <= devices.gSizeKindMax; ++j) {
        const QString& kind = devices.gSizeKinds.at(size_t(j));
        FUZZ_CHECK(DeviceList::FindSizeInDeviceList(QStringLiteral("QM"), kind, prompter) == 0);
        for (int k = 0; k < j; ++k)
            FUZZ_CHECK(devices.gSizeKinds.at(size_t(k)) != kind);
    }
    FUZZ_CHECK(prompter.count == 0);
    return 0;
}
