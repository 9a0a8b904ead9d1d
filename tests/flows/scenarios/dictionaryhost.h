#ifndef DICTIONARYHOST_H
#define DICTIONARYHOST_H

#include "tests/fakes/testroot.h"

#include <QString>
#include <QVector>

/* A dictionary of a scenario. */
struct GivenDictionary
{
    QString name;
    QString languages; // "eng-deu"
    bool damaged = false;

    struct Entry
    {
        QString word;
        QString definition;
    };
    QVector<Entry> entries;
};

/* Puts dictionaries on the pen, for the engine with which the player is built. */
namespace dictionaryhost {

/* Before the application starts. Languages are in the order of their first dictionary. */
void install(const QVector<GivenDictionary>& dictionaries, const TestRoot& root);

} // namespace dictionaryhost

#endif
