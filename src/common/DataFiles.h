#pragma once

#include <QString>
#include <QStringList>

// Where the shipped data files (device list, standard parameter list, error
// lists, help) are found: beside the executable first (a build tree), then
// in the installed data folder as seen from the executable (bin/../share/ktr-w5),
// then in the data folder of the prefix the program was configured for.
class DataFiles {
public:
    // The full path of the named file; beside the executable when it exists
    // nowhere (so the caller's own "missing file" message names that place).
    static QString path(const QString& name);
    // The folders path() looks in, in its order.
    static QStringList folders();

    // Tests point the program folder somewhere else.
    static void setProgramFolder(const QString& folder);
    static QString programFolder();
};
