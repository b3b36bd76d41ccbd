#include "common/widgets/F1Filter.h"

#include "common/Settings.h"

#include <QKeyEvent>

bool F1Filter::eventFilter(QObject* watched, QEvent* event)
{
    const QEvent::Type type = event->type();
    if (type != QEvent::KeyPress && type != QEvent::KeyRelease && type != QEvent::ShortcutOverride)
        return QObject::eventFilter(watched, event);
    if (static_cast<QKeyEvent*>(event)->key() != Qt::Key_F1)
        return false;
    if (Settings::read(Setting::Language) == 1)
        return false;
    // Accepting the override keeps F1 from reaching any shortcut; the key
    // press that follows is swallowed here too.
    event->accept();
    return true;
}
