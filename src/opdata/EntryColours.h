#pragma once

#include "opdata/EntryOutcome.h"

#include <QColor>
#include <QPalette>

// The two backgrounds of the entry fields in the palette of the running
// style: the field's own base colour, and the light grey that the inactive
// caption text of classic desktops used, taken from the palette's mid tone
// so it reads in dark styles too.
class EntryColours {
public:
    static QColor color(Background background, const QPalette& palette)
    {
        return background == Background::Marker ? palette.color(QPalette::Inactive, QPalette::Mid)
                                                : palette.color(QPalette::Active, QPalette::Base);
    }
};
