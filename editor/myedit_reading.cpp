// MyEdit, reading aloud: from a text to the sound of it, and the mark on the word that is heard.

#include "editor/myedit.h"

#include "editor/caret.h"
#include "editor/readingvoice.h"
#include "engines/csoundthread.h"
#include "engines/speechrequests.h"
#include "engines/ttsplayer.h"
#include "platform/devicepaths.h"
#include "platform/zembra_tts.h"
#include "store/configreader.h"
#include "store/engineunits.h"
#include "store/languagemanager.h"
#include "store/launcher.h"
#include "widgets/hintline.h"
#include "widgets/scanbusy.h"

#include <QSettings>

namespace {

constexpr int LanguageWithoutSpeech = 3;
constexpr int ReadingOn = 0; // value of the read control setting
constexpr int LookAgainMs = 100;

SpeechSettings currentSettings()
{
    const ConfigReader* config = ConfigReader::Instance();
    SpeechSettings settings;
    settings.language = LanguageManager::Instance()->getIntByID(config->getLanInfo());
    settings.punctuationPause = config->getPuncPauseInfo();
    settings.wordPause = config->getWordPauseInfo();
    return settings;
}

} // namespace

void MyEdit::readDelaySlot()
{
    // The line that is coming is the newest; when nothing comes of it, this one is.
    if (m_recognising || scanEngineIsBusy()) {
        m_readDelay.start(LookAgainMs);
        return;
    }
    ScannedText newest;
    {
        const QMutexLocker lock(&m_readQueueMutex);
        if (m_readQueue.isEmpty())
            return;
        newest = m_readQueue.takeLast();
        m_readQueue.clear();
    }
    m_lastRead = newest;
    // A new name is heard in any case: it is to be confirmed. While another screen is shown the
    // user is elsewhere; the text can be asked for later.
    const bool wanted = m_rename || ConfigReader::Instance()->getReadControlInfo() == ReadingOn;
    if (wanted && isEnabled())
        readLast();
}

void MyEdit::soundAgain()
{
    if (canSoundAgain())
        readLast();
}

void MyEdit::readLast()
{
    if (m_stopSound && !m_ttsInTrans)
        beginReading(m_lastRead);
    else
        m_talk = true;
}

void MyEdit::readAfterTalkingMenu()
{
    if (m_talk && canSoundAgain())
        readLast();
}

void MyEdit::setTTSFlagInTrans(bool on)
{
    m_ttsInTrans = on;
    if (!on)
        readAfterTalkingMenu();
}

void MyEdit::readFromCursor()
{
    const QString text = documentText();
    const int position = textCursor().position();
    WordSpan word = position < text.size() ? wordAt(text, position) : WordSpan{};
    if (!word.isValid())
        word = nextWord(text, position);
    if (!word.isValid())
        word = nextWord(text, -1);
    if (!word.isValid()) {
        tellHint(tr("No text."));
        return;
    }
    // To the voice a line end of the file is the end of a paragraph, not a blank.
    m_lastRead = {text.mid(word.start).replace(u'\n', QChar::ParagraphSeparator),
                  static_cast<int>(word.start)};
    beginReading(m_lastRead);
}

// Not what soundAgain() reads: that stays the passage in which the user walks.
void MyEdit::readWordAtCursor()
{
    const QString text = documentText();
    const WordSpan word = wordAt(text, textCursor().position());
    if (word.isValid())
        beginReading({text.mid(word.start, word.length()), static_cast<int>(word.start)},
                     Amount::Word);
}

bool MyEdit::isReading() const
{
    return m_soundThread->isRunning() && (!m_requested.isEmpty() || m_current.prepared);
}

