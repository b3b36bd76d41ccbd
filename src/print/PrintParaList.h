#pragma once

#include <QVariant>

#include <array>

// The parameter values in print order, filled by whoever prints: entry 0 the
// file name when printing a file, entries 1 to 16 the printed items.
using PrintParaList = std::array<QVariant, 41>;
