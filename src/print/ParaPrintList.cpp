#include "print/ParaPrintList.h"

#include "params/CtParaImage.h"
#include "params/ParaEntries.h"
#include "params/ParaMemoryMap.h"
#include "params/ParaSet.h"

#include <array>

namespace {

// The image entry behind each print position 1 to 16.
constexpr std::array<int, 16> printedEntries{
    1, 3, 4,                              // OFFSET, VEL, OFSVEL
    8, 9, MotorSizeEntry, MotorCodeEntry, // PULSE, AUTODRIVE, size text, motor code
    13, 14,                               // FUNCTION, ALM
    15, 19,                               // HOME OUT, IN-P WID
    23, 24, 25, 26, 27,                   // PG TIMER, AUTO HOME, LS TIMER, EMG LOGIC, ALM1 CLEAR
};

template<typename ValueOf>
PrintParaList fill(ValueOf valueOf)
{
    PrintParaList list;
    for (size_t i = 0; i < printedEntries.size(); ++i)
        list.at(i + 1) = valueOf(printedEntries.at(i));
    return list;
}

} // namespace

PrintParaList PrintParaListFromSet(const ParaSet& set)
{
    return fill([&set](int entry) { return ParaEntryValue(set, entry); });
}

PrintParaList PrintParaListFromImage(const CtParaImage& image, const QString& fileName)
{
    PrintParaList list = fill([&image](int entry) { return image[entry]; });
    list.at(0) = fileName;
    return list;
}
