#pragma once

#include <QObject>

class QFocusEvent;
class QKeyEvent;
class QLineEdit;

// The entry rules of the numeric parameter boxes on the screen: each key is
// passed through the box's key filter (digits only, up to its maximum
// length; Enter takes the focus away so the box is normalised), and leaving
// a box normalises its text. Installed as an event filter on every box that
// has a rule.
class ParaEntryRules : public QObject {
    Q_OBJECT
public:
    explicit ParaEntryRules(QObject* parent);

    // Installs the rules on a box; false when its name has none.
    bool watch(QLineEdit* box);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool KeyPress(QLineEdit* box, const QKeyEvent& key);
    void LostFocus(QLineEdit* box, const QFocusEvent& focus);
};
