#include "opdata/widgets/OpDataEntryFields.h"

#include "common/ProgramState.h"
#include "opdata/CurrentEntry.h"
#include "opdata/DivisionEntry.h"
#include "opdata/EntryColours.h"
#include "opdata/GearEntry.h"
#include "opdata/OpDataState.h"
#include "opdata/TimerEntry.h"
#include "opdata/VelocityRules.h"
#include "opdata/widgets/OpDataPage.h"

#include <QApplication>
#include <QComboBox>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>

OpDataEntryFields::OpDataEntryFields(OpDataPage& page, OpDataState& state, QObject* parent)
    : QObject(parent)
    , m_page(page)
    , m_state(state)
{
    for (QLineEdit* box : {page.txtDIVISION, page.txtGEAR, page.txtTimer, page.txtDenryu})
        box->installEventFilter(this);
    connect(page.txtDIVISION, &QLineEdit::textChanged, this, &OpDataEntryFields::txtDIVISION_Change);
    connect(page.txtGEAR, &QLineEdit::textChanged, this, &OpDataEntryFields::txtGEAR_Change);
    connect(page.txtTimer, &QLineEdit::textChanged, this, &OpDataEntryFields::txtTimer_Change);
    // The current the program shows (from the actuator size, or read from
    // the controller) stands as it is; the entry rule is for what is typed.
    connect(page.txtDenryu, &QLineEdit::textEdited, this, &OpDataEntryFields::txtDenryu_Change);
    connect(page.txtDenryu, &QLineEdit::textChanged, this,
            [this](const QString& text) { m_state.mHasDecimalPoint = text.contains(u'.'); });
    // The click rules follow the user's choice, also of the item already
    // shown (so "1" can be taken at start). The window filling and setting
    // the lists when it loads is no choice: the values stay empty until one.
    connect(page.comboVEL, &QComboBox::activated, this, &OpDataEntryFields::comboVEL_Click);
    connect(page.comboACC, &QComboBox::activated, this, &OpDataEntryFields::comboACC_Click);

    for (QLineEdit* box : {page.txtDIVISION, page.txtGEAR})
        connect(box, &QLineEdit::textEdited, this, &OpDataEntryFields::markEdited);
    for (QComboBox* list : {page.comboVEL, page.comboACC})
        connect(list, &QComboBox::activated, this, &OpDataEntryFields::markEdited);
    for (QRadioButton* option : {page.optCW, page.optCCW})
        connect(option, &QRadioButton::clicked, this, &OpDataEntryFields::markEdited);
}

bool OpDataEntryFields::eventFilter(QObject* watched, QEvent* event)
{
    // A box being destroyed is no longer a line edit; its last events pass.
    auto* box = qobject_cast<QLineEdit*>(watched);
    if (!box)
        return false;
    if (event->type() == QEvent::KeyPress)
        return keyPress(box, static_cast<QKeyEvent*>(event));
    if (event->type() == QEvent::FocusOut) {
        // Only a move of the focus within the window leaves the field.
        const Qt::FocusReason reason = static_cast<QFocusEvent*>(event)->reason();
        if (reason != Qt::ActiveWindowFocusReason && reason != Qt::PopupFocusReason)
            leave(box);
    }
    return false;
}

KeyAction OpDataEntryFields::keyAction(QLineEdit* box, QChar key) const
{
    const QString text = box->text();
    if (box == m_page.txtDIVISION)
        return DivisionEntry::keyPress(text, key);
    if (box == m_page.txtGEAR)
        return GearEntry::keyPress(text, key);
    if (box == m_page.txtTimer) {
        const bool allSelected = !text.isEmpty() && box->selectedText() == text;
        return TimerEntry::keyPress(text, allSelected, key);
    }
    return CurrentEntry::keyPress(text, key);
}

// The filters see the keys that type a character, Enter and Backspace.
// Keys whose text is a control character (Tab, Shift+Tab, Delete, Escape),
// moving keys and the editing shortcuts (copy, paste) pass, so they move
// the focus or edit as in every other box; a pasted text meets the change
// rules.
bool OpDataEntryFields::keyPress(QLineEdit* box, QKeyEvent* event)
{
    const QString typed = event->text();
    if (typed.isEmpty() || (event->modifiers() & Qt::ControlModifier))
        return false;
    const QChar key = typed.front();
    if (!key.isPrint() && key != BackspaceKey && key != EnterKey)
        return false;
    const KeyAction action = keyAction(box, key);
    switch (action) {
    case KeyAction::Accept:
        return false;
    case KeyAction::Refuse:
        return true;
    case KeyAction::Enter:
    case KeyAction::EnterToWriteButton:
        // Off and on again: the focus moves on and the leave rule runs.
        box->setEnabled(false);
        box->setEnabled(true);
        if (action == KeyAction::EnterToWriteButton)
            m_page.cmdLoadtoCt->setFocus(Qt::OtherFocusReason);
        return true;
    }
    return false;
}

void OpDataEntryFields::leave(QLineEdit* box)
{
    if (box == m_page.txtDIVISION)
        apply(box, DivisionEntry::leave(box->text()));
    else if (box == m_page.txtGEAR)
        apply(box, GearEntry::leave(box->text()));
    else if (box == m_page.txtTimer)
        apply(box, TimerEntry::leave(box->text()));
}

void OpDataEntryFields::txtDIVISION_Change()
{
    apply(m_page.txtDIVISION, DivisionEntry::textChanged(m_page.txtDIVISION->text()));
}

void OpDataEntryFields::txtGEAR_Change()
{
    apply(m_page.txtGEAR,
          GearEntry::textChanged(m_page.txtGEAR->text(), m_page.comboVEL->currentText(),
                                 m_state.mEventsOff, m_state.mSuppressVelCalc));
}

void OpDataEntryFields::txtTimer_Change()
{
    apply(m_page.txtTimer, TimerEntry::textChanged(m_page.txtTimer->text()));
}

void OpDataEntryFields::txtDenryu_Change()
{
    apply(m_page.txtDenryu, CurrentEntry::textChanged(m_page.txtDenryu->text()).outcome);
}

void OpDataEntryFields::comboVEL_Click()
{
    const auto vel = VelocityRules::VelOnSpeedClick(m_page.comboVEL->currentText(),
                                                    m_page.txtGEAR->text(), m_state.mEventsOff);
    if (vel)
        m_page.txtVEL->setText(*vel);
}

void OpDataEntryFields::comboACC_Click()
{
    if (const auto acc = VelocityRules::AccOnClick(m_page.comboACC->currentText(), m_state.mEventsOff))
        m_page.txtACC->setText(*acc);
}

void OpDataEntryFields::markEdited()
{
    ProgramState::instance().gDataChanged = true;
}

void OpDataEntryFields::apply(QLineEdit* box, const EntryOutcome& outcome)
{
    if (outcome.background != Background::Unchanged) {
        // Both colours come from the style's own palette for the box, not
        // from the box's palette, which may hold the marker already. A
        // disabled box keeps the style's disabled look.
        const QColor colour = EntryColours::color(outcome.background, QApplication::palette(box));
        QPalette palette = box->palette();
        palette.setColor(QPalette::Active, QPalette::Base, colour);
        palette.setColor(QPalette::Inactive, QPalette::Base, colour);
        box->setPalette(palette);
    }
    if (outcome.txtVEL)
        m_page.txtVEL->setText(*outcome.txtVEL);
    if (outcome.text) {
        box->setText(*outcome.text);
        if (outcome.caret >= 0)
            box->setCursorPosition(outcome.caret);
    }
}
