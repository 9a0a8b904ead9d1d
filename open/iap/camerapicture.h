#ifndef CAMERAPICTURE_H
#define CAMERAPICTURE_H

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>

/* A picture as a camera gives it, in memory of somebody else's: of each pixel one byte is its
 * brightness (0 black to 255 white). */
struct CameraPicture
{
    const std::uint8_t* pixels = nullptr; // the one at the top on the left
    int width = 0;
    int height = 0;
    std::size_t rowBytes = 0; // from one row to the next
    int pixelBytes = 1;       // 2 where half a colour goes with each
    int brightness = 0;       // which of these bytes it is
    std::int64_t timeUs = 0;  // only differences count
};

constexpr int SmallestPictureSide = 16;
constexpr int LargestPictureSide = 8192;

/* Where such pictures come from: a camera, a video. One thread at a time. */
class PictureStream
{
public:
    enum class Taken {
        Ok,  // there may have been a picture, or none yet
        End, // there will be no more: the video is over
        Gone // the camera has gone, or nothing can be made of what comes
    };
    using User = std::function<void(const CameraPicture&)>;

    virtual ~PictureStream() = default;
    PictureStream() = default;
    PictureStream(const PictureStream&) = delete;
    PictureStream& operator=(const PictureStream&) = delete;

    /* Begins; empty, or the reason in words why it cannot. */
    virtual std::string open() = 0;
    /* Ends; also after an open() that failed, and twice. */
    virtual void close() = 0;
    /* To be polled for reading: then take() has something to do. */
    virtual int pollFd() const = 0;
    /* Calls `use` for each picture that has come, which is valid during the call. Never waits. */
    virtual Taken take(const User& use) = 0;
    /* Why take() said that all is over, in words. */
    virtual std::string reason() const = 0;
    /* What is known of all pictures that will come; of no width before that. */
    virtual CameraPicture shape() const = 0;
    /* Resolution on the paper as far as the stream itself knows; 0 when it does not. */
    virtual double dpi() const { return 0.0; }
};

#endif
