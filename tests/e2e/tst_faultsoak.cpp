// Thousands of transactions, a fault drawn for each from a fixed seed: each
// failure told once with its message, never left busy, no growth. Not drawn:
// silence after a wrong length, which is waited for without a time limit.

#include "common/Waiter.h"
#include "link/LinkRig.h"
#include "sim/SimController.h"
#include "sim/SimOptions.h"
#include "sim/SimSerialPort.h"

#include <QFile>
#include <QRandomGenerator>
#include <QTest>

#include <array>

#include <unistd.h>

#if defined(__SANITIZE_ADDRESS__)
#define KTR_ADDRESS_SANITIZER 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define KTR_ADDRESS_SANITIZER 1
#endif
#endif

namespace {

constexpr quint32 Seed = 0x4B545235;
constexpr int Transactions = 5000;
constexpr int WarmUp = 500;
constexpr int TimeoutMs = 120;
constexpr int LateMs = 10;
constexpr int TooLateMs = TimeoutMs + 30;
constexpr int SplitGapMs = 2;
// Heap that may come and go between two readings without a leak behind it.
constexpr qint64 ResidentSlackBytes = 1 << 20;

struct Request {
    const char* command;
    int length;
    const char* data;
};
const std::array<Request, 9> Requests{{{"0RA", 6, ""}, {"0RD", 38, "0"}, {"0RD", 38, "2"}, {"0RV", 11, ""}, {"0RI", 8, ""}, {"0RO", 7, ""}, {"0CM", 6, "6"}, {"0RP", 23, "01"}, {"0AR", 5, ""}}};

const QString Refused = QStringLiteral("Communication error occurs!\r\nError No.101\r\n[101: Unknown command.]");

// ktr-sim's option for the command (%1), weight, what is told (empty: success).
struct FaultKind {
    const char* name;
    int weight;
    QString option;
    QString told;
};
const std::array<FaultKind, 9> FaultKinds{{
    {"none", 48, {}, {}},
    {"late", 6, QStringLiteral("--late=%1:%2").arg(LateMs), {}},
    {"too late", 1, QStringLiteral("--late=%1:%2").arg(TooLateMs), TimedOut},
    {"silence", 1, "--silent=%1", TimedOut},
    {"extra character", 8, "--extra-char=%1", LengthError},
    {"wrong echo", 8, "--wrong-echo=%1", LengthError},
    {"split CR LF", 8, "--split-crlf=%1", {}},
    {"error reply", 10, "--error-reply=%1:101", Refused},
    {"garbage", 10, "--garbage=%1", LengthError},
}};

const FaultKind& drawFault(QRandomGenerator& random)
{
    int pick = int(random.bounded(100));
    for (const FaultKind& kind : FaultKinds) {
        if (pick < kind.weight)
            return kind;
        pick -= kind.weight;
    }
    return FaultKinds.front();
}

SimFaults faultsFor(const FaultKind& kind, const QString& letters)
{
    QString error;
    SimFaults faults = SimOptions::parse(kind.option.isEmpty() ? QStringList() : QStringList{kind.option.arg(letters)}, &error)->faults;
    faults.splitGapMs = SplitGapMs;
    return faults;
}

qint64 residentBytes()
{
    QFile statm(QStringLiteral("/proc/self/statm"));
    if (!statm.open(QIODevice::ReadOnly))
        return -1;
    const QList<QByteArray> fields = statm.readAll().split(' ');
    return fields.size() > 1 ? fields[1].toLongLong() * ::sysconf(_SC_PAGESIZE) : -1;
}

} // namespace

class TestFaultSoak : public QObject {
    Q_OBJECT

private slots:
    void manyTransactionsWithRandomFaults()
    {
        TempSettings settings;
        ProgramState::reset();
        ProgramState& state = ProgramState::instance();
        state.gLanguage = 2;
        state.gMsgBase = 10000;
        state.gPortOccupy = true;
        ScriptedPrompter prompter;
        RecordingAlarmDisplay alarms;
        ErrorList errors;
        QCOMPARE(errors.Get_ErrorList(prompter), 0);
        SimSerialPort port;
        Link link(port, prompter, alarms, errors);
        link.setPortName(QStringLiteral("simulator"));
        bool lineCame = false;
        QObject::connect(&link, &Link::lineReceived, [&] { lineCame = true; });

        QRandomGenerator random(Seed);
        QHash<QString, int> seen;
        qint64 residentAfterWarmUp = 0;
        qsizetype objectsAfterWarmUp = 0;
        const auto objects = [&] { return link.findChildren<QObject*>().size() + port.findChildren<QObject*>().size(); };

        for (int n = 1; n <= Transactions; ++n) {
            const Request& request = Requests[random.bounded(int(Requests.size()))];
            const FaultKind& kind = drawFault(random);
            port.controller().setFaults(faultsFor(kind, QString::fromLatin1(request.command).mid(1, 2)));
            prompter.clear();
            link.setTimeoutMs(TimeoutMs);

            const bool ok = link.SendRecvCommand(QLatin1String(request.command), request.length,
                                                 QLatin1String(request.data))
                                .ok();
            lineCame = false;

            const QString where = QStringLiteral("transaction %1 (seed %2): %3%4 with %5")
                                      .arg(n)
                                      .arg(Seed)
                                      .arg(QLatin1String(request.command),
                                           QLatin1String(request.data), QLatin1String(kind.name));
            const QStringList expected = kind.told.isEmpty() ? QStringList{} : QStringList{kind.told};
            QVERIFY2(!link.busy() && ok == kind.told.isEmpty() && prompter.texts() == expected,
                     qPrintable(where + QStringLiteral(": told ") + prompter.texts().join(u'|')));
            ++seen[QLatin1String(kind.name)];

            // The answer that missed its time arrives before the next request.
            if (kind.option.contains(QString::number(TooLateMs)))
                QVERIFY2(Waiter::waitUntil([&] { return lineCame; }, 2000) == Waiter::Result::Done,
                         qPrintable(where));
            if (n == WarmUp) {
                residentAfterWarmUp = residentBytes();
                objectsAfterWarmUp = objects();
            }
        }

        QCOMPARE(seen.size(), qsizetype(FaultKinds.size()));
        QCOMPARE(objects(), objectsAfterWarmUp);
#ifndef KTR_ADDRESS_SANITIZER
        // The sanitizer keeps freed memory aside for a while; its own leak
        // check stands in for this one there.
        const qint64 grown = residentBytes() - residentAfterWarmUp;
        QVERIFY2(grown < ResidentSlackBytes, qPrintable(QStringLiteral("grew by %1 bytes").arg(grown)));
#endif
    }
};

QTEST_GUILESS_MAIN(TestFaultSoak)
#include "tst_faultsoak.moc"
