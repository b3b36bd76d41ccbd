#include "params/ParaValueCheck.h"

#include "params/ActuatorSize.h"

namespace {

bool in(double value, double low, double high)
{
    return value >= low && value <= high;
}

bool homeValid(const ParaHome& h)
{
    return in(h.offset, 1, 65535) && in(h.vel, 1, 60) && in(h.ofsVel, 1, 60)
        && in(h.homeByte, 1, 255) && in(h.homeSpeed, 1, 60);
}

bool axisValid(const ParaAxis& a)
{
    return in(a.axisValue, 0, 262143) && in(a.axisByte, 1, 255) && in(a.pulse, 1, 65535)
        && in(a.autoDrive, 0, 1) && DependentByteInRange(a.axisByte, a.dependentByte)
        && in(a.actType, 0, 4) && !a.motorCode.isEmpty() && !a.sizeText.isEmpty()
        && !a.letter.isEmpty() && in(a.motorNumber, 0, 500);
}

bool pgValid(const ParaPg& p)
{
    return in(p.function, 0, 1) && in(p.alm, 0, 65535);
}

// IN-P WID and the byte beside it are not checked.
bool etcValid(const ParaEtc& e)
{
    return in(e.homeOut, 0, 3) && in(e.flag, 0, 1) && in(e.percent, 0, 100)
        && in(e.selector, 0, 2) && in(e.value1, 0, 262143) && in(e.value2, 0, 262143);
}

bool specialValid(const ParaSpecial& s)
{
    return in(s.pgTimer, 0, 255) && in(s.lsTimer, 0, 255) && in(s.autoHome, 0, 1)
        && in(s.emgLogic, 0, 1) && in(s.alm1Clear, 0, 1) && in(s.flag, 0, 1);
}

bool reservedValid(const std::array<qint16, 7>& reserved)
{
    for (qint16 r : reserved)
        if (!in(r, 0, 255))
            return false;
    return true;
}

} // namespace

int CheckParaInput(const ParaScreen& s)
{
    for (const QString* box : {&s.txtHomeOffset, &s.txtHomeVel, &s.txtHomeOfsVel, &s.txtAxisPulse,
                               &s.txtPgAlarm, &s.txtInpLimit, &s.txtPgCheckTimer, &s.txtLsSerchTimer})
        if (box->trimmed().isEmpty())
            return 1;
    return 0;
}

int ParametaValueCheck(const ParaSet& set)
{
    const bool valid = homeValid(set.home) && axisValid(set.axis) && pgValid(set.pg)
        && etcValid(set.etc) && specialValid(set.special) && reservedValid(set.reserved);
    return valid ? 0 : 1;
}
