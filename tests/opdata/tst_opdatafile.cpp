#include "common/FileBytes.h"
#include "common/MessageTable.h"
#include "common/ProgramState.h"
#include "opdata/OpDataFile.h"
#include "opdata/OpDataFileCommands.h"
#include "opdata/OpDataState.h"

#include "OpDataFakes.h"
#include "support/FileSizeLimit.h"
#include "support/ScriptedFileChooser.h"
#include "support/ScriptedPrompter.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

namespace {

using P = PosiTable;

const QByteArray ExampleFile = "\"QM-B4\",\"Position\"\r\n"
                               "\"\",\"NEW\"\r\n"
                               "0,\"9000\",\"1\",\"\",\"\",\"0\",\"12\",\"1\",\"\"\r\n";

// The example with one piece replaced.
QByteArray changed(const char* from, const char* to)
{
    return QByteArray(ExampleFile).replace(from, to);
}

const QString Rejected = QStringLiteral("Not Position Data file for QM-B4.\r\n\r\nOpening file is canceled.");

} // namespace

class TestOpDataFile : public QObject {
    Q_OBJECT

private slots:
    void init()
    {
        ProgramState::reset();
        ProgramState::instance().gMsgBase = MessageTable::EnglishBase;
        m_prompter.clear();
        m_files = ScriptedFileChooser();
        m_lock.calls.clear();
        m_progress.calls.clear();
    }

    // The older format has no generation item; an item of five characters is
    // still accepted.
    void reads_data()
    {
        QTest::addColumn<QByteArray>("content");
        QTest::addColumn<int>("label");
        QTest::addColumn<QList<qint64>>("values"); // VEL, ACC, DIVISION, GEAR
        QTest::newRow("old generation") << QByteArray("\"QM-B4\",\"Position\"\r\n\"\"\r\n"
                                                      "0,\"300\",\"2\",\"\",\"\",\"1\",\"4\",\"10\",\"\"\r\n")
                                        << 149 << QList<qint64>{300, 2, 4, 10};
        QTest::newRow("five-character item") << changed("\"\",\"NEW\"", "\"ABCDE\",\"NEW\"")
                                             << 148 << QList<qint64>{9000, 1, 12, 1};
    }
    void reads()
    {
        QFETCH(QByteArray, content);
        PosiTable read;
        int label = 0;
        QCOMPARE(OpDataFile::ReadPosidataFile(writeFile(QStringLiteral("in.qmd"), content), read, label, m_prompter), 0);
        QTEST(label, "label");
        QTEST(numbers(read, {P::VEL, P::ACC, P::DIVISION, P::GEAR}), "values");
    }

    void rejects_data()
    {
        QTest::addColumn<QByteArray>("content");
        QTest::newRow("another data kind") << changed("Position", "Parameter");
        QTest::newRow("another format") << changed("QM-B4", "QM-B5");
        QTest::newRow("six-character item") << changed("\"\",\"NEW\"", "\"ABCDEF\",\"NEW\"");
        QTest::newRow("letters in VEL") << changed("\"9000\"", "\"9x00\"");
        QTest::newRow("VEL beyond 16 bits") << changed("\"9000\"", "\"40000\"");
        QTest::newRow("ends early") << ExampleFile.left(ExampleFile.indexOf("\"12\""));
        QTest::newRow("empty file") << QByteArray();
    }
    void rejects()
    {
        QFETCH(QByteArray, content);
        PosiTable read;
        int label = 0;
        QCOMPARE(OpDataFile::ReadPosidataFile(writeFile(QStringLiteral("bad.qmd"), content), read, label, m_prompter), 1);
        QCOMPARE(m_prompter.texts(), QStringList{Rejected});
        QCOMPARE(m_prompter.shown[0].icon, Prompter::Icon::Exclamation);
    }

    void openFillsTheScreen()
    {
        OpDataState state;
        state.PosiDataRead[PosiTable::DIR] = qint16(1); // left by an earlier controller read
        FakeOpDataView view(state);
        view.shown.comboVEL = QStringLiteral("5");
        ProgramState::instance().gDataChanged = true;
        m_files.setNextFileName(writeFile(QStringLiteral("KTRdata.qmd"), ExampleFile));

        OpDataFileCommands(m_prompter, m_lock, m_progress, m_files, state, view).Open();

        QCOMPARE(m_files.requests.size(), 1);
        QVERIFY(!m_files.requests[0].save);
        QCOMPARE(m_files.requests[0].filter, QStringLiteral("Position Data(*.qmd)|*.qmd|All Files(*.*)|*.*"));
        QCOMPARE(fieldTexts(view.shown), (QStringList{"9000", "1", "12", "1", "30", "1"}));
        QVERIFY2(!view.shown.optCW, "the file's direction is not taken");
        QVERIFY(view.eventsOffWhileShown);
        QVERIFY(!state.mEventsOff);
        QCOMPARE(numbers(state.PosiData, {P::VEL, P::DIR}), (QList<qint64>{9000, 1}));
        QCOMPARE(state.mDataTitle, m_dir.filePath(QStringLiteral("KTRdata")));
        QCOMPARE(state.generationLabel, 148);
        QVERIFY(!ProgramState::instance().gDataChanged);
        QVERIFY(!ProgramState::instance().gCommBusy);
        QCOMPARE(m_lock.calls, (QStringList{"CMDBTN_Muko", "Menyu_Muko", "CMDBTN_Yuko", "Menyu_Yuko"}));
    }

