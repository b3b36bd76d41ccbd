#include "common/MessageTable.h"
#include "common/ProgramState.h"
#include "common/Waiter.h"
#include "shell/Settings.h"
#include "shell/widgets/AboutDialog.h"
#include "shell/widgets/DialogFileChooser.h"
#include "shell/widgets/F1Filter.h"
#include "shell/widgets/Lamp.h"
#include "shell/widgets/MessageBoxPrompter.h"
#include "shell/widgets/SplashWindow.h"
#include "support/ScriptedPrompter.h"
#include "support/TempSettings.h"

#include <QAction>
#include <QApplication>
#include <QDialogButtonBox>
#include <QElapsedTimer>
#include <QFile>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QMenuBar>
#include <QMessageBox>
#include <QPushButton>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTimer>
#include <QtTest>

#include <functional>

namespace {

class KeyRecorder : public QLineEdit {
public:
    QList<int> keys;

protected:
    void keyPressEvent(QKeyEvent* e) override
    {
        keys << e->key();
        QLineEdit::keyPressEvent(e);
    }
};

} // namespace

// The shell's small windows and the dialogs every sequence goes through.
class TestShellDialogs : public QObject {
    Q_OBJECT

private slots:
    void init() { ProgramState::reset(); }

    void messageBox_data()
    {
        QTest::addColumn<int>("buttons");
        QTest::addColumn<int>("icon");
        QTest::addColumn<int>("press");   // a standard button, or 0 for Escape
        QTest::addColumn<int>("answer");
        QTest::addColumn<int>("boxIcon");

        using P = Prompter;
        using B = QMessageBox;
        const auto row = [](const char* name, P::Buttons buttons, P::Icon icon, int press, P::Answer answer,
                            B::Icon boxIcon) {
            QTest::newRow(name) << int(buttons) << int(icon) << press << int(answer) << int(boxIcon);
        };
        row("OK", P::Buttons::Ok, P::Icon::Information, B::Ok, P::Answer::Ok, B::Information);
        row("OK by Escape", P::Buttons::Ok, P::Icon::None, 0, P::Answer::Ok, B::NoIcon);
        row("Cancel", P::Buttons::OkCancel, P::Icon::Question, B::Cancel, P::Answer::Cancel, B::Question);
        row("OK/Cancel by Escape", P::Buttons::OkCancel, P::Icon::Question, 0, P::Answer::Cancel, B::Question);
        row("Yes", P::Buttons::YesNo, P::Icon::Exclamation, B::Yes, P::Answer::Yes, B::Warning);
        row("No", P::Buttons::YesNo, P::Icon::Exclamation, B::No, P::Answer::No, B::Warning);
        row("Yes/No by Escape", P::Buttons::YesNo, P::Icon::Question, 0, P::Answer::No, B::Question);
        row("Yes/No/Cancel: No", P::Buttons::YesNoCancel, P::Icon::Critical, B::No, P::Answer::No, B::Critical);
        row("Yes/No/Cancel by Escape", P::Buttons::YesNoCancel, P::Icon::Question, 0, P::Answer::Cancel,
            B::Question);
    }
    void messageBox()
    {
        QFETCH(int, buttons);
        QFETCH(int, icon);
        QFETCH(int, press);
        QWidget owner;
        MessageBoxPrompter prompter(&owner);
        QString text;
        QString title;
        int iconShown = -1;
        onNextModal([&](QWidget* w) {
            auto* box = qobject_cast<QMessageBox*>(w);
            QVERIFY(box);
            text = box->text();
            title = box->windowTitle();
            iconShown = box->icon();
            if (press)
                box->button(QMessageBox::StandardButton(press))->click();
            else
                QTest::keyClick(box, Qt::Key_Escape);
        });
        const Prompter::Answer given = prompter.ask("Line one\r\nLine two\r\n\r\nLast",
                                                     Prompter::Buttons(buttons), Prompter::Icon(icon));
        QTEST(int(given), "answer");
        QCOMPARE(text, QStringLiteral("Line one\nLine two\n\nLast"));
        QCOMPARE(title, QStringLiteral("KTR-W5"));
        QTEST(iconShown, "boxIcon");
    }

