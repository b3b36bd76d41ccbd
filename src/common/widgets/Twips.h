#pragma once

#include <QtGlobal>

// Window positions are stored in twips: 15 to a pixel at 96 dots per inch,
// which is what Qt's device-independent pixels are.
namespace Twips {
constexpr double PerPixel = 15.0;
inline int toPixels(double twips) { return qRound(twips / PerPixel); }
} // namespace Twips
