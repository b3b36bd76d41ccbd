#pragma once

#include <QString>

#include <array>

class Prompter;
class SeqReader;

// One device of the device list. The code is laid out as three size
// characters, a kind letter, one separator and a three-digit number; items
// 2 to 5 are kept as read and used by nothing.
struct DeviceRecord {
    QString DevCode;
    QString DevSizeKey;   // characters 1 to 3 of the code
    QString DevKindChar;  // character 4
    double DevNumber = 0; // characters 6 to 8, by leading-number reading
    QString DevItem2;
    QString DevItem3;
    QString DevItem4;
    QString DevItem5;
};

// The device list "nqmdevice.lst" beside the program (gDeviceList): the
// devices, and through them the actuator sizes, this installation knows.
// It lives for the whole run; every read refills records 1 to N and leaves
// records beyond N from earlier reads in place.
class DeviceList {
public:
    static constexpr int MaxRecords = 70;
    static constexpr int MaxSizeKinds = 6;

    static QString fileName() { return QStringLiteral("nqmdevice.lst"); }

    // 0 when the file was read. 1 after any failure (missing file, a count
    // that is not a number, more than 70 records, more than six size kinds):
    // messages 15 and 16 are shown, gDevListMissing is set, and what was
    // read up to the failure stays in the table.
    int ReadDeviceList(Prompter& prompter);

    // 0 when some device's size key equals sizeText exactly (case and
    // length count), 1 when none does. Reads the file afresh and leaves this
    // table alone; a file that cannot be read shows message 15 and gives 1.
    // family is accepted for the callers' sake and not used.
    static int FindSizeInDeviceList(const QString& family, const QString& sizeText, Prompter& prompter);

    // Records 1 to MaxRecords.
    const DeviceRecord& record(int i) const { return m_records.at(size_t(i)); }

    qint16 gDeviceCount = 0;
    std::array<QString, MaxSizeKinds> gSizeKinds; // distinct size keys, in order of first appearance
    qint16 gSizeKindMax = 0;                      // highest index of gSizeKinds in use
    bool gDevListMissing = false;                 // set by a failed read, never cleared

private:
    void readRecords(SeqReader& in);
    void deriveKeys();
    void collectSizeKinds();

    std::array<DeviceRecord, MaxRecords + 1> m_records; // slot 0 unused
};
