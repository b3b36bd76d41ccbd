#pragma once

#include <QByteArray>
#include <QString>
#include <QTemporaryDir>

#include <cstdlib>

// What every fuzz target shares: one application object, a scratch folder
// that stands in for the program folder (so the readers of the shipped
// lists find the fuzzer's bytes there), and settings kept in that folder.
class FuzzEnvironment {
public:
    static FuzzEnvironment& instance();

    // Replaces the named file of the scratch folder with data; its path.
    QString writeFile(const QString& name, const QByteArray& data) const;
    QString folder() const { return m_dir.path(); }

private:
    FuzzEnvironment();

    QTemporaryDir m_dir;
};

// A broken rule is a finding: stop at once, so the input is kept.
#define FUZZ_CHECK(condition)                                                    \
    do {                                                                         \
        if (!(condition)) {                                                      \
            qCritical("fuzz check failed: %s (%s:%d)", #condition, __FILE__, __LINE__); \
            std::abort();                                                        \
        }                                                                        \
    } while (false)
