#include "SimWindowRig.h"
#include "common/DataFiles.h"
#include "common/MessageTable.h"
#include "common/ProgramState.h"
#include "common/RegistryValue.h"
#include "common/Settings.h"
#include "common/Waiter.h"
#include "common/widgets/F1Filter.h"
#include "common/widgets/Lamp.h"
#include "shell/HelpModule.h"
#include "shell/SysInfoLauncher.h"
#include "shell/widgets/AboutDialog.h"
#include "shell/widgets/DialogFileChooser.h"
#include "shell/widgets/MessageBoxPrompter.h"
#include "shell/widgets/SplashWindow.h"
#include "support/ScriptedPrompter.h"
#include "support/TempSettings.h"

#include <QElapsedTimer>
#include <QTemporaryDir>
#include <QtTest>
#include <QtWidgets>

namespace {

// While alive, PATH holds only the given folder.
struct PathOnly {
    explicit PathOnly(const QString& folder) { qputenv("PATH", folder.toLocal8Bit()); }
    ~PathOnly() { qputenv("PATH", old); }
    const QByteArray old = qgetenv("PATH");
};

} // namespace

class TestShellDialogs : public QObject {
    Q_OBJECT

private slots:
    void init() { ProgramState::reset(); }

    void messageBox_data()
    {
        QTest::addColumn<int>("buttons");
        QTest::addColumn<int>("icon");
        QTest::addColumn<int>("press"); // a standard button, or 0 for Escape
        QTest::addColumn<int>("answer");
        QTest::addColumn<int>("boxIcon");
        using P = Prompter;
        using B = QMessageBox;
        const auto row = [](const char* name, P::Buttons buttons, P::Icon icon, int press, P::Answer answer,
                            B::Icon boxIcon) {
            QTest::newRow(name) << int(buttons) << int(icon) << press << int(answer) << int(boxIcon);
        };
        row("OK by Escape", P::Buttons::Ok, P::Icon::Information, 0, P::Answer::Ok, B::Information);
        row("OK/Cancel by Escape", P::Buttons::OkCancel, P::Icon::Question, 0, P::Answer::Cancel, B::Question);
        row("Yes", P::Buttons::YesNo, P::Icon::Exclamation, B::Yes, P::Answer::Yes, B::Warning);
        row("Yes/No by Escape", P::Buttons::YesNo, P::Icon::Question, 0, P::Answer::No, B::Question);
        row("Yes/No/Cancel: No", P::Buttons::YesNoCancel, P::Icon::Critical, B::No, P::Answer::No, B::Critical);
        row("Yes/No/Cancel by Escape", P::Buttons::YesNoCancel, P::Icon::None, 0, P::Answer::Cancel, B::NoIcon);
    }
    void messageBox()
    {
        QFETCH(int, buttons);
        QFETCH(int, icon);
        QFETCH(int, press);
        QWidget owner;
        MessageBoxPrompter prompter(&owner);
        QString text;
        int iconShown = -1;
        whenDialogOpens<QMessageBox>([&](QMessageBox& box) {
            text = box.text();
            iconShown = box.icon();
            if (press)
                box.button(QMessageBox::StandardButton(press))->click();
            else
                QTest::keyClick(&box, Qt::Key_Escape);
        });
        QTEST(int(prompter.ask("Line one\r\nLine two\r\n\r\nLast", Prompter::Buttons(buttons), Prompter::Icon(icon))),
              "answer");
        QCOMPARE(text, QStringLiteral("Line one\nLine two\n\nLast"));
        QTEST(iconShown, "boxIcon");
    }

    void fileFilters_data()
    {
        QTest::addColumn<QString>("program");
        QTest::addColumn<QStringList>("dialog");
        QTest::newRow("name without pattern") << "Position Data|*.qmd" << QStringList{"Position Data (*.qmd)"};
        QTest::newRow("several patterns") << "Data(*.a;*.b)|*.a;*.b" << QStringList{"Data (*.a *.b)"};
        QTest::newRow("name left alone") << "Data" << QStringList{};
    }
    void fileFilters()
    {
        QFETCH(QString, program);
        QTEST(DialogFileChooser::nameFilters(program), "dialog");
    }

