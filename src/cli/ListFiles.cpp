#include "cli/ListFiles.h"

#include "cli/CliSession.h"
#include "cli/ExitStatus.h"
#include "common/DataFiles.h"
#include "common/MessageTable.h"
#include "device/DeviceList.h"

#include <QDir>
#include <QFileInfo>

#include <functional>

namespace {

constexpr int ErrorListName = 120;
constexpr int ListMissing = 5300;
constexpr int ListUnreadable = 5301;

// The readers' own messages speak of the desktop tool's folder; the reason
// is given here instead, in the command line's words.
class QuietPrompter : public Prompter {
public:
    Answer ask(const QString&, Buttons, Icon, const QString&) override { return Answer::Ok; }
};

int require(CliSession& session, const QString& name, const std::function<bool(const QString&)>& read)
{
    const QString path = DataFiles::path(name);
    if (!QFileInfo::exists(path)) {
        session.report(Msg(ListMissing).arg(name));
        for (const QString& folder : DataFiles::folders())
            session.report(QStringLiteral("  ") + QDir::toNativeSeparators(folder));
        return ExitUsage;
    }
    if (read(path))
        return ExitDone;
    session.report(Msg(ListUnreadable).arg(QDir::toNativeSeparators(path)));
    return ExitUsage;
}

} // namespace

int requireErrorList(CliSession& session)
{
    return require(session, Msg(ErrorListName),
                   [&session](const QString& path) { return session.errors().load(path); });
}

// The device list finds its file by the same search.
int requireDeviceList(CliSession& session)
{
    return require(session, DeviceList::fileName(), [](const QString&) {
        QuietPrompter quiet;
        return DeviceList().ReadDeviceList(quiet) == 0;
    });
}
