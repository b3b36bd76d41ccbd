#include "link/Link.h"

#include "common/MessageTable.h"
#include "common/ProgramState.h"
#include "common/Waiter.h"
#include "link/AlarmDisplay.h"
#include "link/ErrorList.h"
#include "link/LinkLog.h"
#include "link/PortNaming.h"
#include "link/Prompter.h"
#include "link/SerialPort.h"
#include "link/TransactionMessages.h"
#include "shell/Settings.h"

#include <QTimer>

#include <array>

namespace {

const QString LineSettingsText = QStringLiteral("9600,N,8,1");
const QString ErrorReplyHead = QStringLiteral("0%%");
const QString CrLf = QStringLiteral("\r\n");
const QString ResyncFrame = QStringLiteral("0CM6");

// Marks a transaction in flight for as long as it runs, whichever way it returns.
class InFlight {
public:
    explicit InFlight(bool& flag) : m_flag(flag) { m_flag = true; }
    ~InFlight() { m_flag = false; }
    InFlight(const InFlight&) = delete;
    InFlight& operator=(const InFlight&) = delete;

private:
    bool& m_flag;
};

QByteArray withoutLineEnd(const QString& line)
{
    QByteArray bytes = line.toLatin1();
    if (bytes.endsWith("\r\n"))
        bytes.chop(2);
    return bytes;
}

} // namespace

struct Link::Private : QObject {
    Private(Link* link, SerialPort& serial, Prompter& ask, AlarmDisplay& lamps,
            const ErrorList& list)
        : QObject(link), q(link), port(serial), prompter(ask), alarms(lamps), errors(list),
          TimerTimeout(new QTimer(this))
    {
        TimerTimeout->setSingleShot(true);
        connect(TimerTimeout, &QTimer::timeout, this, &Private::onTimeout);
        connect(&port, &SerialPort::readyRead, this, &Private::poll);
        connect(&port, &SerialPort::lost, this, &Private::onLost);
    }

    QString deviceOf(int n) const { return deviceOfNumber ? deviceOfNumber(n) : QString(); }
    bool openDevice(const QString& device);

    void startTimeout();
    void onTimeout();
    void writeFrame(const QString& frame);
    void poll();
    void onLost();

    int failTimedOut();
    int failErrorReply();
    int accept();
    int resynchronise(bool echoMatched);

    Link* q;
    SerialPort& port;
    Prompter& prompter;
    AlarmDisplay& alarms;
    const ErrorList& errors;
    QTimer* TimerTimeout;
    bool inFlight = false;
    QString portName;
    std::function<QString(int)> deviceOfNumber = [](int n) { return PortNaming::deviceFor(n); };
    std::array<bool, PortNaming::ScanPorts + 1> available{};
    QStringList scanReport;
};

Link::Link(SerialPort& port, Prompter& prompter, AlarmDisplay& alarms, const ErrorList& errors,
           QObject* parent)
    : QObject(parent)
    , d(new Private(this, port, prompter, alarms, errors))
{
}

Link::~Link() = default;

// --- port management ----------------------------------------------------------

bool Link::Private::openDevice(const QString& device)
{
    if (device.isEmpty()) {
        qCInfo(lcLink) << "no serial device for this port number";
        return false;
    }
    if (!port.open(device, LineSettingsText)) {
        qCInfo(lcLink) << "cannot open" << device << ":" << port.errorString();
        return false;
    }
    qCInfo(lcLink) << "opened" << device << LineSettingsText;
    return true;
}

int Link::OpenCommPort()
{
    ProgramState& state = ProgramState::instance();
    if (state.gPortNo < 1 || state.gPortNo > 9)
        ReadPortSetting();
    if (d->port.isOpen())
        return 0;
    const QString device = d->portName.isEmpty() ? d->deviceOf(state.gPortNo) : d->portName;
    if (d->openDevice(device))
        return 0;
    d->prompter.tell(Msg(109));
    return 1;
}

