#include "common/DataFiles.h"
#include "common/MessageTable.h"
#include "common/ProgramState.h"
#include "shell/HelpModule.h"
#include "shell/RegistryValue.h"
#include "shell/SysInfoLauncher.h"
#include "support/ScriptedPrompter.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QThread>
#include <QtTest>

namespace {

QString writeScript(const QString& dir, const QString& name, const QString& body)
{
    const QString path = QDir(dir).filePath(name);
    QFile f(path);
    f.open(QIODevice::WriteOnly);
    f.write(("#!/bin/sh\n" + body + "\n").toUtf8());
    f.close();
    f.setPermissions(f.permissions() | QFileDevice::ExeOwner | QFileDevice::ExeUser);
    return path;
}

} // namespace

// The about box's system information lookup, the registry value text and
// the help pages.
class TestShellHelp : public QObject {
    Q_OBJECT

private slots:
    void init() { ProgramState::reset(); }

    void registryNumber_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QString>("text");

        QTest::newRow("258: two bytes joined last to first") << QByteArray::fromHex("02010000") << "18";
        QTest::newRow("1") << QByteArray::fromHex("01000000") << "1";
        QTest::newRow("255") << QByteArray::fromHex("ff000000") << "255";
        QTest::newRow("0x12345678 comes out right") << QByteArray::fromHex("78563412") << "305419896";
        QTest::newRow("256: zero first byte") << QByteArray::fromHex("00010000") << "0";
        QTest::newRow("65537: zero inner byte") << QByteArray::fromHex("01000100") << "1";
        QTest::newRow("2561: inner byte below 16") << QByteArray::fromHex("010a0000") << "161";
        QTest::newRow("four digits read as 16 bits") << QByteArray::fromHex("ffff0000") << "-1";
        QTest::newRow("eight digits read as 32 bits") << QByteArray::fromHex("ffffffff") << "-1";
        QTest::newRow("0") << QByteArray::fromHex("00000000") << "0";
    }
    void registryNumber()
    {
        QFETCH(QByteArray, bytes);
        QByteArray buffer(1024, '\0');
        buffer.replace(0, bytes.size(), bytes);
        QTEST(RegistryValue::text(buffer, RegistryValue::Number), "text");
    }

    void registryText()
    {
        QByteArray buffer(1024, '\0');
        const QByteArray path = "C:\\Tools\\info.exe";
        buffer.replace(0, path.size(), path);
        buffer.replace(path.size() + 1, 5, "stale");
        QCOMPARE(RegistryValue::text(buffer, RegistryValue::String), QString::fromLatin1(path));
        QCOMPARE(RegistryValue::text(buffer, 3), QString());
    }

    void helpPath_data()
    {
        QTest::addColumn<QString>("folder");
        QTest::addColumn<QString>("path");

        QTest::newRow("folder") << "/opt/ktr" << "/opt/ktr/help/index.html";
        QTest::newRow("folder ending in /") << "/opt/ktr/" << "/opt/ktr/help/index.html";
        QTest::newRow("drive root") << "C:/" << "C:/help/index.html";
        QTest::newRow("drive root, backslash") << "C:\\" << "C:\\help/index.html";
    }
    void helpPath()
    {
        QFETCH(QString, folder);
        HelpModule help;
        help.SetHelpFilePath(folder);
        QTEST(help.helpFile(), "path");
    }

    void helpPathFromProgramFolder()
    {
        QTemporaryDir dir;
        DataFiles::setProgramFolder(dir.path());
        HelpModule help;
        help.SetHelpFilePath();
        DataFiles::setProgramFolder({});
        QCOMPARE(help.helpFile(), dir.path() + "/help/index.html");
    }

    // The index page goes to the browser; without the page, or without a
    // browser, an information box says so (and where the page is).
    void helpContents_data()
    {
        QTest::addColumn<bool>("page");
        QTest::addColumn<bool>("browser");
        QTest::addColumn<QString>("text");   // %1: the page
        const QString missing = "ヘルプファイルを表示できません。このプロジェクトに関連するヘルプファイルがありません。";
        const QString noBrowser = "ヘルプを表示するブラウザを起動できませんでした。ヘルプファイルは次の場所にあります。\r\n%1";
        QTest::newRow("opened") << true << true << QString();
        QTest::newRow("no page") << false << true << missing;
        QTest::newRow("no browser") << true << false << noBrowser;
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
        HelpModule help;
        help.SetHelpFilePath(dir.path());
        QList<QUrl> opened;
        help.setOpener([&](const QUrl& url) { opened << url; return browser; });
        ScriptedPrompter prompter;
        help.ShowHelpContents(prompter, Msg(414));

        QCOMPARE(opened, page ? QList<QUrl>{QUrl::fromLocalFile(index)} : QList<QUrl>{});
        QCOMPARE(prompter.texts().join('|'), text.replace("%1", index));
        for (const auto& box : prompter.shown)
            QVERIFY(box.icon == Prompter::Icon::Information && box.buttons == Prompter::Buttons::Ok);
    }

    void shippedHelpPagesLinkToExistingPages()
    {
        const QDir help(qEnvironmentVariable("KTR_TEST_SOURCE_DIR", QStringLiteral(".")) + "/resources/help");
        QVERIFY2(help.exists("index.html"), qPrintable(help.path()));
        const QStringList pages = help.entryList({"*.html"}, QDir::Files);
        QVERIFY(pages.size() >= 4);
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

    void sysInfoStartsProgramFoundOnPath()
    {
#ifdef Q_OS_WIN
        QSKIP("the registry decides on Windows");
#endif
        QTemporaryDir bin;
        const QString marker = bin.filePath("started");
        writeScript(bin.path(), SysInfoLauncher::knownPrograms().constLast(), "echo started > '" + marker + "'");
        const QByteArray oldPath = qgetenv("PATH");
        qputenv("PATH", bin.path().toLocal8Bit());
        ScriptedPrompter prompter;
        SysInfoLauncher().StartSysInfo(prompter);
        qputenv("PATH", oldPath);

        QElapsedTimer t;
        t.start();
        while (!QFile::exists(marker) && t.elapsed() < 5000)
            QThread::msleep(20);
        QVERIFY(QFile::exists(marker));
        QVERIFY(prompter.shown.isEmpty());
    }

    void sysInfoMissing()
    {
#ifdef Q_OS_WIN
        QSKIP("the registry decides on Windows");
#endif
        QTemporaryDir empty;
        const QByteArray oldPath = qgetenv("PATH");
        qputenv("PATH", empty.path().toLocal8Bit());
        ProgramState::instance().gMsgBase = MessageTable::EnglishBase;
        int started = 0;
        SysInfoLauncher launcher;
        launcher.setStarter([&](const QString&) { ++started; return true; });
        ScriptedPrompter prompter;
        launcher.StartSysInfo(prompter);
        qputenv("PATH", oldPath);

        QCOMPARE(started, 0);
        QCOMPARE(prompter.shown.size(), 1);
        QCOMPARE(prompter.lastText(), QStringLiteral("You can't look system information,now."));
        QCOMPARE(prompter.shown[0].buttons, Prompter::Buttons::Ok);
        QCOMPARE(prompter.shown[0].icon, Prompter::Icon::None);
        QCOMPARE(prompter.shown[0].title, QString());
    }

    void sysInfoStartFails()
    {
#ifdef Q_OS_WIN
        QSKIP("the registry decides on Windows");
#endif
        QTemporaryDir bin;
        writeScript(bin.path(), SysInfoLauncher::knownPrograms().constFirst(), "exit 0");
        const QByteArray oldPath = qgetenv("PATH");
        qputenv("PATH", bin.path().toLocal8Bit());
        QStringList asked;
        SysInfoLauncher launcher;
        launcher.setStarter([&](const QString& program) { asked << program; return false; });
        ScriptedPrompter prompter;
        launcher.StartSysInfo(prompter);
        qputenv("PATH", oldPath);

        QCOMPARE(asked, QStringList{bin.filePath(SysInfoLauncher::knownPrograms().constFirst())});
        QCOMPARE(prompter.texts(), QStringList{Msg(1206)});
    }
};

QTEST_APPLESS_MAIN(TestShellHelp)
#include "tst_shellhelp.moc"
