#ifndef PENLANGUAGE_H
#define PENLANGUAGE_H

#include "app/startup.h"
#include "desk/penlanguages.h"
#include "tests/fakes/testroot.h"

#include <QFile>
#include <QFileInfo>

/*
 * Gives a pen its interface in a language ("German", or any name that the launcher's table has):
 * the translation that the build made is put on the pen, and the setting names its row. Call it
 * before the application starts. False when there is no such language or no translation was built.
 */
inline bool setPenLanguage(const TestRoot& root, const QString& name)
{
    const QString folder = root.path(QString());
    const QVector<penlanguages::Language> languages = penlanguages::list(folder);
    const int row = penlanguages::rowOf(languages, name);
    const char* const place = row < 0 ? nullptr : translationFor(languages.at(row).code);
    if (!place)
        return false;
    QFile built(QStringLiteral(SWIPELINE_BINARY_DIR "/translations/")
                + QFileInfo(QString::fromLatin1(place)).fileName());
    if (!built.open(QIODevice::ReadOnly))
        return false;
    root.write(QString::fromLatin1(place), built.readAll());
    return penlanguages::choose(folder, row);
}

#endif
