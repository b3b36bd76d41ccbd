#pragma once

class CommandRegistry;

// report -o FILE.pdf|FILE.json [--note TEXT] [--paper a4|letter]: reads the
// connected unit once and writes its commissioning report, as pages in the
// active language or as JSON. Nothing is written when the read fails.
void addReportCommand(CommandRegistry& registry);
