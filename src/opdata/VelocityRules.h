#pragma once

#include <QString>

#include <optional>

// The speed value VEL = round(choice × 300 ÷ GEAR), and the way back from a
// value read to the speed choice. Each routine answers with the new text of
// the control it sets, or nothing when the control keeps its text.
class VelocityRules {
public:
    // A click in comboVEL: the new text of txtVEL.
    static std::optional<QString> VelOnSpeedClick(const QString& comboVEL, const QString& txtGEAR,
                                                  bool mEventsOff);

    // A change of txtGEAR: the new text of txtVEL.
    static std::optional<QString> VelOnGearChange(const QString& comboVEL, const QString& txtGEAR,
                                                  bool mEventsOff, bool suppressVelCalc);

    // The speed choice ("1".."30") that stands for a speed value at a gear
    // ratio, after a read. Nothing when txtVEL or txtGEAR is not a number.
    static std::optional<QString> SpeedChoiceFromVel(const QString& txtVEL, const QString& txtGEAR);

    // A click in comboACC: the new text of txtACC.
    static std::optional<QString> AccOnClick(const QString& comboACC, bool mEventsOff);

private:
    static std::optional<QString> velocity(const QString& comboVEL, const QString& txtGEAR);
};
