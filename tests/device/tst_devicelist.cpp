#include "common/DataFiles.h"
#include "common/FileBytes.h"
#include "common/MessageTable.h"
#include "common/ProgramState.h"
#include "device/ActSizeList.h"
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
    for (int i = 1; i <= count; ++i)
        out += "\"" + QByteArray::number(20 + (i - 1) % kinds) + "L-" + QByteArray::number(100 + i) + "\",\"a\",\"b\",\"c\",\"d\"\r\n";
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
        list = DeviceList();
        DataFiles::setProgramFolder(dir.path());
        QFile::remove(listPath());
        QVERIFY(QFile::copy(QFINDTESTDATA("../../resources/data/nqmdevice.lst"), listPath()));
    }
    void cleanupTestCase() { DataFiles::setProgramFolder({}); }

    // Each read follows one of the shipped list: an empty list leaves its
    // size kinds as they were, with none in use.
    void readResults_data()
    {
        QTest::addColumn<QByteArray>("content");
        QTest::addColumn<int>("result");
        QTest::addColumn<QString>("lastKind");
        QTest::newRow("six size kinds") << records(12, 6) << 0 << "25L";
        QTest::newRow("empty list") << QByteArray("0\r\n") << 0 << "28";
        QTest::newRow("71 records") << records(71, 2) << 1 << "";
        QTest::newRow("seven size kinds") << records(7, 7) << 1 << "";
    }
    void readResults()
    {
        QFETCH(QByteArray, content);
        QFETCH(int, result);
        QCOMPARE(list.ReadDeviceList(prompter), 0);
        writeList(content);
        QCOMPARE(list.ReadDeviceList(prompter), result);
        QCOMPARE(prompter.texts(), result ? QStringList{MsgLines({15, 16})} : QStringList());
        QCOMPARE(list.gDevListMissing, result == 1);
        if (result == 0)
            QTEST(list.gSizeKinds[list.gSizeKindMax], "lastKind");
    }

    // Sizes are compared as whole texts of up to three characters.
    void sizeKeyMatchesExactly_data()
    {
        QTest::addColumn<QString>("size");
        QTest::addColumn<int>("result");
        QTest::newRow("28 is not 28L") << "28" << 1;
        QTest::newRow("28L") << "28L" << 0;
        QTest::newRow("case counts") << "28l" << 1;
    }
    void sizeKeyMatchesExactly()
    {
        QFETCH(QString, size);
        writeList("2\r\n\"28L-100\",\"\",\"\",\"\",\"\"\r\n\"35\",\"\",\"\",\"\",\"\"\r\n");
        QTEST(DeviceList::FindSizeInDeviceList("QM", size, prompter), "result");
        QVERIFY(prompter.shown.isEmpty());
    }

    void actSizeList_data()
    {
        QTest::addColumn<QByteArray>("content");
        QTest::addColumn<QString>("before");
        QTest::addColumn<QString>("after");
        QTest::addColumn<QStringList>("items");
        const QStringList sizes{"28", "35", "42", "SP"};
        const QByteArray coded = "2\r\n\"42L-100\",1,2,3,4\r\n\"28L-100\",1,2,3,4\r\n";
        QTest::newRow("known size stays") << QByteArray("shipped") << "42" << QStringLiteral("42") << sizes;
        QTest::newRow("unknown size takes the first kind") << QByteArray("shipped") << "77" << QStringLiteral("28") << sizes;
        QTest::newRow("first kind that is no fixed size") << coded << "35" << QStringLiteral("42L") << sizes;
        QTest::newRow("no list") << QByteArray() << "35" << QStringLiteral("35") << QStringList{"old"};
    }
    void actSizeList()
    {
        QFETCH(QByteArray, content);
        QFETCH(QString, before);
        QFETCH(QStringList, items);
        if (content != "shipped")
            writeList(content);
        SizeListBox comboActSize;
        comboActSize.addItem("old", 9);
        comboActSize.setText(before);
        QCOMPARE(LoadDeviceListAtStart(list, comboActSize, prompter), content.isEmpty() ? 1 : 0);
        QCOMPARE(itemTexts(comboActSize), items);
        QCOMPARE(prompter.shown.size(), content.isEmpty() ? 1 : 0);
        QCOMPARE(comboActSize.itemData(items.size() - 1), content.isEmpty() ? 9 : 3);
        QTEST(comboActSize.text(), "after");
    }

    void dialogLoad_data()
    {
        QTest::addColumn<bool>("mode");
        QTest::addColumn<bool>("pgUse");
        QTest::addColumn<QString>("mainSize");
        QTest::addColumn<QString>("chosen");
        QTest::newRow("empty main size") << false << false << "" << QStringLiteral("28");
        QTest::newRow("size not in the list") << true << true << "28L" << QStringLiteral("28");
    }
    void dialogLoad()
    {
        QFETCH(bool, mode);
        QFETCH(bool, pgUse);
        QFETCH(QString, mainSize);
        ProgramState& g = ProgramState::instance();
        g.gDeviceDialogMode = mode;
        g.gPgUse = pgUse;
        DeviceSelection dialog(list, prompter);
        dialog.Form_Load(mainSize);
        QCOMPARE(itemTexts(dialog.comboDeviceSize), (QStringList{"28", "35", "42", "SP"}));
        QTEST(dialog.comboDeviceSize.text(), "chosen");
        QCOMPARE(dialog.chkDevPgUse, pgUse ? 1 : 0);
        QCOMPARE(dialog.familyText, mode ? "QM" : "");
        // The encoder box shows the recorded use whatever size is chosen.
        dialog.chkDevPgUse = pgUse ? 0 : 1;
        dialog.comboDeviceSize.setText("42");
        dialog.DispPgUse();
        QCOMPARE(dialog.chkDevPgUse, pgUse ? 1 : 0);
    }

    // A missing list leaves the dialog's size empty; Set then stores it so.
    void dialogWithoutAList()
    {
        QFile::remove(listPath());
        DeviceSelection dialog(list, prompter);
        dialog.Form_Load("42");
        QCOMPARE(dialog.comboDeviceSize.count(), 0);
        QCOMPARE(prompter.shown.size(), 1);
        ProgramState::instance().gActSize = "28";
        dialog.cmdDeviceSet_Click();
        QCOMPARE(ProgramState::instance().gActSize, QString());
    }

    // A close by the program is no Cancel (the button and the window frame
    // are, as the parameter page test shows).
    void closedByTheProgramIsNoCancel()
    {
        ProgramState::instance().gActSize = "42";
        DeviceSelection dialog(list, prompter);
        dialog.Form_Load("28");
        dialog.Form_QueryUnload(1);
        QVERIFY(!dialog.Cancelled && !dialog.closeRequested);
        QCOMPARE(ProgramState::instance().gActSize, "42");
    }

private:
    QString listPath() const { return dir.filePath("nqmdevice.lst"); }
    // Empty content removes the list.
    void writeList(const QByteArray& content)
    {
        QFile::remove(listPath());
        if (!content.isEmpty())
            WriteBytes(listPath(), content);
    }

    QTemporaryDir dir;
    ScriptedPrompter prompter;
    DeviceList list;
};

QTEST_APPLESS_MAIN(TestDeviceList)
#include "tst_devicelist.moc"
