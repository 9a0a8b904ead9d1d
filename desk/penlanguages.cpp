#include "desk/penlanguages.h"

#include "desk/penfiles.h"

#include <QFile>
#include <QSettings>

namespace {

constexpr qint64 MaxBytes = 64 * 1024;
const QString LanguageKey = QStringLiteral("SystemSet/Lan");

QString settingsOf(const QString& root)
{
    return root + QLatin1String("/apps/config/config.ini");
}

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
    return QSettings(settingsOf(root), QSettings::IniFormat).value(LanguageKey, 0).toInt();
}

bool penlanguages::choose(const QString& root, int row)
{
    QSettings settings(settingsOf(root), QSettings::IniFormat);
    settings.setValue(LanguageKey, row);
    settings.sync();
    return settings.status() == QSettings::NoError;
}
