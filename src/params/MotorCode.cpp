#include "params/MotorCode.h"

#include "common/NumberText.h"
#include "common/Pad.h"

QString MotorCodeText(const QString& sizeText, const QString& letter, int motorNumber)
{
    return sizeText + letter + DecPad(motorNumber, 3);
}

MotorCodeParts SplitMotorCode(const QString& motorCode)
{
    MotorCodeParts parts;
    const qsizetype letterPos = motorCode.size() - 4;
    if (letterPos < 0)
        return parts;
    parts.sizeText = motorCode.left(letterPos);
    parts.letter = motorCode.mid(letterPos, 1);
    parts.motorNumber = RoundToInt16(LeadingNumber(motorCode.right(3)));
    return parts;
}
