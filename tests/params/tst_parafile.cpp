#include "ParaFixtures.h"

#include "common/ControlLock.h"
#include "common/DataFiles.h"
#include "common/MessageTable.h"
#include "common/ProgramState.h"
#include "device/DeviceSelector.h"
#include "params/ParaBlockCodec.h"
#include "params/ParaData.h"
#include "params/ParaFile.h"
#include "params/ParaFileCommands.h"
#include "params/ParaMemoryMap.h"
#include "params/ParaScreenTransfer.h"
#include "params/StandardPara.h"

#include "support/ControllerFiles.h"
#include "support/FileSizeLimit.h"
#include "support/ScriptedFileChooser.h"
#include "support/ScriptedPrompter.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

namespace {

const QByteArray Size28File = paraFile(QStringLiteral("28"), 10);

// An image that a controller read of another set would leave.
CtParaImage earlierImage()
{
    CtParaImage image;
    image[1] = 4321;
    image[MotorCodeEntry] = "42D001";
    return image;
}

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

// The parameter file, its buttons, and the standard parameter list.
class TestParaFile : public QObject {
    Q_OBJECT

private slots:
    void init()
    {
        ProgramState::reset();
        ProgramState::instance().gMsgBase = 10000;
        prompter.clear();
        files = ScriptedFileChooser();
        data = ParaData();
        data.set = Size28Set();
        ParametaHyoji(data.set, screen);
        selector = FixedSelector();
        DataFiles::setProgramFolder(dir.path());
        QFile::remove(listPath());
        QVERIFY(QFile::copy(QFINDTESTDATA("../../resources/data/hb4cmstpr.lst"), listPath()));
    }
    void cleanupTestCase() { DataFiles::setProgramFolder({}); }

    // The sections must come in their order; what was read before stays and
    // the entries not read are left empty.
    void partialFiles_data()
    {
        QTest::addColumn<QByteArray>("content");
        QTest::addColumn<int>("result");
        QTest::addColumn<int>("first");
        QTest::newRow("only the HOME section") << QByteArray("\"QM-KTR\",\"PRM\"\r\n1\r\n\"HOME\",5,1\r\n31\r\n32\r\n33\r\n34\r\n35\r\n") << 0 << 31;
        QTest::newRow("section out of order") << QByteArray("\"QM-KTR\",\"PRM\"\r\n6\r\n\"HOME\",5,1\r\n1\r\n2\r\n3\r\n4\r\n5\r\n\"PG\",2,1\r\n0\r\n1000\r\n") << 1 << 1;
    }
    void partialFiles()
    {
        QFETCH(QByteArray, content);
        QFETCH(int, first);
        const QString path = WriteBytes(dir.filePath("partial.pmt"), content);
        CtParaImage image = earlierImage();
        QTEST(LoadParaFile(path, image, prompter), "result");
        for (int entry = 1; entry <= 5; ++entry)
            QCOMPARE(image[entry].toInt(), first + entry - 1);
        for (int entry = 6; entry < CtParaImage::EntryCount; ++entry)
            QCOMPARE(image[entry], QVariant(QString()));
        QVERIFY(prompter.shown.isEmpty());
    }

    void brokenFiles_data()
    {
        QTest::addColumn<QByteArray>("content");
        QTest::newRow("count is text") << QByteArray("\"QM-KTR\",\"PRM\"\r\nsix\r\n");
        QTest::newRow("more values than entries") << QByteArray("\"QM-KTR\",\"PRM\"\r\n1\r\n\"HOME\",45,1\r\n") + QByteArray("1\r\n").repeated(45);
        QTest::newRow("seven sections counted") << QByteArray(Size28File).replace("\r\n6\r\n", "\r\n7\r\n");
        QTest::newRow("motor number too large") << QByteArray(Size28File).replace("28L100", "28L9e9");
        QTest::newRow("missing file") << QByteArray();
    }
    void brokenFiles()
    {
        QFETCH(QByteArray, content);
        const QString path = dir.filePath("broken.pmt");
        QFile::remove(path);
        if (!content.isEmpty())
            WriteBytes(path, content);
        CtParaImage image;
        QCOMPARE(LoadParaFile(path, image, prompter), -1);
        QVERIFY(prompter.shown.isEmpty());
    }

    void failedSaveKeepsTheOldFile()
    {
        const QString path = dir.filePath("keep.pmt");
        WriteBytes(path, "old contents");
        ParaSet set = Size28Set();
        {
            FileSizeLimit limit(64);
            QCOMPARE(SaveParaFile(path, set), 1);
        }
        QCOMPARE(ReadBytes(path), QByteArray("old contents"));
    }

    // The save button: checks first, then the dialog, then the file.
    void saveButton()
    {
        data.paraEdited = true;
        const QString first = dir.filePath("saved.pmt");
        files.setNextFileName(first);
        ParaFileCommands commands(prompter, files);
        commands.cmdSaveParaFile_Click(data, screen);
        QCOMPARE(prompter.texts(), QStringList{"Completed save parameters into the file."});
        QCOMPARE(ReadBytes(first), Size28File);
        const ScriptedFileChooser::Request& asked = files.requests.at(0);
        QCOMPARE((QStringList{asked.title, asked.filter, asked.defaultExtension, asked.proposedName}),
                 (QStringList{"Save Parameters as ...", "Parameter(*.pmt)|*.pmt|All files(*.*)|*.*", "pmt", "KTRpara.pmt"}));
        QVERIFY(asked.save && !data.paraEdited);
        commands.cmdSaveParaFile_Click(data, screen);
        QCOMPARE(files.requests[1].proposedName, first);
    }

