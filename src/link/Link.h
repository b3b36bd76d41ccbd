#pragma once

#include <QObject>
#include <QString>
#include <QStringList>

#include <functional>

class AlarmDisplay;
class ErrorList;
class Prompter;
class SerialPort;

// The controller link: owns the serial port and the state of the one
// transaction that may be in flight, and runs SendRecvCommand.
//
// Public members carry the names the rest of the program knows them by.
class Link : public QObject {
    Q_OBJECT
public:
    Link(SerialPort& port, Prompter& prompter, AlarmDisplay& alarms,
         const ErrorList& errors, QObject* parent = nullptr);
    ~Link() override;

    // --- port management ---------------------------------------------------
    // Opens the port of gPortNo (or portName() when set) unless it is open.
    // 0 when open afterwards; 1 after message 109 was shown (with a word on
    // the device that went away, when it did).
    int OpenCommPort();
    // Closes the port unless gPortOccupy holds it open, or a request still
    // waits for its reply on it.
    void CloseCommPort();
    // Opening trial of numbered port n for the port scan; no message.
    int TryOpenPort(int n);
    void ClosePortNow();
    // Tries ports 1..32 in ascending order; see portAvailable().
    void ScanPorts();
    bool portAvailable(int n) const;
    // Reads the setting PortNo (default 1) into gPortNo.
    void ReadPortSetting();
    // The diagnostic lines of the last scan ("COMn" + opened/failed).
    QStringList scanReport() const;
    bool isPortOpen() const;

    // A device name that replaces the numbered port for this run
    // (--port NAME, or the device chosen in the options dialog).
    void setPortName(const QString& name);
    QString portName() const;
    // Which device a port number names (PortNaming::deviceFor unless
    // replaced, as tests do).
    void setPortNaming(std::function<QString(int)> deviceOf);
    QString deviceOf(int n) const;

    // --- transaction -------------------------------------------------------
    // Writes command + data + CR LF, waits for the reply line or gTimeoutMs,
    // checks echo and length, shows any failure, and returns 0 (reply in
    // gReply) or 1. An error line the controller sent on its own as the
    // request went out is decoded and told, and is not taken for the reply.
    // The device going away ends the wait at once. A second call while one
    // is in flight is refused with 1 and a notice that is not waited for.
    int SendRecvCommand(const QString& command, int expectedLength, const QString& data);
    bool busy() const;

    // Decodes the error reply in gReply: lamps, lblstatus, gErrorFound,
    // gErrorText, gErrorNo.
    void ErrorCheck();

    // --- transaction state -------------------------------------------------
    qint16 gTimeoutMs = 2000;
    bool gTimedOut = false;
    bool gReplyReceived = false;
    QString gRxBuffer;
    QString gReply;
    bool gCommError = false;
    bool gErrorReply = false;
    QString gLastErrorReply;
    bool gErrorFound = false;
    QString gErrorText;
    QString gErrorNo;              // the code of the last error found in the list
    bool gCloseAfterError = false; // never set; its test is kept
    bool gAbortWait = false;       // set when the program is closing

signals:
    // Every frame written and every line completed, for --trace and the
    // communication log (CR LF not included).
    void frameSent(const QByteArray& frame);
    void lineReceived(const QByteArray& line);

private:
    struct Private;
    Private* d;
};