    void chooserAddsTheExtensionAndCancelGivesNothing()
    {
        QTemporaryDir dir;
        QWidget owner;
        DialogFileChooser chooser(&owner);
        QStringList filters;
        whenDialogOpens<QFileDialog>([&](QFileDialog& dialog) {
            filters = dialog.nameFilters();
            dialog.setDirectory(dir.path());
            // Typed, as a user does: selectFile() leaves a focused name box alone.
            dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))->setText(QStringLiteral("unit7"));
            static_cast<QDialog&>(dialog).accept();
        });
        QCOMPARE(chooser.saveFile("Save", "Parameter(*.pmt)|*.pmt|All files(*.*)|*.*", "pmt", "KTRdata.pmt"),
                 dir.filePath("unit7.pmt"));
        QCOMPARE(filters, (QStringList{"Parameter (*.pmt)", "All files (*)"}));

        whenDialogOpens<QDialog>([](QDialog& dialog) { dialog.reject(); });
        QCOMPARE(chooser.openFile("Open", "Position Data(*.qmd)|*.qmd", "qmd"), QString());
    }

    void splashEndsAfterTwoSeconds()
    {
        SplashWindow splash;
        splash.Form_Load();
        QElapsedTimer t;
        t.start();
        splash.startTimer();
        QCOMPARE(Waiter::waitUntil([&splash] { return splash.done(); }, 4000), Waiter::Result::Done);
        QVERIFY(t.elapsed() >= 1900);
    }

    // System Info goes to the launcher, which tells when no tool starts.
    void aboutBox()
    {
        ScriptedPrompter prompter;
        AboutDialog about(prompter);
        about.Form_Load();

        about.sysInfo().setStarter([](const QString&) { return false; });
        about.cmdSysInfo->click();
        QCOMPARE(prompter.texts(), QStringList{Msg(1206)});

        about.cmdOK->click();
        QCOMPARE(about.result(), int(QDialog::Accepted));
    }

    // F1 is held back from the help shortcut unless the language is Japanese.
    void f1Discarded_data()
    {
        QTest::addColumn<QString>("stored"); // empty: nothing stored
        QTest::addColumn<int>("key");
        QTest::addColumn<bool>("reaches");
        QTest::newRow("nothing stored: F1 works") << "" << int(Qt::Key_F1) << true;
        QTest::newRow("English: F1 discarded") << "2" << int(Qt::Key_F1) << false;
        QTest::newRow("English: F2 works") << "2" << int(Qt::Key_F2) << true;
    }
    void f1Discarded()
    {
        QFETCH(QString, stored);
        QFETCH(int, key);
        TempSettings settings;
        if (!stored.isEmpty())
            Settings::writeText(Setting::Language, stored);
        QMainWindow window;
        window.setCentralWidget(new QWidget);
        QAction* help = window.menuBar()->addMenu("Help")->addAction("Contents");
        help->setShortcut(QKeySequence(key));
        QSignalSpy triggered(help, &QAction::triggered);
        window.show();
        QVERIFY(QTest::qWaitForWindowActive(&window));

        F1Filter filter;
        qApp->installEventFilter(&filter);
        QTest::keyClick(&window, Qt::Key(key));
        qApp->removeEventFilter(&filter);
        QTEST(!triggered.isEmpty(), "reaches");
    }

    // Only an output lamp is clicked, by the left button or Space.
    void lampClicks()
    {
        Lamp plain(Lamp::Color::Green);
        Lamp output(Lamp::Color::Orange);
        output.setClickable(true);
        QSignalSpy plainClicks(&plain, &Lamp::clicked);
        QSignalSpy outputClicks(&output, &Lamp::clicked);
        for (Lamp* lamp : {&plain, &output}) {
            lamp->resize(lamp->sizeHint());
            lamp->show();
            QTest::mouseClick(lamp, Qt::LeftButton);
        }
        QTest::mouseClick(&output, Qt::RightButton);
        output.setFocus();
        QTest::keyClick(&output, Qt::Key_Space);
        QCOMPARE(plainClicks.count(), 0);
        QCOMPARE(outputClicks.count(), 2);
    }

    // A number value is the bytes before the first NUL, last to first, as hex digits.
    void registryValue_data()
    {
        QTest::addColumn<int>("type");
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QString>("text");
        const int n = RegistryValue::Number;
        QTest::newRow("256: zero first byte") << n << QByteArray::fromHex("00010000") << "0";
        QTest::newRow("2561: inner byte below 16") << n << QByteArray::fromHex("010a0000") << "161";
        QTest::newRow("four digits read as 16 bits") << n << QByteArray::fromHex("ffff0000") << "-1";
        QTest::newRow("eight digits read as 32 bits") << n << QByteArray::fromHex("ffffffff") << "-1";
        QTest::newRow("text up to its NUL") << int(RegistryValue::String) << QByteArray("C:\\info.exe\0stale", 17)
                                            << "C:\\info.exe";
        QTest::newRow("other type") << 3 << QByteArray("C:\\info.exe") << "";
    }
    void registryValue()
    {
        QFETCH(int, type);
        QFETCH(QByteArray, bytes);
        QTEST(RegistryValue::text(bytes + QByteArray(1024 - bytes.size(), '\0'), type), "text");
    }

    // The index page goes to the browser; without the page, or without a
    // browser, an information box says so (and where the page is).
    void helpContents_data()
    {
        QTest::addColumn<bool>("page");
        QTest::addColumn<bool>("browser");
        QTest::addColumn<QString>("text"); // %1: the page
        QTest::newRow("opened") << true << true << QString();
        QTest::newRow("no page") << false << true << Msg(414);
        QTest::newRow("no browser") << true << false << Msg(5002) + "\r\n%1";
    }
    void helpContents()
    {
        QFETCH(bool, page);
        QFETCH(bool, browser);
        QFETCH(QString, text);
        QTemporaryDir dir;
        const QString index = QDir::toNativeSeparators(dir.filePath("help/index.html"));
        if (page) {
            QDir(dir.path()).mkpath("help");
            QVERIFY(QFile(index).open(QIODevice::WriteOnly));
        }
        DataFiles::setProgramFolder(dir.path());
        HelpModule help;
        help.SetHelpFilePath();
        DataFiles::setProgramFolder({});
        QList<QUrl> opened;
        help.setOpener([&](const QUrl& url) { opened << url; return browser; });
        ScriptedPrompter prompter;
        help.ShowHelpContents(prompter, Msg(414));

        QCOMPARE(opened, page ? QList<QUrl>{QUrl::fromLocalFile(index)} : QList<QUrl>{});
        QCOMPARE(prompter.texts().join('|'), text.replace("%1", index));
    }

    void shippedHelpPagesLinkToExistingPages()
    {
        const QDir help(qEnvironmentVariable("KTR_TEST_SOURCE_DIR", QStringLiteral(".")) + "/resources/help");
        const QStringList pages = help.entryList({"*.html"}, QDir::Files);
        QVERIFY2(pages.contains("index.html") && pages.size() >= 4, qPrintable(help.path()));
        static const QRegularExpression link(R"(href="([^"#:]+)(#[^"]*)?")");
        for (const QString& name : pages) {
            QFile f(help.filePath(name));
            QVERIFY(f.open(QIODevice::ReadOnly));
            const QString html = QString::fromUtf8(f.readAll());
            QVERIFY2(html.contains("charset=\"utf-8\"") || html.contains("charset=utf-8"), qPrintable(name));
            for (auto it = link.globalMatch(html); it.hasNext();) {
                const QString target = it.next().captured(1);
                QVERIFY2(help.exists(target), qPrintable(name + " -> " + target));
            }
        }
    }

    // The tool found on PATH is started by its full path; without one, or
    // when it does not start, a box says so.
    void sysInfoLaunch()
    {
        QTemporaryDir bin;
        const QString marker = bin.filePath("started");
        const QString tool = bin.filePath(SysInfoLauncher::knownPrograms().constLast());
        ScriptedPrompter prompter;
        PathOnly path(bin.path());
        SysInfoLauncher().StartSysInfo(prompter);
        QCOMPARE(prompter.texts(), QStringList{Msg(1206)});

        QFile script(tool);
        QVERIFY(script.open(QIODevice::WriteOnly));
        script.write(("#!/bin/sh\necho started > '" + marker + "'\n").toUtf8());
        script.close();
        QVERIFY(script.setPermissions(script.permissions() | QFileDevice::ExeOwner));
        SysInfoLauncher().StartSysInfo(prompter);
        QTRY_VERIFY_WITH_TIMEOUT(QFile::exists(marker), 5000);
        QCOMPARE(prompter.shown.size(), 1);

        QStringList asked;
        SysInfoLauncher failing;
        failing.setStarter([&](const QString& program) { asked << program; return false; });
        failing.StartSysInfo(prompter);
        QCOMPARE(asked, QStringList{tool});
        QCOMPARE(prompter.texts(), (QStringList{Msg(1206), Msg(1206)}));
    }
};

QTEST_MAIN(TestShellDialogs)
#include "tst_shelldialogs.moc"
