#include "ParaFixtures.h"

#include "common/ProgramState.h"
#include "params/ParaBlockCodec.h"
#include "params/ParaData.h"
#include "params/ParaFile.h"
#include "params/ParaFileCommands.h"
#include "params/ParaMemoryMap.h"
#include "params/ParaScreen.h"
#include "params/ParaScreenTransfer.h"
#include "params/TakeCtParaImage.h"

#include "support/FileSizeLimit.h"
#include "support/ScriptedFileChooser.h"
#include "support/ScriptedPrompter.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

namespace {

const QByteArray Size28File =
    "\"QM-KTR\",\"PRM\"\r\n6\r\n"
    "\"HOME\",5,1\r\n30\r\n30\r\n10\r\n10\r\n10\r\n"
    "\"AXIS\",7,1\r\n65535\r\n2\r\n400\r\n0\r\n20\r\n2\r\n\"28L100\"\r\n"
    "\"PG\",2,1\r\n0\r\n1000\r\n"
    "\"ETC\",8,1\r\n0\r\n2\r\n1000\r\n2000\r\n10\r\n5\r\n1\r\n20\r\n"
    "\"SPECIAL\",6,1\r\n10\r\n0\r\n10\r\n0\r\n0\r\n0\r\n"
    "\"RESERVED\",7,1\r\n0\r\n0\r\n0\r\n0\r\n0\r\n0\r\n0\r\n";

QByteArray readAll(const QString& path)
{
    QFile file(path);
    file.open(QIODevice::ReadOnly);
    return file.readAll();
}

void writeFile(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    file.open(QIODevice::WriteOnly | QIODevice::Truncate);
    file.write(bytes);
}

// An image that a controller read of another set would leave.
CtParaImage earlierImage()
{
    CtParaImage image;
    image[1] = 4321;
    image[MotorCodeEntry] = QStringLiteral("42D001");
    return image;
}

} // namespace

class TestParaFile : public QObject {
    Q_OBJECT

private slots:
    void init()
    {
        ProgramState::reset();
        ProgramState::instance().gMsgBase = 10000;
        prompter.clear();
        files = ScriptedFileChooser();
    }

    void savedFileHasTheExactLayout()
    {
        const QString path = dir.filePath(QStringLiteral("a.pmt"));
        ParaSet set = Size28Set();
        set.axis.motorCode = QStringLiteral("stale");
        QCOMPARE(SaveParaFile(path, set), 0);
        QCOMPARE(readAll(path), Size28File);
        QCOMPARE(set.axis.motorCode, QStringLiteral("28L100"));
    }

    void saveAndLoadGiveTheSameSet()
    {
        const QString path = dir.filePath(QStringLiteral("b.pmt"));
        ParaSet set = Size28Set();
        set.axis.motorNumber = 7;
        set.axis.axisValue = 262143;
        set.reserved = {0, 1, 2, 3, 4, 5, 255};
        QCOMPARE(SaveParaFile(path, set), 0);
        QVERIFY(readAll(path).contains("\r\n\"28L007\"\r\n"));
        QVERIFY(readAll(path).contains("\r\n262143\r\n"));

        CtParaImage image;
        QCOMPARE(LoadParaFile(path, image, prompter), 0);
        QCOMPARE(image[0].toString(), QStringLiteral("b.pmt"));
        QCOMPARE(image[6].toDouble(), 262143.0);
        ParaSet back;
        TakeCtParaImage(image, back);
        QVERIFY(SameSet(back, set));
        QVERIFY(prompter.shown.isEmpty());
    }

    void onlyTheHomeSection()
    {
        const QString path = dir.filePath(QStringLiteral("home.pmt"));
        writeFile(path, "\"QM-KTR\",\"PRM\"\r\n1\r\n\"HOME\",5,1\r\n31\r\n32\r\n33\r\n34\r\n35\r\n");
        CtParaImage image = earlierImage();
        QCOMPARE(LoadParaFile(path, image, prompter), 0);
        for (int entry = 1; entry <= 5; ++entry)
            QCOMPARE(image[entry].toInt(), 30 + entry);
        for (int entry = 6; entry < CtParaImage::EntryCount; ++entry)
            QCOMPARE(image[entry], QVariant(QString()));
    }

