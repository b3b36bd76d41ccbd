#pragma once

#include "common/Settings.h"

#include <QTemporaryDir>

// Points the settings store and the data folder (where the journal goes)
// at a fresh temporary folder for one test, never at the user's own.
class TempSettings {
public:
    TempSettings()
    {
        Settings::useLocation(m_dir.path());
        qputenv("XDG_DATA_HOME", m_dir.path().toUtf8());
    }
    ~TempSettings()
    {
        Settings::useLocation({});
        m_hadDataHome ? qputenv("XDG_DATA_HOME", m_dataHome) : qunsetenv("XDG_DATA_HOME");
    }
    QString path() const { return m_dir.path(); }

private:
    QTemporaryDir m_dir;
    bool m_hadDataHome = qEnvironmentVariableIsSet("XDG_DATA_HOME");
    QByteArray m_dataHome = qgetenv("XDG_DATA_HOME");
};
