#pragma once

#include <QString>

class ControlLock;
class FileChooser;
class OpDataView;
class ProgressDisplay;
class Prompter;
struct OpDataState;

// "Open" and "Save As" of the operation data: the dialogs, the file, the
// screen, the title of the shown data and the changed flag.
class OpDataFileCommands {
public:
    OpDataFileCommands(Prompter& prompter, ControlLock& lock, ProgressDisplay& progress,
                       FileChooser& files, OpDataState& state, OpDataView& view);

    // The buttons cmdFileOpen / cmdSaveFile and their menu items.
    void Open();
    void SaveAs();

    // The steps of Save As without the enabling around them, for a command
    // that is already running (a read from the controller saves first).
    // 0 when saved; 1 when not (refused, cancelled or failed).
    int saveAsSteps();

    // Writes row 0 of PosiData to the file, with the communicating window
    // shown meanwhile; then the shown data is titled after the file and
    // counts as saved. 0 when written, 1 after a message when not.
    int SaveFileAs(const QString& path);

private:
    int openSteps();

    Prompter& m_prompter;
    ControlLock& m_lock;
    ProgressDisplay& m_progress;
    FileChooser& m_files;
    OpDataState& m_state;
    OpDataView& m_view;
};
