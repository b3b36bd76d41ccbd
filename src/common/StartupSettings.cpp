#include "common/StartupSettings.h"

#include "common/ProgramState.h"
#include "common/Settings.h"

namespace {

bool readSwitch(const char* key)
{
    return Settings::readInt(QString::fromLatin1(key), 1) > 0;
}

} // namespace

void StartupSettings::load(ProgramState& state)
{
    state.gPortNo = Settings::readInt(QStringLiteral("PortNo"), 1);
    state.gPortOccupy = readSwitch("PortOccupy");
    state.gMmRoundUp = readSwitch("MmRoundUp");
    state.gDispMmUnit = readSwitch("DispMmUnit");
}
