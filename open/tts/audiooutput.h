#ifndef OPEN_TTS_AUDIOOUTPUT_H
#define OPEN_TTS_AUDIOOUTPUT_H

namespace tts {

/* Takes samples from a SampleQueue, block by block at the pace of speech, as long as it lives. */
class AudioOutput
{
public:
    AudioOutput() = default;
    virtual ~AudioOutput() = default;
    AudioOutput(const AudioOutput&) = delete;
    AudioOutput& operator=(const AudioOutput&) = delete;
};

} // namespace tts

#endif
