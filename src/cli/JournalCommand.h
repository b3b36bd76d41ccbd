#pragma once

class CommandRegistry;

// journal [--since DATE] [--until DATE] [--port NAME] [--json]: the journal
// of changes made to controllers, as a table or as JSON Lines.
void addJournalCommand(CommandRegistry& registry);
