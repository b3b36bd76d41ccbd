#include "ParaFixtures.h"

#include "common/ControlLock.h"
#include "common/DataFiles.h"
#include "common/MessageTable.h"
#include "common/ProgramState.h"
#include "device/DeviceSelector.h"
#include "params/ParaData.h"
#include "params/ParaScreen.h"
#include "params/StandardPara.h"
#include "params/StdParaList.h"

#include "support/ScriptedPrompter.h"

#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QTest>

namespace {

class FixedSelector : public DeviceSelector {
public:
    bool selectDevice() override
    {
        ++asked;
        if (cancel)
            return true;
        ProgramState& g = ProgramState::instance();
        g.gActSize = size;
        g.gActKindChar = QStringLiteral("L");
        g.gActNumber = 100;
        g.gPgUse = encoder;
        return false;
    }
    QString size = QStringLiteral("28");
    bool encoder = false;
    bool cancel = false;
    int asked = 0;
};

class RecordingLock : public ControlLock {
public:
    void Menyu_Muko() override { calls << QStringLiteral("Menyu_Muko"); }
    void Menyu_Yuko() override { calls << QStringLiteral("Menyu_Yuko"); }
    QStringList calls;
};

const QByteArray ValidHeader = "\"QM-B4\",\"QM-CMNPRM\",3\r\n";

} // namespace

class TestStdPara : public QObject {
    Q_OBJECT

private slots:
    void init()
    {
        ProgramState::reset();
        ProgramState::instance().gMsgBase = 10000;
        prompter.clear();
        selector = FixedSelector();
        DataFiles::setProgramFolder(dir.path());
        QFile::remove(listPath());
        QVERIFY(QFile::copy(QFINDTESTDATA("../../resources/data/hb4cmstpr.lst"), listPath()));
    }
    void cleanupTestCase() { DataFiles::setProgramFolder({}); }

    // The shipped lists give a size-28 actuator without encoder exactly the
    // values a fresh controller holds.
    void size28WithoutEncoderIsTheFactorySet()
    {
        selector.size = QStringLiteral("28");
        ParaSet set;
        set.reserved = {0, 0, 0, 0, 0, 0, 0};
        ProgramState::instance().gActSize = QStringLiteral("28");
        ProgramState::instance().gActKindChar = QStringLiteral("L");
        ProgramState::instance().gActNumber = 100;
        QCOMPARE(standard().ApplyStandardPara(set), 0);
        ParaSet expected = Size28Set();
        expected.axis.motorCode = QStringLiteral("28L-100");
        QVERIFY(SameSet(set, expected));
        QVERIFY(prompter.shown.isEmpty());
    }

    void sizesAndEncoder_data()
    {
        QTest::addColumn<QString>("size");
        QTest::addColumn<bool>("encoder");
        QTest::addColumn<QString>("sizeText");
        QTest::addColumn<int>("function");
        QTest::newRow("35 with encoder") << "35" << true << "35" << 1;
        QTest::newRow("42 without") << "42" << false << "42" << 0;
        QTest::newRow("SP is written 20") << "SP" << true << "20" << 1;
        QTest::newRow("no size chosen") << "" << false << "" << 0;
    }
    void sizesAndEncoder()
    {
        QFETCH(QString, size);
        QFETCH(bool, encoder);
        QFETCH(QString, sizeText);
        QFETCH(int, function);
        selector.size = size;
        selector.encoder = encoder;
        ParaData data;
        ParaScreen screen;
        standard().SetStandardPara(data, screen);
        QCOMPARE(data.set.axis.sizeText, sizeText);
        QCOMPARE(data.set.axis.letter, QStringLiteral("L"));
        QCOMPARE(data.set.axis.motorNumber, qint16(100));
        QCOMPARE(data.set.pg.function, qint16(function));
        QCOMPARE(screen.comboPgFunc, function);
        QCOMPARE(screen.txtHomeOffset, QStringLiteral("30"));
        QCOMPARE(screen.txtPgAlarm, QStringLiteral("1000"));
        QVERIFY(data.paraEdited);
    }

