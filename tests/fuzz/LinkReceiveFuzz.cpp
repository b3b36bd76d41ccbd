// The receive side of the transaction engine on arbitrary bytes: requests
// from the command catalogue, answered in any chunking, with lines in any
// order, lines the controller sends on its own, and a pulled cable. Every
// transaction must end, with a reply that fits its request or with the
// failure shown; a reply that was accepted is handed to its decoder.
#include "FuzzSupport.h"

#include "support/RecordingAlarmDisplay.h"

#include "common/RuntimeError.h"
#include "common/SerialPort.h"
#include "common/Waiter.h"
#include "link/ErrorList.h"
#include "link/Link.h"
#include "link/VersionQuery.h"
#include "opdata/IoBits.h"
#include "opdata/OpDataRecord.h"
#include "opdata/PosiTable.h"
#include "params/ParaBlockCodec.h"
#include "params/TakeCtParaImage.h"

#include <QTimer>

#include <utility>

#include <fuzzer/FuzzedDataProvider.h>

namespace {

// A serial line that plays back what the fuzzer made up: each write is
// answered by the next group of steps, one step per turn of the event loop.
// A step is a chunk of bytes (its own read) or the cable being pulled. A
// write with no group left stays unanswered.
class ReplayPort : public SerialPort {
public:
    struct Step {
        QByteArray bytes;
        bool pull = false;
    };
    using Group = QList<Step>;

    // The answers to the next writes, in order; earlier ones not played are dropped.
    void setGroups(const QList<Group>& groups) { m_groups = groups; }
    // Bytes the controller sends on its own, read at once.
    void arrive(const QByteArray& bytes)
    {
        if (!m_open)
            return;
        m_input += bytes;
        emit readyRead();
    }

    bool open(const QString&, const QString&) override { return m_open = true; }
    void close() override { m_open = false; }
    bool isOpen() const override { return m_open; }
    qint64 write(const QByteArray& data) override
    {
        if (!m_groups.isEmpty())
            QTimer::singleShot(0, this, [this, steps = m_groups.takeFirst()] { play(steps); });
        return data.size();
    }
    qint64 bytesAvailable() const override { return m_input.size(); }
    QByteArray readAll() override { return std::exchange(m_input, {}); }
    void discardInput() override { m_input.clear(); }
    QString errorString() const override { return {}; }

private:
    void play(Group steps)
    {
        if (steps.isEmpty() || !m_open)
            return;
        const Step step = steps.takeFirst();
        if (step.pull) {
            m_open = false;
            emit lost();
            return;
        }
        arrive(step.bytes);
        if (!steps.isEmpty())
            QTimer::singleShot(0, this, [this, steps] { play(steps); });
    }

    QList<Group> m_groups;
    QByteArray m_input;
    bool m_open = false;
};

struct Request {
    const char* command;
    int expectedLength;
    const char* data;
};

// The frames of the command catalogue with their reply lengths.
constexpr Request Catalogue[] = {
    {"0CM", 6, "6"},
    {"0RA", 6, ""},
    {"0RD", 38, "1"},
    {"0WD", 6, "0"},
    {"0WE", 5, ""},
    {"0WF", 5, ""},
    {"0RP", 23, "01"},
    {"0WP", 7, "012328100000000C01"},
    {"0WA", 5, "0101"},
    {"0MP", 7, "01"},
    {"0AR", 5, ""},
    {"0RI", 8, ""},
    {"0RO", 7, ""},
    {"0WO", 7, "00"},
    {"0RV", 11, ""},
    {"0%C", 16, ""},
};
constexpr int CatalogueSize = int(sizeof Catalogue / sizeof Catalogue[0]);

const ErrorList& shippedErrors()
{
    static const ErrorList list = [] {
        ErrorList errors;
        if (!errors.load(QStringLiteral(KTR_ERROR_LIST)))
            qFatal("cannot read %s", KTR_ERROR_LIST);
        return errors;
    }();
    return list;
}

ReplayPort::Group groupFrom(FuzzedDataProvider& in)
{
    ReplayPort::Group group;
    const int steps = in.ConsumeIntegralInRange(0, 4);
    for (int i = 0; i < steps; ++i) {
        if (in.ConsumeIntegralInRange(0, 15) == 0)
            group << ReplayPort::Step{{}, true};
        else
            group << ReplayPort::Step{QByteArray::fromStdString(in.ConsumeRandomLengthString(48)), false};
    }
    return group;
}

// What the command's own routine does with an accepted reply.
void decode(const QString& command, const QString& reply)
{
    if (command == u"0RD") {
        CtParaImage image;
        DecodeParaBlocks({reply, reply, reply}, image);
        ParaSet set;
        try {
            TakeCtParaImage(image, set);
        } catch (const RuntimeError&) {
        }
    } else if (command == u"0RP") {
        PosiTable table;
        OpDataRecord::parseReply(reply, table);
    } else if (command == u"0RI") {
        IoBits::InputTable bits{};
        IoBits::decode(reply.mid(3, IoBits::InputDigits), bits);
    } else if (command == u"0RO") {
        IoBits::OutputTable bits{};
        IoBits::decode(reply.mid(3, IoBits::OutputDigits), bits);
    } else if (command == u"0RV" || command == u"0%C") {
        VersionQuery::versionText(reply.mid(6, 3));
    }
}

class Session {
public:
    explicit Session(const ErrorList& errors)
        : link(port, prompter, alarms, errors)
    {
        link.setPortName(QStringLiteral("fuzz"));
        watchdog.setSingleShot(true);
        QObject::connect(&watchdog, &QTimer::timeout, [] { Waiter::abortAll(); });
    }

