#pragma once

#include "common/ControlLock.h"

#include <QList>
#include <QPointer>
#include <QStringList>

class QObject;
class QWidget;

// The enable/disable routines of the main window: each touches a fixed list
// of controls, by name, in a fixed order. The menu disable list leaves out
// mnuShowCtversion while the enable list has it, so the version item comes
// back enabled after any sequence.
//
// ParaCMDBTN_Muko/Yuko act on the nine command buttons of the parameter
// tab: the FILE tab's six and the CONTROLLER tab's three.
class MainWindowLock : public ControlLock {
public:
    // form: the window holding the named controls (menus are found through
    // their QMenu or their QAction).
    explicit MainWindowLock(QWidget* form);

    void CMDBTN_Muko() override;
    void CMDBTN_Yuko() override;
    void Menyu_Muko() override;
    void Menyu_Yuko() override;
    void HOMEBTN_Muko() override;
    void HOMEBTN_Yuko() override;
    void MoveCMDBTN_Muko() override;
    void MoveCMDBTN_Yuko() override;
    void ParaCMDBTN_Muko() override;
    void ParaCMDBTN_Yuko() override;
    void setTabsEnabled(bool on) override;
    bool held() const override { return m_held; }

    static const QStringList& commandButtons();
    static const QStringList& menusToDisable();
    static const QStringList& menusToEnable();
    static const QStringList& homeButtons();
    static const QStringList& moveButtons();
    static const QStringList& paraButtons();

    // Names of the lists that the form does not have (empty when complete).
    QStringList missingControls() const;

private:
    void setEnabled(const QStringList& names, bool on);
    QObject* control(const QString& name) const;
    bool isChecked(const QString& name) const;

    QPointer<QWidget> m_form;
    bool m_held = false;
};
