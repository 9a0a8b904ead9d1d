// MyEdit, reading aloud: from a text to the sound of it, and the mark on the word that is heard.

#include "editor/myedit.h"

#include "editor/caret.h"
#include "editor/wordwalk.h"
#include "engines/csoundthread.h"
#include "engines/ttsplayer.h"
#include "platform/zembra_tts.h"
#include "store/configreader.h"
#include "store/languagemanager.h"
#include "store/launcher.h"
#include "store/voicecodes.h"

namespace {

constexpr int LanguageWithoutSpeech = 3;
constexpr int ReadingOn = 0; // value of the read control setting

SpeechSettings currentSettings()
{
    const ConfigReader* config = ConfigReader::Instance();
    SpeechSettings settings;
    settings.language = LanguageManager::Instance()->getIntByID(config->getLanInfo());
    settings.punctuationPause = config->getPuncPauseInfo();
    settings.wordPause = config->getWordPauseInfo();
    return settings;
}

// Menus and hints are spoken in the voice of the interface's language, and the voice stays as it
// was set last.
void takeVoiceOf(int language)
{
    const ConfigReader* config = ConfigReader::Instance();
    TTSPlayer::Instance()->setLan(
        voicecodes::forScanLanguage(config->getTTSInfo(), language, config->getSpanishInfo() == 1));
}

} // namespace

void MyEdit::readDelaySlot()
{
    ScannedText newest;
    {
        const QMutexLocker lock(&m_readQueueMutex);
        if (m_readQueue.isEmpty())
            return;
        newest = m_readQueue.takeLast();
        m_readQueue.clear();
    }
    // A new name is heard in any case: it is to be confirmed.
    if (!m_rename && ConfigReader::Instance()->getReadControlInfo() != ReadingOn) {
        m_lastRead = newest;
        return;
    }
    beginReading(newest.text, newest.start);
}

void MyEdit::soundAgain()
{
    if (!m_lastRead.text.isEmpty())
        beginReading(m_lastRead.text, m_lastRead.start);
}

void MyEdit::beginReading(const QString& text, int documentStart)
{
    TTSPlayer::Instance()->stop();
    m_lastRead = {text, documentStart};
    QTextCursor start(document());
    start.setPosition(qBound(0, documentStart, document()->characterCount() - 1));
    m_requested.append({text, start, nullptr});
    m_readingAloud = true;
    m_soundThread->setContent(text);
    m_soundThread->start(QThread::InheritPriority);
    launcher::tellSoundBegins();
}

void MyEdit::Sound(QString& text)
{
    const QMutexLocker lock(&m_soundMutex);
    launcher::tellSoundBegins();
    const SpeechSettings settings = currentSettings();
    if (settings.language == LanguageWithoutSpeech)
        return;
    TTSPlayer* player = TTSPlayer::Instance();
    player->setScanPlayFlag(true);
    const auto prepared = std::make_shared<const SpeechText>(prepareSpeechText(text, settings));
    // Posted before the engine can report a word of it: the reports find their reading.
    emit readingPrepared(text, prepared);
    if (isChineseVoice(settings.language))
        text = prepared->text;
    takeVoiceOf(settings.language);
    player->play(prepared->text);
}

void MyEdit::setPreparedReading(const QString& source,
                                const std::shared_ptr<const SpeechText>& prepared)
{
    // Newest first: older requests with the same text were dropped by the queue.
    for (qsizetype i = m_requested.size() - 1; i >= 0; --i) {
        if (m_requested.at(i).source != source)
            continue;
        m_current = m_requested.at(i);
        m_current.prepared = prepared;
        m_requested.remove(0, i + 1);
        return;
    }
}

void MyEdit::tirggleTTShignlight(int offset, int length, int kind)
{
    emit signalTTShignlight(offset, length, kind);
}

void MyEdit::TTShignlightFun(int offset, int length, int kind)
{
    int sourceOffset = 0;
    int sourceLength = 0;
    if (kind != ZEMBRA_TTS_WORD || !m_current.prepared
        || !m_current.prepared->sourceRange(offset, length, sourceOffset, sourceLength))
        return;
    const int start = m_current.start.position() + sourceOffset;
    // The user may have changed the text since it was handed to the voice.
    const QStringView word = QStringView(m_current.source).mid(sourceOffset, sourceLength);
    if (documentText().mid(start, sourceLength) == word)
        markWord(start, sourceLength);
}

void MyEdit::markWord(int start, int length)
{
    m_wordStart = start;
    m_wordEnd = start + length;
    QTextCursor word(document());
    word.setPosition(start);
    word.setPosition(m_wordEnd, QTextCursor::KeepAnchor);
    QTextCharFormat inverse;
    inverse.setBackground(Qt::white);
    inverse.setForeground(Qt::black);
    setExtraSelections({{word, inverse}});
    setCursorWidth(caret::WidthWhileMarking);
    moveTo(start);
}

void MyEdit::unmark()
{
    setExtraSelections({});
    setCursorWidth(caret::Width);
}

void MyEdit::FinishSound()
{
    unmark();
    // Heard late, when the next reading has begun already: that one tells of its end.
    if (m_soundThread->isRunning())
        return;
    m_readingAloud = false;
    launcher::tellSoundEnds();
}

void MyEdit::StopTTS()
{
    m_soundThread->clearContent();
    TTSPlayer::Instance()->stop();
    const QMutexLocker lock(&m_readQueueMutex);
    m_readQueue.clear();
}

void MyEdit::clearReading()
{
    m_current = {};
    m_requested.clear();
    m_wordStart = -1;
    m_wordEnd = -1;
    unmark();
}

QString MyEdit::getWordFromMyEdit() const
{
    const QString text = documentText();
    const WordSpan word = wordAt(text, textCursor().position());
    return word.isValid() ? text.mid(word.start, word.length()) : QString();
}
