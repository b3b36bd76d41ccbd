#include "common/DataFiles.h"
#include "common/MessageTable.h"
#include "common/ProgramState.h"
#include "device/ActSizeList.h"
#include "device/DeviceDialogMode.h"
#include "device/DeviceList.h"
#include "device/DeviceSelection.h"
#include "device/SizeListBox.h"

#include "support/ScriptedPrompter.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

namespace {

QByteArray records(int count, int kinds)
{
    QByteArray out = QByteArray::number(count) + "\r\n";
    for (int i = 1; i <= count; ++i) {
        const QByteArray size = QByteArray::number(20 + (i - 1) % kinds);
        out += "\"" + size + "L-" + QByteArray::number(100 + i) + "\",\"a\",\"b\",\"c\",\"d\"\r\n";
    }
    return out;
}

QStringList itemTexts(const SizeListBox& box)
{
    QStringList out;
    for (int i = 0; i < box.count(); ++i)
        out << box.itemText(i);
    return out;
}

} // namespace

class TestDeviceList : public QObject {
    Q_OBJECT

private slots:
    void init()
    {
        ProgramState::reset();
        ProgramState::instance().gMsgBase = 10000;
        prompter.clear();
        DataFiles::setProgramFolder(dir.path());
        QFile::remove(listPath());
        QVERIFY(QFile::copy(QFINDTESTDATA("../../resources/data/nqmdevice.lst"), listPath()));
    }
    void cleanupTestCase() { DataFiles::setProgramFolder({}); }

    void shippedList()
    {
        DeviceList list;
        QCOMPARE(list.ReadDeviceList(prompter), 0);
        QCOMPARE(list.gDeviceCount, qint16(4));
        QCOMPARE(list.gSizeKindMax, qint16(3));
        QCOMPARE((QStringList{list.gSizeKinds.begin(), list.gSizeKinds.begin() + 4}),
                 (QStringList{"28", "35", "42", "SP"}));
        for (const QString size : {"28", "35", "42", "SP"})
            QCOMPARE(DeviceList::FindSizeInDeviceList(QStringLiteral("QM"), size, prompter), 0);
        QVERIFY(prompter.shown.isEmpty());
    }

    void recordFields()
    {
        writeList("2\r\n\"E35L-007\",\"x\",\"y\",\"z\",\"w\"\r\n\"28\",\"1\",\"2\",\"3\",\"4\"\r\n");
        DeviceList list;
        QCOMPARE(list.ReadDeviceList(prompter), 0);
        const DeviceRecord& r = list.record(1);
        QCOMPARE(r.DevCode, QStringLiteral("E35L-007"));
        QCOMPARE(r.DevSizeKey, QStringLiteral("E35"));
        QCOMPARE(r.DevKindChar, QStringLiteral("L"));
        QCOMPARE(r.DevNumber, 7.0);
        QCOMPARE((QStringList{r.DevItem2, r.DevItem3, r.DevItem4, r.DevItem5}), (QStringList{"x", "y", "z", "w"}));
        QCOMPARE(list.record(2).DevSizeKey, QStringLiteral("28"));
        QCOMPARE(list.record(2).DevKindChar, QString());
        QCOMPARE(list.record(2).DevNumber, 0.0);
    }

    void emptyListKeepsTheKnownSizes()
    {
        DeviceList list;
        QCOMPARE(list.ReadDeviceList(prompter), 0);
        writeList("0\r\n");
        QCOMPARE(list.ReadDeviceList(prompter), 0);
        QCOMPARE(list.gDeviceCount, qint16(0));
        QCOMPARE(list.gSizeKinds[0], QStringLiteral("28"));
        QCOMPARE(list.gSizeKindMax, qint16(0));
        QVERIFY(!list.gDevListMissing);
    }

    // A shorter list overwrites the first records and leaves the others.
    void refillLeavesLaterRecords()
    {
        DeviceList list;
        QCOMPARE(list.ReadDeviceList(prompter), 0);
        writeList("1\r\n\"99\",\"\",\"\",\"\",\"\"\r\n");
        QCOMPARE(list.ReadDeviceList(prompter), 0);
        QCOMPARE(list.record(1).DevCode, QStringLiteral("99"));
        QCOMPARE(list.record(2).DevCode, QStringLiteral("35"));
    }

    void failures_data()
    {
        QTest::addColumn<QByteArray>("content");
        QTest::addColumn<int>("storedRecords");
        QTest::newRow("71 records") << records(71, 2) << 70;
        QTest::newRow("seven size kinds") << records(7, 7) << 7;
        QTest::newRow("count not a number") << QByteArray("many\r\n") << 0;
        QTest::newRow("ends early") << QByteArray("3\r\n\"28L-101\",\"a\",\"b\",\"c\",\"d\"\r\n") << 1;
        QTest::newRow("missing file") << QByteArray() << 0;
    }
    void failures()
    {
        QFETCH(QByteArray, content);
        QFETCH(int, storedRecords);
        if (content.isEmpty())
            QFile::remove(listPath());
        else
            writeList(content);
        DeviceList list;
        QCOMPARE(list.ReadDeviceList(prompter), 1);
        QCOMPARE(prompter.texts(), QStringList{"No device list file.\r\nPut device list file in the folder in "
                                               "which the program is saved in order to indicate device "
                                               "information correctly."});
        QVERIFY(list.gDevListMissing);
        if (storedRecords > 0)
            QVERIFY(list.record(storedRecords).DevCode.endsWith(QByteArray::number(100 + storedRecords)));
        if (storedRecords < DeviceList::MaxRecords)
            QCOMPARE(list.record(storedRecords + 1).DevCode, QString());
    }

