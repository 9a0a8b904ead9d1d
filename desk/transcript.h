#ifndef TRANSCRIPT_H
#define TRANSCRIPT_H

#include <QString>
#include <QVector>

/*
 * What the pen has said: texts, and the words as they were heard. Times are microseconds of
 * CLOCK_MONOTONIC. What does not belong to the text being spoken is ignored.
 */
class Transcript
{
public:
    struct Word
    {
        qint64 timeUs;
        int offset; // into the text, UTF-16 units
        int length;
    };
    struct Utterance
    {
        quint32 id;
        int language;
        QString text;
        qint64 beginUs;
        qint64 endUs = -1; // -1: still speaking
        bool stopped = false;
        QVector<Word> words;

        QString wordText(const Word& word) const { return text.mid(word.offset, word.length); }
        /* The words that were heard, with blanks between them. */
        QString heard() const;
        /* The text without mark-up, blanks joined: what a listener would write down. */
        QString plain() const;
    };

    void begin(quint32 id, int language, const QString& text, qint64 timeUs);
    void word(quint32 id, int offset, int length, qint64 timeUs);
    void end(quint32 id, bool stopped, qint64 timeUs);
    /* The speech engine has gone: nothing is being spoken any more. */
    void breakOff(qint64 timeUs);

    bool isSpeaking() const;
    const QVector<Utterance>& utterances() const { return m_utterances; }

    /* Whether a text spoken since number `first` holds `text` (mark-up, case and the amount of
     * blank space do not count). */
    bool contains(const QString& text, qsizetype first = 0) const;

    /* The same for the words that were heard. */
    bool containsHeard(const QString& text, qsizetype first = 0) const;

    /* "<...>" left out and runs of blanks made one. */
    static QString withoutMarkup(const QString& text);

private:
    Utterance* current(quint32 id);

    QVector<Utterance> m_utterances;
};

#endif
