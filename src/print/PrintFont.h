#pragma once

#include <QFont>
#include <QStringList>

// The printout font: the family named in the message table at 11 points.
// That family is often missing outside the system it was chosen for, so
// fixed-pitch families with Japanese glyphs follow it; the first one present
// draws each character.
class PrintFont {
public:
    static constexpr int PointSize = 11;

    static QFont make();
    static QStringList families();
};
