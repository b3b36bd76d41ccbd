#pragma once

struct ProgramState;

// The stored preferences that start-up takes into the program state: the
// port number and the three switches, each with default 1. A switch is on
// when its stored number is greater than 0.
class StartupSettings {
public:
    static void load(ProgramState& state);
};
