// Every reader of a file from outside refuses a file far larger than any of
// its own at once, before reading it: a huge file must not stall the program
// or fill its memory, even when it begins like a good file.
#include "common/DataFiles.h"
#include "common/MessageTable.h"
#include "common/ProgramState.h"
#include "device/DeviceList.h"
#include "link/ErrorList.h"
#include "opdata/OpDataFile.h"
#include "opdata/PosiTable.h"
#include "params/CtParaImage.h"
#include "params/ParaFile.h"
#include "params/StdParaList.h"

#include "support/ScriptedPrompter.h"

#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <functional>

namespace {

constexpr qint64 HugeSize = 10 * 1024 * 1024;

struct Reader {
    const char* name;
    const char* fileName;
    QByteArray goodFile;
    int refused;       // the reader's result for a refused file
    QString (*told)(); // and what it shows then
    std::function<int(const QString& path, Prompter& prompter)> read;
};

const QByteArray DeviceFile = "1\r\n\"28\",\"QM28-L100\",\"L\",\"100\",\"1.5\"\r\n";

const Reader Readers[] = {
    {"parameter file", "para.pmt", "\"QM-KTR\",\"PRM\"\r\n1\r\n\"HOME\",5,1\r\n31\r\n32\r\n33\r\n34\r\n35\r\n", -1, [] { return QString(); },
     [](const QString& path, Prompter& prompter) {
         CtParaImage image;
         return LoadParaFile(path, image, prompter);
     }},
    {"operation data file", "data.qmd",
     "\"QM-B4\",\"Position\"\r\n\"\",\"NEW\"\r\n0,\"9000\",\"1\",\"\",\"\",\"0\",\"12\",\"1\",\"\"\r\n", 1, [] { return MsgLines({21, 0, 20}); },
     [](const QString& path, Prompter& prompter) {
         PosiTable table;
         int label = 0;
         return OpDataFile::ReadPosidataFile(path, table, label, prompter);
     }},
    {"device list", "nqmdevice.lst", DeviceFile, 1, [] { return MsgLines({15, 16}); },
     [](const QString&, Prompter& prompter) { return DeviceList().ReadDeviceList(prompter); }},
    {"device search", "nqmdevice.lst", DeviceFile, 1, [] { return Msg(15); },
     [](const QString&, Prompter& prompter) { return DeviceList::FindSizeInDeviceList("QM", "28", prompter); }},
    {"standard parameters", "hb4cmstpr.lst", "\"QM-B4\",\"QM-CMNPRM\",1\r\n\"PG\",2,2\r\n0,1\r\n1000,1000\r\n", 1, [] { return Msg(27); },
     [](const QString&, Prompter& prompter) { return StdParaList().ReadStdParaList(prompter); }},
    {"error list", "erroreng.lst", "1\r\n\"11\",\"101: Unknown command.\"\r\n", 1, [] { return MsgLines({30, 31}); },
     [](const QString&, Prompter& prompter) { return ErrorList().Get_ErrorList(prompter); }},
};

// The head, then blank lines up to the size.
void writeFile(const QString& path, const QByteArray& head, qint64 size)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
    const QByteArray block(1024 * 1024, '\n');
    QCOMPARE(file.write(head), head.size());
    for (qint64 left = size - head.size(); left > 0; left -= block.size())
        QVERIFY(file.write(block.left(qMin<qint64>(left, block.size()))) > 0);
}

} // namespace

class TestHostileFiles : public QObject {
    Q_OBJECT

private slots:
    void init()
    {
        ProgramState::reset();
        ProgramState::instance().gMsgBase = MessageTable::EnglishBase;
        DataFiles::setProgramFolder(m_dir.path());
    }
    void cleanupTestCase() { DataFiles::setProgramFolder({}); }

    void hugeFileRefusedAtOnce_data()
    {
        QTest::addColumn<int>("reader");
        for (int r = 0; r < int(std::size(Readers)); ++r)
            QTest::addRow("%s", Readers[r].name) << r;
    }
    void hugeFileRefusedAtOnce()
    {
        QFETCH(int, reader);
        const Reader& r = Readers[reader];
        const QString path = m_dir.filePath(r.fileName);
        // The same file at its own size is read: the size alone refuses it.
        writeFile(path, r.goodFile, r.goodFile.size());
        ScriptedPrompter prompter;
        QCOMPARE(r.read(path, prompter), 0);
        QVERIFY(prompter.shown.isEmpty());

        writeFile(path, r.goodFile, HugeSize);
        QElapsedTimer clock;
        clock.start();
        QCOMPARE(r.read(path, prompter), r.refused);
        QVERIFY2(clock.elapsed() < 2000, qPrintable(QStringLiteral("%1 ms").arg(clock.elapsed())));
        QCOMPARE(prompter.texts(), r.told().isEmpty() ? QStringList() : QStringList{r.told()});
    }

private:
    QTemporaryDir m_dir;
};

QTEST_GUILESS_MAIN(TestHostileFiles)
#include "tst_hostilefiles.moc"
