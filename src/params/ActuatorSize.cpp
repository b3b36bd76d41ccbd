#include "params/ActuatorSize.h"

QString SizeDisplayText(const QString& sizeText)
{
    return sizeText == SpecialSizeText() ? QStringLiteral("SP") : sizeText;
}

QString SizeTextFromDisplay(const QString& shown)
{
    return shown == QLatin1String("SP") ? SpecialSizeText() : shown;
}

QString SizeNumberText(const QString& sizeText)
{
    if (sizeText.startsWith(u'E'))
        return sizeText.mid(1, 2);
    return sizeText.trimmed();
}

QString WrittenLetter(const QString& sizeText, const QString& letter)
{
    return sizeText.startsWith(u'E') ? QStringLiteral("E") : letter;
}

QString SizeCode(const QString& sizeText, const QString& letter)
{
    if (sizeText == QLatin1String("35"))
        return QStringLiteral("01");
    if (sizeText == QLatin1String("E35"))
        return QStringLiteral("04");
    if (sizeText == QLatin1String("42"))
        return letter == QLatin1String("D") ? QStringLiteral("05") : QStringLiteral("02");
    if (sizeText == SpecialSizeText())
        return QStringLiteral("03");
    return QStringLiteral("00");
}

QString DenryuForSize(const QString& shownSize)
{
    if (shownSize == QLatin1String("28"))
        return QStringLiteral("1.5");
    if (shownSize == QLatin1String("35"))
        return QStringLiteral("1.6");
    if (shownSize == QLatin1String("42"))
        return QStringLiteral("1.2");
    return {};
}

bool DependentByteInRange(int axisByte, int dependentByte)
{
    int high = 0;
    if (axisByte < 3)
        high = 50;
    else if (axisByte < 7)
        high = 150;
    else if (axisByte < 9)
        high = 200;
    else
        return true;
    return dependentByte >= 1 && dependentByte <= high;
}
