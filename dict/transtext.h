#ifndef TRANSTEXT_H
#define TRANSTEXT_H

#include <QString>
#include <QVector>

/* One entry that is shown: a headword, and what the dictionary says about it. */
struct _stScanContent
{
    QString word;
    QString translation; // the gist in the first line, then what is to be seen only
};

/* What is heard of a shown text, with the way back. */
struct SpokenText
{
    QString text;
    QVector<int> origin; // one entry a code unit: its offset in the shown text

    /* Finds the shown stretch of a spoken one; false when there is none. */
    bool shownRange(int offset, int length, int& shownOffset, int& shownLength) const;
};

/* What the lower pane of the translate screen shows. Plain; entries and lines are parted by "\n",
 * and there are no other controls. */
struct TransText
{
    struct Entry
    {
        qsizetype start = 0; // where it begins in the shown text
        qsizetype end = 0;   // one behind its last code unit
        SpokenText spoken;
    };

    QString shown;
    QVector<Entry> entries;
};

/* `text` with a blank for every character that a text document takes for something else, but for
 * line ends. As many code units as before. */
QString asPlainText(const QString& text);

/*
 * Lays out entries. The first line of each is its gist; a headword that is not the word looked up
 * goes before it ("run: laufen"). The gist is heard, what stands in square brackets left out,
 * unless that is all.
 */
TransText layOutEntries(const QVector<_stScanContent>& contents, const QString& word);

/* As above, of one entry alone, always with its headword: for a screen that shows nothing else. */
TransText layOutEntry(const _stScanContent& content);

#endif
