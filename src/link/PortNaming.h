#pragma once

#include <QString>
#include <QStringList>

// Which serial device a port number names.
//
// The program counts ports by number: 1..9 for normal work (a number outside
// that range is read again from the setting PortNo), 1..32 for the port scan
// of the options dialog. On Windows number n is the device "COMn". Elsewhere
// devices have names, not numbers, so the serial devices of the system are
// put in a stable order and number n names the n-th of them: USB serial
// adapters (/dev/ttyUSB*) first, then USB modems (/dev/ttyACM*), then
// on-board ports (/dev/ttyS*), then any others, each group by the number in
// its name (ttyUSB2 before ttyUSB10). A number beyond the devices present
// names nothing, and opening it fails like a missing COM port.
//
// A device name given for the run replaces the numbered port altogether:
// `--port NAME` on the command line, or the device stored under the setting
// PortName (written by the options dialog); see Link::setPortName.
class PortNaming {
public:
    static constexpr int ScanPorts = 32;

    // The device of number n on this system; empty when there is none.
    static QString deviceFor(int n);
    // The same for a given list of device locations (any order).
    static QString deviceFor(int n, const QStringList& locations);
    // The locations in numbering order.
    static QStringList ordered(const QStringList& locations);

    // The device stored under the setting PortName; empty when none.
    static QString storedName();
    static void storeName(const QString& device);
};
