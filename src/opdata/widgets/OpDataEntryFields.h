#pragma once

#include "opdata/EntryOutcome.h"

#include <QObject>

class OpDataPage;
class QKeyEvent;
class QLineEdit;
struct OpDataState;

// The entry rules of the operation data tab on its widgets: the key filters,
// change and leave rules of txtDIVISION, txtGEAR, txtTimer and txtDenryu,
// the speed and acceleration choices, and the edited flag (gDataChanged),
// which only what the user does sets.
class OpDataEntryFields : public QObject {
    Q_OBJECT
public:
    OpDataEntryFields(OpDataPage& page, OpDataState& state, QObject* parent = nullptr);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    KeyAction keyAction(QLineEdit* box, QChar key) const;
    // true when the key is swallowed.
    bool keyPress(QLineEdit* box, QKeyEvent* event);
    void leave(QLineEdit* box);

    void txtDIVISION_Change();
    void txtGEAR_Change();
    void txtTimer_Change();
    void txtDenryu_Change();
    void comboVEL_Click();
    void comboACC_Click();
    void markEdited();

    // Background, then the speed value, then the text, as the rules expect.
    void apply(QLineEdit* box, const EntryOutcome& outcome);

    OpDataPage& m_page;
    OpDataState& m_state;
};
