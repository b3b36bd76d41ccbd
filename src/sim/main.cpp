// ktr-sim: the virtual controller on a pseudo-terminal or a serial device.

#include "common/LanguageStartup.h"
#include "common/MessageTable.h"
#include "common/ProgramState.h"
#include "sim/PtyFront.h"
#include "sim/SerialFront.h"
#include "sim/SignalQuit.h"
#include "sim/SimController.h"
#include "sim/SimOptions.h"

#include <QCoreApplication>
#include <QTextStream>

namespace {

QTextStream& err()
{
    static QTextStream stream(stderr);
    return stream;
}

void useLanguage(qint16 language)
{
    ProgramState& state = ProgramState::instance();
    state.gLanguage = language;
    state.gMsgBase = LanguageStartup::msgBaseFor(language);
}

void report(const QString& text)
{
    err() << text << '\n';
    err().flush();
}

template<typename Front>
void stopOnFailure(Front& front, const QString& device, int& status)
{
    QObject::connect(&front, &Front::failed, &front, [&status, device](const QString& reason) {
        report(Msg(4940).arg(device, reason));
        status = 1;
        QCoreApplication::quit();
    });
}

int runOnPty(SimController& controller, const SimOptions& options)
{
    PtyFront front(controller);
    front.setPacing(options.pace);
    QString reason;
    if (!front.open(&reason)) {
        report(Msg(4935).arg(reason));
        return 1;
    }
    // The device path alone on the first line of stdout, for scripts.
    QTextStream out(stdout);
    out << front.devicePath() << '\n';
    out.flush();
    report(Msg(4939).arg(front.devicePath()));
    int status = 0;
    stopOnFailure(front, front.devicePath(), status);
    const int loop = QCoreApplication::exec();
    return status ? status : loop;
}

int runOnDevice(SimController& controller, const SimOptions& options)
{
    SerialFront front(controller);
    front.setPacing(options.pace);
    QString reason;
    if (!front.open(options.device, &reason)) {
        report(Msg(4936).arg(options.device, reason));
        return 1;
    }
    report(Msg(4939).arg(options.device));
    int status = 0;
    stopOnFailure(front, options.device, status);
    const int loop = QCoreApplication::exec();
    return status ? status : loop;
}

} // namespace

int main(int argc, char* argv[])
{
    SignalQuit::blockTermination();
    QCoreApplication app(argc, argv);
    const QStringList args = app.arguments().mid(1);
    useLanguage(SimOptions::language(args));

    QString error;
    const auto options = SimOptions::parse(args, &error);
    if (!options) {
        report(error);
        report(Msg(4934));
        return 2;
    }
    if (options->help) {
        QTextStream(stdout) << SimOptions::usage() << '\n';
        return 0;
    }

    SimController controller;
    controller.setTimeScale(options->timeScale);
    if (!options->stateFile.isEmpty() && !controller.useStateFile(options->stateFile, &error)) {
        report(Msg(4937).arg(options->stateFile, error));
        return 1;
    }
    QObject::connect(&controller.memory(), &ControllerMemory::saveFailed,
                     [](const QString& path, const QString& reason) { report(Msg(4938).arg(path, reason)); });
    controller.setFaults(options->faults);

    SignalQuit quit;
    return options->front == SimOptions::Front::Pty ? runOnPty(controller, *options)
                                                    : runOnDevice(controller, *options);
}
