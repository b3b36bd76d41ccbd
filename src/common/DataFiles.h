#pragma once

#include <QString>

// Where the shipped data files (device list, standard parameter list, error
// lists, help) are found: beside the executable first, then in the
// installed data folder.
class DataFiles {
public:
    // The full path of the named file; beside the executable when it exists
    // nowhere (so the caller's own "missing file" message names that place).
    static QString path(const QString& name);

    // Tests point the program folder somewhere else.
    static void setProgramFolder(const QString& folder);
    static QString programFolder();
};
