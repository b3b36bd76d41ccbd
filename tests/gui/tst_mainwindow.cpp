#include "common/MessageTable.h"
#include "common/ProgramState.h"
#include "common/Waiter.h"
#include "opdata/widgets/OpDataPage.h"
#include "params/widgets/ParaPage.h"
#include "shell/Settings.h"
#include "shell/widgets/Lamp.h"
#include "shell/widgets/MainWindow.h"
#include "support/TempSettings.h"

#include <QComboBox>
#include <QGroupBox>
#include <QRadioButton>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QTabWidget>
#include <QtTest>

#include <optional>

namespace {

void setLanguage(qint16 language)
{
    ProgramState& s = ProgramState::instance();
    s.gLanguage = language;
    s.gMsgBase = language == 1 ? 0 : MessageTable::EnglishBase;
}

QStringList texts(const QComboBox* combo)
{
    QStringList out;
    for (int i = 0; i < combo->count(); ++i)
        out << combo->itemText(i);
    return out;
}

QString storedOrNothing(const char* key)
{
    return Settings::readText(QString::fromLatin1(key), QStringLiteral("<none>"));
}

} // namespace

// The main window's Load and Unload, its menus and its status displays.
class TestMainWindow : public QObject {
    Q_OBJECT

private slots:
    void init() { ProgramState::reset(); m_settings.emplace(); }
    void cleanup() { m_settings.reset(); }

    void loadFillsListsAndCaptions_data()
    {
        QTest::addColumn<int>("language");
        QTest::addColumn<QStringList>("autoDrive");
        QTest::addColumn<QStringList>("pgFunction");
        QTest::addColumn<QStringList>("homeOut");
        QTest::addColumn<QStringList>("autoHome");
        QTest::addColumn<QStringList>("paraTabs");
        QTest::addColumn<QStringList>("mainTabs");
        QTest::addColumn<QStringList>("captions");

        QTest::newRow("English") << 2
            << QStringList{"0. Drive-ON", "1. Drive-OFF"}
            << QStringList{"0. No-Encorder", "1. With Encorder"}
            << QStringList{"0. OUT-OFF", "1. OUT-ON", "2. OUT2-ON", "3. OUT1,2-ON"}
            << QStringList{"0. Disable", "1. Enable"}
            << QStringList{"FILE", "CONTROLLER"}
            << QStringList{"MOVE・EDIT", "Parameters"}
            << QStringList{"&File", "Save &As...", "Show &Version...", "&Options...", "MOVE", "ALARM RESET",
                           "Start Monitor", "Verify with C/T", "HOME Parameter", "Logic A(1)", "Alarm"};
        QTest::newRow("Japanese") << 1
            << QStringList{"0. ドライブON", "1. ドライブOFF"}
            << QStringList{"0. エンコーダなし", "1. エンコーダあり"}
            << QStringList{"0. 出力OFF", "1. 出力ON", "2. OUT2出力ON", "3. OUT1,2出力ON"}
            << QStringList{"0. 無効", "1. 有効"}
            << QStringList{"ファイル", "コントローラ"}
            << QStringList{"運転・編集", "パラメータ"}
            << QStringList{"ファイル(&F)", "名前を付けて保存(&A)...", "バージョン表示(&V)...", "オプション(&O)...",
                           "MOVE", "アラームリセット", "モニタ開始", "C/Tと照合", "原点復帰パラメータ", "A接点(1)",
                           "アラーム"};
    }
    void loadFillsListsAndCaptions()
    {
        QFETCH(int, language);
        setLanguage(qint16(language));
        MainWindow w;
        w.Form_Load();

        QStringList speeds;
        for (int v = 30; v >= 1; --v)
            speeds << QString::number(v);
        QCOMPARE(texts(w.opData->comboVEL), speeds);
        QCOMPARE(w.opData->comboVEL->itemData(0).toInt(), 0);
        QCOMPARE(w.opData->comboVEL->itemData(29).toInt(), 29);
        QCOMPARE(texts(w.opData->comboACC), (QStringList{"3", "2", "1"}));
        QCOMPARE(w.opData->comboACC->itemData(2).toInt(), 2);
        // Both choices show "1"; their values stay empty until the user chooses.
        const QStringList choices = {w.opData->comboVEL->currentText(), w.opData->comboACC->currentText(),
                                     w.opData->txtVEL->text(), w.opData->txtACC->text()};
        QCOMPARE(choices, (QStringList{"1", "1", "", ""}));

        QTEST(texts(w.para->comboAxisAutoDrv), "autoDrive");
        QTEST(texts(w.para->comboPgFunc), "pgFunction");
        QTEST(texts(w.para->comboHomeOut), "homeOut");
        QTEST(texts(w.para->comboAutoHome), "autoHome");
        QTEST((QStringList{w.para->SSTabPrm->tabText(0), w.para->SSTabPrm->tabText(1)}), "paraTabs");
        QTEST((QStringList{w.SSTab1->tabText(0), w.SSTab1->tabText(1)}), "mainTabs");
        // The size list starts empty and takes the first size of the shipped device list.
        QCOMPARE(w.para->comboActSize->currentText(), QStringLiteral("28"));
        QCOMPARE(w.windowTitle(), QStringLiteral("KTR-W5"));
        const QStringList shown = {
            w.mnuFile->title(), w.mnuFileSaveAs->text(), w.mnuShowCtversion->text(),
            w.mnuOption->text(), w.opData->cmdMOVE->text(), w.opData->cmdRESET->text(),
            w.opData->cmdIoMonitor->text(), w.para->cmdConpareCT->text(), w.para->framHome->title(),
            w.para->optEmgLogic_1->text(), w.findChild<QLabel*>("lblAlarm")->text()};
        QTEST(shown, "captions");

        // Nothing is left showing its message number.
        for (QAction* a : w.findChildren<QAction*>())
            QVERIFY2(a->text().isEmpty() || !a->text()[0].isDigit(), qPrintable(a->text()));
        for (QLabel* l : w.findChildren<QLabel*>())
            QVERIFY2(!l->property("tag").isValid() || !l->text().isEmpty(), qPrintable(l->objectName()));
    }

