#ifndef TRANSLATESCREEN_H
#define TRANSLATESCREEN_H

#include "tests/fakes/fakedic.h"
#include "tests/fakes/testroot.h"

#include <QFile>
#include <QList>
#include <QString>

/* What every test that makes a translate screen needs: a dictionary, and the mark of reading. */
namespace translatescreen {

struct Entry
{
    QString word; // the one looked up
    QString translation;
    QString headword = {}; // where it is another one
};

/* Gives the scripted engine a pair of languages with one dictionary. */
inline void addDictionary(int language, int endLanguage, const QList<Entry>& entries)
{
    FakeDic::Dictionary dictionary;
    for (const Entry& entry : entries) {
        const QString& head = entry.headword.isEmpty() ? entry.word : entry.headword;
        dictionary.entries[entry.word.toStdU16String()].push_back(
            {head.toStdU16String(), entry.translation.toStdU16String()});
    }
    FakeDic::addPair(language, static_cast<std::int16_t>(endLanguage), u"pair", {dictionary});
}

/* Puts the picture of the loudspeaker on the pen; false when the tree lacks it. */
inline bool installMark(const TestRoot& root)
{
    const QString path = QStringLiteral("/apps/res/laba.bmp");
    QFile mark(QStringLiteral(SWIPELINE_SOURCE_DIR "/device") + path);
    if (!mark.open(QIODevice::ReadOnly))
        return false;
    root.write(path, mark.readAll());
    return true;
}

} // namespace translatescreen

#endif
