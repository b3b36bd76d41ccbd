#pragma once

#include "common/FileChooser.h"

#include <QStringList>

// A FileChooser for tests: returns the names given with setNextFileName, in
// order (an empty name is a cancelled dialog), and records each request.
class ScriptedFileChooser : public FileChooser {
public:
    struct Request {
        bool save;
        QString title;
        QString filter;
        QString defaultExtension;
        QString proposedName;
    };

    void setNextFileName(const QString& path) { m_names.append(path); }

    QString openFile(const QString& title, const QString& filter,
                     const QString& defaultExtension) override
    {
        requests.append({false, title, filter, defaultExtension, {}});
        return m_names.isEmpty() ? QString() : m_names.takeFirst();
    }
    QString saveFile(const QString& title, const QString& filter,
                     const QString& defaultExtension, const QString& proposedName) override
    {
        requests.append({true, title, filter, defaultExtension, proposedName});
        return m_names.isEmpty() ? QString() : m_names.takeFirst();
    }

    QList<Request> requests;

private:
    QStringList m_names;
};
