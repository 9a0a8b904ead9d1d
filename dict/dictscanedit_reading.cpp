// DictScanEdit, reading aloud: the selected word, then the current entry with its words marked.

#include "dict/dictscanedit.h"

#include "dict/dictvoice.h"
#include "engines/csoundsrcthread.h"
#include "engines/csoundtransthread.h"
#include "engines/cttsthread.h"
#include "engines/speechrequests.h"
#include "engines/translater.h"
#include "platform/zembra_tts.h"
#include "store/configreader.h"
#include "store/launcher.h"
#include "widgets/announcer.h"

#include <QMutexLocker>
#include <QTextCursor>
#include <QTextEdit>

namespace {

constexpr int SettingIsOn = 0;

SpeechSettings pauses()
{
    const ConfigReader* config = ConfigReader::Instance();
    SpeechSettings settings;
    settings.punctuationPause = config->getPuncPauseInfo();
    settings.wordPause = config->getWordPauseInfo();
    settings.lineEnds = QStringLiteral("\n");
    settings.adaptsPunctuation = false;
    return settings;
}

} // namespace

// The reading that follows a look-up. It begins with the next turn of the event loop: the screen
// may have been filled before it is shown, and more than one look-up may go together.
void DictScanEdit::requestReading()
{
    m_readWanted = true;
    m_readSoon.start(0);
}

bool DictScanEdit::menuSpeaks() const
{
    return m_menuSpeech && m_menuSpeech->isRunning();
}

void DictScanEdit::readIfWanted()
{
    // The end of what the menus' voice says, or being shown, leads here again.
    if (!m_readWanted || !isVisible() || menuSpeaks())
        return;
    m_readWanted = false;
    if (ConfigReader::Instance()->getReadControlDict() == SettingIsOn)
        soundOnlySrcForTrans();
    else
        tellMessage();
}

// What stands in the place of entries is heard, too.
void DictScanEdit::tellMessage()
{
    if (m_contents.isEmpty() && !m_message.isEmpty())
        announcer::announce(m_message);
}

// What was found is read: of a word that was joined that is without the hyphen between its lines,
// and in Chinese, where one character is selected, the whole word of the entry.
QString DictScanEdit::sourceToRead() const
{
    const QString head = currentHeadword();
    if (transwords::isChinese(m_language) && !head.isEmpty() && m_foundAs.startsWith(head))
        return head;
    const bool joined = !m_joinedRest.isEmpty() && !m_foundAs.isEmpty();
    return joined ? m_foundAs : selectedWord();
}

void DictScanEdit::soundOnlySrcForTrans()
{
    m_readWanted = false;
    m_interrupted = false;
    const QString word = sourceToRead();
    if (word.isEmpty()) {
        tellMessage();
        return;
    }
    {
        const QMutexLocker lock(&m_jobMutex);
        m_sourceJob = {word, dictionaryVoice(m_language, false)};
    }
    m_okSound = true;
    // While the worker still ends what was stopped, the next reading waits for its end.
    m_srcAgain = m_srcThread->isRunning();
    if (!m_srcAgain)
        startSource();
}

void DictScanEdit::startSource()
{
    if (!isReading())
        emit signalOKInTrans();
    m_srcReading = true;
    m_stoppedByKey = false;
    launcher::tellSoundBegins(launcher::Speaker::Source);
    m_srcThread->start(QThread::InheritPriority);
}

void DictScanEdit::SoundSrc(QString& unused)
{
    Q_UNUSED(unused)
    SourceJob job;
    {
        const QMutexLocker lock(&m_jobMutex);
        job = m_sourceJob;
    }
    const SpeechText prepared = prepareSpeechText(job.text, pauses());
    if (job.voice && !m_stoppedByKey)
        TTSPlayer::Instance()->play(prepared.text, *job.voice);
}

void DictScanEdit::finishTransSrc()
{
    // Heard late, when the next reading has begun already: that one tells of its end.
    if (m_srcThread->isRunning())
        return;
    if (std::exchange(m_srcAgain, false)) {
        startSource();
        return;
    }
    if (!m_srcReading)
        return;
    const bool goesOn = m_okSound && !m_stoppedByKey;
    if (goesOn && m_contents.isEmpty())
        tellMessage();
    else if (goesOn && ConfigReader::Instance()->getReadTransDict() == SettingIsOn)
        soundWordByTypeTrans();
    m_srcReading = false;
    launcher::tellSoundEnds(launcher::Speaker::Source);
    endReading();
}

