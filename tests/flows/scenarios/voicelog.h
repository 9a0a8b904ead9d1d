#ifndef VOICELOG_H
#define VOICELOG_H

#include <QString>
#include <QVector>
#include <string>
#include <vector>

/* A text as it reached the voice, and how the voice was set when it came. */
struct Utterance
{
    QString text; // a pause tag of N milliseconds as "{N}"
    int language = 0;
    int speed = 0;
    int volume = 0;
};

/*
 * Follows the calls that the speech engine gets, and tells what was spoken. Plain values; the
 * settings last from one call of heed() to the next.
 */
class VoiceLog
{
public:
    /* The texts among these calls (as CallLog keeps them), oldest first. */
    QVector<Utterance> heed(const std::vector<std::string>& calls);

private:
    Utterance m_voice;
};

#endif
