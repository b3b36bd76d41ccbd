#include "common/LanguageStartup.h"

#include "common/MessageTable.h"
#include "common/ProgramState.h"
#include "common/Settings.h"

#include <QLocale>

QString LanguageStartup::systemCountryName()
{
    return QLocale::territoryToString(QLocale::system().territory());
}

LanguageDecision LanguageStartup::decide(const QString& countryName,
                                         const std::function<qint16()>& storedLanguage)
{
    LanguageDecision d;
    if (countryName != QLatin1String("Japan")) {
        d.foreignOs = true;
        d.language = 2;
    } else {
        d.foreignOs = false;
        d.language = storedLanguage();
    }
    d.msgBase = msgBaseFor(d.language);
    return d;
}

void LanguageStartup::run(ProgramState& state)
{
    const LanguageDecision d = decide(systemCountryName(), [] {
        return Settings::read(Setting::Language);
    });
    state.gForeignOs = d.foreignOs;
    state.gLanguage = d.language;
    state.gMsgBase = d.msgBase;
}

qint32 LanguageStartup::msgBaseFor(qint16 language)
{
    return language == 1 ? 0 : MessageTable::EnglishBase;
}
