#pragma once

#include "link/LinkOutcome.h"

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
    // Writes command + data + CR LF, waits for the reply line or the
    // time-out, checks echo and length, shows any failure, and says what
    // happened. An error line the controller sent on its own as the request
    // went out is decoded and told, and is not taken for the reply. The
    // device going away ends the wait at once. A second call while one is in
    // flight is refused with a notice that is not waited for.
    LinkOutcome SendRecvCommand(const QString& command, int expectedLength, const QString& data);
    bool busy() const;

    // The reply time-out of the following transactions (gTimeoutMs).
    void setTimeoutMs(int ms);
    int timeoutMs() const;
    // The last complete line received, and what has come in of the next.
    QString lastReply() const;
    QString pendingInput() const;

    // Decodes an error reply: lamps and lblstatus, and what the list says.
    LinkOutcome::Error ErrorCheck(const QString& reply);

signals:
    // Every frame written and every line completed, for --trace and the
    // communication log (CR LF not included).
    void frameSent(const QByteArray& frame);
    void lineReceived(const QByteArray& line);
    // A transaction ended without a usable reply (time-out, wrong length or
    // echo, port lost, port not opened); timeoutMs is the one it waited for.
    void transactionFailed(LinkOutcome::Kind kind, int timeoutMs);

private:
    struct Private;
    Private* d;
};