    void sixKindsAreAllowed()
    {
        writeList(records(12, 6));
        DeviceList list;
        QCOMPARE(list.ReadDeviceList(prompter), 0);
        QCOMPARE(list.gSizeKindMax, qint16(5));
        QCOMPARE(list.gSizeKinds[5], QStringLiteral("25L"));
    }

    // Sizes are compared as whole texts of up to three characters.
    void sizeKeyMatchesExactly_data()
    {
        QTest::addColumn<QString>("size");
        QTest::addColumn<int>("result");
        QTest::newRow("28 is not 28L") << "28" << 1;
        QTest::newRow("28L") << "28L" << 0;
        QTest::newRow("case counts") << "28l" << 1;
        QTest::newRow("35") << "35" << 0;
        QTest::newRow("empty") << "" << 1;
    }
    void sizeKeyMatchesExactly()
    {
        QFETCH(QString, size);
        writeList("2\r\n\"28L-100\",\"\",\"\",\"\",\"\"\r\n\"35\",\"\",\"\",\"\",\"\"\r\n");
        QTEST(DeviceList::FindSizeInDeviceList(QStringLiteral("QM"), size, prompter), "result");
        QVERIFY(prompter.shown.isEmpty());
    }

    void findWithoutAFile()
    {
        QFile::remove(listPath());
        QCOMPARE(DeviceList::FindSizeInDeviceList(QStringLiteral("QM"), QStringLiteral("28"), prompter), 1);
        QCOMPARE(prompter.texts(), QStringList{"No device list file."});
    }

    void actSizeList_data()
    {
        QTest::addColumn<QByteArray>("content");
        QTest::addColumn<QString>("before");
        QTest::addColumn<QString>("after");
        const QByteArray shipped = "4\r\n\"28\",1,2,3,4\r\n\"35\",1,2,3,4\r\n\"42\",1,2,3,4\r\n\"SP\",1,2,3,4\r\n";
        const QByteArray coded = "2\r\n\"42L-100\",1,2,3,4\r\n\"28L-100\",1,2,3,4\r\n";
        QTest::newRow("known size stays") << shipped << "42" << "42";
        QTest::newRow("empty takes the first kind") << shipped << "" << "28";
        QTest::newRow("unknown size takes the first kind") << shipped << "77" << "28";
        QTest::newRow("first kind that is no fixed size") << coded << "35" << "42L";
    }
    void actSizeList()
    {
        QFETCH(QByteArray, content);
        QFETCH(QString, before);
        writeList(content);
        DeviceList list;
        SizeListBox comboActSize;
        comboActSize.addItem(QStringLiteral("old"), 9);
        comboActSize.setText(before);
        QCOMPARE(LoadDeviceListAtStart(list, comboActSize, prompter), 0);
        QCOMPARE(itemTexts(comboActSize), (QStringList{"28", "35", "42", "SP"}));
        for (int i = 0; i < 4; ++i)
            QCOMPARE(comboActSize.itemData(i), i);
        QTEST(comboActSize.text(), "after");
    }

    void actSizeListWithoutAFile()
    {
        QFile::remove(listPath());
        DeviceList list;
        SizeListBox comboActSize;
        comboActSize.setText(QStringLiteral("35"));
        QCOMPARE(LoadDeviceListAtStart(list, comboActSize, prompter), 1);
        QCOMPARE(comboActSize.count(), 0);
        QCOMPARE(comboActSize.text(), QStringLiteral("35"));
        QCOMPARE(prompter.shown.size(), 1);
    }

    void dialogModeFromTheTypeCode_data()
    {
        QTest::addColumn<int>("type");
        QTest::addColumn<bool>("mode");
        QTest::addColumn<bool>("known");
        QTest::addColumn<bool>("done");
        QTest::newRow("0") << 0 << true << false << false;
        QTest::newRow("1") << 1 << true << true << false;
        QTest::newRow("2") << 2 << false << false << true;
        QTest::newRow("-1") << -1 << false << false << true;
    }
    void dialogModeFromTheTypeCode()
    {
        QFETCH(int, type);
        SetDeviceDialogMode(qint16(type));
        const ProgramState& g = ProgramState::instance();
        QTEST(g.gDeviceDialogMode, "mode");
        QTEST(g.gDeviceKnown, "known");
        QTEST(g.gDeviceSetDone, "done");
    }

