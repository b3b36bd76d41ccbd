#include "sim/SimOptions.h"

#include "common/LanguageStartup.h"
#include "common/MessageTable.h"
#include "sim/ControllerError.h"

#include <QHash>

namespace {

using Setter = bool (*)(SimOptions&, const QString&);

bool setMatch(CommandMatch& match, const QString& text)
{
    const auto parsed = CommandMatch::parse(text);
    if (parsed)
        match = *parsed;
    return bool(parsed);
}

bool setLate(SimOptions& o, const QString& v)
{
    bool ok = false;
    o.faults.lateMs = v.section(u':', 0, 0).toInt(&ok);
    o.faults.late = CommandMatch::all();
    if (v.contains(u':') && !setMatch(o.faults.late, v.section(u':', 1)))
        return false;
    return ok && o.faults.lateMs >= 0;
}

bool setErrorReply(SimOptions& o, const QString& v)
{
    const QByteArray code = v.section(u':', 1).toLatin1();
    o.faults.errorCode = code;
    return setMatch(o.faults.errorReply, v.section(u':', 0, 0)) && code.size() == 3;
}

bool setAlarm(SimOptions& o, const QString& v)
{
    o.faults.alarmCode = v.section(u'@', 0, 0).toLatin1();
    const QString when = v.section(u'@', 1);
    bool ok = true;
    o.faults.alarmOnMove = when == QLatin1String("move");
    if (!when.isEmpty() && !o.faults.alarmOnMove)
        o.faults.alarmAfterMs = when.toInt(&ok);
    return ok && o.faults.alarmAfterMs >= 0 && ControllerError::isAlarm(o.faults.alarmCode);
}

bool setErrorLine(SimOptions& o, const QString& v)
{
    bool ok = false;
    o.faults.errorLineCode = v.section(u'@', 0, 0).toLatin1();
    o.faults.errorLineEveryMs = v.section(u'@', 1).toInt(&ok);
    return ok && o.faults.errorLineEveryMs > 0 && o.faults.errorLineCode.size() == 3;
}

bool setTimeScale(SimOptions& o, const QString& v)
{
    bool ok = false;
    o.timeScale = v.toDouble(&ok);
    return ok && o.timeScale > 0;
}

bool setRestartAfter(SimOptions& o, const QString& v)
{
    bool ok = false;
    o.faults.restartAfter = v.toInt(&ok);
    return ok && o.faults.restartAfter >= 1;
}

const QHash<QString, Setter>& valueOptions()
{
    static const QHash<QString, Setter> table = {
        {"--device", [](SimOptions& o, const QString& v) { o.front = SimOptions::Front::Device; o.device = v; return true; }},
        {"--state", [](SimOptions& o, const QString& v) { o.stateFile = v; return true; }},
        {"--time-scale", setTimeScale},
        {"--lang", [](SimOptions&, const QString& v) { return v == QLatin1String("ja") || v == QLatin1String("en"); }},
        {"--silent", [](SimOptions& o, const QString& v) { return setMatch(o.faults.silence, v); }},
        {"--late", setLate},
        {"--extra-char", [](SimOptions& o, const QString& v) { return setMatch(o.faults.extraChar, v); }},
        {"--wrong-echo", [](SimOptions& o, const QString& v) { return setMatch(o.faults.wrongEcho, v); }},
        {"--split-crlf", [](SimOptions& o, const QString& v) { return setMatch(o.faults.splitCrLf, v); }},
        {"--error-reply", setErrorReply},
        {"--garbage", [](SimOptions& o, const QString& v) { return setMatch(o.faults.garbage, v); }},
        {"--alarm", setAlarm},
        {"--error-line", setErrorLine},
        {"--restart-after", setRestartAfter},
    };
    return table;
}

const QHash<QString, void (*)(SimOptions&)>& flagOptions()
{
    static const QHash<QString, void (*)(SimOptions&)> table = {
        {"--pty", [](SimOptions& o) { o.front = SimOptions::Front::Pty; }},
        {"--pace", [](SimOptions& o) { o.pace = true; }},
        {"--stb", [](SimOptions& o) { o.faults.stbInput = true; }},
        {"--stop", [](SimOptions& o) { o.faults.stopInput = true; }},
        {"--writes-not-taken", [](SimOptions& o) { o.faults.writesNotTaken = true; }},
        {"--help", [](SimOptions& o) { o.help = true; }},
        {"-h", [](SimOptions& o) { o.help = true; }},
    };
    return table;
}

} // namespace

std::optional<SimOptions> SimOptions::parse(const QStringList& args, QString* error)
{
    SimOptions options;
    bool ptyAsked = false;
    for (qsizetype i = 0; i < args.size(); ++i) {
        QString name = args[i];
        std::optional<QString> value;
        if (name.startsWith(QLatin1String("--")) && name.contains(u'=')) {
            value = name.section(u'=', 1);
            name = name.section(u'=', 0, 0);
        }
        if (const auto flag = flagOptions().value(name); flag && !value) {
            flag(options);
            ptyAsked = ptyAsked || name == QLatin1String("--pty");
            continue;
        }
        const Setter setter = valueOptions().value(name);
        if (!setter) {
            *error = Msg(4930).arg(args[i]);
            return std::nullopt;
        }
        if (!value && i + 1 >= args.size()) {
            *error = Msg(4931).arg(name);
            return std::nullopt;
        }
        if (!value)
            value = args[++i];
        if (!setter(options, *value)) {
            *error = Msg(4932).arg(name, *value);
            return std::nullopt;
        }
    }
    if (ptyAsked && !options.device.isEmpty()) {
        *error = Msg(4933);
        return std::nullopt;
    }
    return options;
}

qint16 SimOptions::language(const QStringList& args)
{
    for (qsizetype i = 0; i < args.size(); ++i) {
        const QString value = args[i].startsWith(QLatin1String("--lang="))
            ? args[i].mid(7)
            : (args[i] == QLatin1String("--lang") ? args.value(i + 1) : QString());
        if (value == QLatin1String("ja"))
            return 1;
        if (value == QLatin1String("en"))
            return 2;
    }
    return LanguageStartup::systemCountryName() == QLatin1String("Japan") ? 1 : 2;
}

QString SimOptions::usage()
{
    static const int ids[] = {4900, 4901, 0, 4902, 4903, 4904, 0, 4905, 4906, 4907, 4908, 4909,
                              4910, 0, 4911, 4912, 4913, 4914, 4915, 4916, 4917, 4918, 4919,
                              4920, 4921, 5210, 5566, 0, 4980, 4922, 4923};
    QStringList lines;
    for (int id : ids)
        lines << (id == 0 ? QString() : Msg(id));
    return lines.join(u'\n');
}

QStringList SimOptions::optionNames()
{
    return flagOptions().keys() + valueOptions().keys();
}
