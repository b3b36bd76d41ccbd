#include "link/Link.h"

#include "common/MessageTable.h"
#include "common/ProgramState.h"
#include "common/SerialPort.h"
#include "common/Settings.h"
#include "common/Waiter.h"
#include "link/AlarmDisplay.h"
#include "link/ErrorList.h"
#include "link/LinkLog.h"
#include "link/PortNaming.h"
#include "link/Prompter.h"
#include "link/StaleInput.h"
#include "link/TransactionMessages.h"

#include <QTimer>

#include <array>
#include <utility>

namespace {

const QString LineSettingsText = QStringLiteral("9600,N,8,1");
const QString ErrorReplyHead = QStringLiteral("0%%");
const QString CrLf = QStringLiteral("\r\n");
const QString ResyncFrame = QStringLiteral("0CM6");

// Marks a transaction in flight for as long as it runs, whichever way it returns.
class InFlight {
public:
    explicit InFlight(bool& flag)
        : m_flag(flag)
    {
        m_flag = true;
    }
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
        : QObject(link)
        , q(link)
        , port(serial)
        , prompter(ask)
        , alarms(lamps)
        , errors(list)
        , TimerTimeout(new QTimer(this))
    {
        TimerTimeout->setSingleShot(true);
        connect(TimerTimeout, &QTimer::timeout, this, &Private::onTimeout);
        connect(&port, &SerialPort::readyRead, this, &Private::poll);
        connect(&port, &SerialPort::lost, this, &Private::onLost);
    }

    QString deviceOf(int n) const { return deviceOfNumber ? deviceOfNumber(n) : QString(); }
    bool openDevice(const QString& device);

    void releasePort();
    LinkOutcome refuse(const QString& command);
    LinkOutcome transact(const QString& frame, int expectedLength);
    LinkOutcome outcome(LinkOutcome::Kind kind) const { return {kind, gReply}; }
    LinkOutcome fail(LinkOutcome::Kind kind, const QString& text, Prompter::Icon icon = Prompter::Icon::None);
    LinkOutcome failNotOpened();
    void startTimeout();
    void onTimeout();
    void writeFrame(const QString& frame);
    void setAsideStaleInput();
    void poll();
    bool finishStaleLine();
    void announce(const QString& line);
    void takeOwnError(const QString& line);
    void tellOwnErrors();
    void onLost();

    LinkOutcome failLost();
    LinkOutcome failTimedOut();
    LinkOutcome failErrorReply();
    LinkOutcome accept();
    LinkOutcome resynchronise(bool echoMatched);
    void decodeErrorLine(const QString& line);

    Link* q;
    SerialPort& port;
    Prompter& prompter;
    AlarmDisplay& alarms;
    const ErrorList& errors;
    QTimer* TimerTimeout;
    bool inFlight = false;
    // The device went away; cleared when it opens again.
    bool lost = false;
    // How many characters at the front of gRxBuffer arrived before the
    // request: the start of an error line that is not the reply.
    qsizetype staleChars = 0;
    // What the controller reported on its own during this transaction.
    QStringList ownErrors;
    QString portName;
    std::function<QString(int)> deviceOfNumber = [](int n) { return PortNaming::deviceFor(n); };
    std::array<bool, PortNaming::ScanPorts + 1> available{};
    QStringList scanReport;

