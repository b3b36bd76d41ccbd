// ktrctl opdata, home, move and io against ktr-sim on a pseudo-terminal (or
// a controller played by the test): the frames on the wire and their
// timing, what is printed, Ctrl-C as STOP, and the printout of a file.

#include "print/PdfText.h"
#include "support/PtyController.h"
#include "support/SimProcess.h"

#include "common/Waiter.h"

#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

#include <csignal>

namespace {

struct Run {
    int exitCode = -1;
    QString out;
    QString err;
};

// ktrctl in English with a settings store of its own; stderr is gathered
// as it comes, so a test can act on the trace of a run in progress.
class Ktrctl {
public:
    Ktrctl()
    {
        QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
        env.insert(QStringLiteral("XDG_CONFIG_HOME"), m_config.path());
        env.insert(QStringLiteral("XDG_RUNTIME_DIR"), m_config.path());
        m_process.setProcessEnvironment(env);
        QObject::connect(&m_process, &QProcess::readyReadStandardError, [this] {
            m_err += QString::fromUtf8(m_process.readAllStandardError());
            Waiter::wake();
        });
        QObject::connect(&m_process, &QProcess::finished, [] { Waiter::wake(); });
    }

    void start(const QStringList& args)
    {
        m_process.start(QStringLiteral(KTRCTL_PATH), QStringList{"--lang", "en"} + args);
        m_process.waitForStarted();
    }
    bool waitForErr(const std::function<bool(const QString&)>& done, int timeoutMs = 15000)
    {
        return Waiter::waitUntil([&] { return done(m_err); }, timeoutMs) == Waiter::Result::Done;
    }
    void interrupt() { ::kill(pid_t(m_process.processId()), SIGINT); }
    Run finish(int timeoutMs = 30000)
    {
        Run run;
        if (Waiter::waitUntil([this] { return m_process.state() == QProcess::NotRunning; }, timeoutMs)
            != Waiter::Result::Done) {
            m_process.kill();
            m_process.waitForFinished();
            return run;
        }
        m_err += QString::fromUtf8(m_process.readAllStandardError());
        run.exitCode = m_process.exitStatus() == QProcess::NormalExit ? m_process.exitCode() : -1;
        run.out = QString::fromUtf8(m_process.readAllStandardOutput());
        run.err = m_err;
        return run;
    }
    static Run run(const QStringList& args)
    {
        Ktrctl ktrctl;
        ktrctl.start(args);
        return ktrctl.finish();
    }

private:
    QTemporaryDir m_config;
    QProcess m_process;
    QString m_err;
};

struct Frame {
    int ms;
    QString text;   // "> 0MP01" or "< 0RA1"
};

QList<Frame> trace(const QString& err)
{
    static const QRegularExpression line(QStringLiteral("^\\+(\\d+)\\.(\\d{3}) ([<>] .*)$"),
                                         QRegularExpression::MultilineOption);
    QList<Frame> frames;
    for (auto it = line.globalMatch(err); it.hasNext();) {
        const auto m = it.next();
        frames.append({m.captured(1).toInt() * 1000 + m.captured(2).toInt(), m.captured(3)});
    }
    return frames;
}

QStringList sent(const QString& err)
{
    QStringList out;
    for (const Frame& f : trace(err))
        if (f.text.startsWith(u'>'))
            out << f.text.mid(2);
    return out;
}

QStringList lines(const QString& text)
{
    return text.split(u'\n', Qt::SkipEmptyParts);
}

QStringList moveLines(int count)
{
    QStringList out;
    for (int n = 1; n <= count; ++n)
        out << QStringLiteral("Move %1 finished.").arg(n);
    return out;
}

// VEL 9000, ACC 1, DIR 1 in the file (not taken), 12 divisions, gear 1.
const QByteArray OpDataFile = "\"QM-B4\",\"Position\"\r\n\"\",\"NEW\"\r\n0,\"9000\",\"1\",\"\",\"\",\"1\",\"12\",\"1\",\"\"\r\n";

QString writeFile(const QTemporaryDir& dir, const QString& name, const QByteArray& bytes)
{
    QFile file(dir.filePath(name));
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        return {};
    return file.fileName();
}

} // namespace

