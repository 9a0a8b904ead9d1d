#ifndef SPEECHTEXT_H
#define SPEECHTEXT_H

#include <QString>
#include <QVector>
#include <functional>

/* Characters after which reading pauses; the screens' word separators. */
extern const QString SpeechSeparators;

/* How a text is to be read. */
struct SpeechSettings
{
    int language = 0;         // language code of the scan language
    int punctuationPause = 0; // setting, steps of 200 ms
    int wordPause = 0;        // setting, steps of 200 ms; 0: none

    /* Characters that end a line; with word pauses they end a word as well. */
    QString lineEnds = QStringLiteral("\u2029\n");

    /* Whether punctuation is changed to suit the voice: the breath before a quotation, and ASCII
     * instead of full-width marks for Chinese voices, which then get no pause tags. Otherwise
     * every voice gets the text as it stands, with pause tags. */
    bool adaptsPunctuation = true;

    /* Asked at each character and word, on the caller's thread: whether the reading is no longer
     * wanted. Null: it always is. */
    std::function<bool()> isAbandoned;
};

/*
 * A text made ready for the speech engine, and the way back from it: for every code unit that is
 * handed to the engine, the place in the source text that it stands for.
 */
struct SpeechText
{
    QString text;                 // what the engine is given, mark-up included
    QVector<int> origin;          // one entry per code unit of text: its offset in the source, or
                                  // -1 for a code unit that was inserted
    QVector<int> pauseCounts;     // one entry per punctuation pause: the running count of blanks
                                  // and pauses before and with it
    int punctuationTagLength = 0; // code units of one punctuation pause tag
    int wordTagLength = 0;        // code units of one word pause tag, 0 without word pauses
    bool abandoned = false;       // given up half-way: the text is not whole and not to be spoken

    /*
     * Finds the source stretch of a prepared stretch; inserted code units at its ends are left
     * out. False when it holds nothing of the source (also when it lies outside the text).
     */
    bool sourceRange(int offset, int length, int& sourceOffset, int& sourceLength) const;
};

/* Languages whose voices get folded punctuation and no pause tags: 1, 211 and 212. */
bool isChineseVoice(int language);

/* The mark-up for a pause of so many milliseconds. */
QString pauseTag(int milliseconds);

/*
 * Prepares a text for speech.
 *
 * Chinese voices get full-width punctuation folded to ASCII. All others get pause tags after
 * punctuation and, when word pauses are on, after every word; a point or comma between two
 * digits is no pause. In front of the first straight double quote a punctuation mark or blank
 * becomes a comma, so that the voice takes breath. The settings can leave the changes of
 * punctuation out.
 */
SpeechText prepareSpeechText(const QString& source, const SpeechSettings& settings);

#endif
