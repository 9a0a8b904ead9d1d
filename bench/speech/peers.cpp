/* Start to sound and stop to silence on one sound server: this engine, the espeak-ng command and
 * speech-dispatcher with its espeak-ng module. */
#include "bench/speech/engine.h"
#include "bench/speech/figures.h"
#include "bench/speech/soundserver.h"
#include "bench/speech/subjects.h"

#include "platform/zembra_tts.h"

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <functional>
#include <string>
#include <thread>

#include <sys/socket.h>
#include <sys/un.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

constexpr const char* Line = "The harbour lay quiet, and only the gulls were awake that day.";

/* Waits for sound or silence on the tape. */
bool waitForSound(const Tape& tape)
{
    const Clock::time_point limit = Clock::now() + std::chrono::seconds(4);
    while (tape.sounds(5000).empty() && Clock::now() < limit)
        std::this_thread::sleep_for(std::chrono::milliseconds(2));
    return !tape.sounds(5000).empty();
}

void measure(SoundServer& server, const char* name, int rounds, const std::function<void()>& start,
             const std::function<void()>& stop)
{
    Figures starts;
    Figures stops;
    for (int round = 0; round < rounds; ++round) {
        server.tape().wait(SampleRate / 4);
        server.tape().clear();
        const Clock::time_point begin = Clock::now();
        start();
        const bool heard = waitForSound(server.tape());
        std::this_thread::sleep_for(std::chrono::milliseconds(300 + round % 50));
        const Clock::time_point end = Clock::now();
        stop();
        server.tape().wait(SampleRate);
        if (!heard)
            continue;
        starts.add(msBetween(begin, server.tape().onsets(10000).front()));
        stops.add(std::max(0.0, msBetween(end, server.tape().lastSound())));
    }
    starts.print((std::string(name) + ": start to sound").c_str());
    stops.print((std::string(name) + ": stop to silence").c_str());
}

void measureEngine(SoundServer& server, int rounds)
{
    ::setenv("SDL_AUDIODRIVER", "pulseaudio", 1);
    if (!engine::start())
        return;
    const std::string line = Line;
    const std::u16string text(line.begin(), line.end());
    std::thread speaker;
    measure(
        server, "this engine", rounds,
        [&] { speaker = std::thread([&text] { engine::play(text); }); },
        [&] {
            ZEMBRA_TTS_Stop();
            speaker.join();
        });
    engine::close();
}

void measureCommand(SoundServer& server, int rounds)
{
    pid_t program = 0;
    measure(
        server, "espeak-ng command", rounds,
        [&program] {
            program = startProgram({"espeak-ng", "-v", "gmw/en", Line});
        },
        [&program] { endProgram(program); });
}

/* A client of speech-dispatcher, in its own words. */
class Dispatcher
{
public:
    explicit Dispatcher(const std::string& folder)
    {
        const std::string path = folder + "/speechd.sock";
        m_server = startProgram({"speech-dispatcher", "--run-single", "--communication-method",
                                 "unix_socket", "--socket-path", path, "--pid-file",
                                 folder + "/speechd.pid", "--log-dir", folder, "--timeout", "0"});
        sockaddr_un address = {};
        address.sun_family = AF_UNIX;
        std::strncpy(address.sun_path, path.c_str(), sizeof address.sun_path - 1);
        m_socket = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
        for (int i = 0; i < 100 && !m_connected; ++i) {
            m_connected =
                ::connect(m_socket, reinterpret_cast<sockaddr*>(&address), sizeof address) == 0;
            if (!m_connected)
                std::this_thread::sleep_for(std::chrono::milliseconds(100));
        }
        timeval limit = {3, 0};
        ::setsockopt(m_socket, SOL_SOCKET, SO_RCVTIMEO, &limit, sizeof limit);
    }
    ~Dispatcher()
    {
        ::close(m_socket);
        ::kill(m_server, SIGTERM); // so that it ends its modules
        ::waitpid(m_server, nullptr, 0);
    }
    Dispatcher(const Dispatcher&) = delete;
    Dispatcher& operator=(const Dispatcher&) = delete;

    bool prepare()
    {
        return m_connected && send("SET SELF CLIENT_NAME bench:bench:main")
               && send("SET SELF OUTPUT_MODULE espeak-ng") && send("SET SELF LANGUAGE en");
    }
    void speak() { send("SPEAK") && send(std::string(Line) + "\r\n."); }
    void stop() { send("STOP SELF"); }

private:
    /* Sends a line; whether the answer is not a refusal. */
    bool send(const std::string& line)
    {
        const std::string bytes = line + "\r\n";
        if (::send(m_socket, bytes.data(), bytes.size(), MSG_NOSIGNAL) < 0)
            return false;
        char answer[512] = {};
        return ::recv(m_socket, answer, sizeof answer - 1, 0) > 0 && answer[0] == '2';
    }

    pid_t m_server = 0;
    int m_socket = -1;
    bool m_connected = false;
};

void measureDispatcher(SoundServer& server, int rounds)
{
    Dispatcher dispatcher(server.folder());
    if (!dispatcher.prepare()) {
        std::printf("speech-dispatcher does not run here\n");
        return;
    }
    measure(
        server, "speech-dispatcher", rounds, [&dispatcher] { dispatcher.speak(); },
        [&dispatcher] { dispatcher.stop(); });
}

} // namespace

void measurePeers(int rounds)
{
    SoundServer server;
    if (!server.isRunning()) {
        std::printf("no PulseAudio here: install pulseaudio and pulseaudio-utils to compare\n");
        return;
    }
    const int count = rounds > 0 ? rounds : 60;
    Figures::printTitle("on one null sink (ms)");
    measureEngine(server, count);
    measureCommand(server, count);
    measureDispatcher(server, count);
}