class TestOpDataCtl : public QObject {
    Q_OBJECT

private slots:
    void writeThenReadBack_data()
    {
        QTest::addColumn<bool>("fromFile");
        QTest::addColumn<QStringList>("args");
        QTest::addColumn<QString>("record");
        QTest::addColumn<QStringList>("readBack");
        QTest::newRow("values, CCW")
            << false << QStringList{"--speed", "1", "--acc", "1", "--division", "12", "--gear", "1", "--dir", "ccw"}
            << "01012C100000010C01"
            << QStringList{"VEL=300", "ACC=1", "DIR=CCW", "DIVISION=12", "GEAR=1", "SPEED=1"};
        QTest::newRow("file: its direction is not taken")
            << true << QStringList{} << "012328100000000C01"
            << QStringList{"VEL=9000", "ACC=1", "DIR=CW", "DIVISION=12", "GEAR=1", "SPEED=30"};
    }
    void writeThenReadBack()
    {
        QFETCH(bool, fromFile);
        QFETCH(QStringList, args);
        QFETCH(QString, record);
        QFETCH(QStringList, readBack);
        QTemporaryDir dir;
        if (fromFile)
            args.prepend(writeFile(dir, QStringLiteral("in.qmd"), OpDataFile));
        SimProcess sim(QStringLiteral(KTRSIM_PATH));
        QVERIFY2(sim.start(), sim.standardError().constData());

        const Run write = Ktrctl::run(QStringList{"--port", sim.devicePath(), "--trace", "opdata", "write"} + args);
        QCOMPARE(write.exitCode, 0);
        QCOMPARE(sent(write.err), (QStringList{"0RA", "0WP" + record, "0WA0101"}));
        QVERIFY(write.out.isEmpty());

        const Run read = Ktrctl::run({"--port", sim.devicePath(), "--trace", "opdata", "read"});
        QCOMPARE(read.exitCode, 0);
        QCOMPARE(sent(read.err), (QStringList{"0CM6", "0RP01"}));
        QCOMPARE(lines(read.out), readBack);
    }

    void readIntoAFile()
    {
        QTemporaryDir dir;
        const QString path = dir.filePath(QStringLiteral("KTRdata.qmd"));
        const Run read = Ktrctl::run({"--simulator", "opdata", "read", "-o", path});
        QCOMPARE(read.exitCode, 0);
        QVERIFY(read.out.isEmpty());
        QFile file(path);
        QVERIFY(file.open(QIODevice::ReadOnly));
        QCOMPARE(file.readAll(),
                 QByteArray("\"QM-B4\",\"Position\"\r\n\"\",\"NEW\"\r\n0,\"300\",\"1\",\"0\",\"0\",\"0\",\"12\",\"1\",\"\"\r\n"));
    }

    void homeWaitsForTheEnd()
    {
        const Run home = Ktrctl::run({"--simulator", "--trace", "home"});
        QCOMPARE(home.exitCode, 0);
        const QStringList frames = sent(home.err);
        QCOMPARE(frames.mid(0, 3), (QStringList{"0CM6", "0MP00", "0RA"}));
        QCOMPARE(frames.count(QStringLiteral("0RA")), frames.size() - 2);
        QCOMPARE(trace(home.err).last().text, QStringLiteral("< 0RA1"));
    }

    void continuousRunMakesFifteenMoves()
    {
        SimProcess sim(QStringLiteral(KTRSIM_PATH));
        QVERIFY2(sim.start({"--time-scale", "0.05"}), sim.standardError().constData());
        const Run run = Ktrctl::run({"--port", sim.devicePath(), "--trace", "move", "--continuous"});
        QCOMPARE(run.exitCode, 0);
        QCOMPARE(sent(run.err).count(QStringLiteral("0MP01")), 15);
        QCOMPARE(sent(run.err).first(), QStringLiteral("0RA"));
        QCOMPARE(lines(run.out), moveLines(15));
    }

    // Ctrl-C while the third move runs: it completes, no fourth starts.
    // Between a move's end and the next start lies the dwell of 0.5 s.
    void dwellBetweenMovesAndCtrlCStops()
    {
        SimProcess sim(QStringLiteral(KTRSIM_PATH));
        QVERIFY2(sim.start(), sim.standardError().constData());
        Ktrctl ktrctl;
        ktrctl.start({"--port", sim.devicePath(), "--trace", "move", "--continuous", "--dwell", "5"});
        QVERIFY(ktrctl.waitForErr([](const QString& err) { return sent(err).count(QStringLiteral("0MP01")) == 3; }));
        ktrctl.interrupt();
        const Run run = ktrctl.finish();
        QCOMPARE(run.exitCode, 0);
        QCOMPARE(lines(run.out), moveLines(3));
        QCOMPARE(sent(run.err).count(QStringLiteral("0MP01")), 3);
        QCOMPARE(trace(run.err).last().text, QStringLiteral("< 0RA1"));

        int lastEnd = -1;
        int gaps = 0;
        for (const Frame& f : trace(run.err)) {
            if (f.text == u"< 0RA1") {
                lastEnd = f.ms;
            } else if (f.text == u"> 0MP01" && gaps++ > 0) {
                const int gap = f.ms - lastEnd;
                QVERIFY2(gap >= 490 && gap <= 800, qPrintable(QString::number(gap)));
            }
        }
        QCOMPARE(gaps, 3);
    }