    void saveButtonRefuses_data()
    {
        QTest::addColumn<QString>("vel");
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("message");
        QTest::addColumn<int>("asked");
        QTest::newRow("empty box") << "" << QStringLiteral("x.pmt") << "No data in some of parameters.\r\n Please fill the data in and try it again." << 0;
        QTest::newRow("VEL 61") << "61" << QStringLiteral("x.pmt") << "Invalid value in some parameters." << 0;
        QTest::newRow("dialog cancelled") << "10" << QString() << QString() << 1;
        QTest::newRow("cannot write") << "10" << QStringLiteral("no/such/folder/x.pmt") << "Fail to  Save parameters into the file." << 1;
    }
    void saveButtonRefuses()
    {
        QFETCH(QString, vel);
        QFETCH(QString, name);
        QFETCH(QString, message);
        screen.txtHomeVel = vel;
        files.setNextFileName(name.isEmpty() ? name : dir.filePath(name));
        ParaFileCommands(prompter, files).cmdSaveParaFile_Click(data, screen);
        QCOMPARE(prompter.texts(), message.isNull() ? QStringList() : QStringList{message});
        QTEST(int(files.requests.size()), "asked");
        QVERIFY(!QFile::exists(dir.filePath("x.pmt")));
    }

    void openButton()
    {
        const QString path = dir.filePath("open.pmt");
        WriteBytes(path, QByteArray(Size28File).replace("\"28L100\"", "\"35L007\"").replace("65535", "262143"));
        files.setNextFileName(path);
        ParaFileCommands(prompter, files).cmdReadParaFile_Click(data, screen);
        QVERIFY(prompter.shown.isEmpty());
        QCOMPARE(files.requests[0].title, "Open Parameter file");
        QCOMPARE(files.requests[0].defaultExtension, "pmt");
        QCOMPARE(screen.comboActSize, "35");
        QCOMPARE(screen.txtDenryu, "1.6");
        ParaSet expected = Size28Set();
        expected.axis = {.actType = 2, .axisByte = 2, .pulse = 400, .axisValue = 262143, .dependentByte = 20, .autoDrive = 0, .motorCode = "35L007", .sizeText = "35", .letter = "L", .motorNumber = 7};
        QCOMPARE(Fields(data.set), Fields(expected));
        QCOMPARE(data.fileName, path);
    }

    // A refused header still shows the image in hand; a broken file shows nothing.
    void openButtonOnABadFile_data()
    {
        QTest::addColumn<QByteArray>("content");
        QTest::addColumn<QString>("message");
        QTest::addColumn<QString>("offset");
        QTest::newRow("other model") << QByteArray("\"QM-B4\",\"PRM\"\r\n6\r\n\"HOME\",5,1\r\n1\r\n1\r\n1\r\n1\r\n1\r\n") << "Not parameter file for QM-B4.\r\nOpening file is canceled." << QStringLiteral("30");
        QTest::newRow("ends early") << QByteArray("\"QM-KTR\",\"PRM\"\r\n6\r\n\"HOME\",5,1\r\n1\r\n") << "Fail to open parameter file." << QString();
        QTest::newRow("value too large for its field") << QByteArray(Size28File).replace("0\r\n30\r\n10", "0\r\n30\r\n99999") << "Fail to open parameter file." << QString();
        QTest::newRow("text for a number") << QByteArray(Size28File).replace("\"PG\",2,1\r\n0", "\"PG\",2,1\r\n\"on\"") << "Fail to open parameter file." << QString();
    }
    void openButtonOnABadFile()
    {
        QFETCH(QByteArray, content);
        QFETCH(QString, message);
        const QString path = dir.filePath("bad.pmt");
        WriteBytes(path, content);
        DecodeParaBlocks(Size28Replies(), data.image);
        screen = ParaScreen();
        files.setNextFileName(path);
        ParaFileCommands(prompter, files).cmdReadParaFile_Click(data, screen);
        QCOMPARE(prompter.texts(), QStringList{message});
        QTEST(screen.txtHomeOffset, "offset");
        QCOMPARE(Fields(data.set), Fields(Size28Set()));
        QVERIFY(data.fileName.isEmpty());
    }

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
        QTest::newRow("35 with encoder") << "35" << true << "35" << QStringLiteral("35L-100");
        QTest::newRow("SP is written 20") << "SP" << true << "20" << QStringLiteral("20L-100");
        QTest::newRow("no size chosen") << "" << false << "" << QStringLiteral("  L-100");
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
        QCOMPARE(prompter.texts(), QStringList{content.isEmpty() ? MsgLines({28, 29}) : "Fail to open standard parameter file for QM-B4."});
        QCOMPARE(set.home.offset, 5);
    }

    // Rows run on across the sections; a section out of order ends the
    // reading, and the rows after it are empty (zero).
    void sectionsRunOn()
    {
        WriteBytes(listPath(), ValidHeader + "\"PG\",2,1\r\n1\r\n777\r\n\"SPECIAL\",6,1\r\n9\r\n9\r\n9\r\n9\r\n9\r\n9\r\n");
        ParaSet set = Size28Set();
        QCOMPARE(standard().ApplyStandardPara(set), 0);
        QCOMPARE((QList<int>{set.pg.alm, set.special.pgTimer, set.etc.inpWid}), (QList<int>{777, 0, 0}));
    }

private:
    QString listPath() const { return dir.filePath("hb4cmstpr.lst"); }
    StandardPara standard() { return StandardPara(lock, prompter, selector); }

    QTemporaryDir dir;
    ScriptedPrompter prompter;
    ScriptedFileChooser files;
    ParaData data;
    ParaScreen screen;
    FixedSelector selector;
    ControlLock lock;
};

QTEST_APPLESS_MAIN(TestParaFile)
#include "tst_parafile.moc"
