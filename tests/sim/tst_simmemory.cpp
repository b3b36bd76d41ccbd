#include "ControllerClient.h"
#include "FactoryMemory.h"

#include "common/ProgramState.h"
#include "sim/SimController.h"
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

void writeFile(const QString& path, const QByteArray& bytes)
{
    QFile f(path);
    f.open(QIODevice::WriteOnly);
    f.write(bytes);
}

// A state file path in a fresh directory.
struct StateFile {
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("sim.state"));

    bool useIn(SimController& controller) const
    {
        QString error;
        return controller.useStateFile(path, &error);
    }
};

} // namespace

class TestSimMemory : public QObject {
    Q_OBJECT

private slots:
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
        QTest::newRow("record outside the stored range")
            << QList<QByteArray>{"0WP02" + OtherRecord, "0WA0101"} << QByteArray("0RP02")
            << QByteArray(16, '0');
    }
    void restartKeepsOnlyWhatWasStored()
    {
        QFETCH(QList<QByteArray>, requests);
        QFETCH(QByteArray, read);
        QFETCH(QByteArray, afterRestart);

        SimController controller;
        ControllerClient client(controller);
        for (const QByteArray& r : requests)
            QVERIFY(!client.ask(r).startsWith("0%%"));
        // Until the restart the working copy holds the write.
        const QByteArray written = read.startsWith("0RP") ? OtherRecord : OtherBlock;
        QCOMPARE(client.ask(read), read + written + "\r\n");

        controller.restart();
        QCOMPARE(client.ask(read), read + afterRestart + "\r\n");
    }

    void stateFileCarriesTheStoredCopy()
    {
        const StateFile state;
        {
            SimLine first;
            QVERIFY(state.useIn(first.controller));
            // Block 0 is written last and never stored.
            first.client.askAll({"0WD1" + OtherBlock, "0WE", "0WP01" + OtherRecord, "0WA0101", "0WD0" + OtherBlock});
        }
        SimLine second;
        QVERIFY(state.useIn(second.controller));
        QCOMPARE(second.client.askAll({"0RD1", "0RP01", "0RD0", "0RD7"}),
                 (QList<QByteArray>{"0RD1" + OtherBlock + "\r\n", "0RP01" + OtherRecord + "\r\n",
                                    "0RD0" + Block0 + "\r\n", "0RD7" + Block7 + "\r\n"}));
    }

    void missingStateFileIsCreatedByTheFirstStore()
    {
        const StateFile state;
        SimController controller;
        QVERIFY(state.useIn(controller));
        ControllerClient client(controller);
        QCOMPARE(client.ask("0RD1"), "0RD1" + Block1 + "\r\n");
        client.ask("0WD7" + OtherBlock);
        QVERIFY(!QFile::exists(state.path));
        client.ask("0WF");
        QVERIFY(readFile(state.path).contains("BLOCK7=" + OtherBlock + "\n"));
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

        const StateFile state;
        writeFile(state.path, "# comment\nBLOCK1=" + OtherBlock + "\n" + line + "\n");
        ProgramState::instance().gMsgBase = 10000;
        SimController controller;
        QString error;
        QVERIFY(!controller.useStateFile(state.path, &error));
        QCOMPARE(error, QStringLiteral("line 3 is not understood"));
        // Nothing of the file is taken.
        ControllerClient client(controller);
        QCOMPARE(client.ask("0RD1"), "0RD1" + Block1 + "\r\n");
    }

    void failedSaveKeepsTheOldFile()
    {
        const StateFile state;
        SimController controller;
        QVERIFY(state.useIn(controller));
        QSignalSpy failed(&controller.memory(), &ControllerMemory::saveFailed);
        ControllerClient client(controller);
        client.ask("0WE");
        const QByteArray saved = readFile(state.path);
        QVERIFY(!saved.isEmpty());

        client.ask("0WD0" + OtherBlock);
        {
            FileSizeLimit limit(64);
            QCOMPARE(client.ask("0WE"), QByteArray("0WE\r\n"));
        }
        QCOMPARE(failed.count(), 1);
        QCOMPARE(failed.first().first().toString(), state.path);
        QCOMPARE(readFile(state.path), saved);
    }
};

QTEST_GUILESS_MAIN(TestSimMemory)
#include "tst_simmemory.moc"