    // The outputs read 00; a click on OUT1 writes 02 and reads it back.
    void ioTogglesAnOutput()
    {
        PtyController controller;
        QVERIFY(!controller.device().isEmpty());
        Ktrctl ktrctl;
        ktrctl.start({"--port", controller.device(), "--trace", "io", "--toggle", "OUT1"});
        QVERIFY(controller.answer("0CM7", "0CM7"));
        QVERIFY(controller.answer("0RI", "0RI000"));
        QVERIFY(controller.answer("0RO", "0RO00"));
        QVERIFY(controller.answer("0WO02", "0WO02"));
        QVERIFY(controller.answer("0RI", "0RI800"));
        QVERIFY(controller.answer("0RO", "0RO02"));
        QVERIFY(controller.answer("0CM0", "0CM0"));
        const Run run = ktrctl.finish();
        QCOMPARE(run.exitCode, 0);
        QCOMPARE(sent(run.err), (QStringList{"0CM7", "0RI", "0RO", "0WO02", "0RI", "0RO", "0CM0"}));
        QCOMPARE(run.out, QStringLiteral("STB=1 STOP=0 ALM=0 RDY=0 IN-P=0 OUT1=1 OUT2=0\n"));
    }

    void ioWatchUntilCtrlC()
    {
        Ktrctl ktrctl;
        ktrctl.start({"--simulator", "--trace", "io", "--watch"});
        QVERIFY(ktrctl.waitForErr([](const QString& err) { return sent(err).count(QStringLiteral("0RO")) == 3; }));
        ktrctl.interrupt();
        const Run run = ktrctl.finish();
        QCOMPARE(run.exitCode, 0);
        QCOMPARE(lines(run.out), QStringList{"STB=0 STOP=0 ALM=0 RDY=1 IN-P=1 OUT1=0 OUT2=0"});
        QCOMPARE(sent(run.err).last(), QStringLiteral("0CM0"));
    }

    void printOfAFile()
    {
        QTemporaryDir dir;
        const QString file = writeFile(dir, QStringLiteral("line-7.qmd"), OpDataFile);
        const QString pdf = dir.filePath(QStringLiteral("out.pdf"));
        const Run print = Ktrctl::run({"opdata", "print", file, "-o", pdf});
        QCOMPARE(print.exitCode, 0);
        QFile out(pdf);
        QVERIFY(out.open(QIODevice::ReadOnly));
        QString missing;
        const QString text = pdfText(out.readAll());
        QVERIFY2(findInOrder(text, {"File Name:line-7.qmd (New)", "1.SPEED:", "30", "2.VEL:", "9000",
                                    "4.DIRECTION:", "CW", "5.DIVISION:", "12", "7.STEP ANGLE:", "30.000 deg"},
                             &missing) >= 0,
                 qPrintable(missing + "\n" + text));

        const QString other = writeFile(dir, QStringLiteral("other.qmd"), "\"QM-B4\",\"Point\"\r\n");
        const Run rejected = Ktrctl::run({"opdata", "print", other, "-o", pdf});
        QCOMPARE(rejected.exitCode, 2);
        QCOMPARE(rejected.err, QStringLiteral("Not Position Data file for QM-B4.\n\nOpening file is canceled.\n"));
    }

    void usageErrors_data()
    {
        QTest::addColumn<QStringList>("args");
        QTest::addColumn<QString>("message");
        QTest::newRow("speed out of range")
            << QStringList{"opdata", "write", "--speed", "31", "--acc", "1", "--division", "12", "--gear", "1"}
            << "--speed takes a whole number from 1 to 30.";
        QTest::newRow("division of one")
            << QStringList{"opdata", "write", "--speed", "3", "--acc", "1", "--division", "1", "--gear", "1"}
            << "--division takes a whole number from 2 to 100.";
        QTest::newRow("values missing") << QStringList{"opdata", "write", "--speed", "3"}
                                        << "Give either an operation data file or all of --speed, --acc, --division and --gear.";
        QTest::newRow("bad direction") << QStringList{"opdata", "write", "x.qmd", "--dir", "up"}
                                       << "Invalid value for --dir: up";
        QTest::newRow("dwell of a step") << QStringList{"move", "--dwell", "5"} << "--dwell needs --continuous.";
        QTest::newRow("dwell too long") << QStringList{"move", "--continuous", "--dwell", "656"}
                                        << "--dwell takes a whole number from 0 to 655.";
        QTest::newRow("not an output") << QStringList{"io", "--toggle", "STB"} << "Invalid value for --toggle: STB";
        QTest::newRow("no pdf") << QStringList{"opdata", "print", "x.qmd"} << "-o is missing.";
    }
    void usageErrors()
    {
        QFETCH(QStringList, args);
        QFETCH(QString, message);
        const Run run = Ktrctl::run(QStringList{"--simulator", "--trace"} + args);
        QCOMPARE(run.exitCode, 2);
        QCOMPARE(lines(run.err), (QStringList{message, "Run ktrctl --help to see the commands."}));
        QVERIFY(run.out.isEmpty());
    }
};

QTEST_GUILESS_MAIN(TestOpDataCtl)
#include "tst_opdatactl.moc"
