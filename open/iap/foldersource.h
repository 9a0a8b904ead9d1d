#ifndef FOLDERSOURCE_H
#define FOLDERSOURCE_H

#include "open/iap/framesource.h"

#include <atomic>
#include <string>
#include <thread>

/*
 * A folder of pictures in the order of their names: one swipe, made as soon as the source is
 * started. Pictures are binary PGM files ("*.pgm", P5, 255 levels); a comment "# dpi 300" in a
 * picture's head tells its resolution, 300 otherwise. Files that are no such pictures are left
 * out.
 */
class FolderSource : public FrameSource
{
public:
    static constexpr const char* Variable = "SWIPELINE_FRAMES";

    explicit FolderSource(std::string folder);
    ~FolderSource() override;
    FolderSource(const FolderSource&) = delete;
    FolderSource& operator=(const FolderSource&) = delete;

    bool start(FrameListener& listener) override;
    void stop() override;
    bool isAlive() const override { return true; }
    void report(const SwipeReport&) override {}

private:
    void play(FrameListener& listener, const std::vector<std::string>& files) const;

    std::string m_folder;
    std::atomic<bool> m_stopping = false;
    std::thread m_thread;
};

#endif
