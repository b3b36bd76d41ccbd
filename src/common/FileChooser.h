#pragma once

#include <QString>

// Every open and save dialog goes through a FileChooser, so tests can name
// the file a user picks and the command line never opens a dialog.
// Filters use the program's own form "Name(*.x)|*.x|All files(*.*)|*.*".
class FileChooser {
public:
    virtual ~FileChooser() = default;

    // The chosen path, or an empty text when the user cancelled.
    virtual QString openFile(const QString& title, const QString& filter,
                             const QString& defaultExtension) = 0;
    virtual QString saveFile(const QString& title, const QString& filter,
                             const QString& defaultExtension,
                             const QString& proposedName) = 0;
};
