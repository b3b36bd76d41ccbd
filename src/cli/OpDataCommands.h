#pragma once

class CommandRegistry;

// opdata read, opdata write, opdata print, home, move, io.
void addOpDataCommands(CommandRegistry& registry);
