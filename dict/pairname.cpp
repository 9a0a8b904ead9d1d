#include "dict/pairname.h"

#include <QCoreApplication>
#include <algorithm>
#include <array>

namespace {

constexpr const char* Context = "LanguageNames";

// As the dictionary engine writes them.
constexpr std::array Languages = {
    QT_TRANSLATE_NOOP("LanguageNames", "Chinese"),    QT_TRANSLATE_NOOP("LanguageNames", "English"),
    QT_TRANSLATE_NOOP("LanguageNames", "French"),     QT_TRANSLATE_NOOP("LanguageNames", "German"),
    QT_TRANSLATE_NOOP("LanguageNames", "Spanish"),    QT_TRANSLATE_NOOP("LanguageNames", "Italian"),
    QT_TRANSLATE_NOOP("LanguageNames", "Swedish"),    QT_TRANSLATE_NOOP("LanguageNames", "Danish"),
    QT_TRANSLATE_NOOP("LanguageNames", "Norwegian"),  QT_TRANSLATE_NOOP("LanguageNames", "Dutch"),
    QT_TRANSLATE_NOOP("LanguageNames", "Portuguese"), QT_TRANSLATE_NOOP("LanguageNames", "Russian"),
    QT_TRANSLATE_NOOP("LanguageNames", "Arabic"),
};

// Null for a word that is no language.
QString translated(const QString& language)
{
    const auto* const known =
        std::find_if(Languages.begin(), Languages.end(),
                     [&language](const char* name) { return language == QLatin1String(name); });
    return known == Languages.end() ? QString() : QCoreApplication::translate(Context, *known);
}

} // namespace

QString pairname::shown(const QString& engineName)
{
    const QString from = translated(engineName.section(u'-', 0, 0));
    const QString to = translated(engineName.section(u'-', 1));
    return from.isNull() || to.isNull() ? engineName : from + u'-' + to;
}