    void fileFilters_data()
    {
        QTest::addColumn<QString>("program");
        QTest::addColumn<QStringList>("dialog");

        QTest::newRow("parameters") << "Parameter(*.pmt)|*.pmt|All files(*.*)|*.*"
                                    << QStringList{"Parameter (*.pmt)", "All files (*)"};
        QTest::newRow("Japanese") << "ﾊﾟﾗﾒｰﾀ(*.pmt)|*.pmt|すべてのﾌｧｲﾙ(*.*)|*.*"
                                  << QStringList{"ﾊﾟﾗﾒｰﾀ (*.pmt)", "すべてのﾌｧｲﾙ (*)"};
        QTest::newRow("name without pattern") << "Position Data|*.qmd"
                                              << QStringList{"Position Data (*.qmd)"};
        QTest::newRow("several patterns") << "Data(*.a;*.b)|*.a;*.b" << QStringList{"Data (*.a *.b)"};
        QTest::newRow("name left alone") << "Data" << QStringList{};
    }
    void fileFilters()
    {
        QFETCH(QString, program);
        QTEST(DialogFileChooser::nameFilters(program), "dialog");
    }

    void saveAddsTheDefaultExtension()
    {
        QTemporaryDir dir;
        QWidget owner;
        DialogFileChooser chooser(&owner);
        QStringList filters;
        QString title;
        onNextModal([&](QWidget* w) {
            auto* dialog = qobject_cast<QFileDialog*>(w);
            QVERIFY(dialog);
            title = dialog->windowTitle();
            filters = dialog->nameFilters();
            dialog->setDirectory(dir.path());
            dialog->selectFile(dir.filePath("unit7"));
            static_cast<QDialog*>(dialog)->accept();
        });
        const QString chosen = chooser.saveFile("Save Parameters as ...",
                                                "Parameter(*.pmt)|*.pmt|All files(*.*)|*.*", "pmt",
                                                "KTRdata.pmt");
        QCOMPARE(chosen, dir.filePath("unit7.pmt"));
        QCOMPARE(title, QStringLiteral("Save Parameters as ..."));
        QCOMPARE(filters, (QStringList{"Parameter (*.pmt)", "All files (*)"}));
    }

    void saveOverExistingFileAsksFirst()
    {
        QTemporaryDir dir;
        QFile existing(dir.filePath("old.qmd"));
        QVERIFY(existing.open(QIODevice::WriteOnly));
        existing.close();
        QWidget owner;
        DialogFileChooser chooser(&owner);
        bool asked = false;
        onNextModal([&](QWidget* w) {
            auto* dialog = qobject_cast<QFileDialog*>(w);
            QVERIFY(dialog);
            dialog->setDirectory(dir.path());
            dialog->selectFile(dir.filePath("old.qmd"));
            onNextModal([&, dialog](QWidget* question) {
                auto* box = qobject_cast<QMessageBox*>(question);
                QVERIFY(box);
                asked = true;
                box->button(QMessageBox::No)->click();
                QTimer::singleShot(0, dialog, &QDialog::reject);
            });
            QTimer::singleShot(0, dialog, &QDialog::accept);
        });
        const QString chosen = chooser.saveFile("Save", "Position Data(*.qmd)|*.qmd", "qmd", "old.qmd");
        QVERIFY(asked);
        QCOMPARE(chosen, QString());
    }

    void openCancelled()
    {
        QWidget owner;
        DialogFileChooser chooser(&owner);
        onNextModal([](QWidget* w) { qobject_cast<QDialog*>(w)->reject(); });
        QCOMPARE(chooser.openFile("Open", "Position Data(*.qmd)|*.qmd", "qmd"), QString());
    }

    void splashEndsAfterTwoSeconds()
    {
        SplashWindow splash;
        splash.Form_Load();
        QVERIFY(splash.lblVersion->text().startsWith("Version "));
        QCOMPARE(splash.timerSplash->interval(), 2000);
        QVERIFY(!splash.timerSplash->isActive());
        QVERIFY(splash.lblSubtitle->text().contains(MessageTable::instance().text(4130)));
        QVERIFY(splash.lblSubtitle->text().contains(MessageTable::instance().text(14130)));

        ProgramState& s = ProgramState::instance();
        QElapsedTimer t;
        t.start();
        splash.startTimer();
        QCOMPARE(Waiter::waitUntil([&s] { return s.gSplashDone; }, 4000), Waiter::Result::Done);
        QVERIFY(t.elapsed() >= 1900);
        QVERIFY(!splash.timerSplash->isActive());
    }

    void aboutBox()
    {
        ProgramState::instance().gMsgBase = MessageTable::EnglishBase;
        ScriptedPrompter prompter;
        AboutDialog about(prompter);
        about.Form_Load();
        QCOMPARE(about.objectName(), QStringLiteral("frmAbout"));
        QCOMPARE(about.windowTitle(), QStringLiteral("About KTR-W5"));
        QCOMPARE(about.lblVersion->text(), QStringLiteral("Version %1.%2%3")
                 .arg(KTR_VERSION_MAJOR).arg(KTR_VERSION_MINOR).arg(KTR_VERSION_PATCH));
        QCOMPARE(about.cmdSysInfo->text(), QStringLiteral("&System Info..."));
        QCOMPARE(about.cmdOK->text(), QStringLiteral("OK"));
        QVERIFY(!about.lblDescription->text().isEmpty());
        QVERIFY(!about.lblDisclaimer->text().isEmpty());
        QVERIFY(!about.lblHpAddress->text().isEmpty());
        QVERIFY(!about.picIcon->pixmap().isNull());

        about.show();
        QSignalSpy accepted(&about, &QDialog::accepted);
        about.cmdOK->click();
        QCOMPARE(accepted.count(), 1);
        QVERIFY(!about.isVisible());
    }