void MyEdit::beginReading(const ScannedText& text, Amount amount)
{
    StopTTS();
    m_amount = amount;
    QTextCursor start(document());
    start.setPosition(qBound(0, text.start, document()->characterCount() - 1));
    m_requested.append({text.text, start, nullptr});
    m_readingAloud = true;
    m_soundThread->setContent(text.text);
    m_soundThread->start(QThread::InheritPriority);
    launcher::tellSoundBegins(launcher::Speaker::Editor);
}

void MyEdit::Sound(QString& text)
{
    const QMutexLocker lock(&m_soundMutex);
    launcher::tellSoundBegins(launcher::Speaker::Editor);
    const SpeechSettings settings = currentSettings();
    if (settings.language == LanguageWithoutSpeech)
        return;
    const auto prepared = std::make_shared<const SpeechText>(prepareSpeechText(text, settings));
    // Posted before the engine can report a word of it: the reports find their reading.
    emit readingPrepared(text, prepared);
    if (isChineseVoice(settings.language))
        text = prepared->text;
    m_playing = true;
    TTSPlayer::Instance()->play(prepared->text, readingVoice());
    m_playing = false;
}

void MyEdit::setPreparedReading(const QString& source,
                                const std::shared_ptr<const SpeechText>& prepared)
{
    takePreparedRequest(m_requested, source, prepared, m_current);
}

void MyEdit::tirggleTTShignlight(int offset, int length, int kind)
{
    emit signalTTShignlight(offset, length, kind);
}

void MyEdit::TTShignlightFun(int offset, int length, int kind)
{
    if (kind == ZEMBRA_TTS_WORD)
        hignFun(offset, length);
}

// Marks what a report is about, if it is in the document: the user may have changed the text since
// it was handed to the voice.
bool MyEdit::hignFun(int offset, int length)
{
    int sourceOffset = 0;
    int sourceLength = 0;
    if (!m_current.prepared
        || !m_current.prepared->sourceRange(offset, length, sourceOffset, sourceLength))
        return false;
    const int start = m_current.start.position() + sourceOffset;
    const QStringView word = QStringView(m_current.source).mid(sourceOffset, sourceLength);
    if (documentText().mid(start, sourceLength) != word)
        return false;
    HignItem(start, sourceLength);
    return true;
}

void MyEdit::HignItem(int start, int length)
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

void MyEdit::setMpayingFlag(bool on)
{
    m_playing = on;
    if (on)
        return;
    m_current = {};
    m_requested.clear();
    unmark();
}

void MyEdit::FinishSound()
{
    unmark();
    // Heard late, when the next reading has begun already: that one tells of its end.
    if (m_soundThread->isRunning())
        return;
    m_readingAloud = false;
    launcher::tellSoundEnds(launcher::Speaker::Editor);
    if (!m_hintAfterReading.isEmpty())
        emit signalHint(std::exchange(m_hintAfterReading, QString()));
}

void MyEdit::StopTTS()
{
    m_soundThread->clearContent();
    TTSPlayer::Instance()->stop();
    setMpayingFlag(false);
    m_readDelay.stop();
    m_talk = false;
    const QMutexLocker lock(&m_readQueueMutex);
    m_readQueue.clear();
}

void MyEdit::clearReading()
{
    setMpayingFlag(false);
    m_wordStart = -1;
    m_wordEnd = -1;
}

// Of one file: the next one has nothing to read again.
void MyEdit::forgetTexts()
{
    clearReading();
    m_lastRead = {};
    m_hintAfterReading.clear();
    m_hint->hide();
}

void MyEdit::setScanSpeedInfo(int unused)
{
    Q_UNUSED(unused)
    const QSettings settings(devicePath(QStringLiteral("/apps/config/config.ini")),
                             QSettings::IniFormat);
    const auto read = [&settings](const char* key, int fallback) {
        return settings.value(QLatin1String(key), fallback).toInt();
    };
    const int voice = voiceOfScanLanguage(read("SystemSet/TTS", 0));
    TTSPlayer::Instance()->setSpeed(engineunits::readingSpeed(read("SystemSet/Speed", 6), voice));
}
