#pragma once

#include <QtGlobal>

// One stored setting: its name in the store and what a missing one reads as.
template<typename T>
struct SettingsKey {
    const char* name;
    T defaultValue;
};

using IntSetting = SettingsKey<qint16>;
using SingleSetting = SettingsKey<float>;
using TextSetting = SettingsKey<const char*>;

// Every setting the programs keep. The names are those already stored on
// users' machines, misspellings included, so they never change.
namespace Setting {
inline constexpr IntSetting PortNo{"PortNo", 1};
inline constexpr IntSetting Language{"Languege", 1};
// The three switches: on when the stored number is greater than 0.
inline constexpr IntSetting PortOccupy{"PortOccupy", 1};
inline constexpr IntSetting MmRoundUp{"MmRoundUp", 1};
inline constexpr IntSetting DispMmUnit{"DispMmUnit", 1};
// Read every write back and compare (on when greater than 0); off unless chosen.
inline constexpr IntSetting ConfirmWrites{"ConfirmWrites", 0};
// The main window's position in twips; only ever read.
inline constexpr SingleSetting MainLeft{"MainLeft", 1000};
inline constexpr SingleSetting MainTop{"MainTop", 1000};
// The device of the port chosen last, where the port number alone is not enough.
inline constexpr TextSetting PortName{"PortName", ""};
// The unit identification of each port (Options, reports), a JSON object;
// stored under the name the first reports gave it.
inline constexpr TextSetting UnitByPort{"ReportUnits", ""};
} // namespace Setting
