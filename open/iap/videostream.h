#ifndef VIDEOSTREAM_H
#define VIDEOSTREAM_H

#include "open/iap/y4mparser.h"

/*
 * A video in the YUV4MPEG2 form (.y4m): a file, which is played once at its own rate, or a pipe,
 * whose pictures are taken as they come. Other programs write it, so that a camera whose pictures
 * are compressed can be had through one of them.
 */
class VideoStream : public PictureStream
{
public:
    explicit VideoStream(std::string path) : m_path(std::move(path)) {}
    ~VideoStream() override { close(); }

    std::string open() override;
    void close() override;
    int pollFd() const override { return m_timer >= 0 ? m_timer : m_file; }
    Taken take(const User& use) override;
    std::string reason() const override { return m_reason; }
    CameraPicture shape() const override { return m_parser.picture(); }
    double dpi() const override { return m_parser.dpi(); }

private:
    enum class More { Yes, NotYet, No };

    std::string startPlaying();
    Taken play(const User& use);
    Taken pass(const User& use);
    More readMore();
    Taken ended();
    Taken gone(const std::string& reason);

    std::string m_path;
    int m_file = -1;
    int m_timer = -1; // of a file: when the next picture is due
    std::int64_t m_played = 0;
    Y4mParser m_parser;
    std::string m_reason;
};

#endif
