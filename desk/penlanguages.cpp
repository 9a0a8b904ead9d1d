#include "desk/penlanguages.h"

#include "desk/penfiles.h"
#include "desk/pensettings.h"

#include <QFile>

namespace {

constexpr qint64 MaxBytes = 64 * 1024;
const QString LanguageKey = QStringLiteral("SystemSet/Lan");

} // namespace

QVector<penlanguages::Language> penlanguages::list(const QString& root)
{
    QVector<Language> languages;
    QFile table(root + QLatin1String("/apps/config/menulan.cfg"));
    if (!table.open(QIODevice::ReadOnly))
        return languages;
    const QStringList rows =
        penfiles::decode(table.read(MaxBytes)).remove(u'\r').split(u'\n', Qt::SkipEmptyParts);
    for (const QString& row : rows)
        languages.append(
            {row.section(u'\t', 0, 0), row.section(u'\t', 1, 1), row.section(u'\t', 2, 2).toInt()});
    return languages;
}

int penlanguages::rowOf(const QVector<Language>& languages, const QString& name)
{
    for (int row = 0; row < languages.size(); ++row) {
        const Language& language = languages.at(row);
        if (language.name.compare(name, Qt::CaseInsensitive) == 0
            || language.ownName.compare(name, Qt::CaseInsensitive) == 0
            || QString::number(language.code) == name)
            return row;
    }
    return -1;
}

int penlanguages::chosen(const QString& root)
{
    return pensettings::value(root, LanguageKey);
}

bool penlanguages::choose(const QString& root, int row)
{
    return pensettings::store(root, LanguageKey, row);
}