    void cancelledSelectionChangesNothing()
    {
        selector.cancel = true;
        ParaData data;
        data.set.home.offset = 5;
        ParaScreen screen;
        RecordingLock lock;
        StandardPara(lock, prompter, selector).cmdIniPrm_Click(data, screen);
        QCOMPARE(data.set.home.offset, 5);
        QVERIFY(screen.txtHomeOffset.isEmpty());
        QVERIFY(!data.paraEdited);
        QCOMPARE(lock.calls, (QStringList{"Menyu_Muko", "Menyu_Yuko"}));
    }

    void listFailures_data()
    {
        QTest::addColumn<QByteArray>("content");
        QTest::addColumn<QString>("message");
        const QString refused = QStringLiteral("Fail to open standard parameter file for QM-B4.");
        QTest::newRow("wrong kind") << QByteArray("\"QM-B4\",\"QM-PRM\",3\r\n") << refused;
        QTest::newRow("wrong model") << QByteArray("\"QM-KTR\",\"QM-CMNPRM\",3\r\n") << refused;
        QTest::newRow("22 rows") << ValidHeader + "\"PG\",22,1\r\n" + QByteArray("1\r\n").repeated(22) << refused;
        QTest::newRow("4 columns") << ValidHeader + "\"PG\",1,4\r\n1,2,3,4\r\n" << refused;
        QTest::newRow("ends early") << ValidHeader + "\"PG\",2,2\r\n0,1\r\n" << refused;
        QTest::newRow("text for a value") << ValidHeader + "\"PG\",1,2\r\n\"on\",1\r\n" << refused;
        QTest::newRow("value too large") << ValidHeader + "\"PG\",1,2\r\n40000,40000\r\n" << refused;
    }
    void listFailures()
    {
        QFETCH(QByteArray, content);
        QFETCH(QString, message);
        writeList(content);
        ParaSet set = Size28Set();
        set.home.offset = 5;
        QCOMPARE(standard().ApplyStandardPara(set), 1);
        QCOMPARE(prompter.texts(), QStringList{message});
        QCOMPARE(set.home.offset, 5);
    }

    void missingList()
    {
        QFile::remove(listPath());
        ParaSet set;
        QCOMPARE(standard().ApplyStandardPara(set), 1);
        QCOMPARE(prompter.texts(), QStringList{MsgLines({28, 29})});
    }

    // Rows run on across the sections; a section out of order ends the
    // reading, and the rows after it are empty (zero).
    void sectionsRunOn()
    {
        writeList(ValidHeader + "\"PG\",2,1\r\n1\r\n777\r\n\"SPECIAL\",6,1\r\n9\r\n9\r\n9\r\n9\r\n9\r\n9\r\n");
        StdParaList list;
        QCOMPARE(list.ReadStdParaList(prompter), 0);
        QCOMPARE(list.value(1, 0).toInt(), 777);
        QVERIFY(!list.value(2, 0).isValid());

        ParaSet set = Size28Set();
        QCOMPARE(standard().ApplyStandardPara(set), 0);
        QCOMPARE(set.pg.alm, 777);
        QCOMPARE(set.special.pgTimer, qint16(0));
        QCOMPARE(set.etc.inpWid, qint16(0));
    }

    void shippedListTable()
    {
        StdParaList list;
        QCOMPARE(list.ReadStdParaList(prompter), 0);
        QCOMPARE(list.value(0, 0).toInt(), 0);
        QCOMPARE(list.value(0, 1).toInt(), 1);
        QCOMPARE(list.value(15, 1).toInt(), 0);
        QVERIFY(!list.value(16, 0).isValid());
        QVERIFY(!list.value(0, 2).isValid());
    }

private:
    QString listPath() const { return dir.filePath(QStringLiteral("hb4cmstpr.lst")); }
    void writeList(const QByteArray& content)
    {
        QFile file(listPath());
        file.open(QIODevice::WriteOnly | QIODevice::Truncate);
        file.write(content);
    }
    StandardPara standard() { return StandardPara(lock, prompter, selector); }

    QTemporaryDir dir;
    ScriptedPrompter prompter;
    FixedSelector selector;
    ControlLock lock;
};

QTEST_APPLESS_MAIN(TestStdPara)
#include "tst_stdpara.moc"