void Link::CloseCommPort()
{
    if (d->port.isOpen() && !ProgramState::instance().gPortOccupy)
        ClosePortNow();
}

int Link::TryOpenPort(int n)
{
    if (n < 1 || n > PortNaming::ScanPorts)
        n = Settings::readInt(QStringLiteral("PortNo"), 1);
    if (d->port.isOpen())
        return 0;
    return d->openDevice(d->deviceOf(n)) ? 0 : 1;
}

void Link::ClosePortNow()
{
    if (!d->port.isOpen())
        return;
    d->port.close();
    qCInfo(lcLink) << "port closed";
}

// A port held open for the run is released first, so that it is tried like
// every other one; the next transaction opens it again.
void Link::ScanPorts()
{
    ClosePortNow();
    d->scanReport.clear();
    for (int n = 1; n <= PortNaming::ScanPorts; ++n) {
        const bool opened = TryOpenPort(n) == 0;
        d->available[n] = opened;
        if (opened)
            ClosePortNow();
        d->scanReport << QStringLiteral("COM%1").arg(n)
                + (opened ? QStringLiteral("のｵｰﾌﾟﾝに成功!") : QStringLiteral("のｵｰﾌﾟﾝに失敗!"));
        qCDebug(lcLink) << d->scanReport.last();
    }
}

bool Link::portAvailable(int n) const
{
    return n >= 1 && n <= PortNaming::ScanPorts && d->available[n];
}

void Link::ReadPortSetting()
{
    ProgramState::instance().gPortNo = Settings::readInt(QStringLiteral("PortNo"), 1);
}

QStringList Link::scanReport() const
{
    return d->scanReport;
}

bool Link::isPortOpen() const
{
    return d->port.isOpen();
}

void Link::setPortName(const QString& name)
{
    d->portName = name.trimmed();
}

QString Link::portName() const
{
    return d->portName;
}

void Link::setPortNaming(std::function<QString(int)> deviceOf)
{
    d->deviceOfNumber = std::move(deviceOf);
}

QString Link::deviceOf(int n) const
{
    return d->deviceOf(n);
}

// Only logged: the user hears of it through the message of the transaction
// that fails, and ktrctl's stderr carries nothing else.
void Link::Private::onLost()
{
    qCInfo(lcLink) << "serial device lost; it is opened again by the next transaction";
    q->ClosePortNow();
}

// --- transaction ------------------------------------------------------------------

bool Link::busy() const
{
    return d->inFlight;
}

int Link::SendRecvCommand(const QString& command, int expectedLength, const QString& data)
{
    if (d->inFlight) {
        qCCritical(lcLink) << "internal error: transaction" << command
                           << "refused, another one is still waiting for its reply";
        return 1;
    }
    const InFlight inFlight(d->inFlight);

    if (OpenCommPort() != 0)
        return 1;
    gCommError = false;
    gTimedOut = false;
    d->startTimeout();
    gRxBuffer.clear();
    const QString frame = command + data;
    const QString code = frame.left(3);
    gReplyReceived = false;
    d->writeFrame(frame);

    const Waiter::Result waited = Waiter::waitUntil([this] { return gReplyReceived || gTimedOut; });
    d->TimerTimeout->stop();
    if (waited == Waiter::Result::Aborted) {
        gAbortWait = true;
        return 1;
    }
    if (gTimedOut)
        return d->failTimedOut();
    if (gReply.startsWith(ErrorReplyHead))
        return d->failErrorReply();
    const bool echoMatched = gReply.left(3) == code;
    if (echoMatched && gReply.size() == expectedLength)
        return d->accept();
    return d->resynchronise(echoMatched);
}

void Link::Private::startTimeout()
{
    TimerTimeout->start(qMax<int>(0, q->gTimeoutMs));
}

void Link::Private::onTimeout()
{
    q->gTimedOut = true;
    Waiter::wake();
}

