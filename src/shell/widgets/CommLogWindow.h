#pragma once

#include <QWidget>

class CommLog;
class ErrorList;
class FileChooser;
class Link;
class Prompter;
class QLabel;
class QPushButton;
class QTreeView;

// The communication log window: what went over the wire, as it happens,
// beside the main window. It listens to the link only while it exists, and
// is deleted when closed, so a closed log costs the link nothing.
class CommLogWindow : public QWidget {
    Q_OBJECT
public:
    CommLogWindow(Link& link, const ErrorList& errors, Prompter& prompter, FileChooser& files,
                  QWidget* parent);

    // Right of the main window or below it where the screen has room,
    // over it otherwise.
    void placeBeside(const QWidget& main);

    CommLog* log;
    QTreeView* lstCommLog;
    QPushButton* cmdPause;
    QPushButton* cmdClear;
    QPushButton* cmdCopy;
    QPushButton* cmdSave;
    QLabel* lblCounts;

private:
    QWidget* buildButtons();
    void sizeColumns();
    void followTheEnd();
    void showCounts();

    void cmdPause_Click(bool paused);
    void cmdCopy_Click();
    void cmdSave_Click();

    Prompter& m_prompter;
    FileChooser& m_files;
    bool m_atEnd = true;
};
