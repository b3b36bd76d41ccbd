#include "common/widgets/CaptionLoader.h"

#include "common/MessageTable.h"
#include "common/NumberText.h"
#include "common/ProgramState.h"
#include "common/RuntimeError.h"

#include <QAbstractButton>
#include <QAction>
#include <QGroupBox>
#include <QLabel>
#include <QMenu>
#include <QStackedWidget>
#include <QTabWidget>
#include <QTableWidget>
#include <QToolBar>
#include <QTreeWidget>

#include <optional>

namespace {

// The text of message n in the active language, or nothing when the table
// has no such message.
std::optional<QString> message(int n)
{
    const int id = ProgramState::instance().gMsgBase + n;
    if (!MessageTable::instance().contains(id))
        return std::nullopt;
    return MessageTable::instance().text(id);
}

// The number a text starts with; 0 when it does not start with a digit
// (so "&Help" is no hexadecimal number here).
int number(const QString& text)
{
    const QString t = text.trimmed();
    if (t.isEmpty() || !t[0].isDigit())
        return 0;
    return RoundToInt16(LeadingNumber(t));
}

QTabWidget* tabWidgetOfPage(QWidget* page)
{
    // A page's parent is the tab widget's internal stack.
    auto* stack = qobject_cast<QStackedWidget*>(page->parentWidget());
    return stack ? qobject_cast<QTabWidget*>(stack->parentWidget()) : nullptr;
}

bool onToolBar(const QAction* action)
{
    for (QObject* o : action->associatedObjects())
        if (qobject_cast<QToolBar*>(o))
            return true;
    return false;
}

void applyAction(QAction* action)
{
    if (onToolBar(action)) {
        if (const auto text = message(number(action->toolTip())))
            action->setToolTip(*text);
        return;
    }
    if (const auto text = message(number(action->text())))
        action->setText(*text);
}

void applyHeaders(QTreeWidgetItem* header)
{
    for (int c = 0; c < header->columnCount(); ++c)
        if (const auto text = message(number(header->data(c, Qt::UserRole).toString())))
            header->setText(c, *text);
}

void applyHeaders(QTableWidget* table)
{
    for (int c = 0; c < table->columnCount(); ++c)
        if (QTableWidgetItem* item = table->horizontalHeaderItem(c))
            if (const auto text = message(number(item->data(Qt::UserRole).toString())))
                item->setText(*text);
}

void applyCaption(QWidget* w)
{
    const QString tag = CaptionLoader::tag(w);
    if (auto* label = qobject_cast<QLabel*>(w)) {
        if (!tag.isEmpty())
            if (const auto text = message(number(tag)))
                label->setText(*text);
        return;
    }
    if (auto* tree = qobject_cast<QTreeWidget*>(w)) {
        applyHeaders(tree->headerItem());
        return;
    }
    if (auto* table = qobject_cast<QTableWidget*>(w)) {
        applyHeaders(table);
        return;
    }
    const int n = number(tag);
    if (n <= 0)
        return;
    const auto text = message(n);
    if (!text)
        return;
    if (QTabWidget* tabs = tabWidgetOfPage(w))
        tabs->setTabText(tabs->indexOf(w), *text);
    else if (auto* button = qobject_cast<QAbstractButton*>(w))
        button->setText(*text);
    else if (auto* group = qobject_cast<QGroupBox*>(w))
        group->setTitle(*text);
}

void applyToolTip(QWidget* w)
{
    if (w->toolTip().isEmpty())
        return;
    const int n = number(w->toolTip());
    if (n > 0)
        if (const auto text = message(n))
            w->setToolTip(*text);
}

} // namespace

void CaptionLoader::apply(QWidget* form)
{
    try {
        if (!tag(form).isEmpty())
            if (const auto text = message(number(tag(form))))
                form->setWindowTitle(*text);
    } catch (const RuntimeError&) {
    }
    walk(form);
}

void CaptionLoader::walk(QObject* parent)
{
    for (QObject* child : parent->children()) {
        auto* w = qobject_cast<QWidget*>(child);
        // Other windows are forms of their own; menus are windows only to
        // the window system.
        if (w && w->isWindow() && !qobject_cast<QMenu*>(w))
            continue;
        applyControl(child);
        walk(child);
    }
}

void CaptionLoader::applyControl(QObject* object)
{
    try {
        if (auto* action = qobject_cast<QAction*>(object)) {
            applyAction(action);
        } else if (auto* w = qobject_cast<QWidget*>(object)) {
            applyCaption(w);
            applyToolTip(w);
        }
    } catch (const RuntimeError&) {
        // A number that does not fit: this control keeps its text.
    }
}

void CaptionLoader::setTag(QObject* object, int n)
{
    object->setProperty("tag", QString::number(n));
}

QString CaptionLoader::tag(const QObject* object)
{
    return object->property("tag").toString();
}
