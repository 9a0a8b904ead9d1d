#include "open/tts/outputkeeper.h"

#include "open/tts/pacedoutput.h"

#include <algorithm>
#include <condition_variable>
#include <cstdio>
#include <mutex>
#include <system_error>
#include <thread>
#include <utility>

namespace tts {

/* Closes an output and opens one, on a thread that may take as long as it likes. */
class OutputKeeper::Work
{
public:
    using Task = std::function<std::unique_ptr<AudioOutput>()>;

    explicit Work(Task task)
    {
        try {
            m_thread = std::thread(&Work::run, m_result, std::move(task));
        } catch (const std::system_error&) {
            m_result->done = true; // no thread to be had: nothing could be opened
        }
    }
    ~Work()
    {
        if (!m_thread.joinable())
            return;
        if (waitFor(std::chrono::milliseconds(0)))
            m_thread.join();
        else
            m_thread.detach();
    }
    Work(const Work&) = delete;
    Work& operator=(const Work&) = delete;

    /* False when it is not done by then. */
    bool waitFor(std::chrono::milliseconds time)
    {
        std::unique_lock lock(m_result->mutex);
        return m_result->changed.wait_for(lock, time, [this] { return m_result->done; });
    }
    std::unique_ptr<AudioOutput> takeOutput()
    {
        const std::lock_guard lock(m_result->mutex);
        return std::move(m_result->output);
    }

private:
    struct Result
    {
        std::mutex mutex;
        std::condition_variable changed;
        bool done = false;
        std::unique_ptr<AudioOutput> output;
    };

    static void run(const std::shared_ptr<Result>& result, const Task& task)
    {
        std::unique_ptr<AudioOutput> output;
        try {
            output = task();
        } catch (const std::exception& error) {
            std::fprintf(stderr, "speech: no sound output: %s\n", error.what());
        }
        const std::lock_guard lock(result->mutex);
        result->output = std::move(output);
        result->done = true;
        result->changed.notify_all();
    }

    std::shared_ptr<Result> m_result = std::make_shared<Result>();
    std::thread m_thread;
};

OutputKeeper::OutputKeeper(SampleQueue& queue, Factory open, const Patience& patience)
    : m_queue(queue), m_open(std::move(open)), m_patience(patience), m_between(patience.between)
{
}

OutputKeeper::~OutputKeeper() = default;

bool OutputKeeper::open()
{
    // What hung when it was closed may have ended since, and even have opened something.
    if (m_work && wait(m_patience.start) && adopt())
        return true;
    if (!m_work) {
        work(true);
        if (wait(m_patience.start))
            return adopt();
    }
    standIn();
    return true;
}

void OutputKeeper::close()
{
    if (m_work && wait(m_patience.closing))
        adopt();
    if (!m_work)
        work(false);
    if (wait(m_patience.closing))
        m_work.reset();
    m_output.reset();
}

void OutputKeeper::prepare()
{
    if (m_work && wait(std::chrono::milliseconds(0)))
        adopt();
    const bool isMissing = !m_output || m_output->isLost();
    if (!m_work && isMissing && Clock::now() >= m_nextTry) {
        work(true);
        if (wait(m_patience.reopening))
            adopt();
    }
    if (!m_output)
        standIn();
}

void OutputKeeper::giveUp()
{
    if (m_work)
        return;
    std::fprintf(stderr, "speech: the sound output hangs, speaking on without sound\n");
    work(true);
    standIn();
}

/* Closes the output and, if asked to, opens another. */
void OutputKeeper::work(bool opens)
{
    m_nextTry = Clock::now() + m_between;
    m_between = std::min<std::chrono::milliseconds>(2 * m_between, std::chrono::minutes(5));
    if (m_output)
        m_output->disconnect();
    auto task = [old = std::shared_ptr(std::move(m_output)), queue = &m_queue,
                 open = opens ? m_open : nullptr]() mutable -> std::unique_ptr<AudioOutput> {
        old.reset();
        return open ? open(*queue) : nullptr;
    };
    m_work = std::make_unique<Work>(std::move(task));
}

/* False when the work is not done by then. */
bool OutputKeeper::wait(std::chrono::milliseconds time)
{
    return m_work->waitFor(time);
}

/* Takes what the work has opened, which is done. False when that is nothing. */
bool OutputKeeper::adopt()
{
    auto output = m_work->takeOutput();
    m_work.reset();
    if (!output)
        return false;
    if (m_output)
        m_output->disconnect();
    output->connect();
    m_output = std::move(output);
    if (!m_output->isLost())
        m_between = m_patience.between;
    return true;
}

void OutputKeeper::standIn()
{
    auto silence = std::make_unique<PacedOutput>(m_queue, 1, nullptr);
    silence->connect();
    m_output = std::move(silence);
}

} // namespace tts