    void dialogLoad_data()
    {
        QTest::addColumn<bool>("mode");
        QTest::addColumn<bool>("pgUse");
        QTest::addColumn<QString>("mainSize");
        QTest::addColumn<QString>("chosen");
        QTest::newRow("size of the main window") << false << true << "42" << "42";
        QTest::newRow("SP") << true << false << "SP" << "SP";
        QTest::newRow("empty main size") << false << false << "" << "28";
        QTest::newRow("size not in the list") << true << true << "28L" << "28";
    }
    void dialogLoad()
    {
        QFETCH(bool, mode);
        QFETCH(bool, pgUse);
        QFETCH(QString, mainSize);
        ProgramState& g = ProgramState::instance();
        g.gDeviceDialogMode = mode;
        g.gPgUse = pgUse;
        DeviceList list;
        DeviceSelection dialog(list, prompter);
        dialog.Form_Load(mainSize);
        QCOMPARE(itemTexts(dialog.comboDeviceSize), (QStringList{"28", "35", "42", "SP"}));
        QTEST(dialog.comboDeviceSize.text(), "chosen");
        QCOMPARE(dialog.chkDevPgUse, pgUse ? 1 : 0);
        QVERIFY(dialog.chkDevPgUseEnabled && dialog.chkDevPgUseVisible);
        QCOMPARE(dialog.familyText, mode ? QStringLiteral("QM") : QString());
        QCOMPARE(g.gDeviceSetDone, mode);
        QCOMPARE(g.gDeviceKnown, mode);
        QVERIFY(!dialog.Cancelled);
    }

    void dialogSet()
    {
        DeviceList list;
        DeviceSelection dialog(list, prompter);
        dialog.Form_Load(QStringLiteral("35"));
        dialog.comboDeviceSize.setText(QStringLiteral("SP"));
        dialog.chkDevPgUse = 1;
        dialog.cmdDeviceSet_Click();
        const ProgramState& g = ProgramState::instance();
        QCOMPARE(g.gActFamily, QStringLiteral("QM"));
        QCOMPARE(g.gActSize, QStringLiteral("SP"));
        QCOMPARE(g.gActKindChar, QStringLiteral("L"));
        QCOMPARE(g.gActNumber, qint16(100));
        QVERIFY(g.gPgUse && g.gDeviceSetDone && g.gDeviceKnown);
        QVERIFY(!dialog.Cancelled);
        QVERIFY(dialog.closeRequested);
    }

    // A missing list leaves the dialog's size empty; Set then stores it so.
    void dialogWithoutAList()
    {
        QFile::remove(listPath());
        ProgramState::instance().gActSizeDefault = QStringLiteral("35");
        DeviceList list;
        DeviceSelection dialog(list, prompter);
        dialog.Form_Load(QStringLiteral("42"));
        QCOMPARE(dialog.comboDeviceSize.count(), 0);
        QCOMPARE(dialog.comboDeviceSize.text(), QString());
        QCOMPARE(prompter.shown.size(), 1);
        ProgramState::instance().gActSize = QStringLiteral("28");
        dialog.cmdDeviceSet_Click();
        QCOMPARE(ProgramState::instance().gActSize, QString());
    }

    void dialogCancelled_data()
    {
        QTest::addColumn<int>("how");
        QTest::addColumn<bool>("cancelled");
        QTest::newRow("Cancel button") << -1 << true;
        QTest::newRow("window frame") << 0 << true;
        QTest::newRow("closed by the program") << 1 << false;
    }
    void dialogCancelled()
    {
        QFETCH(int, how);
        QFETCH(bool, cancelled);
        ProgramState::instance().gActSize = QStringLiteral("42");
        ProgramState::instance().gPgUse = true;
        DeviceList list;
        DeviceSelection dialog(list, prompter);
        dialog.Form_Load(QStringLiteral("28"));
        dialog.chkDevPgUse = 0;
        if (how < 0)
            dialog.cmdDeviceCancel_Click();
        else
            dialog.Form_QueryUnload(how);
        QCOMPARE(dialog.Cancelled, cancelled);
        QCOMPARE(dialog.closeRequested, cancelled);
        QCOMPARE(ProgramState::instance().gActSize, QStringLiteral("42"));
        QVERIFY(ProgramState::instance().gPgUse);
    }

    // The encoder box shows the recorded use whatever size is chosen.
    void encoderBoxFollowsTheRecordedUse()
    {
        DeviceList list;
        DeviceSelection dialog(list, prompter);
        dialog.Form_Load(QStringLiteral("28"));
        dialog.chkDevPgUse = 1;
        dialog.comboDeviceSize.setText(QStringLiteral("42"));
        dialog.DispPgUse();
        QCOMPARE(dialog.chkDevPgUse, 0);
    }

private:
    QString listPath() const { return dir.filePath(QStringLiteral("nqmdevice.lst")); }
    void writeList(const QByteArray& content)
    {
        QFile file(listPath());
        file.open(QIODevice::WriteOnly | QIODevice::Truncate);
        file.write(content);
    }

    QTemporaryDir dir;
    ScriptedPrompter prompter;
};

QTEST_APPLESS_MAIN(TestDeviceList)
#include "tst_devicelist.moc"
