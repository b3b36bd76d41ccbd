#pragma once

#include <QByteArray>

// The controller's error codes, answered as "0%%" + code + CR LF. The error
// list files shipped with the tool hold a text for each of them.
class ControllerError {
public:
    static constexpr const char* UnknownCommand = "101";
    static constexpr const char* NotHexadecimal = "102";
    static constexpr const char* WrongLength = "103";
    static constexpr const char* OutOfRange = "104";
    static constexpr const char* AxisMoving = "201";
    static constexpr const char* AlarmActive = "0B3";
    static constexpr const char* Overload = "301";
    static constexpr const char* Encoder = "302";
    static constexpr const char* EmergencyStop = "303";

    static QByteArray reply(const QByteArray& code) { return "0%%" + code; }
    // The codes an alarm can be raised with.
    static bool isAlarm(const QByteArray& code)
    {
        return code == Overload || code == Encoder || code == EmergencyStop;
    }
};