    void openRejectedLeavesTheScreen()
    {
        OpDataState state;
        FakeOpDataView view(state);
        m_files.setNextFileName(writeFile(QStringLiteral("wrong.qmd"), changed("Position", "Points")));

        OpDataFileCommands(m_prompter, m_lock, m_progress, m_files, state, view).Open();

        QCOMPARE(m_prompter.texts(), QStringList{Rejected});
        QCOMPARE(view.showCount, 0);
        QVERIFY(state.mDataTitle.isEmpty());
        QVERIFY(!ProgramState::instance().gCommBusy);
    }

    void saveAsWritesAndTitles()
    {
        OpDataState state;
        FakeOpDataView view(state);
        view.shown = exampleScreen();
        ProgramState::instance().gDataChanged = true;
        const QString path = m_dir.filePath(QStringLiteral("saved.qmd"));
        m_files.setNextFileName(path);

        OpDataFileCommands(m_prompter, m_lock, m_progress, m_files, state, view).SaveAs();

        QCOMPARE(ReadBytes(path), ExampleFile);
        QCOMPARE(m_files.requests.size(), 1);
        QVERIFY(m_files.requests[0].save);
        QCOMPARE(m_files.requests[0].proposedName, QStringLiteral("KTRdata.qmd"));
        QCOMPARE(state.mDataTitle, m_dir.filePath(QStringLiteral("saved")));
        QVERIFY(!ProgramState::instance().gDataChanged);
        QCOMPARE(m_progress.calls, (QStringList{"window Saving data to the file... 0", "window hidden"}));
        QVERIFY(m_prompter.shown.isEmpty());
    }

    void saveAsRefusesEmptyField()
    {
        OpDataState state;
        FakeOpDataView view(state);
        view.shown = exampleScreen();
        view.shown.txtDIVISION.clear();
        m_files.setNextFileName(m_dir.filePath(QStringLiteral("never.qmd")));

        OpDataFileCommands(m_prompter, m_lock, m_progress, m_files, state, view).SaveAs();

        QVERIFY(m_files.requests.isEmpty());
        QCOMPARE(m_prompter.texts(), QStringList{"No data in the list.\r\n\r\nInput data and try it again."});
        QVERIFY(!QFile::exists(m_dir.filePath(QStringLiteral("never.qmd"))));
    }

    void failedSaveKeepsOldFileAndChangedFlag()
    {
        const QString path = writeFile(QStringLiteral("keep.qmd"), ExampleFile);
        OpDataState state;
        state.mDataTitle = QStringLiteral("before");
        FakeOpDataView view(state);
        view.shown = exampleScreen();
        view.shown.txtVEL = QStringLiteral("120");
        ProgramState::instance().gDataChanged = true;
        m_files.setNextFileName(path);

        {
            const FileSizeLimit limit(16);
            OpDataFileCommands(m_prompter, m_lock, m_progress, m_files, state, view).SaveAs();
        }

        QCOMPARE(ReadBytes(path), ExampleFile);
        QCOMPARE(m_prompter.shown.size(), 1);
        QVERIFY2(m_prompter.lastText().startsWith(QStringLiteral("The file could not be saved.\r\n") + path),
                 qPrintable(m_prompter.lastText()));
        QCOMPARE(state.mDataTitle, QStringLiteral("before"));
        QVERIFY(ProgramState::instance().gDataChanged);
        QCOMPARE(m_progress.calls.last(), QStringLiteral("window hidden"));
    }

private:
    QString writeFile(const QString& name, const QByteArray& bytes) { return WriteBytes(m_dir.filePath(name), bytes); }

    QTemporaryDir m_dir;
    ScriptedPrompter m_prompter;
    ScriptedFileChooser m_files;
    RecordingLock m_lock;
    RecordingProgress m_progress;
};

QTEST_APPLESS_MAIN(TestOpDataFile)
#include "tst_opdatafile.moc"
