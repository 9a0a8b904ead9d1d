#include "bench/speech/engine.h"

#include "open/tts/samplequeue.h"
#include "platform/zembra_tts.h"

#include <condition_variable>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <mutex>

#include <dlfcn.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

std::mutex s_mutex;
std::condition_variable s_reported;
std::vector<engine::Report> s_reports;
std::string s_fifo; // what SDL opens

int receive(int offset, int length, int)
{
    const Clock::time_point now = Clock::now();
    const std::lock_guard lock(s_mutex);
    s_reports.push_back({offset, length, now});
    s_reported.notify_all();
    return 0;
}

FILE* openWith(const char* symbol, const char* file, const char* mode)
{
    using Open = FILE* (*)(const char*, const char*);
    static_assert(sizeof(Open) == sizeof(void*));
    const auto real = reinterpret_cast<Open>(::dlsym(RTLD_NEXT, symbol));
    FILE* stream = real(file, mode);
    if (stream && !s_fifo.empty() && s_fifo == file)
        std::setvbuf(stream, nullptr, _IONBF, 0);
    return stream;
}

} // namespace

/* SDL's disk driver writes through stdio, which hands on four blocks at a time. Without a buffer
 * every block comes when it is played. */
extern "C" FILE* fopen(const char* file, const char* mode)
{
    return openWith("fopen", file, mode);
}

extern "C" FILE* fopen64(const char* file, const char* mode)
{
    return openWith("fopen64", file, mode);
}

bool engine::start()
{
    if (ZEMBRA_TTS_Initialize(nullptr, 0, 80) != 0) {
        std::fprintf(stderr, "the speech engine does not start\n");
        return false;
    }
    ZEMBRA_TTS_SetHighlight_CallBack(receive);
    ZEMBRA_TTS_SetLang(101);
    ZEMBRA_TTS_SetSpeed(48);
    ZEMBRA_TTS_SetVolume(100);
    ZEMBRA_TTS_SetVolumeLevel(0);
    return true;
}

void engine::close()
{
    ZEMBRA_TTS_Uninitialize();
}

int engine::play(std::u16string_view text)
{
    forgetReports();
    return ZEMBRA_TTS_Play(reinterpret_cast<const unsigned short*>(text.data()),
                           static_cast<int>(text.size() * 2), 0);
}

std::vector<engine::Report> engine::reports()
{
    const std::lock_guard lock(s_mutex);
    return s_reports;
}

void engine::forgetReports()
{
    const std::lock_guard lock(s_mutex);
    s_reports.clear();
}

bool engine::waitForReport()
{
    std::unique_lock lock(s_mutex);
    return s_reported.wait_for(lock, std::chrono::seconds(10), [] { return !s_reports.empty(); });
}

bool engine::areLawful(const std::vector<Report>& reports, std::u16string_view text)
{
    int end = 0;
    for (const Report& report : reports) {
        if (report.offset < end || report.length < 1
            || report.offset + report.length > static_cast<int>(text.size()))
            return false;
        end = report.offset + report.length;
    }
    return true;
}

Disk::Disk(Pace pace)
{
    std::string folder = (std::filesystem::temp_directory_path() / "speech-XXXXXX").string();
    if (!::mkdtemp(folder.data())) {
        std::perror("temporary folder");
        std::exit(2);
    }
    m_folder = folder;
    s_fifo = m_folder + "/sound";
    // Open at both ends: SDL may close and open its end again.
    if (::mkfifo(s_fifo.c_str(), 0600) != 0 || (m_fd = ::open(s_fifo.c_str(), O_RDWR)) < 0) {
        std::perror(s_fifo.c_str());
        std::exit(2);
    }
    m_tape = std::make_unique<Tape>(m_fd, tts::BlockSamples);
    ::setenv("SDL_AUDIODRIVER", "disk", 1);
    ::setenv("SDL_DISKAUDIOFILE", s_fifo.c_str(), 1);
    if (pace == Pace::Fast)
        ::setenv("SDL_DISKAUDIODELAY", "1", 1);
    else
        ::unsetenv("SDL_DISKAUDIODELAY");
}

Disk::~Disk()
{
    m_tape.reset();
    ::close(m_fd);
    std::filesystem::remove_all(m_folder);
    s_fifo.clear();
}

std::u16string pauseOf(int milliseconds)
{
    const std::string number = std::to_string(milliseconds);
    return u"<vtml_pause time=\"" + std::u16string(number.begin(), number.end()) + u"\"/>";
}
