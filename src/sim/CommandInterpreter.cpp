#include "sim/CommandInterpreter.h"

#include "sim/AxisMotion.h"
#include "sim/ControllerError.h"
#include "sim/ControllerMemory.h"
#include "sim/HexField.h"
#include "sim/MoveTiming.h"
#include "sim/OperationRecord.h"
#include "sim/SimDefaults.h"

namespace {

QByteArray refuse(const char* code)
{
    return ControllerError::reply(code);
}

} // namespace

CommandInterpreter::CommandInterpreter(ControllerMemory& memory, AxisMotion& axis)
    : m_memory(memory)
    , m_axis(axis)
{
}

const QHash<QByteArray, CommandInterpreter::Handler>& CommandInterpreter::handlers()
{
    static const QHash<QByteArray, Handler> table = {
        {"CM", &CommandInterpreter::setMode},
        {"RA", &CommandInterpreter::readStatus},
        {"RD", &CommandInterpreter::readBlock},
        {"WD", &CommandInterpreter::writeBlock},
        {"WE", &CommandInterpreter::storeParameterBlocks},
        {"WF", &CommandInterpreter::storeBlock7},
        {"RP", &CommandInterpreter::readRecord},
        {"WP", &CommandInterpreter::writeRecord},
        {"WA", &CommandInterpreter::storeRecords},
        {"MP", &CommandInterpreter::move},
        {"AR", &CommandInterpreter::resetAlarm},
        {"RI", &CommandInterpreter::readInputs},
        {"RO", &CommandInterpreter::readOutputs},
        {"WO", &CommandInterpreter::writeOutputs},
        {"RV", &CommandInterpreter::readVersion},
        {"%C", &CommandInterpreter::readVersionOldForm},
    };
    return table;
}

QByteArray CommandInterpreter::answer(const QByteArray& line)
{
    if (!line.startsWith('0'))
        return {};
    const Handler handler = handlers().value(line.mid(1, 2));
    if (line.size() < 3 || !handler)
        return refuse(ControllerError::UnknownCommand);
    return (this->*handler)(line.mid(3));
}

const char* CommandInterpreter::fieldError(const QByteArray& data, int length)
{
    if (!HexField::isHex(data))
        return ControllerError::NotHexadecimal;
    if (data.size() != length)
        return ControllerError::WrongLength;
    return nullptr;
}

void CommandInterpreter::setInputs(bool stb, bool stop)
{
    m_stb = stb;
    m_stop = stop;
    if (m_stop)
        m_axis.stop();
}

void CommandInterpreter::powerUp()
{
    m_out1 = false;
    m_out2 = false;
}

QByteArray CommandInterpreter::setMode(const QByteArray& data)
{
    if (const char* e = fieldError(data, 1))
        return refuse(e);
    // Modes 0 (normal) to 7 (I/O monitor) are acknowledged; none of them
    // changes what the other commands do here.
    if (HexField::value(data, 0, 1) > 7)
        return refuse(ControllerError::OutOfRange);
    return "0CM" + data;
}

QByteArray CommandInterpreter::readStatus(const QByteArray& data)
{
    if (const char* e = fieldError(data, 0))
        return refuse(e);
    return QByteArray("0RA") + m_axis.statusDigit();
}

QByteArray CommandInterpreter::readBlock(const QByteArray& data)
{
    if (const char* e = fieldError(data, 1))
        return refuse(e);
    const int block = HexField::value(data, 0, 1);
    if (!MemoryImage::isBlock(block))
        return refuse(ControllerError::OutOfRange);
    return "0RD" + data + m_memory.block(block);
}

QByteArray CommandInterpreter::writeBlock(const QByteArray& data)
{
    if (const char* e = fieldError(data, 1 + SimDefaults::DataDigits))
        return refuse(e);
    const int block = HexField::value(data, 0, 1);
    if (!MemoryImage::isBlock(block))
        return refuse(ControllerError::OutOfRange);
    if (m_axis.moving())
        return refuse(ControllerError::AxisMoving);
    if (m_writesTaken)
        m_memory.writeBlock(block, data.mid(1));
    return "0WD" + data.left(1);
}

QByteArray CommandInterpreter::storeParameterBlocks(const QByteArray& data)
{
    if (const char* e = fieldError(data, 0))
        return refuse(e);
    if (m_axis.moving())
        return refuse(ControllerError::AxisMoving);
    m_memory.storeBlocks({0, 1, 2});
    return "0WE";
}

QByteArray CommandInterpreter::storeBlock7(const QByteArray& data)
{
    if (const char* e = fieldError(data, 0))
        return refuse(e);
    if (m_axis.moving())
        return refuse(ControllerError::AxisMoving);
    m_memory.storeBlocks({7});
    return "0WF";
}

