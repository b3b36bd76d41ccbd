#pragma once

#include "shell/SysInfoLauncher.h"

#include <QDialog>

class Prompter;
class QLabel;
class QPushButton;

// The about box (frmAbout): title, version, description, disclaimer, the
// maker's page, and a button that starts the system information tool.
class AboutDialog : public QDialog {
    Q_OBJECT
public:
    AboutDialog(Prompter& prompter, QWidget* parent = nullptr);

    void Form_Load();

    SysInfoLauncher& sysInfo() { return m_sysInfo; }

    QLabel* picIcon;
    QLabel* lblTitle;
    QLabel* lblVersion;
    QLabel* lblDescription;
    QLabel* lblDisclaimer;
    QLabel* lblHpAddress;
    QPushButton* cmdOK;
    QPushButton* cmdSysInfo;

private:
    Prompter& m_prompter;
    SysInfoLauncher m_sysInfo;
};
