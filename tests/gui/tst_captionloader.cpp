#include "common/MessageTable.h"
#include "common/ProgramState.h"
#include "common/widgets/CaptionLoader.h"

#include <QtTest>
#include <QtWidgets>

namespace {

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

        const auto row = [](const char* name, const char* kind, const char* tag, bool english, const char* text) {
            QTest::newRow(name) << QString(kind) << QString(tag) << english << QString(text);
        };
        row("form", "form", "4140", false, "KTR-W5 のバージョン情報");
        row("label, missing message", "label", "3999", false, "design");
        row("label, leading number", "label", "4033 acc", true, "Acceleration");
        row("label, hexadecimal prefix", "label", "&H10", false, "design");
        row("button, too large", "button", "99999", false, "design");
        row("frame", "frame", "673", true, "HOME Parameter");
    }
    void captionFromTag()
    {
        QFETCH(QString, kind);
        QFETCH(QString, tag);
        QFETCH(bool, english);
        ProgramState::instance().gMsgBase = english ? MessageTable::EnglishBase : 0;
        QWidget form;
        form.setWindowTitle("design");
        QWidget* control = kind == "form" ? &form : makeControl(kind, &form);
        control->setProperty("tag", tag);
        CaptionLoader::apply(&form);
        QTEST(textOf(control), "text");
    }

    // Tool-tips, tab pages, list headers and tool buttons keep numbers too;
    // a control without a caption is passed over, another window left to its own load.
    void otherPlacesOfANumber()
    {
        ProgramState::instance().gMsgBase = MessageTable::EnglishBase;
        QMainWindow form;
        auto* central = new QWidget(&form);
        form.setCentralWidget(central);
        auto* edit = new QLineEdit("typed", central);
        CaptionLoader::setTag(edit, 4031);
        edit->setToolTip("4064");
        auto* after = new QLabel(central);
        CaptionLoader::setTag(after, 4033);
        after->setToolTip("0");
        auto* tabs = new QTabWidget(central);
        tabs->addTab(new QWidget, "one");
        CaptionLoader::setTag(tabs->widget(tabs->addTab(new QWidget, "two")), 4046);
        auto* list = new QTreeWidget(central);
        list->setHeaderLabels({"a", "b", "c"});
        list->headerItem()->setData(0, Qt::UserRole, "4056");
        QAction* tool = form.addToolBar("tools")->addAction("4071");
        tool->setToolTip("4066");
        auto* foreign = new QLabel("design", new QDialog(&form));
        CaptionLoader::setTag(foreign, 4031);
        CaptionLoader::apply(&form);
        QCOMPARE(edit->text(), QStringLiteral("typed"));
        QCOMPARE(edit->toolTip(), QStringLiteral("While monitoring, click an output lamp to switch that output."));
        QCOMPARE(after->text(), QStringLiteral("Acceleration"));
        QCOMPARE(after->toolTip(), QStringLiteral("0"));
        QCOMPARE((QStringList{tabs->tabText(0), tabs->tabText(1)}), (QStringList{"one", "Move Test"}));
        const QTreeWidgetItem* header = list->headerItem();
        QCOMPARE((QStringList{header->text(0), header->text(1), header->text(2)}), (QStringList{"Inputs", "b", "c"}));
        QCOMPARE(tool->toolTip(), QStringLiteral("Open File"));
        QCOMPARE(tool->text(), QStringLiteral("4071"));
        QCOMPARE(foreign->text(), QStringLiteral("design"));
    }
};

QTEST_MAIN(TestCaptionLoader)
#include "tst_captionloader.moc"
