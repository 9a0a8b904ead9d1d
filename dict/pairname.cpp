#include "dict/pairname.h"

#include <QCoreApplication>
#include <algorithm>
#include <array>

namespace {

constexpr const char* Context = "LanguagePairs";

/* A language as the first and as the second of a pair: "Англо-", "английский". */
struct Places
{
    const char* first;
    const char* second;
};

// As the dictionary engine writes them.
constexpr std::array Languages = {
    Places{QT_TRANSLATE_NOOP("LanguagePairs", "Chinese-"),
           QT_TRANSLATE_NOOP("LanguagePairs", "Chinese")},
    Places{QT_TRANSLATE_NOOP("LanguagePairs", "English-"),
           QT_TRANSLATE_NOOP("LanguagePairs", "English")},
    Places{QT_TRANSLATE_NOOP("LanguagePairs", "French-"),
           QT_TRANSLATE_NOOP("LanguagePairs", "French")},
    Places{QT_TRANSLATE_NOOP("LanguagePairs", "German-"),
           QT_TRANSLATE_NOOP("LanguagePairs", "German")},
    Places{QT_TRANSLATE_NOOP("LanguagePairs", "Spanish-"),
           QT_TRANSLATE_NOOP("LanguagePairs", "Spanish")},
    Places{QT_TRANSLATE_NOOP("LanguagePairs", "Italian-"),
           QT_TRANSLATE_NOOP("LanguagePairs", "Italian")},
    Places{QT_TRANSLATE_NOOP("LanguagePairs", "Swedish-"),
           QT_TRANSLATE_NOOP("LanguagePairs", "Swedish")},
    Places{QT_TRANSLATE_NOOP("LanguagePairs", "Danish-"),
           QT_TRANSLATE_NOOP("LanguagePairs", "Danish")},
    Places{QT_TRANSLATE_NOOP("LanguagePairs", "Norwegian-"),
           QT_TRANSLATE_NOOP("LanguagePairs", "Norwegian")},
    Places{QT_TRANSLATE_NOOP("LanguagePairs", "Dutch-"),
           QT_TRANSLATE_NOOP("LanguagePairs", "Dutch")},
    Places{QT_TRANSLATE_NOOP("LanguagePairs", "Portuguese-"),
           QT_TRANSLATE_NOOP("LanguagePairs", "Portuguese")},
    Places{QT_TRANSLATE_NOOP("LanguagePairs", "Russian-"),
           QT_TRANSLATE_NOOP("LanguagePairs", "Russian")},
    Places{QT_TRANSLATE_NOOP("LanguagePairs", "Arabic-"),
           QT_TRANSLATE_NOOP("LanguagePairs", "Arabic")},
};

// Null for a word that is no language.
QString translated(const QString& word, const char* Places::*place)
{
    const auto* const known = std::ranges::find_if(
        Languages, [&](const Places& names) { return word == QLatin1String(names.*place); });
    return known == Languages.end() ? QString()
                                    : QCoreApplication::translate(Context, known->*place);
}

} // namespace

QString pairname::shown(const QString& engineName)
{
    const QString from = translated(engineName.section(u'-', 0, 0) + u'-', &Places::first);
    const QString to = translated(engineName.section(u'-', 1), &Places::second);
    return from.isNull() || to.isNull() ? engineName : from + to;
}