    void helpMenuFollowsLanguage_data()
    {
        QTest::addColumn<int>("language");
        QTest::addColumn<bool>("enabled");
        QTest::newRow("Japanese") << 1 << true;
        QTest::newRow("English") << 2 << false;
        QTest::newRow("stored 0: left as built") << 0 << true;
    }
    void helpMenuFollowsLanguage()
    {
        QFETCH(int, language);
        setLanguage(qint16(language));
        MainWindow w;
        w.Form_Load();
        QTEST(w.mnuHelpContents->isEnabled(), "enabled");
        QVERIFY(w.mnuHelpAbout->isEnabled());
    }

    void positionFromSettings_data()
    {
        QTest::addColumn<QString>("left");
        QTest::addColumn<QString>("top");
        QTest::addColumn<QPoint>("position");
        QTest::newRow("nothing stored") << "" << "" << QPoint(67, 67);
        QTest::newRow("stored") << "3000" << "1500" << QPoint(200, 100);
        QTest::newRow("fractional twips") << "1522.5" << "0" << QPoint(102, 0);
    }
    void positionFromSettings()
    {
        QFETCH(QString, left);
        QFETCH(QString, top);
        if (!left.isEmpty()) {
            Settings::writeText("MainLeft", left);
            Settings::writeText("MainTop", top);
        }
        {
            MainWindow w;
            w.Form_Load();
            QTEST(w.pos(), "position");
            w.close();
        }
        // Only read, never written.
        QCOMPARE(storedOrNothing("MainLeft"), left.isEmpty() ? QStringLiteral("<none>") : left);
        QCOMPARE(storedOrNothing("MainTop"), top.isEmpty() ? QStringLiteral("<none>") : top);
    }

