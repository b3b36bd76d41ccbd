#include "shell/StartupOptions.h"

StartupOptions StartupOptions::parse(const QStringList& arguments)
{
    StartupOptions o;
    for (qsizetype i = 1; i < arguments.size(); ++i) {
        const QString& a = arguments[i];
        const bool hasValue = i + 1 < arguments.size();
        if (a == QLatin1String("--simulator"))
            o.simulator = true;
        else if (a == QLatin1String("--port") && hasValue)
            o.portName = arguments[++i];
        else if (a.startsWith(QLatin1String("--port=")))
            o.portName = a.mid(7);
        else if (a == QLatin1String("--screenshot") && hasValue)
            o.screenshotDir = arguments[++i];
    }
    return o;
}
