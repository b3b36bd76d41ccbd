#pragma once

#include "common/Settings.h"

#include <QTemporaryDir>

// Points the settings store at a fresh temporary folder for one test,
// never at the user's own settings.
class TempSettings {
public:
    TempSettings() { Settings::useLocation(m_dir.path()); }
    ~TempSettings() { Settings::useLocation({}); }
    QString path() const { return m_dir.path(); }

private:
    QTemporaryDir m_dir;
};
