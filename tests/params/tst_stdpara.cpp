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

#include <QTemporaryDir>
#include <QTest>

namespace {

class FixedSelector : public DeviceSelector {
public:
    bool selectDevice() override
    {
        ProgramState& g = ProgramState::instance();
        g.gActSize = size;
        g.gActKindChar = "L";
        g.gActNumber = 100;
        g.gPgUse = encoder;
        return false;
    }
    QString size = "28";
    bool encoder = false;
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
        data = ParaData();
        screen = ParaScreen();
        DataFiles::setProgramFolder(dir.path());
        QFile::remove(listPath());
        QVERIFY(QFile::copy(QFINDTESTDATA("../../resources/data/hb4cmstpr.lst"), listPath()));
    }
    void cleanupTestCase() { DataFiles::setProgramFolder({}); }

    // The shipped list gives a size-28 actuator without encoder exactly the
    // values a fresh controller holds.
    void size28WithoutEncoderIsTheFactorySet()
    {
        standard().SetStandardPara(data, screen);
        ParaSet expected = Size28Set();
        expected.axis.motorCode = "28L-100";
        QCOMPARE(Fields(data.set), Fields(expected));
        QVERIFY(prompter.shown.isEmpty() && data.paraEdited);
        QCOMPARE(screen.txtPgAlarm, "1000");
    }

    void sizesAndEncoder_data()
    {
        QTest::addColumn<QString>("size");
        QTest::addColumn<bool>("encoder");
        QTest::addColumn<QString>("sizeText");
        QTest::addColumn<QString>("code");
        QTest::newRow("35 with encoder") << "35" << true << "35" << "35L-100";
        QTest::newRow("SP is written 20") << "SP" << true << "20" << "20L-100";
        QTest::newRow("no size chosen") << "" << false << "" << "  L-100";
    }
    void sizesAndEncoder()
    {
        QFETCH(QString, size);
        QFETCH(bool, encoder);
        selector.size = size;
        selector.encoder = encoder;
        standard().SetStandardPara(data, screen);
        QTEST(data.set.axis.sizeText, "sizeText");
        QTEST(data.set.axis.motorCode, "code");
        QCOMPARE(data.set.pg.function, qint16(encoder));
        QCOMPARE(screen.comboPgFunc, int(encoder));
    }

    void listFailures_data()
    {
        QTest::addColumn<QByteArray>("content");
        QTest::newRow("wrong kind") << QByteArray("\"QM-B4\",\"QM-PRM\",3\r\n");
        QTest::newRow("22 rows") << ValidHeader + "\"PG\",22,1\r\n" + QByteArray("1\r\n").repeated(22);
        QTest::newRow("4 columns") << ValidHeader + "\"PG\",1,4\r\n1,2,3,4\r\n";
        QTest::newRow("text for a value") << ValidHeader + "\"PG\",1,2\r\n\"on\",1\r\n";
        QTest::newRow("value too large") << ValidHeader + "\"PG\",1,2\r\n40000,40000\r\n";
        QTest::newRow("missing") << QByteArray();
    }
    void listFailures()
    {
        QFETCH(QByteArray, content);
        QFile::remove(listPath());
        if (!content.isEmpty())
            WriteBytes(listPath(), content);
        ParaSet set = Size28Set();
        set.home.offset = 5;
        QCOMPARE(standard().ApplyStandardPara(set), 1);
        QCOMPARE(prompter.texts(), QStringList{content.isEmpty() ? MsgLines({28, 29})
                                                                 : "Fail to open standard parameter file for QM-B4."});
        QCOMPARE(set.home.offset, 5);
    }

    // Rows run on across the sections; a section out of order ends the
    // reading, and the rows after it are empty (zero).
    void sectionsRunOn()
    {
        WriteBytes(listPath(), ValidHeader + "\"PG\",2,1\r\n1\r\n777\r\n\"SPECIAL\",6,1\r\n9\r\n9\r\n9\r\n9\r\n9\r\n9\r\n");
        StdParaList list;
        QCOMPARE(list.ReadStdParaList(prompter), 0);
        QCOMPARE(list.value(1, 0).toInt(), 777);
        QVERIFY(!list.value(2, 0).isValid());
        ParaSet set = Size28Set();
        QCOMPARE(standard().ApplyStandardPara(set), 0);
        QCOMPARE((QList<int>{set.pg.alm, set.special.pgTimer, set.etc.inpWid}), (QList<int>{777, 0, 0}));
    }

private:
    QString listPath() const { return dir.filePath("hb4cmstpr.lst"); }
    StandardPara standard() { return StandardPara(lock, prompter, selector); }

    QTemporaryDir dir;
    ScriptedPrompter prompter;
    FixedSelector selector;
    ControlLock lock;
    ParaData data;
    ParaScreen screen;
};

QTEST_APPLESS_MAIN(TestStdPara)
#include "tst_stdpara.moc"
