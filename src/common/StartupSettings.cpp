#include "common/StartupSettings.h"

#include "common/ProgramState.h"
#include "common/Settings.h"

namespace {

bool readSwitch(const IntSetting& key)
{
    return Settings::read(key) > 0;
}

} // namespace

void StartupSettings::load(ProgramState& state)
{
    state.gPortNo = Settings::read(Setting::PortNo);
    state.gPortOccupy = readSwitch(Setting::PortOccupy);
    state.gMmRoundUp = readSwitch(Setting::MmRoundUp);
    state.gDispMmUnit = readSwitch(Setting::DispMmUnit);
}
