#include "open/tts/player.h"

#include "open/tts/atend.h"
#include "open/tts/piecer.h"
#include "open/tts/synthesizer.h"

#include <algorithm>
#include <utility>

namespace tts {

Player::Player(OutputKeeper::Factory openOutput, const OutputKeeper::Patience& patience)
    : m_output(m_queue, std::move(openOutput), patience)
{
    m_queue.onStall([this] { m_output.giveUp(); });
}

bool Player::start(const std::vector<std::string>& folders)
{
    const std::lock_guard starting(m_startMutex);
    if (isStarted())
        return true;
    if (!Synthesizer::start(folders) || !m_output.open())
        return false;
    const std::lock_guard lock(m_stateMutex);
    m_started = true;
    return true;
}

bool Player::isStarted()
{
    const std::lock_guard lock(m_stateMutex);
    return m_started;
}

bool Player::close()
{
    const std::lock_guard starting(m_startMutex);
    {
        const std::lock_guard lock(m_stateMutex);
        if (!m_started)
            return false;
        m_started = false;
    }
    stop();
    {
        std::unique_lock lock(m_stateMutex);
        m_left.wait(lock, [this] { return m_playing == 0; });
    }
    m_output.close();
    return true;
}

Player::Outcome Player::play(std::u16string_view text)
{
    const std::uint64_t generation = m_generation;
    Utterance::Manner manner = {};
    if (!enter(manner))
        return Outcome::Failed;
    const AtEnd leaving([this] { leave(); });
    return speak(text, manner, generation);
}

bool Player::enter(Utterance::Manner& manner)
{
    const std::lock_guard lock(m_stateMutex);
    manner = m_manner;
    if (m_started)
        ++m_playing;
    return m_started;
}

void Player::leave()
{
    const std::lock_guard lock(m_stateMutex);
    --m_playing;
    m_left.notify_all();
}

Player::Outcome Player::speak(std::u16string_view text, const Utterance::Manner& manner,
                              std::uint64_t generation)
{
    const std::lock_guard speaking(m_speakMutex);
    if (generation != m_generation)
        return Outcome::Stopped;
    Piecer pieces(text, manner.voice->script);
    if (pieces.atEnd())
        return Outcome::Spoken;
    m_output.prepare();
    m_reports.begin(text, {manner.voice->code, manner.speed, m_queue.loudness().volume()});
    m_queue.begin(generation);
    Utterance::Outcome outcome = Utterance::Outcome::Failed;
    const AtEnd ending([this, &outcome] {
        m_queue.end();
        m_reports.end(outcome != Utterance::Outcome::Spoken);
    });
    outcome = Utterance(m_queue, m_reports, manner).speak(pieces);
    switch (outcome) {
    case Utterance::Outcome::Spoken:
        return Outcome::Spoken;
    case Utterance::Outcome::Stopped:
        return Outcome::Stopped;
    case Utterance::Outcome::Failed:
        break;
    }
    return Outcome::Failed;
}

void Player::stop()
{
    ++m_generation;
    m_queue.wake();
}

bool Player::setVoice(int code)
{
    const Voice* voice = findVoice(code);
    if (!voice)
        return false;
    const std::lock_guard lock(m_stateMutex);
    m_manner.voice = voice;
    return true;
}

void Player::setSpeed(int speed)
{
    constexpr int Fastest = 1000; // beyond any that makes a difference
    const std::lock_guard lock(m_stateMutex);
    m_manner.speed = std::clamp(speed, 0, Fastest);
}

void Player::setCallback(ZEMBRA_TTS_HighlightCallback callback)
{
    const std::lock_guard lock(m_stateMutex);
    m_manner.callback = callback;
}

} // namespace tts
