#include "params/ParaEntries.h"

#include "common/NumberText.h"
#include "common/RuntimeError.h"

namespace {

struct FieldRef {
    qint16* i16 = nullptr;
    qint32* i32 = nullptr;
    double* real = nullptr;
    QString* text = nullptr;
};

FieldRef fieldOf(ParaSet& s, int entry)
{
    switch (entry) {
    case 1: return {.i32 = &s.home.offset};
    case 2: return {.i16 = &s.home.homeByte};
    case 3: return {.i16 = &s.home.vel};
    case 4: return {.i16 = &s.home.ofsVel};
    case 5: return {.i16 = &s.home.homeSpeed};
    case 6: return {.real = &s.axis.axisValue};
    case 7: return {.i16 = &s.axis.axisByte};
    case 8: return {.i32 = &s.axis.pulse};
    case 9: return {.i16 = &s.axis.autoDrive};
    case 10: return {.i16 = &s.axis.dependentByte};
    case 11: return {.i16 = &s.axis.actType};
    case 12: return {.text = &s.axis.motorCode};
    case 13: return {.i16 = &s.pg.function};
    case 14: return {.i32 = &s.pg.alm};
    case 15: return {.i16 = &s.etc.homeOut};
    case 16: return {.i16 = &s.etc.selector};
    case 17: return {.i32 = &s.etc.value1};
    case 18: return {.i32 = &s.etc.value2};
    case 19: return {.i16 = &s.etc.inpWid};
    case 20: return {.i16 = &s.etc.etcByte};
    case 21: return {.i16 = &s.etc.flag};
    case 22: return {.i16 = &s.etc.percent};
    case 23: return {.i16 = &s.special.pgTimer};
    case 24: return {.i16 = &s.special.autoHome};
    case 25: return {.i16 = &s.special.lsTimer};
    case 26: return {.i16 = &s.special.emgLogic};
    case 27: return {.i16 = &s.special.alm1Clear};
    case 28: return {.i16 = &s.special.flag};
    case 37: return {.text = &s.axis.sizeText};
    case 38: return {.text = &s.axis.letter};
    case 39: return {.i16 = &s.axis.motorNumber};
    default:
        if (entry >= 29 && entry <= 35)
            return {.i16 = &s.reserved[size_t(entry - 29)]};
        return {};
    }
}

} // namespace

bool IsParaEntry(int entry)
{
    ParaSet scratch;
    const FieldRef f = fieldOf(scratch, entry);
    return f.i16 || f.i32 || f.real || f.text;
}

QVariant ParaEntryValue(const ParaSet& set, int entry)
{
    const FieldRef f = fieldOf(const_cast<ParaSet&>(set), entry);
    if (f.i16)
        return int(*f.i16);
    if (f.i32)
        return int(*f.i32);
    if (f.real)
        return *f.real;
    if (f.text)
        return *f.text;
    return {};
}

double ParaEntryNumber(const QVariant& value)
{
    if (value.typeId() != QMetaType::QString)
        return value.toDouble();
    const QString text = value.toString();
    if (text.trimmed().isEmpty())
        return 0;
    return ToNumber(text);
}

void SetParaEntry(ParaSet& set, int entry, const QVariant& value)
{
    const FieldRef f = fieldOf(set, entry);
    if (f.text)
        *f.text = value.toString();
    else if (f.i16)
        *f.i16 = RoundToInt16(ParaEntryNumber(value));
    else if (f.i32)
        *f.i32 = RoundToInt32(ParaEntryNumber(value));
    else if (f.real)
        *f.real = ParaEntryNumber(value);
}
