#include "bench/speech/soundserver.h"

#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <thread>

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

pid_t startProgram(const std::vector<std::string>& command, int output)
{
    std::vector<char*> words;
    words.reserve(command.size() + 1);
    for (const std::string& word : command)
        words.push_back(const_cast<char*>(word.c_str()));
    words.push_back(nullptr);
    const pid_t child = ::fork();
    if (child != 0)
        return child;
    const int null = ::open("/dev/null", O_RDWR);
    ::dup2(null, STDIN_FILENO);
    ::dup2(output < 0 ? null : output, STDOUT_FILENO);
    ::dup2(null, STDERR_FILENO);
    ::execvp(words[0], words.data());
    ::_exit(127);
}

void endProgram(pid_t program)
{
    if (program <= 0)
        return;
    ::kill(program, SIGKILL);
    ::waitpid(program, nullptr, 0);
}

SoundServer::SoundServer()
{
    std::string folder = (std::filesystem::temp_directory_path() / "sound-XXXXXX").string();
    if (!::mkdtemp(folder.data()))
        return;
    m_folder = folder;
    const std::string socket = m_folder + "/native";
    ::setenv("XDG_RUNTIME_DIR", m_folder.c_str(), 1);
    ::setenv("HOME", m_folder.c_str(), 1);
    ::setenv("PULSE_SERVER", ("unix:" + socket).c_str(), 1);
    m_server =
        startProgram({"pulseaudio", "-n", "--daemonize=no", "--exit-idle-time=-1",
                      "--use-pid-file=no", "-L", "module-null-sink rate=22050 channels=1", "-L",
                      "module-native-protocol-unix auth-anonymous=1 socket=" + socket});
    for (int i = 0; i < 200 && !std::filesystem::exists(socket); ++i)
        std::this_thread::sleep_for(std::chrono::milliseconds(50));
    int ends[2];
    if (!std::filesystem::exists(socket) || ::pipe2(ends, O_CLOEXEC) != 0)
        return;
    m_recorder = startProgram({"parec", "--device=null.monitor", "--rate=22050", "--channels=1",
                               "--format=s16le", "--raw", "--latency-msec=5"},
                              ends[1]);
    ::close(ends[1]);
    m_fd = ends[0];
    m_tape = std::make_unique<Tape>(m_fd, 256);
    if (!m_tape->wait(SampleRate / 10))
        m_tape.reset();
}

SoundServer::~SoundServer()
{
    endProgram(m_recorder);
    m_tape.reset();
    if (m_fd >= 0)
        ::close(m_fd);
    endProgram(m_server);
    if (!m_folder.empty())
        std::filesystem::remove_all(m_folder);
}
