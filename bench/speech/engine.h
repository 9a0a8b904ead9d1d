#ifndef BENCH_SPEECH_ENGINE_H
#define BENCH_SPEECH_ENGINE_H

#include "bench/speech/tape.h"

#include <memory>
#include <string>
#include <string_view>
#include <vector>

/* The speech engine as an application meets it, through platform/zembra_tts.h. */
namespace engine {

struct Report
{
    int offset;
    int length;
    Clock::time_point at;
};

/* Starts the engine: on what the environment names. False when it does not start. */
bool start();
void close();

/* Speaks a text on this thread; what the engine returns. Forgets earlier reports. */
int play(std::u16string_view text);
std::vector<Report> reports();
void forgetReports();
/* Waits for the first report. False when none comes within seconds. */
bool waitForReport();

/* Whether reports lie inside the text, in order, none twice. */
bool areLawful(const std::vector<Report>& reports, std::u16string_view text);

} // namespace engine

/* A FIFO that SDL's disk driver plays into, block by block. One at a time. */
class Disk
{
public:
    enum class Pace { Speech, Fast };

    /* `Fast`: a millisecond for a block instead of 23. */
    explicit Disk(Pace pace);
    ~Disk();
    Disk(const Disk&) = delete;
    Disk& operator=(const Disk&) = delete;

    Tape& tape() { return *m_tape; }

private:
    std::string m_folder;
    int m_fd = -1;
    std::unique_ptr<Tape> m_tape;
};

std::u16string pauseOf(int milliseconds);

#endif
