#pragma once

#include <QJsonObject>

class PosiTable;
struct ParaSet;

// What a write puts into the controller, as a journal entry names it.
namespace JournalWritten {

// Every named parameter with its value, as the verification names them.
QJsonObject parameters(const ParaSet& set);
// Row 0 of the operation data: VEL, ACC, DIR (CW or CCW), DIVISION, GEAR.
QJsonObject operationData(const PosiTable& data);

} // namespace JournalWritten
