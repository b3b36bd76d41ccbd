#include "common/MessageTable.h"
#include "common/ProgramState.h"
#include "shell/widgets/CaptionLoader.h"

#include <QAction>
#include <QCheckBox>
#include <QDialog>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QMenuBar>
#include <QPushButton>
#include <QRadioButton>
#include <QTabWidget>
#include <QToolBar>
#include <QTreeWidget>
#include <QtTest>

namespace {

void english(bool on)
{
    ProgramState::instance().gMsgBase = on ? MessageTable::EnglishBase : 0;
}

QString textOf(QWidget* w)
{
    if (w->isWindow())
        return w->windowTitle();
    if (auto* l = qobject_cast<QLabel*>(w))
        return l->text();
    if (auto* b = qobject_cast<QAbstractButton*>(w))
        return b->text();
    if (auto* g = qobject_cast<QGroupBox*>(w))
        return g->title();
    return {};
}

QWidget* makeControl(const QString& kind, QWidget* parent)
{
    if (kind == "label") return new QLabel("design", parent);
    if (kind == "button") return new QPushButton("design", parent);
    if (kind == "check") return new QCheckBox("design", parent);
    if (kind == "option") return new QRadioButton("design", parent);
    if (kind == "frame") return new QGroupBox("design", parent);
    return nullptr;
}

} // namespace

// The caption loader on real widgets: where each kind of control keeps its
// message number, and what happens when the number is not usable.
class TestCaptionLoader : public QObject {
    Q_OBJECT

private slots:
    void init() { ProgramState::reset(); }

    void captionFromTag_data()
    {
        QTest::addColumn<QString>("kind");
        QTest::addColumn<QString>("tag");
        QTest::addColumn<bool>("english");
        QTest::addColumn<QString>("text");

        QTest::newRow("form") << "form" << "4140" << false << "KTR-W5 のバージョン情報";
        QTest::newRow("form, English run") << "form" << "4140" << true << "About KTR-W5";
        QTest::newRow("form, no tag") << "form" << "" << false << "design";
        QTest::newRow("form, not a number") << "form" << "about" << false << "design";
        QTest::newRow("form, too large") << "form" << "70000" << false << "design";
        QTest::newRow("label") << "label" << "4031" << false << "速度";
        QTest::newRow("label, English run") << "label" << "4031" << true << "Speed";
        QTest::newRow("label, empty tag") << "label" << "" << false << "design";
        QTest::newRow("label, text tag") << "label" << "speed" << false << "design";
        QTest::newRow("label, missing message") << "label" << "3999" << false << "design";
        QTest::newRow("label, leading number") << "label" << "4033 acc" << true << "Acceleration";
        QTest::newRow("label, hexadecimal prefix") << "label" << "&H10" << false << "design";
        QTest::newRow("button") << "button" << "4052" << false << "MOVE";
        QTest::newRow("button, English run") << "button" << "4066" << true << "Open File";
        QTest::newRow("button, 0") << "button" << "0" << false << "design";
        QTest::newRow("button, negative") << "button" << "-4052" << false << "design";
        QTest::newRow("button, too large") << "button" << "99999" << false << "design";
        QTest::newRow("check box") << "check" << "4049" << true << "Dwell Timer";
        QTest::newRow("option") << "option" << "4048" << false << "連続";
        QTest::newRow("frame") << "frame" << "673" << true << "HOME Parameter";
        QTest::newRow("frame, empty tag") << "frame" << "" << true << "design";
    }
    void captionFromTag()
    {
        QFETCH(QString, kind);
        QFETCH(QString, tag);
        QFETCH(bool, english);
        ::english(english);
        QWidget form;
        form.setWindowTitle("design");
        QWidget* control = kind == "form" ? &form : makeControl(kind, &form);
        control->setProperty("tag", tag);
        CaptionLoader::apply(&form);
        QTEST(textOf(control), "text");
    }

