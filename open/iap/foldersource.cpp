#include "open/iap/foldersource.h"

#include "open/iap/pgmpicture.h"
#include "open/iap/scanlog.h"

#include <algorithm>
#include <filesystem>
#include <system_error>

namespace {

constexpr std::int64_t FrameUs = 6667; // 150 frames a second

std::vector<std::string> picturesIn(const std::string& folder)
{
    std::vector<std::string> files;
    std::error_code error;
    for (std::filesystem::directory_iterator it(folder, error), end; !error && it != end;
         it.increment(error))
        if (it->path().extension() == ".pgm")
            files.push_back(it->path().string());
    std::sort(files.begin(), files.end());
    return files;
}

} // namespace

FolderSource::FolderSource(std::string folder) : m_folder(std::move(folder)) {}

FolderSource::~FolderSource()
{
    stop();
}

bool FolderSource::start(FrameListener& listener)
{
    std::vector<std::string> files = picturesIn(m_folder);
    if (files.empty()) {
        scanLog("no pictures in " + m_folder);
        return false;
    }
    m_thread = std::thread([this, &listener, files = std::move(files)] { play(listener, files); });
    return true;
}

void FolderSource::stop()
{
    m_stopping = true;
    if (m_thread.joinable())
        m_thread.join();
}

void FolderSource::play(FrameListener& listener, const std::vector<std::string>& files) const
{
    listener.tipDown();
    std::int64_t timeUs = 0;
    for (const std::string& file : files) {
        if (m_stopping)
            return;
        Frame frame = readPgm(file);
        frame.timeUs = timeUs;
        timeUs += FrameUs;
        if (!isValidFrame(frame)) {
            scanLog(file + " is no picture of a camera");
            continue;
        }
        listener.awaitRoom();
        listener.frame(std::move(frame));
    }
    listener.tipUp();
}
