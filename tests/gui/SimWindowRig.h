#pragma once

#include "common/DataFiles.h"
#include "common/MessageTable.h"
#include "common/ProgramState.h"
#include "link/Link.h"
#include "shell/widgets/ControllerSession.h"
#include "shell/widgets/MainWindow.h"
#include "sim/SimController.h"
#include "support/ScriptedFileChooser.h"
#include "support/ScriptedPrompter.h"
#include "support/TempSettings.h"

#include <QAbstractButton>
#include <QApplication>
#include <QFileInfo>
#include <QTimer>
#include <QtTest>

#include <functional>
#include <memory>

// The main window on the built-in virtual controller, in English, with
// scripted message boxes and file dialogs and the shipped data files,
// showing the tab asked for. Every frame sent is kept.
template<typename Page, typename Controller>
struct SimWindowRig {
    SimWindowRig()
    {
        ProgramState::reset();
        ProgramState::instance().gLanguage = 2;
        ProgramState::instance().gMsgBase = MessageTable::EnglishBase;
        DataFiles::setProgramFolder(QFileInfo(QFINDTESTDATA("../../resources/data/nqmdevice.lst")).path());
        StartupOptions options;
        options.simulator = true;
        window = std::make_unique<MainWindow>(options);
        window->usePrompter(prompter);
        window->useFileChooser(files);
        window->Form_Load();
        QObject::connect(&window->session().link(), &Link::frameSent, window.get(),
                         [this](const QByteArray& frame) { frames << QString::fromLatin1(frame); });
        window->SSTab1->setCurrentWidget(&page());
        window->show();
        QApplication::setActiveWindow(window.get());
        QVERIFY(QTest::qWaitForWindowActive(window.get()));
    }
    ~SimWindowRig()
    {
        window.reset();
        DataFiles::setProgramFolder({});
        ProgramState::reset();
    }

    Page& page() { return *window->findChild<Page*>(); }
    Controller& controller() { return *window->findChild<Controller*>(); }
    SimController& sim() { return *window->session().simulator(); }
    Link& link() { return window->session().link(); }
    int count(const QString& frame) const { return int(frames.count(frame)); }

    TempSettings settings;
    ScriptedPrompter prompter;
    ScriptedFileChooser files;
    std::unique_ptr<MainWindow> window;
    QStringList frames;
};

// Runs act on the modal dialog of type D once it has opened.
template<typename D>
void whenDialogOpens(const std::function<void(D&)>& act)
{
    QTimer::singleShot(0, [act] {
        auto* dialog = qobject_cast<D*>(QApplication::activeModalWidget());
        QVERIFY(dialog);
        act(*dialog);
    });
}

// An option button takes clicks on its circle and caption only.
inline void clickOption(QAbstractButton* option)
{
    QTest::mouseClick(option, Qt::LeftButton, {}, QPoint(6, option->height() / 2));
}
