#include "desk/transcript.h"

#include <QRegularExpression>
#include <QStringList>

QString Transcript::Utterance::heard() const
{
    QStringList parts;
    for (const Word& word : words)
        parts.append(wordText(word));
    return parts.join(QLatin1Char(' '));
}

QString Transcript::Utterance::plain() const
{
    return withoutMarkup(text);
}

void Transcript::begin(quint32 id, int language, const QString& text, qint64 timeUs)
{
    breakOff(timeUs);
    m_utterances.append({id, language, text, timeUs, -1, false, {}});
}

void Transcript::word(quint32 id, int offset, int length, qint64 timeUs)
{
    Utterance* const utterance = current(id);
    if (utterance && offset >= 0 && length > 0 && length <= utterance->text.size() - offset)
        utterance->words.append({timeUs, offset, length});
}

void Transcript::end(quint32 id, bool stopped, qint64 timeUs)
{
    if (Utterance* const utterance = current(id)) {
        utterance->endUs = timeUs;
        utterance->stopped = stopped;
    }
}

void Transcript::breakOff(qint64 timeUs)
{
    if (isSpeaking()) {
        m_utterances.last().endUs = timeUs;
        m_utterances.last().stopped = true;
    }
}

bool Transcript::isSpeaking() const
{
    return !m_utterances.isEmpty() && m_utterances.last().endUs < 0;
}

bool Transcript::contains(const QString& text, qsizetype first) const
{
    const QString wanted = withoutMarkup(text);
    for (qsizetype i = first; i < m_utterances.size(); ++i) {
        if (m_utterances.at(i).plain().contains(wanted, Qt::CaseInsensitive))
            return true;
    }
    return false;
}

bool Transcript::containsHeard(const QString& text, qsizetype first) const
{
    const QString wanted = text.simplified();
    for (qsizetype i = first; i < m_utterances.size(); ++i) {
        if (m_utterances.at(i).heard().contains(wanted, Qt::CaseInsensitive))
            return true;
    }
    return false;
}

QString Transcript::withoutMarkup(const QString& text)
{
    static const QRegularExpression markup(QStringLiteral("<[^<>]*>"));
    return QString(text).replace(markup, QStringLiteral(" ")).simplified();
}

Transcript::Utterance* Transcript::current(quint32 id)
{
    return isSpeaking() && m_utterances.last().id == id ? &m_utterances.last() : nullptr;
}
