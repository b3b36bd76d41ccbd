#pragma once

#include <QIcon>
#include <QPixmap>

// The program's icon: an indexing table seen from above, drawn at whatever
// size and scale it is needed.
class AppIcon {
public:
    static QIcon icon();
    static QPixmap pixmap(int size, qreal devicePixelRatio);
};
