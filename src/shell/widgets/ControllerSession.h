#pragma once

#include "common/FileChooser.h"
#include "link/CommandSet.h"
#include "link/ErrorList.h"
#include "link/Prompter.h"
#include "link/PrompterTap.h"
#include "link/SequenceContext.h"

#include <QObject>

#include <memory>

class JournalRecorder;
class Link;
class MainWindow;
class SerialPort;
class SimController;
struct StartupOptions;

// The window's line to the controller for the whole run: the serial port
// adapter (the built-in virtual controller with --simulator, a serial
// device otherwise), the error list, the link and its commands, and the
// context that every sequence started from the window is given.
//
// The context asks and tells through whatever prompter and file chooser the
// window uses at that moment, so tests may swap them at any time. Once the
// window is closing (every wait aborted), no further box is shown: each
// question gets its negative answer and the sequences unwind at once.
class ControllerSession : public QObject {
    Q_OBJECT
public:
    ControllerSession(MainWindow& window, const StartupOptions& target);
    ~ControllerSession() override;

    SequenceContext& context() { return m_context; }
    Link& link() { return *m_link; }
    CommandSet& commands() { return m_commands; }
    const ErrorList& errors() const { return m_errors; }
    JournalRecorder& journal() { return *m_journal; }

    // The built-in virtual controller; nullptr on a real port.
    SimController* simulator() const { return m_simulator; }

    // Get_ErrorList of the window's Load: messages 30 and 31 when the list
    // of the active language is missing; start-up goes on.
    void loadErrorList();

private:
    class WindowPrompter : public Prompter {
    public:
        explicit WindowPrompter(MainWindow& window)
            : m_window(window)
        {
        }
        Answer ask(const QString& text, Buttons buttons, Icon icon, const QString& title) override;
        void notify(const QString& text, Icon icon) override;

    private:
        MainWindow& m_window;
    };
    class WindowFiles : public FileChooser {
    public:
        explicit WindowFiles(MainWindow& window)
            : m_window(window)
        {
        }
        QString openFile(const QString& title, const QString& filter,
                         const QString& defaultExtension) override;
        QString saveFile(const QString& title, const QString& filter,
                         const QString& defaultExtension, const QString& proposedName) override;

    private:
        MainWindow& m_window;
    };

    SerialPort* makePort(const StartupOptions& target);

    WindowPrompter m_prompter;
    PrompterTap m_tap{m_prompter};
    WindowFiles m_files;
    ErrorList m_errors;
    SimController* m_simulator = nullptr;
    SerialPort* m_port;
    Link* m_link;
    CommandSet m_commands;
    SequenceContext m_context;
    std::unique_ptr<JournalRecorder> m_journal;
};
