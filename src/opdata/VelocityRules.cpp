#include "opdata/VelocityRules.h"

#include "common/NumberText.h"
#include "common/RuntimeError.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr int SpeedUnit = 300; // speed value of choice 1 at gear 1
constexpr int LowestChoice = 1;
constexpr int HighestChoice = 30;

} // namespace

std::optional<QString> VelocityRules::VelOnSpeedClick(const QString& comboVEL,
                                                      const QString& txtGEAR, bool mEventsOff)
{
    if (mEventsOff || txtGEAR.isEmpty() || txtGEAR == u"0")
        return std::nullopt;
    return velocity(comboVEL, txtGEAR);
}

std::optional<QString> VelocityRules::VelOnGearChange(const QString& comboVEL,
                                                      const QString& txtGEAR, bool mEventsOff,
                                                      bool suppressVelCalc)
{
    if (mEventsOff || txtGEAR.isEmpty() || txtGEAR.startsWith(u'0') || comboVEL.isEmpty()
        || suppressVelCalc)
        return std::nullopt;
    return velocity(comboVEL, txtGEAR);
}

// A value that does not fit 16 bits (or a gear that is no number) leaves
// txtVEL as it is rather than putting a wrong speed on the screen.
std::optional<QString> VelocityRules::velocity(const QString& comboVEL, const QString& txtGEAR)
{
    try {
        const qint16 scaled = RoundToInt16(double(TextToInt16(comboVEL)) * SpeedUnit);
        const double vel = double(scaled) / ToNumber(txtGEAR);
        return QString::number(RoundToInt16(vel));
    } catch (const RuntimeError&) {
        return std::nullopt;
    }
}

std::optional<QString> VelocityRules::SpeedChoiceFromVel(const QString& txtVEL,
                                                         const QString& txtGEAR)
{
    double v = 0;
    double g = 0;
    try {
        v = TextToInt16(txtVEL);
        g = ToNumber(txtGEAR);
    } catch (const RuntimeError&) {
        return std::nullopt;
    }
    // Both steps round halves to even; a product beyond 16 bits stands for a
    // speed far above the top choice and is clamped like one.
    const double p = std::nearbyint(v * g);
    const double q = std::nearbyint(p / SpeedUnit);
    if (q == 0)
        return QString::number(LowestChoice);
    return QString::number(int(std::clamp(q, double(LowestChoice), double(HighestChoice))));
}

std::optional<QString> VelocityRules::AccOnClick(const QString& comboACC, bool mEventsOff)
{
    if (mEventsOff)
        return std::nullopt;
    return comboACC;
}
