#ifndef TTSCALLER_H
#define TTSCALLER_H

#include <functional>
#include <mutex>
#include <string>
#include <utility>
#include <vector>

/* What the suites about speech have in common: a caller of the engine, and what it hears. */
namespace ttscaller {

using Words = std::vector<std::u16string>;

struct Report
{
    int offset;
    int length;
    int kind;
};

/* What receive() saw; the engine's thread writes, the test reads. */
struct Heard
{
    std::mutex mutex;
    std::vector<Report> reports;
    std::function<void()> onReport;

    void begin(std::function<void()> reaction = {})
    {
        const std::lock_guard lock(mutex);
        reports.clear();
        onReport = std::move(reaction);
    }

    std::vector<Report> all()
    {
        const std::lock_guard lock(mutex);
        return reports;
    }
};

extern Heard heard;

/* A receiver of reports: notes them, then calls heard.onReport. */
int receive(int offset, int length, int kind);

/* Starts the engine; its result. */
int initialize();

/* Starts the engine with a voice, speed and volume for all tests, and with receive(); checks that
 * it takes them. */
void prepareEngine();

/* Speaks a text on this thread; the engine's result. */
int play(const std::u16string& text);

/* The words of `text` that were reported, letters and digits only. */
Words wordsHeard(const std::u16string& text);

/* Whether the reports of `text` keep the rules that hold for every text. */
bool lawful(const std::u16string& text);

} // namespace ttscaller

#endif