    // The transaction state.
    qint16 gTimeoutMs = 2000;
    bool gTimedOut = false;
    bool gReplyReceived = false;
    QString gRxBuffer;
    QString gReply;
    // What the last lookup of an error code found; its number and text stay
    // until the next code is found.
    LinkOutcome::Error decoded;
    bool gCloseAfterError = false; // never set; its test is kept
    bool gAbortWait = false;       // set when the program is closing
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
    if (d->openDevice(device)) {
        d->lost = false;
        return 0;
    }
    d->prompter.tell(d->lost ? TransactionMessages::lostPortNotReopened() : Msg(109));
    return 1;
}

// The port belongs to the request that waits for its reply: a sequence
// refused meanwhile must not close it under it.
void Link::CloseCommPort()
{
    if (d->inFlight) {
        qCWarning(lcLink) << "port left open: a request still waits for its reply";
        return;
    }
    d->releasePort();
}

void Link::Private::releasePort()
{
    if (port.isOpen() && !ProgramState::instance().gPortOccupy)
        q->ClosePortNow();
}

int Link::TryOpenPort(int n)
{
    if (n < 1 || n > PortNaming::ScanPorts)
        n = Settings::read(Setting::PortNo);
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
    ProgramState::instance().gPortNo = Settings::read(Setting::PortNo);
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

// The port is let go at once. A request waiting for its reply ends now and
// says why; otherwise the next transaction opens the port again and says so
// only when that fails.
void Link::Private::onLost()
{
    qCInfo(lcLink) << "serial device lost; it is opened again by the next transaction";
    q->ClosePortNow();
    lost = true;
    Waiter::wake();
}

// --- transaction ------------------------------------------------------------------

bool Link::busy() const
{
    return d->inFlight;
}

void Link::setTimeoutMs(int ms)
{
    d->gTimeoutMs = qint16(ms);
}

int Link::timeoutMs() const
{
    return d->gTimeoutMs;
}

QString Link::lastReply() const
{
    return d->gReply;
}

QString Link::pendingInput() const
{
    return d->gRxBuffer;
}

LinkOutcome Link::SendRecvCommand(const QString& command, int expectedLength, const QString& data)
{
    if (d->inFlight)
        return d->refuse(command);
    const InFlight inFlight(d->inFlight);
    d->ownErrors.clear();
    LinkOutcome result = d->transact(command + data, expectedLength);
    d->tellOwnErrors();
    return result;
}

// Told without waiting for an answer: the transaction in flight goes on
// untouched below this call.
LinkOutcome Link::Private::refuse(const QString& command)
{
    qCCritical(lcLink) << "internal error: transaction" << command
                       << "refused, another one is still waiting for its reply";
    prompter.notify(TransactionMessages::refusedWhileBusy());
    return outcome(LinkOutcome::Kind::RefusedBusy);
}

LinkOutcome Link::Private::transact(const QString& frame, int expectedLength)
{
    if (q->OpenCommPort() != 0)
        return failNotOpened();
    gTimedOut = false;
    startTimeout();
    const QString code = frame.left(3);
    writeFrame(frame);

    const Waiter::Result waited =
        Waiter::waitUntil([this] { return gReplyReceived || gTimedOut || lost; });
    TimerTimeout->stop();
    if (waited == Waiter::Result::Aborted) {
        gAbortWait = true;
        return outcome(LinkOutcome::Kind::Aborted);
    }
    if (lost)
        return failLost();
    if (gTimedOut)
        return failTimedOut();
    if (gReply.startsWith(ErrorReplyHead))
        return failErrorReply();
    const bool echoMatched = gReply.left(3) == code;
    if (echoMatched && gReply.size() == expectedLength)
        return accept();
    return resynchronise(echoMatched);
}

void Link::Private::startTimeout()
{
    TimerTimeout->start(qMax<int>(0, gTimeoutMs));
}

void Link::Private::onTimeout()
{
    gTimedOut = true;
    Waiter::wake();
}

void Link::Private::writeFrame(const QString& frame)
{
    const QByteArray bytes = frame.toLatin1();
    setAsideStaleInput();
    gReplyReceived = false;
    port.write(bytes + "\r\n");
    qCDebug(lcLinkFrames).noquote() << ">" << frame;
    emit q->frameSent(bytes);
}

// Input that arrived before the request cannot be its reply. All of it is
// taken, what the serial driver still holds included: noise and late answers
// are dropped, error lines are the controller's own reports and are decoded.
// The start of one still arriving stays in front of the buffer; otherwise
// the driver is cleared once more, of whatever came in meanwhile.
void Link::Private::setAsideStaleInput()
{
    const StaleInput stale = StaleInput::split(gRxBuffer + QString::fromLatin1(port.takeArrived()));
    if (stale.head.isEmpty())
        port.discardInput();
    gRxBuffer = stale.head;
    staleChars = stale.head.size();
    for (const QString& line : stale.errorLines)
        takeOwnError(line);
}

// The failure is told to the listeners of the link (the trace, the log)
// before the user is, so that it is there while the message is shown.
LinkOutcome Link::Private::fail(LinkOutcome::Kind kind, const QString& text, Prompter::Icon icon)
{
    emit q->transactionFailed(kind, gTimeoutMs);
    prompter.tell(text, icon);
    return outcome(kind);
}

// Opening has told the user already.
LinkOutcome Link::Private::failNotOpened()
{
    emit q->transactionFailed(LinkOutcome::Kind::NotOpened, gTimeoutMs);
    return outcome(LinkOutcome::Kind::NotOpened);
}

// The device went away under the request; onLost has let the port go.
LinkOutcome Link::Private::failLost()
{
    return fail(LinkOutcome::Kind::PortLost, TransactionMessages::portLost(), Prompter::Icon::Exclamation);
}

LinkOutcome Link::Private::failTimedOut()
{
    releasePort();
    return fail(LinkOutcome::Kind::TimedOut, TransactionMessages::timedOut());
}

LinkOutcome Link::Private::failErrorReply()
{
    decodeErrorLine(gReply);
    prompter.tell(TransactionMessages::errorReply(decoded.found, decoded.number, decoded.text));
    if (gCloseAfterError)
        releasePort();
    return {LinkOutcome::Kind::ErrorReply, gReply, decoded};
}

// An error the controller reported on its own meanwhile stays on the lamp:
// the reply says nothing about it.
LinkOutcome Link::Private::accept()
{
    if (ownErrors.isEmpty()) {
        alarms.setStatusText(QStringLiteral(" "));
        alarms.showAlarm(false);
    }
    return outcome(LinkOutcome::Kind::Ok);
}

// After a reply of the wrong length or echo the controller is asked for a
// plain communication check, whose answer decides which failure is shown.
// After a wrong length the wait has no time limit: only a line (or the
// program closing) ends it.
LinkOutcome Link::Private::resynchronise(bool echoMatched)
{
    gTimedOut = false;
    startTimeout();
    writeFrame(ResyncFrame);

    const Waiter::Result waited = Waiter::waitUntil([this, echoMatched] {
        return gReplyReceived || gAbortWait || lost || (!echoMatched && gTimedOut);
    });
    TimerTimeout->stop();
    if (waited == Waiter::Result::Aborted)
        gAbortWait = true;
    if (gAbortWait)
        return outcome(LinkOutcome::Kind::Aborted);
    if (lost)
        return failLost();
    if (gReply.startsWith(ErrorReplyHead))
        return failErrorReply();
    releasePort();
    return fail(LinkOutcome::Kind::WrongReply, TransactionMessages::lengthError());
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
    gRxBuffer += QString::fromLatin1(port.readAll());
    if (staleChars > 0 && !finishStaleLine())
        return;
    if (!gRxBuffer.endsWith(CrLf))
        return;
    gReplyReceived = true;
    gReply = gRxBuffer;
    gRxBuffer.clear();
    announce(gReply);
    if (gReply.startsWith(ErrorReplyHead))
        decodeErrorLine(gReply);
    Waiter::wake();
}

// The line that began before the request is not the reply. Once it is
// plainly an error line it is read to its CR LF and decoded; once it is
// plainly not one, its first characters were noise and are dropped. True
// when what follows it is there to be looked at.
bool Link::Private::finishStaleLine()
{
    QString& rx = gRxBuffer;
    if (rx.size() < ErrorReplyHead.size() && ErrorReplyHead.startsWith(rx))
        return false;
    if (!rx.startsWith(ErrorReplyHead)) {
        rx.remove(0, std::exchange(staleChars, 0));
        return true;
    }
    const qsizetype end = rx.indexOf(CrLf);
    if (end < 0)
        return false;
    const QString line = rx.left(end + CrLf.size());
    rx.remove(0, line.size());
    staleChars = 0;
    takeOwnError(line);
    return !rx.isEmpty();
}

void Link::Private::announce(const QString& line)
{
    const QByteArray bytes = withoutLineEnd(line);
    qCDebug(lcLinkFrames).noquote() << "<" << bytes;
    emit q->lineReceived(bytes);
}

// Decoded as any error line is; a request waiting meanwhile tells it (the
// same report once) when its own reply has been judged.
void Link::Private::takeOwnError(const QString& line)
{
    gReply = line;
    announce(line);
    decodeErrorLine(line);
    const QString report = TransactionMessages::ownError(
        TransactionMessages::errorReply(decoded.found, decoded.number, decoded.text));
    if (inFlight && !ownErrors.contains(report))
        ownErrors << report;
}

void Link::Private::tellOwnErrors()
{
    for (const QString& text : std::exchange(ownErrors, {}))
        prompter.tell(text, Prompter::Icon::Exclamation);
}

// --- error replies ------------------------------------------------------------------

void Link::Private::decodeErrorLine(const QString& line)
{
    decoded.found = false;
    if (errors.missing()) {
        prompter.tell(MsgLines({30, 31}));
        return;
    }
    const QString head = line.left(6);
    alarms.setStatusText(head.mid(3, 3));
    // The middle character of the code is not part of the key.
    const QString key = head.mid(3, 1) + head.mid(5, 1);
    alarms.showAlarm(true);
    if (const auto entry = errors.find(key)) {
        // The message names the error by the number the controller sent.
        decoded.number = head.mid(3, 3);
        decoded.text = entry->text;
        alarms.setStatusText(decoded.text);
        decoded.found = true;
        return;
    }
    alarms.setStatusText(Msg(32));
}

LinkOutcome::Error Link::ErrorCheck(const QString& reply)
{
    d->decodeErrorLine(reply);
    return d->decoded;
}