    void menuCaption_data()
    {
        QTest::addColumn<QString>("design");
        QTest::addColumn<bool>("english");
        QTest::addColumn<QString>("text");

        QTest::newRow("number") << "4001" << false << "開く(&O)...";
        QTest::newRow("number, English run") << "4001" << true << "&Open...";
        QTest::newRow("not a number") << "&File" << false << "&File";
        QTest::newRow("no hexadecimal reading") << "&Help" << false << "&Help";
        QTest::newRow("missing message") << "3999" << true << "3999";
    }
    void menuCaption()
    {
        QFETCH(QString, design);
        QFETCH(bool, english);
        ::english(english);
        QMainWindow form;
        QMenu* top = form.menuBar()->addMenu(design);
        QAction* item = top->addAction(design);
        CaptionLoader::apply(&form);
        QTEST(item->text(), "text");
        QTEST(top->title(), "text");
    }

    void toolTip_data()
    {
        QTest::addColumn<QString>("tip");
        QTest::addColumn<QString>("shown");

        QTest::newRow("number") << "4064" << "While monitoring, click an output lamp to switch that output.";
        QTest::newRow("text") << "Click me" << "Click me";
        QTest::newRow("0") << "0" << "0";
    }
    void toolTip()
    {
        QFETCH(QString, tip);
        english(true);
        QWidget form;
        auto* label = new QLabel("design", &form);
        auto* edit = new QLineEdit(&form);
        label->setToolTip(tip);
        edit->setToolTip(tip);
        CaptionLoader::apply(&form);
        QTEST(label->toolTip(), "shown");
        QTEST(edit->toolTip(), "shown");
        QCOMPARE(label->text(), QStringLiteral("design"));
    }

    void tabPageCaption()
    {
        english(true);
        QWidget form;
        auto* tabs = new QTabWidget(&form);
        auto* first = new QWidget;
        auto* second = new QWidget;
        tabs->addTab(first, "one");
        tabs->addTab(second, "two");
        CaptionLoader::setTag(second, 4046);
        CaptionLoader::apply(&form);
        QCOMPARE(tabs->tabText(0), QStringLiteral("one"));
        QCOMPARE(tabs->tabText(1), QStringLiteral("Move Test"));
    }

    void listHeaders()
    {
        QWidget form;
        auto* list = new QTreeWidget(&form);
        list->setHeaderLabels({"a", "b", "c"});
        list->headerItem()->setData(0, Qt::UserRole, "4056");
        list->headerItem()->setData(2, Qt::UserRole, "text");
        CaptionLoader::apply(&form);
        QCOMPARE(list->headerItem()->text(0), QStringLiteral("入力"));
        QCOMPARE(list->headerItem()->text(1), QStringLiteral("b"));
        QCOMPARE(list->headerItem()->text(2), QStringLiteral("c"));
    }

    void toolbarButtonToolTip()
    {
        english(true);
        QMainWindow form;
        QToolBar* bar = form.addToolBar("tools");
        QAction* button = bar->addAction("4071");
        button->setToolTip("4066");
        CaptionLoader::apply(&form);
        QCOMPARE(button->toolTip(), QStringLiteral("Open File"));
        QCOMPARE(button->text(), QStringLiteral("4071"));
    }

    void otherWindowsAreLeftToTheirOwnLoad()
    {
        QWidget form;
        auto* own = new QLabel("design", &form);
        CaptionLoader::setTag(own, 4031);
        auto* dialog = new QDialog(&form);
        auto* foreign = new QLabel("design", dialog);
        CaptionLoader::setTag(foreign, 4031);
        CaptionLoader::apply(&form);
        QCOMPARE(own->text(), QStringLiteral("速度"));
        QCOMPARE(foreign->text(), QStringLiteral("design"));
    }

    void controlWithoutCaptionIsLeftAlone()
    {
        QWidget form;
        auto* edit = new QLineEdit("typed", &form);
        CaptionLoader::setTag(edit, 4031);
        auto* after = new QLabel(&form);
        CaptionLoader::setTag(after, 4033);
        CaptionLoader::apply(&form);
        QCOMPARE(edit->text(), QStringLiteral("typed"));
        QCOMPARE(after->text(), QStringLiteral("加減速"));
    }
};

QTEST_MAIN(TestCaptionLoader)
#include "tst_captionloader.moc"