    void loadStepsRunInOrder()
    {
        MainWindow w;
        QStringList steps;
        w.hooks.loadErrorList = [&] {
            steps << QStringLiteral("error list");
            // Captions are on, the lists are not filled yet.
            QCOMPARE(w.mnuFile->title(), QStringLiteral("ファイル(&F)"));
            QCOMPARE(w.opData->comboVEL->count(), 0);
        };
        w.hooks.loadDeviceList = [&] {
            steps << QStringLiteral("device list");
            QCOMPARE(w.opData->comboVEL->count(), 30);
            QCOMPARE(w.SSTab1->tabText(1), QStringLiteral("パラメータ"));
            QCOMPARE(w.para->comboActSize->currentIndex(), -1);
            QVERIFY(w.opData->comboVEL->currentText() != QStringLiteral("1"));
            w.para->comboActSize->addItems({"28", "35", "42", "SP"});
        };
        w.Form_Load();
        QCOMPARE(steps, (QStringList{"error list", "device list"}));
        QCOMPARE(w.opData->comboVEL->currentText(), QStringLiteral("1"));
    }

    // Closing stores the port and the language, switched once when asked,
    // and closes the other windows.
    void unloadStoresPortAndLanguage_data()
    {
        QTest::addColumn<int>("portNo");
        QTest::addColumn<int>("language");
        QTest::addColumn<bool>("pending");
        QTest::addColumn<int>("closes");
        QTest::addColumn<QString>("storedPort");
        QTest::addColumn<QString>("storedLanguage");

        QTest::newRow("Japanese, no change") << 1 << 1 << false << 1 << "1" << "1";
        QTest::newRow("port 4, English") << 4 << 2 << false << 1 << "4" << "2";
        QTest::newRow("Japanese to English") << 1 << 1 << true << 1 << "1" << "2";
        QTest::newRow("English to Japanese") << 7 << 2 << true << 1 << "7" << "1";
        QTest::newRow("closed twice, switched once") << 1 << 1 << true << 2 << "1" << "2";
        QTest::newRow("stored 0 switched") << 1 << 0 << true << 1 << "1" << "1";
    }
    void unloadStoresPortAndLanguage()
    {
        QFETCH(int, portNo);
        QFETCH(int, language);
        QFETCH(int, closes);
        setLanguage(qint16(language));
        ProgramState& s = ProgramState::instance();
        MainWindow w;
        w.Form_Load();
        s.gPortNo = qint16(portNo);
        QFETCH(bool, pending);
        s.gLanguageChangePending = pending;
        QWidget other;
        other.show();
        for (int i = 0; i < closes; ++i) {
            w.show();
            QVERIFY(w.close());
        }

        QTEST(storedOrNothing("PortNo"), "storedPort");
        QTEST(storedOrNothing("Languege"), "storedLanguage");
        QVERIFY(!other.isVisible());
    }

    void exitMenu_data()
    {
        QTest::addColumn<bool>("busy");
        QTest::newRow("idle") << false;
        QTest::newRow("transfer running") << true;
    }
    void exitMenu()
    {
        QFETCH(bool, busy);
        MainWindow w;
        w.Form_Load();
        w.show();
        int portClosed = 0;
        w.hooks.closePort = [&] { ++portClosed; };
        ProgramState::instance().gPortNo = 5;
        ProgramState::instance().gCommBusy = busy;
        w.mnuFileExit->trigger();

        QCOMPARE(w.isVisible(), busy);
        QCOMPARE(portClosed, busy ? 0 : 1);
        QCOMPARE(storedOrNothing("PortNo"), busy ? QStringLiteral("<none>") : QStringLiteral("5"));
        ProgramState::instance().gCommBusy = false;
    }

