#include "device/DeviceList.h"

#include "common/DataFiles.h"
#include "common/MessageTable.h"
#include "common/NumberText.h"
#include "common/RuntimeError.h"
#include "common/SeqReader.h"
#include "link/Prompter.h"

#include <algorithm>
#include <vector>

namespace {

QString listPath()
{
    return DataFiles::path(DeviceList::fileName());
}

QString sizeKeyOf(const QString& code)
{
    return code.left(3);
}

} // namespace

int DeviceList::ReadDeviceList(Prompter& prompter)
{
    try {
        SeqReader in = SeqReader::fromFile(listPath());
        gDeviceCount = RoundToInt16(in.readNumber());
        readRecords(in);
        deriveKeys();
        collectSizeKinds();
        return 0;
    } catch (const RuntimeError&) {
        prompter.tell(MsgLines({15, 16}));
        gDevListMissing = true;
        return 1;
    }
}

void DeviceList::readRecords(SeqReader& in)
{
    for (int i = 1; i <= gDeviceCount; ++i) {
        if (i > MaxRecords)
            throw RuntimeError(RuntimeError::Kind::Subscript, QStringLiteral("device record"));
        DeviceRecord& r = m_records.at(size_t(i));
        r.DevCode = in.readText();
        r.DevItem2 = in.readText();
        r.DevItem3 = in.readText();
        r.DevItem4 = in.readText();
        r.DevItem5 = in.readText();
    }
}

void DeviceList::deriveKeys()
{
    for (int i = 1; i <= gDeviceCount; ++i) {
        DeviceRecord& r = m_records.at(size_t(i));
        r.DevSizeKey = sizeKeyOf(r.DevCode);
        r.DevKindChar = r.DevCode.mid(3, 1);
        r.DevNumber = LeadingNumber(r.DevCode.mid(5, 3));
    }
}

void DeviceList::collectSizeKinds()
{
    gSizeKindMax = 0;
    for (int j = 0; j < gDeviceCount; ++j) {
        const QString& key = m_records.at(size_t(j + 1)).DevSizeKey;
        if (j == 0) {
            gSizeKinds[0] = key;
            continue;
        }
        const auto known = gSizeKinds.begin() + gSizeKindMax + 1;
        if (std::find(gSizeKinds.begin(), known, key) != known)
            continue;
        ++gSizeKindMax;
        if (gSizeKindMax >= MaxSizeKinds)
            throw RuntimeError(RuntimeError::Kind::Subscript, QStringLiteral("size kind"));
        gSizeKinds.at(size_t(gSizeKindMax)) = key;
    }
}

int DeviceList::FindSizeInDeviceList(const QString& family, const QString& sizeText, Prompter& prompter)
{
    Q_UNUSED(family);
    std::vector<QString> codes;
    try {
        SeqReader in = SeqReader::fromFile(listPath());
        const int count = RoundToInt16(in.readNumber());
        for (int i = 1; i <= count; ++i) {
            codes.push_back(in.readText());
            for (int item = 2; item <= 5; ++item)
                in.readText();
        }
    } catch (const RuntimeError&) {
        prompter.tell(Msg(15));
        return 1;
    }
    for (const QString& code : codes)
        if (sizeKeyOf(code) == sizeText)
            return 0;
    return 1;
}
