#pragma once

#include "common/FileChooser.h"

#include <QPointer>
#include <QStringList>

class QWidget;

// The open and save dialogs of the desktop tool. The program's filters
// ("Name(*.x)|*.x|All files(*.*)|*.*") become the dialog's name filters; a
// name typed without extension gets the default one, and saving over an
// existing file asks first.
class DialogFileChooser : public FileChooser {
public:
    explicit DialogFileChooser(QWidget* parent);

    QString openFile(const QString& title, const QString& filter,
                     const QString& defaultExtension) override;
    QString saveFile(const QString& title, const QString& filter,
                     const QString& defaultExtension, const QString& proposedName) override;

    // "Name(*.x)|*.x|All files(*.*)|*.*" -> {"Name (*.x)", "All files (*)"}.
    static QStringList nameFilters(const QString& programFilter);

private:
    QString choose(bool save, const QString& title, const QString& filter,
                   const QString& defaultExtension, const QString& proposedName);

    QPointer<QWidget> m_parent;
    QString m_folder;
};