void DictScanEdit::soundWordByTypeTrans()
{
    if (m_layout.entries.isEmpty())
        return;
    soundTrans(m_layout.entries.at(shownEntry()).spoken);
}

void DictScanEdit::soundTrans(const SpokenText& spoken)
{
    m_interrupted = false;
    const int language = Translater::Instance()->getEndLanID(m_pair);
    const std::optional<TTSPlayer::Voice> voice = dictionaryVoice(language, true);
    if (spoken.text.isEmpty() || !voice)
        return;
    {
        const QMutexLocker lock(&m_jobMutex);
        m_transVoice = *voice;
    }
    if (!isReading())
        emit signalOKInTrans();
    m_transReading = true;
    m_requested.append({spoken.text, spoken, nullptr});
    launcher::tellSoundBegins(launcher::Speaker::Translation);
    m_transThread->setContent(spoken.text);
    m_transThread->start(QThread::InheritPriority);
}

void DictScanEdit::Sound(QString& text)
{
    SpeechSettings settings = pauses();
    settings.isAbandoned = [this] { return m_transThread->getnewScanState(); };
    const auto prepared = std::make_shared<const SpeechText>(prepareSpeechText(text, settings));
    if (prepared->abandoned)
        return;
    TTSPlayer::Voice voice;
    {
        const QMutexLocker lock(&m_jobMutex);
        voice = m_transVoice;
    }
    // Posted before the engine can report a word of it: the reports find their reading.
    emit readingPrepared(text, prepared);
    TTSPlayer::Instance()->play(prepared->text, voice);
}

void DictScanEdit::finishTransSound()
{
    if (m_transThread->isRunning())
        return;
    endMarking();
    if (!std::exchange(m_transReading, false))
        return;
    launcher::tellSoundEnds(launcher::Speaker::Translation);
    endReading();
}

void DictScanEdit::endReading()
{
    if (!isReading())
        emit signalTTSendInTrans();
}

bool DictScanEdit::isReading() const
{
    return m_srcReading || m_srcAgain || m_transReading;
}

void DictScanEdit::stopReading()
{
    m_readWanted = false;
    m_srcAgain = false;
    m_okSound = false;
    m_interrupted = false;
    if (!isReading())
        return;
    m_stoppedByKey = true;
    emit recfinished();
    m_transThread->clearContent();
    TTSPlayer::Instance()->stop();
    endMarking();
}

void DictScanEdit::clearTransContent()
{
    m_transThread->clearContent();
}

void DictScanEdit::setPreparedReading(const QString& source,
                                      const std::shared_ptr<const SpeechText>& prepared)
{
    takePreparedRequest(m_requested, source, prepared, m_current);
}

void DictScanEdit::TTShignlightFun(int offset, int length, int kind)
{
    int spokenOffset = 0;
    int spokenLength = 0;
    if (kind != ZEMBRA_TTS_WORD || !m_current.prepared
        || !m_current.prepared->sourceRange(offset, length, spokenOffset, spokenLength))
        return;
    int start = 0;
    int shown = 0;
    if (m_current.spoken.shownRange(spokenOffset, spokenLength, start, shown))
        highlight(start, shown);
}

void DictScanEdit::highlight(int start, int length)
{
    QTextCursor word(m_transPane->document());
    word.setPosition(placeOf(start));
    word.setPosition(placeOf(start + length - 1) + 1, QTextCursor::KeepAnchor);
    QTextCharFormat inverse;
    inverse.setBackground(Qt::white);
    inverse.setForeground(Qt::black);
    m_transPane->setExtraSelections({{word, inverse}});
    scrollTo(word.selectionStart(), false);
}

void DictScanEdit::unmark()
{
    m_transPane->setExtraSelections({});
}

// The pane went along with the voice: it goes back to where the entry begins.
void DictScanEdit::endMarking()
{
    const bool marked = !m_transPane->extraSelections().isEmpty();
    dropReports();
    if (marked)
        scrollToResult();
}

// What is still on its way from the voice marks nothing.
void DictScanEdit::dropReports()
{
    m_requested.clear();
    m_current = {};
    unmark();
}