    void aboutBoxSysInfoMissing()
    {
        ScriptedPrompter prompter;
        AboutDialog about(prompter);
        about.Form_Load();
        QStringList started;
        about.sysInfo().setStarter([&](const QString& program) { started << program; return false; });
        about.cmdSysInfo->click();
        QCOMPARE(prompter.texts(), QStringList{"現在、システム情報を表示できません。"});
        QCOMPARE(prompter.shown[0].buttons, Prompter::Buttons::Ok);
    }

    void f1Discarded_data()
    {
        QTest::addColumn<QString>("stored");   // empty: nothing stored
        QTest::addColumn<int>("key");
        QTest::addColumn<bool>("reaches");

        QTest::newRow("Japanese: F1 works") << "1" << int(Qt::Key_F1) << true;
        QTest::newRow("nothing stored: F1 works") << "" << int(Qt::Key_F1) << true;
        QTest::newRow("English: F1 discarded") << "2" << int(Qt::Key_F1) << false;
        QTest::newRow("0: F1 discarded") << "0" << int(Qt::Key_F1) << false;
        QTest::newRow("English: F2 works") << "2" << int(Qt::Key_F2) << true;
    }
    void f1Discarded()
    {
        QFETCH(QString, stored);
        QFETCH(int, key);
        QFETCH(bool, reaches);
        TempSettings settings;
        if (!stored.isEmpty())
            Settings::writeText("Languege", stored);
        F1Filter filter;
        qApp->installEventFilter(&filter);

        QMainWindow window;
        auto* recorder = new KeyRecorder;
        window.setCentralWidget(recorder);
        QAction* help = window.menuBar()->addMenu("Help")->addAction("Contents");
        help->setShortcut(QKeySequence(key));
        QSignalSpy triggered(help, &QAction::triggered);
        window.show();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        recorder->setFocus();

        QTest::keyClick(recorder, Qt::Key(key));
        qApp->removeEventFilter(&filter);
        QCOMPARE(triggered.count(), reaches ? 1 : 0);
        QVERIFY(!recorder->keys.contains(key));

        // Without the shortcut the key reaches the focused control, or not.
        help->setShortcut({});
        qApp->installEventFilter(&filter);
        QTest::keyClick(recorder, Qt::Key(key));
        qApp->removeEventFilter(&filter);
        QCOMPARE(recorder->keys.contains(key), reaches);
    }

    void lampClicks()
    {
        Lamp plain(Lamp::Color::Green);
        Lamp output(Lamp::Color::Orange);
        output.setClickable(true);
        QSignalSpy plainClicks(&plain, &Lamp::clicked);
        QSignalSpy outputClicks(&output, &Lamp::clicked);
        plain.resize(plain.sizeHint());
        output.resize(output.sizeHint());
        plain.show();
        output.show();

        QTest::mouseClick(&plain, Qt::LeftButton);
        QTest::mouseClick(&output, Qt::LeftButton);
        QTest::mouseClick(&output, Qt::RightButton);
        QCOMPARE(plainClicks.count(), 0);
        QCOMPARE(outputClicks.count(), 1);

        output.setFocus();
        QTest::keyClick(&output, Qt::Key_Space);
        QCOMPARE(outputClicks.count(), 2);

        output.setEnabled(false);
        QTest::mouseClick(&output, Qt::LeftButton);
        QCOMPARE(outputClicks.count(), 2);

        QVERIFY(!output.isOn());
        output.setOn(true);
        QVERIFY(output.isOn());
        QVERIFY(output.sizeHint().height() >= output.fontMetrics().height());
    }

private:
    // Runs check() on the next modal window that opens.
    static void onNextModal(std::function<void(QWidget*)> check)
    {
        auto* timer = new QTimer;
        timer->setInterval(10);
        QObject::connect(timer, &QTimer::timeout, [timer, check] {
            if (QWidget* modal = QApplication::activeModalWidget()) {
                timer->stop();
                timer->deleteLater();
                check(modal);
            }
        });
        timer->start();
    }
};

QTEST_MAIN(TestShellDialogs)
#include "tst_shelldialogs.moc"
