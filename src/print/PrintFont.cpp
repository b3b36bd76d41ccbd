#include "print/PrintFont.h"

#include "common/MessageTable.h"

QStringList PrintFont::families()
{
    return {Msg(24),
            QStringLiteral("Noto Sans Mono CJK JP"),
            QStringLiteral("Noto Sans CJK JP"),
            QStringLiteral("IPAGothic"),
            QStringLiteral("VL Gothic"),
            QStringLiteral("TakaoGothic"),
            QStringLiteral("Source Han Sans JP")};
}

QFont PrintFont::make()
{
    QFont font;
    font.setFamilies(families());
    font.setStyleHint(QFont::TypeWriter);
    font.setPointSize(PointSize);
    return font;
}
