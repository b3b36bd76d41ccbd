#include "opdata/IoBits.h"

#include "common/NumberText.h"

#include <algorithm>

int IoBits::digitValue(QChar c)
{
    return int(qMax<qint64>(0, HexDigitsValue(QString(c))));
}

QString IoBits::outputDigits(const OutputTable& OutputBits)
{
    QString text;
    for (int d = 1; d <= OutputDigits; ++d) {
        int value = 0;
        for (int b = 0; b < BitsPerDigit; ++b)
            if (OutputBits[d][b])
                value += 8 >> b;
        text += QString::number(value, 16).toUpper();
    }
    return text;
}

IoBits::Source IoBits::source(IoLamp lamp)
{
    switch (lamp) {
    case IoLamp::InputStb: return {false, 1, 0};
    case IoLamp::InputStop: return {false, 1, 2};
    case IoLamp::OutputAlm: return {true, 1, 1};
    case IoLamp::OutputRdy: return {true, 1, 2};
    case IoLamp::OutputInp: return {true, 1, 3};
    case IoLamp::OutputOut1: return {true, 2, 2};
    case IoLamp::OutputOut2: return {true, 2, 3};
    }
    return {false, 0, 0};
}

bool IoBits::lampOn(IoLamp lamp, const InputTable& InputBits, const OutputTable& OutputBits)
{
    const Source s = source(lamp);
    return s.output ? OutputBits[s.digit][s.bit] : InputBits[s.digit][s.bit];
}

QString IoBits::objectName(IoLamp lamp)
{
    switch (lamp) {
    case IoLamp::InputStb: return QStringLiteral("imgInputStb");
    case IoLamp::InputStop: return QStringLiteral("imgInputStop");
    case IoLamp::OutputAlm: return QStringLiteral("imgOutputAlm");
    case IoLamp::OutputRdy: return QStringLiteral("imgOutputRdy");
    case IoLamp::OutputInp: return QStringLiteral("imgOutputInp");
    case IoLamp::OutputOut1: return QStringLiteral("imgOutputOut1");
    case IoLamp::OutputOut2: return QStringLiteral("imgOutputOut2");
    }
    return {};
}

QString IoBits::label(IoLamp lamp)
{
    switch (lamp) {
    case IoLamp::InputStb: return QStringLiteral("STB");
    case IoLamp::InputStop: return QStringLiteral("STOP");
    case IoLamp::OutputAlm: return QStringLiteral("ALM");
    case IoLamp::OutputRdy: return QStringLiteral("RDY");
    case IoLamp::OutputInp: return QStringLiteral("IN-P");
    case IoLamp::OutputOut1: return QStringLiteral("OUT1");
    case IoLamp::OutputOut2: return QStringLiteral("OUT2");
    }
    return {};
}

int IoBits::index(IoLamp lamp)
{
    return int(std::find(AllIoLamps.begin(), AllIoLamps.end(), lamp) - AllIoLamps.begin());
}
