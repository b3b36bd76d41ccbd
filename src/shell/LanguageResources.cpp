#include "shell/LanguageResources.h"

#include <QFontDatabase>
#include <QGuiApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

namespace {

void installQtTranslation(QCoreApplication& app)
{
    auto* translator = new QTranslator(&app);
    if (translator->load(QLocale(QLocale::Japanese, QLocale::Japan), QStringLiteral("qtbase"),
                         QStringLiteral("_"), QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        QCoreApplication::installTranslator(translator);
    else
        delete translator;
}

// Kanji shared with Chinese look Japanese only in a Japanese font; the
// system's own font stays first for everything it has.
void preferJapaneseGlyphs()
{
    if (!qobject_cast<QGuiApplication*>(QCoreApplication::instance()))
        return;
    const QStringList japanese = {QStringLiteral("Noto Sans CJK JP"), QStringLiteral("Yu Gothic UI"),
                                  QStringLiteral("Meiryo UI"), QStringLiteral("MS UI Gothic")};
    const QStringList installed = QFontDatabase::families();
    for (const QString& family : japanese) {
        if (!installed.contains(family))
            continue;
        QFont font = QGuiApplication::font();
        font.setFamilies({font.family(), family});
        QGuiApplication::setFont(font);
        return;
    }
}

} // namespace

void LanguageResources::install(QCoreApplication& app, int msgBase)
{
    if (msgBase != 0)
        return;
    installQtTranslation(app);
    preferJapaneseGlyphs();
}
