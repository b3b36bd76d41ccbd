#pragma once

#include <QSerialPort>
#include <QString>

#include <optional>

// The line settings text of a serial port, "baud,parity,data bits,stop bits"
// as in "9600,N,8,1". Parity letters: N none, E even, O odd, M mark, S space;
// stop bits 1, 1.5 or 2. Handshaking is never part of it: the line runs
// without flow control.
struct LineSettings {
    qint32 baudRate = 9600;
    QSerialPort::Parity parity = QSerialPort::NoParity;
    QSerialPort::DataBits dataBits = QSerialPort::Data8;
    QSerialPort::StopBits stopBits = QSerialPort::OneStop;

    // Empty when the text is not a valid settings text.
    static std::optional<LineSettings> parse(const QString& text);
};
