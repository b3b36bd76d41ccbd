#include "link/LineSettings.h"

#include <QStringList>

namespace {

std::optional<QSerialPort::Parity> parityOf(const QString& letter)
{
    if (letter == u"N") return QSerialPort::NoParity;
    if (letter == u"E") return QSerialPort::EvenParity;
    if (letter == u"O") return QSerialPort::OddParity;
    if (letter == u"M") return QSerialPort::MarkParity;
    if (letter == u"S") return QSerialPort::SpaceParity;
    return std::nullopt;
}

std::optional<QSerialPort::DataBits> dataBitsOf(const QString& digits)
{
    if (digits == u"5") return QSerialPort::Data5;
    if (digits == u"6") return QSerialPort::Data6;
    if (digits == u"7") return QSerialPort::Data7;
    if (digits == u"8") return QSerialPort::Data8;
    return std::nullopt;
}

std::optional<QSerialPort::StopBits> stopBitsOf(const QString& digits)
{
    if (digits == u"1") return QSerialPort::OneStop;
    if (digits == u"1.5") return QSerialPort::OneAndHalfStop;
    if (digits == u"2") return QSerialPort::TwoStop;
    return std::nullopt;
}

} // namespace

std::optional<LineSettings> LineSettings::parse(const QString& text)
{
    const QStringList fields = text.split(u',');
    if (fields.size() != 4)
        return std::nullopt;
    bool ok = false;
    const qint32 baud = fields[0].trimmed().toInt(&ok);
    const auto parity = parityOf(fields[1].trimmed().toUpper());
    const auto dataBits = dataBitsOf(fields[2].trimmed());
    const auto stopBits = stopBitsOf(fields[3].trimmed());
    if (!ok || baud <= 0 || !parity || !dataBits || !stopBits)
        return std::nullopt;
    return LineSettings{baud, *parity, *dataBits, *stopBits};
}