    // Lines the controller sends while nobody waits: an error line lights
    // the alarm lamp (or says the list is missing) at once.
    void unsolicited(const QByteArray& bytes)
    {
        const int shownBefore = prompter.count;
        const QString before = link.lastReply();
        port.arrive(bytes);
        checkBuffers();
        if (link.lastReply() != before && link.lastReply().startsWith(u"0%%"))
            FUZZ_CHECK(alarms.alarm || prompter.count > shownBefore);
    }

    // false when the wait was given up (the program closing).
    bool transact(const Request& request, int timeoutMs)
    {
        const int shownBefore = prompter.count;
        link.setTimeoutMs(timeoutMs);
        // A silent controller after a length error would be waited for
        // without end; the "user" closes the program instead.
        watchdog.start(timeoutMs + 5);
        const LinkOutcome outcome = link.SendRecvCommand(QLatin1String(request.command),
                                                         request.expectedLength, QLatin1String(request.data));
        watchdog.stop();
        FUZZ_CHECK(!link.busy());
        checkBuffers();
        if (Waiter::aborted()) {
            FUZZ_CHECK(outcome.kind() == LinkOutcome::Kind::Aborted);
            Waiter::clearAbort();
            return false;
        }
        if (!outcome.ok()) {
            FUZZ_CHECK(prompter.count > shownBefore);
            return true;
        }
        const QString& reply = outcome.reply();
        FUZZ_CHECK(reply.left(3) == QLatin1String(request.command));
        FUZZ_CHECK(reply.size() == request.expectedLength);
        // Error lines the controller sent on its own before the reply are
        // told and keep the lamp as they set it; otherwise the reply puts it out.
        if (prompter.count == shownBefore)
            FUZZ_CHECK(!alarms.alarm);
        decode(QLatin1String(request.command), reply);
        return true;
    }

    ReplayPort port;

private:
    // A complete line never stays in the receive buffer.
    void checkBuffers() const
    {
        FUZZ_CHECK(!link.pendingInput().endsWith(QLatin1String("\r\n")));
        FUZZ_CHECK(link.lastReply().isEmpty() || link.lastReply().endsWith(QLatin1String("\r\n")));
    }

    CountingPrompter prompter;
    RecordingAlarmDisplay alarms;
    Link link;
    QTimer watchdog;
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    FuzzEnvironment::instance();
    FuzzedDataProvider in(data, size);
    static const ErrorList missingErrors = [] {
        ErrorList errors;
        errors.load(QString());
        return errors;
    }();
    Session session(in.ConsumeBool() ? missingErrors : shippedErrors());
    const int transactions = in.ConsumeIntegralInRange(1, 4);
    for (int t = 0; t < transactions; ++t) {
        const Request& request = Catalogue[in.ConsumeIntegralInRange(0, CatalogueSize - 1)];
        const int timeoutMs = in.ConsumeIntegralInRange(0, 3);
        const QByteArray early = QByteArray::fromStdString(in.ConsumeRandomLengthString(32));
        // The answer to the request, then the answer to a resynchronising check.
        const ReplayPort::Group answer = groupFrom(in);
        session.port.setGroups({answer, groupFrom(in)});
        session.unsolicited(early);
        if (!session.transact(request, timeoutMs))
            break;
    }
    return 0;
}