QByteArray CommandInterpreter::readRecord(const QByteArray& data)
{
    if (const char* e = fieldError(data, 2))
        return refuse(e);
    const int number = HexField::value(data, 0, 2);
    if (!MemoryImage::isRecord(number))
        return refuse(ControllerError::OutOfRange);
    return "0RP" + data + m_memory.record(number);
}

QByteArray CommandInterpreter::writeRecord(const QByteArray& data)
{
    if (const char* e = fieldError(data, 2 + OperationRecord::HexLength))
        return refuse(e);
    const int number = HexField::value(data, 0, 2);
    const QByteArray fields = data.mid(2);
    if (!MemoryImage::isRecord(number) || !OperationRecord::fromHex(fields)->movable())
        return refuse(ControllerError::OutOfRange);
    if (m_axis.moving())
        return refuse(ControllerError::AxisMoving);
    if (m_writesTaken)
        m_memory.writeRecord(number, fields);
    return "0WP" + data.left(2);
}

QByteArray CommandInterpreter::storeRecords(const QByteArray& data)
{
    if (const char* e = fieldError(data, 4))
        return refuse(e);
    const int first = HexField::value(data, 0, 2);
    const int last = HexField::value(data, 2, 2);
    if (!MemoryImage::isRecord(first) || !MemoryImage::isRecord(last) || first > last)
        return refuse(ControllerError::OutOfRange);
    if (m_axis.moving())
        return refuse(ControllerError::AxisMoving);
    m_memory.storeRecords(first, last);
    return "0WA";
}

QByteArray CommandInterpreter::move(const QByteArray& data)
{
    if (const char* e = fieldError(data, 2))
        return refuse(e);
    const int point = HexField::value(data, 0, 2);
    if (point > MemoryImage::LastRecord)
        return refuse(ControllerError::OutOfRange);
    if (m_axis.moving())
        return refuse(ControllerError::AxisMoving);
    if (m_axis.alarm())
        return refuse(ControllerError::AlarmActive);
    double ms = MoveTiming::HomingMs;
    if (point != 0) {
        const auto record = OperationRecord::fromHex(m_memory.record(point));
        if (!record->movable())
            return refuse(ControllerError::OutOfRange);
        ms = MoveTiming::indexingMs(*record);
    }
    m_axis.start(MoveTiming::scaled(ms, m_timeScale));
    // With STOP held the move is cut off as soon as it begins.
    if (m_stop)
        m_axis.stop();
    return "0MP" + data;
}

QByteArray CommandInterpreter::resetAlarm(const QByteArray& data)
{
    if (const char* e = fieldError(data, 0))
        return refuse(e);
    m_axis.clearAlarm();
    return "0AR";
}

QByteArray CommandInterpreter::readInputs(const QByteArray& data)
{
    if (const char* e = fieldError(data, 0))
        return refuse(e);
    const int digit1 = (m_stb ? 8 : 0) | (m_stop ? 2 : 0);
    return "0RI" + HexField::digits(digit1, 1) + "00";
}

QByteArray CommandInterpreter::readOutputs(const QByteArray& data)
{
    if (const char* e = fieldError(data, 0))
        return refuse(e);
    const bool ready = !m_axis.alarm() && !m_axis.moving();
    const int digit1 = (m_axis.alarm() ? 4 : 0) | (ready ? 2 : 0) | (m_axis.inPosition() ? 1 : 0);
    const int digit2 = (m_out1 ? 2 : 0) | (m_out2 ? 1 : 0);
    return "0RO" + HexField::digits(digit1, 1) + HexField::digits(digit2, 1);
}

QByteArray CommandInterpreter::writeOutputs(const QByteArray& data)
{
    if (const char* e = fieldError(data, 2))
        return refuse(e);
    // Only OUT1 and OUT2 can be switched; the first digit's bits follow
    // the controller's own state.
    const int digit2 = HexField::value(data, 1, 1);
    m_out1 = digit2 & 2;
    m_out2 = digit2 & 1;
    return "0WO" + data;
}

QByteArray CommandInterpreter::readVersion(const QByteArray& data)
{
    if (const char* e = fieldError(data, 0))
        return refuse(e);
    return QByteArray("0RV") + TypeCode + VersionDigits;
}

QByteArray CommandInterpreter::readVersionOldForm(const QByteArray& data)
{
    if (const char* e = fieldError(data, 0))
        return refuse(e);
    return QByteArray("0%C") + TypeCode + VersionDigits + "00000";
}
