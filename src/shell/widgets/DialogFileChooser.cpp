#include "shell/widgets/DialogFileChooser.h"

#include <QFileDialog>
#include <QFileInfo>
#include <QRegularExpression>

DialogFileChooser::DialogFileChooser(QWidget* parent)
    : m_parent(parent)
{
}

QStringList DialogFileChooser::nameFilters(const QString& programFilter)
{
    static const QRegularExpression shownPattern(QStringLiteral("\\s*\\([^()]*\\)\\s*$"));
    const QStringList parts = programFilter.split(u'|');
    QStringList filters;
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
        QString name = parts[i];
        name.remove(shownPattern);
        QStringList patterns = parts[i + 1].split(u';', Qt::SkipEmptyParts);
        for (QString& p : patterns) {
            p = p.trimmed();
            // "*.*" means every file, with or without an extension.
            if (p == QLatin1String("*.*"))
                p = QStringLiteral("*");
        }
        filters << QStringLiteral("%1 (%2)").arg(name.trimmed(), patterns.join(u' '));
    }
    return filters;
}

QString DialogFileChooser::openFile(const QString& title, const QString& filter,
                                    const QString& defaultExtension)
{
    return choose(false, title, filter, defaultExtension, {});
}

QString DialogFileChooser::saveFile(const QString& title, const QString& filter,
                                    const QString& defaultExtension, const QString& proposedName)
{
    return choose(true, title, filter, defaultExtension, proposedName);
}

QString DialogFileChooser::choose(bool save, const QString& title, const QString& filter,
                                  const QString& defaultExtension, const QString& proposedName)
{
    QFileDialog dialog(m_parent, title, m_folder);
    dialog.setObjectName(QStringLiteral("FileDialog"));
    dialog.setAcceptMode(save ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    dialog.setFileMode(save ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
    dialog.setNameFilters(nameFilters(filter));
    dialog.setDefaultSuffix(defaultExtension);
    if (!proposedName.isEmpty())
        dialog.selectFile(proposedName);
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return {};
    const QString chosen = dialog.selectedFiles().constFirst();
    m_folder = QFileInfo(chosen).absolutePath();
    return chosen;
}
