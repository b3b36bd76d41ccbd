#pragma once

class QCoreApplication;

// What a Japanese run needs beyond the message table: Qt's own dialogs and
// buttons in Japanese, and Japanese glyph shapes for the kanji.
class LanguageResources {
public:
    // Does nothing unless msgBase is 0 (Japanese).
    static void install(QCoreApplication& app, int msgBase);
};
