#ifndef BENCH_SPEECH_SOUNDSERVER_H
#define BENCH_SPEECH_SOUNDSERVER_H

#include "bench/speech/tape.h"

#include <memory>
#include <string>
#include <vector>

#include <sys/types.h>

/* Starts a program, with its output into `output` unless that is negative; its process. */
pid_t startProgram(const std::vector<std::string>& command, int output = -1);
/* Ends one that was started. */
void endProgram(pid_t program);

/*
 * A PulseAudio of our own with one sink that sounds nowhere, in a folder of its own that the
 * programs started after it find through the environment, and what is played there on a tape.
 */
class SoundServer
{
public:
    SoundServer();
    ~SoundServer();
    SoundServer(const SoundServer&) = delete;
    SoundServer& operator=(const SoundServer&) = delete;

    /* False when PulseAudio is not there or does not start. */
    bool isRunning() const { return m_tape != nullptr; }
    Tape& tape() { return *m_tape; }
    const std::string& folder() const { return m_folder; }

private:
    std::string m_folder;
    pid_t m_server = 0;
    pid_t m_recorder = 0;
    int m_fd = -1;
    std::unique_ptr<Tape> m_tape;
};

#endif
