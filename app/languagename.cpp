#include "app/languagename.h"

#include <QCoreApplication>

namespace {

constexpr const char* Context = "LanguageNames";

// The names in the device's table, for the translation files: shown() asks for them by a variable.
[[maybe_unused]] constexpr const char* Names[] = {
    QT_TRANSLATE_NOOP("LanguageNames", "English"),
    QT_TRANSLATE_NOOP("LanguageNames", "French"),
    QT_TRANSLATE_NOOP("LanguageNames", "German"),
    QT_TRANSLATE_NOOP("LanguageNames", "Spanish"),
    QT_TRANSLATE_NOOP("LanguageNames", "Italian"),
    QT_TRANSLATE_NOOP("LanguageNames", "Swedish"),
    QT_TRANSLATE_NOOP("LanguageNames", "Danish"),
    QT_TRANSLATE_NOOP("LanguageNames", "Norwegian"),
    QT_TRANSLATE_NOOP("LanguageNames", "Dutch"),
    QT_TRANSLATE_NOOP("LanguageNames", "Portuguese"),
    QT_TRANSLATE_NOOP("LanguageNames", "Russian"),
    QT_TRANSLATE_NOOP("LanguageNames", "Chinese, simplified"),
};

} // namespace

QString languagename::shown(const QString& tableName)
{
    return QCoreApplication::translate(Context, tableName.toUtf8().constData());
}
