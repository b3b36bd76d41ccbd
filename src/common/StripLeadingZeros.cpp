#include "common/StripLeadingZeros.h"

void StripLeadingZeros(QString& text)
{
    const qsizetype rounds = text.size();
    for (qsizetype i = 0; i < rounds && text.startsWith(u'0'); ++i)
        text.remove(0, 1);
    if (text.isEmpty())
        text = QStringLiteral("0");
}
