#ifndef OPEN_TTS_WAVFILE_H
#define OPEN_TTS_WAVFILE_H

#include "open/tts/pacedoutput.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>

namespace tts {

/* How many of so many samples a WAV file takes that already has so many bytes of them: its sizes
 * are fields of 32 bits, and what does not fit into them is left out. */
std::size_t samplesThatFit(std::uint32_t bytes, std::size_t samples);

/*
 * A WAV file instead of a loudspeaker. At any time the file is valid and holds what has been heard.
 *
 * The first use of a file in a process begins it anew; later ones go on with it.
 */
class WavFile : public SampleSink
{
public:
    /* Null when the file cannot be written. */
    static std::unique_ptr<WavFile> open(const std::string& file);
    ~WavFile() override;

    void write(std::span<const std::int16_t> samples) override;

private:
    explicit WavFile(int fd);

    bool writeHeader();

    const int m_fd;
    std::uint32_t m_bytes = 0; // of samples in the file
    bool m_ended = false;      // nothing more is written
};

} // namespace tts

#endif