// Input that arrived before the request (a late answer to an earlier one, a
// line the controller sent on its own) is dropped, so it cannot pass for
// the reply.
void Link::Private::writeFrame(const QString& frame)
{
    const QByteArray bytes = frame.toLatin1();
    port.discardInput();
    port.write(bytes + "\r\n");
    qCDebug(lcLinkFrames).noquote() << ">" << frame;
    emit q->frameSent(bytes);
}

int Link::Private::failTimedOut()
{
    q->gCommError = true;
    q->CloseCommPort();
    prompter.tell(TransactionMessages::timedOut());
    return 1;
}

int Link::Private::failErrorReply()
{
    q->gErrorReply = true;
    q->gLastErrorReply = q->gReply;
    q->ErrorCheck();
    prompter.tell(TransactionMessages::errorReply(q->gErrorFound, q->gErrorNo, q->gErrorText));
    if (q->gCloseAfterError)
        q->CloseCommPort();
    return 1;
}

int Link::Private::accept()
{
    q->gErrorReply = false;
    alarms.setStatusText(QStringLiteral(" "));
    alarms.showAlarm(false);
    return 0;
}

// After a reply of the wrong length or echo the controller is asked for a
// plain communication check, whose answer decides which failure is shown.
// After a wrong length the wait has no time limit: only a line (or the
// program closing) ends it.
int Link::Private::resynchronise(bool echoMatched)
{
    q->gTimedOut = false;
    startTimeout();
    q->gRxBuffer.clear();
    q->gReplyReceived = false;
    writeFrame(ResyncFrame);

    const Waiter::Result waited = Waiter::waitUntil([this, echoMatched] {
        return q->gReplyReceived || q->gAbortWait || (!echoMatched && q->gTimedOut);
    });
    TimerTimeout->stop();
    if (waited == Waiter::Result::Aborted)
        q->gAbortWait = true;
    if (q->gAbortWait)
        return 1;
    if (q->gReply.startsWith(ErrorReplyHead))
        return failErrorReply();
    q->CloseCommPort();
    q->gCommError = true;
    prompter.tell(TransactionMessages::lengthError());
    return 1;
}

// The receive side: everything waiting is appended to the buffer, and a
// line is complete when the accumulated text ends in CR LF. Error lines are
// decoded at once, also when no transaction is waiting for them.
void Link::Private::poll()
{
    if (!port.isOpen())
        return;
    if (port.bytesAvailable() < 1)
        return;
    q->gRxBuffer += QString::fromLatin1(port.readAll());
    if (!q->gRxBuffer.endsWith(CrLf))
        return;
    q->gReplyReceived = true;
    q->gReply = q->gRxBuffer;
    q->gRxBuffer.clear();
    const QByteArray line = withoutLineEnd(q->gReply);
    qCDebug(lcLinkFrames).noquote() << "<" << line;
    emit q->lineReceived(line);
    if (q->gReply.startsWith(ErrorReplyHead)) {
        q->gErrorReply = true;
        q->ErrorCheck();
    }
    Waiter::wake();
}

// --- error replies ------------------------------------------------------------------

void Link::ErrorCheck()
{
    gErrorFound = false;
    if (d->errors.missing()) {
        d->prompter.tell(MsgLines({30, 31}));
        return;
    }
    const QString head = gReply.left(6);
    d->alarms.setStatusText(head.mid(3, 3));
    // The middle character of the code is not part of the key.
    const QString key = head.mid(3, 1) + head.mid(5, 1);
    d->alarms.showAlarm(true);
    if (const auto entry = d->errors.find(key)) {
        // The message names the error by the number the controller sent.
        gErrorNo = head.mid(3, 3);
        gErrorText = entry->text;
        d->alarms.setStatusText(gErrorText);
        gErrorFound = true;
        return;
    }
    d->alarms.setStatusText(Msg(32));
}
