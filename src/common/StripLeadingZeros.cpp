#include "common/StripLeadingZeros.h"

void StripLeadingZeros(QString& gChkText)
{
    const qsizetype rounds = gChkText.size();
    for (qsizetype i = 0; i < rounds && gChkText.startsWith(u'0'); ++i)
        gChkText.remove(0, 1);
    if (gChkText.isEmpty())
        gChkText = QStringLiteral("0");
}