    void closingMidWaitUnwindsFirst_data()
    {
        QTest::addColumn<bool>("busy");
        QTest::newRow("sequence") << true;
        QTest::newRow("I/O monitor poll, not busy") << false;
    }
    void closingMidWaitUnwindsFirst()
    {
        QFETCH(bool, busy);
        MainWindow w;
        w.Form_Load();
        w.show();
        ProgramState& s = ProgramState::instance();
        s.gCommBusy = busy;
        // A sequence waiting for the controller when the window is closed.
        QTimer::singleShot(0, &w, &QWidget::close);
        const Waiter::Result r = Waiter::waitUntil([] { return false; }, 5000);
        QCOMPARE(r, Waiter::Result::Aborted);
        QVERIFY(w.isVisible());
        QCOMPARE(storedOrNothing("Languege"), QStringLiteral("<none>"));

        // The sequence unwinds; the window closes by itself.
        s.gCommBusy = false;
        QTRY_VERIFY(!w.isVisible());
        QCOMPARE(storedOrNothing("Languege"), QStringLiteral("1"));
        Waiter::clearAbort();
    }

    void menuItemsClickTheirButtons_data()
    {
        QTest::addColumn<QString>("item");
        QTest::addColumn<QString>("button");
        QTest::newRow("open") << "mnuFileOpen" << "cmdFileOpen";
        QTest::newRow("save") << "mnuFileSave" << "cmdSaveFile";
        QTest::newRow("save as") << "mnuFileSaveAs" << "cmdSaveFile";
        QTest::newRow("read") << "mnuFileGetfromCt" << "cmdGetfromCt";
        QTest::newRow("write") << "mnuFileLoadtoCt" << "cmdLoadtoCt";
        QTest::newRow("print") << "mnuFilePrint" << "cmdDataPrint";
    }
    void menuItemsClickTheirButtons()
    {
        QFETCH(QString, item);
        QFETCH(QString, button);
        MainWindow w;
        w.Form_Load();
        QStringList clicked;
        // Only the click is looked at here, not the command behind the button.
        QObject* commands = w.findChild<QObject*>(QStringLiteral("OpDataPageController"));
        for (QPushButton* b : w.opData->findChildren<QPushButton*>()) {
            b->disconnect(commands);
            connect(b, &QPushButton::clicked, this, [&clicked, b] { clicked << b->objectName(); });
        }
        w.findChild<QAction*>(item)->trigger();
        QCOMPARE(clicked, QStringList{button});
    }

    void portLabel_data()
    {
        QTest::addColumn<QStringList>("args");
        QTest::addColumn<int>("language");
        QTest::addColumn<QString>("label");
        QTest::newRow("numbered port") << QStringList{"ktr-w5"} << 2 << "Port: COM3";
        QTest::newRow("simulator") << QStringList{"ktr-w5", "--simulator"} << 1 << "通信先：シミュレータ";
        QTest::newRow("named device") << QStringList{"ktr-w5", "--port", "/dev/ttyUSB1"} << 2
                                      << "Port: /dev/ttyUSB1";
    }
    void portLabel()
    {
        QFETCH(QStringList, args);
        QFETCH(int, language);
        setLanguage(qint16(language));
        ProgramState::instance().gPortNo = 3;
        MainWindow w(StartupOptions::parse(args));
        w.Form_Load();
        QTEST(w.lblPort->text(), "label");
    }

    // The green lamp takes the red one's place, so nothing beside it moves.
    void alarmLampsShareOnePlace()
    {
        MainWindow w;
        w.Form_Load();
        w.show();
        QVERIFY(w.imgAlarmGreen->isVisible() && !w.imgAlarmLed->isVisible());
        w.alarms().showAlarm(true);
        QCOMPARE(w.imgAlarmLed->color(), Lamp::Color::Red);
        QTRY_VERIFY(w.imgAlarmLed->geometry().isValid());
        const QRect place = w.imgAlarmLed->geometry();
        w.alarms().showAlarm(false);
        QCOMPARE(w.imgAlarmGreen->color(), Lamp::Color::Green);
        QTRY_COMPARE(w.imgAlarmGreen->geometry(), place);
    }

private:
    std::optional<TempSettings> m_settings;
};

QTEST_MAIN(TestMainWindow)
#include "tst_mainwindow.moc"
