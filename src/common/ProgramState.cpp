#include "common/ProgramState.h"

namespace {
ProgramState g_state;
}

ProgramState& ProgramState::instance()
{
    return g_state;
}

void ProgramState::reset()
{
    g_state = ProgramState{};
}
