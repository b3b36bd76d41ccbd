#pragma once

class CommandRegistry;

// params read, write, verify, diff and print.
void addParamsCommands(CommandRegistry& registry);
