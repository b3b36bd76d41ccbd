#pragma once

#include <QString>

#include <functional>

struct ProgramState;

// The user-interface language, fixed once at start-up: a system whose country
// is not Japan always runs in English; otherwise the stored choice decides.
struct LanguageDecision {
    bool foreignOs = false;
    qint16 language = 1; // 1 Japanese; any other value runs in English
    qint32 msgBase = 0;  // 0 Japanese, 10000 English
};

class LanguageStartup {
public:
    // The English name of the system's country, "Japan" on a Japanese system.
    static QString systemCountryName();

    // storedLanguage is read only on a Japanese system, so a forced English
    // run leaves the stored choice alone.
    static LanguageDecision decide(const QString& countryName,
                                   const std::function<qint16()>& storedLanguage);

    // Decides from the system and the settings store and puts the result
    // into the program state.
    static void run(ProgramState& state);

    static qint32 msgBaseFor(qint16 language);
};
