#pragma once

#include "common/DataFiles.h"
#include "common/ProgramState.h"
#include "common/Settings.h"
#include "link/Prompter.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QLoggingCategory>
#include <QTemporaryDir>

#include <cstdlib>
#include <functional>

// What every fuzz target shares: one application object, a scratch folder
// that stands in for the program folder (so the readers of the shipped
// lists find the fuzzer's bytes there), and settings kept in that folder.
class FuzzEnvironment {
public:
    static FuzzEnvironment& instance()
    {
        static FuzzEnvironment environment;
        return environment;
    }

    // Replaces the named file of the scratch folder with data; its path.
    QString writeFile(const QString& name, const QByteArray& data) const
    {
        const QString path = QDir(m_dir.path()).filePath(name);
        QFile file(path);
        if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate) || file.write(data) != data.size())
            qFatal("cannot write %s", qPrintable(path));
        return path;
    }
    QString writeFile(const QString& name, const uint8_t* data, size_t size) const
    {
        return writeFile(name, QByteArray(reinterpret_cast<const char*>(data), qsizetype(size)));
    }

private:
    FuzzEnvironment()
    {
        static int argc = 1;
        static char name[] = "ktr-fuzz";
        static char* argv[] = {name, nullptr};
        static QCoreApplication app(argc, argv);
        if (!m_dir.isValid())
            qFatal("no scratch folder: %s", qPrintable(m_dir.errorString()));
        // The link's own log lines would cost more than the runs themselves.
        QLoggingCategory::setFilterRules(QStringLiteral("ktr.*=false"));
        DataFiles::setProgramFolder(m_dir.path());
        Settings::useLocation(m_dir.path());
        ProgramState::instance().gMsgBase = 10000;
    }

    QTemporaryDir m_dir;
};

// A broken rule is a finding: stop at once, so the input is kept.
#define FUZZ_CHECK(condition)                                                           \
    do {                                                                                \
        if (!(condition)) {                                                             \
            qCritical("fuzz check failed: %s (%s:%d)", #condition, __FILE__, __LINE__); \
            std::abort();                                                               \
        }                                                                               \
    } while (false)

// A silent Prompter: counts the boxes that would have been shown and
// answers each with the first button.
class CountingPrompter : public Prompter {
public:
    Answer ask(const QString&, Buttons buttons, Icon, const QString& = {}) override
    {
        ++count;
        return buttons == Buttons::YesNo || buttons == Buttons::YesNoCancel ? Answer::Yes : Answer::Ok;
    }
    int count = 0;
};

// What every file reader promises: the file is read (0) or refused with one
// message (1), and nothing else is shown. The reader's result.
inline int checkedRead(const std::function<int(Prompter&)>& read)
{
    CountingPrompter prompter;
    const int result = read(prompter);
    FUZZ_CHECK(result == 0 || result == 1);
    FUZZ_CHECK(prompter.count == result);
    return result;
}
