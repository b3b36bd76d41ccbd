#pragma once

#include "common/FileChooser.h"

// A FileChooser whose "user" always picks the same file.
class FixedFileChooser : public FileChooser {
public:
    explicit FixedFileChooser(const QString& path) : m_path(path) {}

    QString openFile(const QString&, const QString&, const QString&) override { return m_path; }
    QString saveFile(const QString&, const QString&, const QString&, const QString&) override
    {
        return m_path;
    }

private:
    QString m_path;
};
