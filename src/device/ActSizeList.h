#pragma once

class DeviceList;
class Prompter;
class SizeListBox;

// The main window's actuator size list (comboActSize).

// Rebuilds the list with the four fixed sizes. A text that names a size of
// the device list stays; any other text, and an empty one, becomes the first
// size kind of the device list.
void RefreshActSizeList(SizeListBox& comboActSize, const DeviceList& devices, Prompter& prompter);

// At start: reads the device list and, when it could be read, fills the
// size list. Returns the result of the read (0 read, 1 failed).
int LoadDeviceListAtStart(DeviceList& devices, SizeListBox& comboActSize, Prompter& prompter);
