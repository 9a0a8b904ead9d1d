#include "engines/ttsplayer.h"

#include "dict/dictscanedit.h"
#include "editor/myedit.h"
#include "engines/flags.h"
#include "engines/stoprequests.h"
#include "platform/devicepaths.h"
#include "platform/zembra_tts.h"

#include <QByteArray>
#include <QFile>
#include <mutex>

std::atomic<TTSPlayer*> TTSPlayer::player{nullptr};
Receiver<MyEdit> TTSPlayer::editScan;
Receiver<DictScanEdit> TTSPlayer::editDict;
std::atomic<int> TTSPlayer::m_EditId{0};
std::atomic<bool> TTSPlayer::scanPlayFlag{true};

namespace {

std::mutex instanceMutex;

// One text at a time is with the engine, so that a report tells which request it belongs to.
std::mutex playMutex;

StopRequests stops;
thread_local std::optional<StopRequests::Mark> request;

// The mark of the text that is with the engine.
std::atomic<StopRequests::Mark> playing{0};
std::atomic<bool> engineBusy{false};

int startEngine()
{
    const QByteArray voices =
        QFile::encodeName(devicePath(QStringLiteral("/mnt/hidmmc/sysdict/ttsrec")));
    const QByteArray languages =
        QFile::encodeName(devicePath(QStringLiteral("/mnt/hidmmc/sysdict/languages")));
    const char* dirs[] = {voices.constData(), languages.constData()};
    return ZEMBRA_TTS_Initialize(dirs, 2, 80);
}

} // namespace

TTSPlayer* TTSPlayer::Instance()
{
    const std::lock_guard lock(instanceMutex);
    if (!player)
        player = new TTSPlayer;
    return player;
}

void TTSPlayer::quitFun()
{
    const std::lock_guard lock(instanceMutex);
    TTSPlayer* const last = player.exchange(nullptr);
    if (!last)
        return;
    stops.request();
    ZEMBRA_TTS_Uninitialize();
    delete last;
}

TTSPlayer::TTSPlayer()
{
    startEngine();
}

int TTSPlayer::init(int unused)
{
    Q_UNUSED(unused)
    return startEngine();
}

int TTSPlayer::setLan(int language)
{
    const int result = ZEMBRA_TTS_SetLang(language);
    ZEMBRA_TTS_SetHighlight_CallBack(&TTSPlayer::ReceiveHighlight);
    return result;
}

int TTSPlayer::play(const QString& text)
{
    return playAs(text, nullptr);
}

int TTSPlayer::play(const QString& text, const Voice& voice)
{
    return playAs(text, &voice);
}

void TTSPlayer::take(const Voice& voice)
{
    if (voice.language)
        setLan(*voice.language);
    if (voice.volume)
        setVolume(*voice.volume);
    if (voice.speed)
        setSpeed(*voice.speed);
    setScanPlayFlag(voice.highlights);
}

int TTSPlayer::playAs(const QString& text, const Voice* voice)
{
    const StopRequests::Mark mark = request.value_or(stops.mark());
    const std::lock_guard lock(playMutex);
    if (voice && !stops.cancelled(mark))
        take(*voice);
    // As late as possible: the voice takes its time, and a stop meanwhile ends nothing yet.
    if (stops.cancelled(mark))
        return 1;
    playing = mark;
    engineBusy = true;
    const int result = ZEMBRA_TTS_Play(text.utf16(), static_cast<int>(2 * text.length()), 0);
    engineBusy = false;
    return result;
}

int TTSPlayer::stop()
{
    stops.request();
    return ZEMBRA_TTS_Stop();
}

void TTSPlayer::beginRequest()
{
    request = stops.mark();
}

int TTSPlayer::setSpeed(int speed)
{
    return ZEMBRA_TTS_SetSpeed(speed);
}

int TTSPlayer::setVolume(int volume)
{
    return ZEMBRA_TTS_SetVolume(volume);
}

void TTSPlayer::setEdit(MyEdit* edit)
{
    editScan = edit;
    m_EditId = 0;
}

void TTSPlayer::setEditD(DictScanEdit* edit)
{
    editDict = edit;
    m_EditId = 1;
}

void TTSPlayer::forget(const MyEdit* edit)
{
    editScan.forget(edit);
}

void TTSPlayer::forget(const DictScanEdit* edit)
{
    editDict.forget(edit);
}

void TTSPlayer::setScanPlayFlag(bool on)
{
    scanPlayFlag = on;
}

int TTSPlayer::ReceiveHighlight(int offset, int length, int kind)
{
    // A stop that fell between the last look at the count and the engine's start is made good at
    // the first word.
    if (engineBusy && stops.cancelled(playing))
        ZEMBRA_TTS_Stop();

    if (!scanPlayFlag)
        return -1;
    if (g_InDict)
        editDict.call([=](DictScanEdit& edit) { edit.tirggleTTShignlight(offset, length, kind); });
    else
        editScan.call([=](MyEdit& edit) { edit.tirggleTTShignlight(offset, length, kind); });
    return 0;
}
