#include "ControllerClient.h"

#include "common/ProgramState.h"
#include "support/FileSizeLimit.h"

#include <QFile>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

using namespace FactoryMemory;

namespace {

QByteArray readFile(const QString& path)
{
    QFile f(path);
    f.open(QIODevice::ReadOnly);
    return f.readAll();
}

} // namespace

class TestSimMemory : public QObject {
    Q_OBJECT

private slots:
    void init() { QVERIFY(!QFile::exists(state)); }
    void cleanup() { QFile::remove(state); }

    // Until the restart the working copy holds the write; after it, only what was stored.
    void restartKeepsOnlyWhatWasStored_data()
    {
        QTest::addColumn<QList<QByteArray>>("requests");
        QTest::addColumn<QByteArray>("read");
        QTest::addColumn<QByteArray>("afterRestart");
        const QByteArray wd0 = "0WD0" + OtherBlock;
        const QByteArray wd7 = "0WD7" + OtherBlock;
        const QByteArray wp = "0WP01" + OtherRecord;
        QTest::newRow("block 0 unstored") << QList<QByteArray>{wd0} << QByteArray("0RD0") << Block0;
        QTest::newRow("block 0 stored") << QList<QByteArray>{wd0, "0WE"} << QByteArray("0RD0") << OtherBlock;
        QTest::newRow("block 0 and 0WF") << QList<QByteArray>{wd0, "0WF"} << QByteArray("0RD0") << Block0;
        QTest::newRow("block 7 and 0WE") << QList<QByteArray>{wd7, "0WE"} << QByteArray("0RD7") << Block7;
        QTest::newRow("block 7 stored") << QList<QByteArray>{wd7, "0WF"} << QByteArray("0RD7") << OtherBlock;
        QTest::newRow("record unstored") << QList<QByteArray>{wp} << QByteArray("0RP01") << Record1;
        QTest::newRow("record stored") << QList<QByteArray>{wp, "0WA0101"} << QByteArray("0RP01") << OtherRecord;
        QTest::newRow("record outside the stored range") << QList<QByteArray>{"0WP02" + OtherRecord, "0WA0101"}
                                                         << QByteArray("0RP02") << QByteArray(16, '0');
    }
    void restartKeepsOnlyWhatWasStored()
    {
        QFETCH(QList<QByteArray>, requests);
        QFETCH(QByteArray, read);
        SimLine line;
        for (const QByteArray& r : requests)
            QVERIFY(!line.ask(r).startsWith("0%%"));
        QCOMPARE(line.ask(read), read + (read.startsWith("0RP") ? OtherRecord : OtherBlock) + "\r\n");
        line.controller.restart();
        QFETCH(QByteArray, afterRestart);
        QCOMPARE(line.ask(read), read + afterRestart + "\r\n");
    }

    // Created by the first store; block 0 is written last and never stored.
    void stateFileCarriesTheStoredCopy()
    {
        QString error;
        {
            SimLine first;
            QVERIFY(first.controller.useStateFile(state, &error));
            first.askAll({"0WD1" + OtherBlock, "0WP01" + OtherRecord});
            QVERIFY(!QFile::exists(state));
            first.askAll({"0WE", "0WA0101", "0WD0" + OtherBlock});
            QVERIFY(readFile(state).contains("BLOCK1=" + OtherBlock + "\n"));
        }
        SimLine second;
        QVERIFY(second.controller.useStateFile(state, &error));
        QCOMPARE(second.askAll({"0RD1", "0RP01", "0RD0", "0RD7"}),
                 (QList<QByteArray>{"0RD1" + OtherBlock + "\r\n", "0RP01" + OtherRecord + "\r\n",
                                    "0RD0" + Block0 + "\r\n", "0RD7" + Block7 + "\r\n"}));
    }

    void stateFileWithUnknownLines_data()
    {
        QTest::addColumn<QByteArray>("line");
        QTest::newRow("block 3") << "BLOCK3=" + OtherBlock;
        QTest::newRow("short block") << "BLOCK0=" + OtherBlock.left(31);
        QTest::newRow("lower-case hex") << "BLOCK0=" + OtherBlock.toLower();
        QTest::newRow("record 64") << "RECORD40=" + OtherRecord;
        QTest::newRow("record 0") << "RECORD00=" + OtherRecord;
        QTest::newRow("long record") << "RECORD01=" + OtherRecord + "0";
        QTest::newRow("no equals sign") << QByteArray("BLOCK0");
        QTest::newRow("unknown key") << "PARAM0=" + OtherBlock;
    }
    void stateFileWithUnknownLines()
    {
        QFETCH(QByteArray, line);
        QFile file(state);
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write("# comment\nBLOCK1=" + OtherBlock + "\n" + line + "\n");
        file.close();
        ProgramState::instance().gMsgBase = 10000;
        SimLine sim;
        QString error;
        QVERIFY(!sim.controller.useStateFile(state, &error));
        QCOMPARE(error, "line 3 is not understood");
        QCOMPARE(sim.ask("0RD1"), "0RD1" + Block1 + "\r\n");
    }

    void failedSaveKeepsTheOldFile()
    {
        SimLine line;
        QString error;
        QVERIFY(line.controller.useStateFile(state, &error));
        QSignalSpy failed(&line.controller.memory(), &ControllerMemory::saveFailed);
        line.ask("0WE");
        const QByteArray saved = readFile(state);
        QVERIFY(!saved.isEmpty());
        line.ask("0WD0" + OtherBlock);
        {
            FileSizeLimit limit(64);
            QCOMPARE(line.ask("0WE"), QByteArray("0WE\r\n"));
        }
        QCOMPARE(failed.count(), 1);
        QCOMPARE(failed.first().first().toString(), state);
        QCOMPARE(readFile(state), saved);
    }

private:
    QTemporaryDir dir;
    const QString state = dir.filePath("sim.state");
};

QTEST_GUILESS_MAIN(TestSimMemory)
#include "tst_simmemory.moc"