    void notAParameterFile_data()
    {
        QTest::addColumn<QByteArray>("header");
        QTest::newRow("other kind") << QByteArray("\"QM-KTR\",\"QMD\"\r\n6\r\n");
        QTest::newRow("other model") << QByteArray("\"QM-B4\",\"PRM\"\r\n6\r\n");
    }
    void notAParameterFile()
    {
        QFETCH(QByteArray, header);
        const QString path = dir.filePath(QStringLiteral("other.pmt"));
        writeFile(path, header + "\"HOME\",5,1\r\n1\r\n1\r\n1\r\n1\r\n1\r\n");
        CtParaImage image = earlierImage();
        QCOMPARE(LoadParaFile(path, image, prompter), 1);
        QCOMPARE(prompter.texts(), QStringList{"Not parameter file for QM-B4.\r\nOpening file is canceled."});
        QCOMPARE(image[1].toInt(), 4321);
        QCOMPARE(image[MotorCodeEntry].toString(), QStringLiteral("42D001"));
    }

    // The sections must come in their order; what was read before stays.
    void sectionOutOfOrder()
    {
        const QString path = dir.filePath(QStringLiteral("order.pmt"));
        writeFile(path, "\"QM-KTR\",\"PRM\"\r\n6\r\n\"HOME\",5,1\r\n1\r\n2\r\n3\r\n4\r\n5\r\n"
                        "\"PG\",2,1\r\n0\r\n1000\r\n");
        CtParaImage image = earlierImage();
        QCOMPARE(LoadParaFile(path, image, prompter), 1);
        QCOMPARE(image[5].toInt(), 5);
        QCOMPARE(image[13], QVariant(QString()));
        QVERIFY(prompter.shown.isEmpty());
    }

    void brokenFiles_data()
    {
        QTest::addColumn<QByteArray>("content");
        QTest::newRow("ends early") << QByteArray("\"QM-KTR\",\"PRM\"\r\n6\r\n\"HOME\",5,1\r\n1\r\n2\r\n");
        QTest::newRow("count is text") << QByteArray("\"QM-KTR\",\"PRM\"\r\nsix\r\n");
        QTest::newRow("more values than entries")
            << QByteArray("\"QM-KTR\",\"PRM\"\r\n1\r\n\"HOME\",45,1\r\n") + QByteArray("1\r\n").repeated(45);
        QTest::newRow("seven sections counted") << QByteArray(Size28File).replace("\r\n6\r\n", "\r\n7\r\n");
        QTest::newRow("motor number too large") << QByteArray(Size28File).replace("28L100", "28L9e9");
    }
    void brokenFiles()
    {
        QFETCH(QByteArray, content);
        const QString path = dir.filePath(QStringLiteral("broken.pmt"));
        writeFile(path, content);
        CtParaImage image;
        QCOMPARE(LoadParaFile(path, image, prompter), -1);
        QVERIFY(prompter.shown.isEmpty());
    }

    void missingFile()
    {
        CtParaImage image;
        QCOMPARE(LoadParaFile(dir.filePath(QStringLiteral("none.pmt")), image, prompter), -1);
    }

    void failedSaveKeepsTheOldFile()
    {
        const QString path = dir.filePath(QStringLiteral("keep.pmt"));
        writeFile(path, "old contents");
        ParaSet set = Size28Set();
        {
            FileSizeLimit limit(64);
            QCOMPARE(SaveParaFile(path, set), 1);
        }
        QCOMPARE(readAll(path), QByteArray("old contents"));
    }

    // The save button: checks first, then the dialog, then the file.
    void saveButton()
    {
        ParaData data;
        data.set = Size28Set();
        data.paraEdited = true;
        ParaScreen screen;
        ParametaHyoji(data.set, screen);
        ParaFileCommands commands(prompter, files);

        const QString first = dir.filePath(QStringLiteral("saved.pmt"));
        files.setNextFileName(first);
        commands.cmdSaveParaFile_Click(data, screen);
        QCOMPARE(prompter.texts(), QStringList{"Completed save parameters into the file."});
        QCOMPARE(readAll(first), Size28File);
        QCOMPARE(files.requests.size(), 1);
        const ScriptedFileChooser::Request& asked = files.requests[0];
        QVERIFY(asked.save);
        QCOMPARE(asked.title, QStringLiteral("Save Parameters as ..."));
        QCOMPARE(asked.filter, QStringLiteral("Parameter(*.pmt)|*.pmt|All files(*.*)|*.*"));
        QCOMPARE(asked.defaultExtension, QStringLiteral("pmt"));
        QCOMPARE(asked.proposedName, QStringLiteral("KTRpara.pmt"));
        QVERIFY(!data.paraEdited);

        commands.cmdSaveParaFile_Click(data, screen);
        QCOMPARE(files.requests[1].proposedName, first);
    }

