#include "ttsfixture.h"

#include "desk/desklink.h"
#include "platform/zembra_tts.h"
#include "wavfile.h"

#include <QFile>
#include <QTest>

#include <algorithm>
#include <limits>

Reports s_reports;

namespace {

int receive(int offset, int length, int kind)
{
    bool stop = false;
    {
        const std::lock_guard lock(s_reports.mutex);
        s_reports.all.append({offset, length, kind});
        s_reports.outsidePlay = s_reports.outsidePlay || !s_reports.playing;
        stop = s_reports.all.size() == s_reports.stopAt;
        s_reports.changed.notify_all();
    }
    if (stop)
        ZEMBRA_TTS_Stop();
    return 0;
}

} // namespace

int play(const QString& text)
{
    s_reports.playing = true;
    const int code = ZEMBRA_TTS_Play(text.utf16(), static_cast<int>(text.size() * 2), 0);
    s_reports.playing = false;
    return code;
}

QString tag(int milliseconds)
{
    return QStringLiteral("<vtml_pause time=\"%1\"/>").arg(milliseconds);
}

void TtsFixture::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    m_wav = m_folder->filePath(QStringLiteral("speech.wav"));
    qputenv(desklink::WavVariable, QFile::encodeName(m_wav));
    qputenv("SWIPELINE_WAV_SPEED", "2000");
    qunsetenv("SDL_AUDIODRIVER");
    s_reports.clear();
    start();
    ZEMBRA_TTS_SetHighlight_CallBack(receive);
    QCOMPARE(ZEMBRA_TTS_SetLang(101), 0);
    ZEMBRA_TTS_SetSpeed(48);
    ZEMBRA_TTS_SetVolume(100);
    ZEMBRA_TTS_SetVolumeLevel(0);
}

void TtsFixture::cleanup()
{
    ZEMBRA_TTS_Uninitialize();
}

void TtsFixture::start()
{
    const char* folders[] = {"/no/such/voices", "/no/such/languages"};
    QCOMPARE(ZEMBRA_TTS_Initialize(folders, 2, 80), 0);
}

void TtsFixture::restart(const char* pace)
{
    ZEMBRA_TTS_Uninitialize();
    qputenv("SWIPELINE_WAV_SPEED", pace);
    start();
}

std::vector<std::int16_t> TtsFixture::recorded()
{
    // What was heard last may still be on its way to the file; closing waits for it.
    ZEMBRA_TTS_Uninitialize();
    const auto samples = readWav(m_wav);
    start();
    if (!samples)
        qFatal("not a valid file");
    return *samples;
}

/* The shortest of several: the synthesizer's sounds vary by fractions of a millisecond each time,
 * and now and then by a whole period of the voice. */
std::size_t TtsFixture::lengthOf(const QString& text, int rounds)
{
    std::size_t shortest = std::numeric_limits<std::size_t>::max();
    std::size_t before = recorded().size();
    for (int round = 0; round < rounds; ++round) {
        if (play(text) != 0)
            qFatal("not spoken");
        const std::size_t after = recorded().size();
        shortest = std::min(shortest, after - before);
        before = after;
    }
    return shortest;
}
