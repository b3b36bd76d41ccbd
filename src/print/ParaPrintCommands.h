#pragma once

#include "print/PrintParaList.h"

#include <QString>

#include <functional>

class ControlLock;
class FileChooser;
class Printout;
class Prompter;
struct ParaData;
struct ParaScreen;

// The two print buttons of the parameter page: the parameters shown
// (cmdParaPrint) and a parameter file (cmdParaFilePrint). The tabs and the
// menus are disabled while either runs. The page goes to the printer
// through the given function, which returns false when the user cancelled
// the print dialog.
class ParaPrintCommands {
public:
    using PrintFunction = std::function<bool(Printout&)>;

    ParaPrintCommands(Prompter& prompter, FileChooser& files, ControlLock& lock, PrintFunction print);

    // Takes the boxes over and checks them first (an empty box: messages 7
    // and 8; an invalid value: 1524 and 1525), then prints without a file name.
    void cmdParaPrint_Click(ParaData& data, const ParaScreen& screen);

    // Asks for a parameter file (title 686, filter 1827) and prints it with
    // its name in the heading.
    void cmdParaFilePrint_Click();

    // The print list of a parameter file, entry 0 its bare name. 0 when the
    // file was read; otherwise 1 after message 681 (and, for a file that is
    // not a parameter file, messages 22 and 20 before it).
    static int ReadPrintList(const QString& path, Prompter& prompter, PrintParaList& list);

private:
    void whileLocked(const std::function<void()>& command);
    void printShown(ParaData& data, const ParaScreen& screen);
    void printFile();
    void print(const PrintParaList& list, bool fromFile);

    Prompter& m_prompter;
    FileChooser& m_files;
    ControlLock& m_lock;
    PrintFunction m_print;
};
