#pragma once

class CommandRegistry;

// check, version, status, reset.
void addLinkCommands(CommandRegistry& registry);