    void saveButtonRefuses_data()
    {
        QTest::addColumn<QString>("vel");
        QTest::addColumn<QString>("message");
        QTest::newRow("empty box") << "" << "No data in some of parameters.\r\n Please fill the data in and try it again.";
        QTest::newRow("VEL 61") << "61" << "Invalid value in some parameters.";
        QTest::newRow("letters") << "x" << "Invalid value in some parameters.";
    }
    void saveButtonRefuses()
    {
        QFETCH(QString, vel);
        QFETCH(QString, message);
        ParaData data;
        data.set = Size28Set();
        ParaScreen screen;
        ParametaHyoji(data.set, screen);
        screen.txtHomeVel = vel;
        files.setNextFileName(dir.filePath(QStringLiteral("never.pmt")));
        ParaFileCommands(prompter, files).cmdSaveParaFile_Click(data, screen);
        QCOMPARE(prompter.texts(), QStringList{message});
        QVERIFY(files.requests.isEmpty());
        QVERIFY(!QFile::exists(dir.filePath(QStringLiteral("never.pmt"))));
    }

    void saveButtonCancelledOrFailing()
    {
        ParaData data;
        data.set = Size28Set();
        ParaScreen screen;
        ParametaHyoji(data.set, screen);
        ParaFileCommands commands(prompter, files);
        commands.cmdSaveParaFile_Click(data, screen);
        QVERIFY(prompter.shown.isEmpty());

        files.setNextFileName(dir.filePath(QStringLiteral("no/such/folder/x.pmt")));
        commands.cmdSaveParaFile_Click(data, screen);
        QCOMPARE(prompter.texts(), QStringList{"Fail to  Save parameters into the file."});
    }

    void openButton()
    {
        const QString path = dir.filePath(QStringLiteral("open.pmt"));
        writeFile(path, QByteArray(Size28File).replace("\"28L100\"", "\"35L007\""));
        ParaData data;
        ParaScreen screen;
        files.setNextFileName(path);
        ParaFileCommands(prompter, files).cmdReadParaFile_Click(data, screen);
        QVERIFY(prompter.shown.isEmpty());
        QCOMPARE(files.requests[0].title, QStringLiteral("Open Parameter file"));
        QCOMPARE(files.requests[0].defaultExtension, QStringLiteral("pmt"));
        QCOMPARE(screen.comboActSize, QStringLiteral("35"));
        QCOMPARE(screen.txtDenryu, QStringLiteral("1.6"));
        QCOMPARE(screen.txtPgAlarm, QStringLiteral("1000"));
        QCOMPARE(data.set.axis.motorNumber, qint16(7));
        QCOMPARE(data.fileName, path);
    }

    // A refused header still shows the image in hand (only a broken read
    // stops the open).
    void openButtonAfterAWrongHeaderShowsTheOldImage()
    {
        const QString path = dir.filePath(QStringLiteral("kind.pmt"));
        writeFile(path, "\"QM-KTR\",\"QMD\"\r\n6\r\n");
        ParaData data;
        DecodeParaBlocks(Size28Replies(), data.image);
        ParaScreen screen;
        files.setNextFileName(path);
        ParaFileCommands(prompter, files).cmdReadParaFile_Click(data, screen);
        QCOMPARE(prompter.texts(), QStringList{"Not parameter file for QM-B4.\r\nOpening file is canceled."});
        QCOMPARE(screen.txtHomeOffset, QStringLiteral("30"));
        QVERIFY(data.fileName.isEmpty());
    }

    void openButtonOnABrokenFile_data()
    {
        QTest::addColumn<QByteArray>("content");
        QTest::newRow("ends early") << QByteArray("\"QM-KTR\",\"PRM\"\r\n6\r\n\"HOME\",5,1\r\n1\r\n");
        QTest::newRow("value too large for its field")
            << QByteArray(Size28File).replace("\"HOME\",5,1\r\n30\r\n30\r\n10", "\"HOME\",5,1\r\n30\r\n30\r\n99999");
        QTest::newRow("text for a number")
            << QByteArray(Size28File).replace("\"PG\",2,1\r\n0", "\"PG\",2,1\r\n\"on\"");
    }
    void openButtonOnABrokenFile()
    {
        QFETCH(QByteArray, content);
        const QString path = dir.filePath(QStringLiteral("broken2.pmt"));
        writeFile(path, content);
        ParaData data;
        data.set = Size28Set();
        ParaScreen screen;
        screen.txtHomeOffset = QStringLiteral("untouched");
        files.setNextFileName(path);
        ParaFileCommands(prompter, files).cmdReadParaFile_Click(data, screen);
        QCOMPARE(prompter.texts(), QStringList{"Fail to open parameter file."});
        QCOMPARE(screen.txtHomeOffset, QStringLiteral("untouched"));
        QVERIFY(SameSet(data.set, Size28Set()));
    }

private:
    QTemporaryDir dir;
    ScriptedPrompter prompter;
    ScriptedFileChooser files;
};

QTEST_APPLESS_MAIN(TestParaFile)
#include "tst_parafile.moc"
