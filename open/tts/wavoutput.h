#ifndef OPEN_TTS_WAVOUTPUT_H
#define OPEN_TTS_WAVOUTPUT_H

#include "open/tts/audiooutput.h"
#include "open/tts/samplequeue.h"

#include <atomic>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <thread>

namespace tts {

/*
 * A WAV file instead of a loudspeaker: what is spoken, text after text without the silence between
 * them, written at the pace at which it would be heard. At any time the file is valid and holds
 * what has been heard.
 *
 * The first output of a process on a file begins it anew; later ones go on with it.
 */
class WavOutput : public AudioOutput
{
public:
    /* `pace` times as fast as speech. Null when the file cannot be written. */
    static std::unique_ptr<WavOutput> open(SampleQueue& queue, const std::string& file,
                                           double pace);
    ~WavOutput() override;

private:
    WavOutput(SampleQueue& queue, int fd, double pace);

    void work();
    void write(std::span<const std::int16_t> samples);
    bool writeHeader();

    SampleQueue& m_queue;
    const int m_fd;
    const double m_pace;
    std::uint32_t m_bytes = 0; // of samples in the file
    bool m_broken = false;
    std::atomic<bool> m_closing = false;
    std::thread m_thread;
};

} // namespace tts

#endif
