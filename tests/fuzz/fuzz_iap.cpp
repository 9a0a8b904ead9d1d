/*
 * The scan engine through its C functions: a video of pictures of any size, up to 16 megapixels,
 * and any content plays the camera; the engine is told things meanwhile, also by its callback. What
 * it hands over has a sensible size, and nothing comes after its end.
 */
#include "platform/zembra_iap.h"
#include "tests/fuzz/fuzzbytes.h"
#include "tests/fuzz/require.h"

#include <algorithm>
#include <atomic>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <thread>

#include <sys/mman.h>
#include <unistd.h>

namespace {

constexpr std::size_t MostPixels = 16U << 20;
constexpr int MostPictures = 10;

std::atomic<bool> mayDeliver = false;
std::atomic<int> action = 0;

int receive(void* context, unsigned char* image, int width, int height, unsigned char flag,
            char* extra)
{
    REQUIRE(mayDeliver && !context && !extra && flag <= 1);
    REQUIRE(width >= 0 && height >= 0 && (image != nullptr) == (width > 0 && height > 0));
    REQUIRE(width <= 100'000 && height <= 4'000);
    for (int i = 0; i < width * height; ++i)
        image[i] = static_cast<unsigned char>(~image[i]); // all of it is to be had
    switch (action.load()) {
    case 1:
        ZEMBRA_IAP_SetStopSignal(1);
        break;
    case 2:
        ZEMBRA_IAP_SetReceivePanoImageCallBackFunc(0, nullptr);
        break;
    case 3:
        ZEMBRA_IAP_Initialize(0, 1, 0, 0);
        break;
    case 4:
        ZEMBRA_IAP_SetLangPara(0);
        break;
    default:
        break;
    }
    return action.load() - 1;
}

/* Mostly a camera's; some too small, large, or larger than is taken. */
std::size_t side(Bytes& bytes)
{
    const int kind = bytes.next();
    const int value = bytes.next();
    return std::size_t(kind % 16 == 1   ? value
                       : kind % 16 == 2 ? value * 36
                       : kind % 4 == 3  ? value * 4 + 16
                                        : value + 16);
}

/* One picture of blocks, from a place that moves on. */
std::string picture(std::size_t width, std::size_t height, Bytes& bytes)
{
    std::string pixels(width * height, char(bytes.next()));
    const std::size_t block = 1 + std::size_t(bytes.next()) % 16;
    const std::size_t moved = std::size_t(bytes.next());
    const std::uint32_t pattern = std::uint32_t(bytes.next()) * 2654435761U;
    const char dark = char(bytes.next());
    std::size_t i = 0;
    for (std::size_t y = 0; y < height; ++y)
        for (std::size_t x = 0; x < width; ++x, ++i) {
            const auto part = std::uint32_t((x + moved) / block * 31 + y / block * 17);
            if ((part * 2246822519U + pattern) >> 30 == 0)
                pixels[i] = dark;
        }
    return pixels;
}

std::string video(Bytes& bytes)
{
    const std::size_t width = side(bytes);
    const std::size_t height = std::min(side(bytes), MostPixels / std::max<std::size_t>(1, width));
    std::string all = "YUV4MPEG2 W" + std::to_string(width) + " H" + std::to_string(height)
                      + " F1000:1 Cmono XDPI=" + std::to_string(40 + bytes.next() * 4) + "\n";
    // Of the large ones two will do.
    const int most = width * height > 200'000 ? 2 : MostPictures;
    for (int i = 0; i < most && !bytes.isEmpty(); ++i)
        all += "FRAME\n" + picture(width, height, bytes);
    const std::size_t torn = std::size_t(bytes.next());
    if (torn > 128) // in the middle of a picture
        all.resize(all.size() - std::min(all.size(), torn));
    return all;
}

/* A file in memory, which the environment names as the camera. */
int cameraOf(const std::string& bytes)
{
    const int file = memfd_create("video", MFD_CLOEXEC);
    REQUIRE(file >= 0 && write(file, bytes.data(), bytes.size()) == ssize_t(bytes.size()));
    setenv("SWIPELINE_CAMERA", ("/proc/self/fd/" + std::to_string(file)).c_str(), 1);
    return file;
}

void tell(int what)
{
    int state = 0;
    switch (what % 8) {
    case 0:
        ZEMBRA_IAP_SetStopSignal(1);
        break;
    case 1:
        ZEMBRA_IAP_SetStopSignal(0);
        break;
    case 2:
        ZEMBRA_IAP_SetLangPara(what / 8);
        break;
    case 3:
        ZEMBRA_IAP_Initialize(what / 8 % 2, what / 16, what, what);
        break;
    default:
        // To the end of the swipe, or as far as it has come by then.
        for (int i = 0; i < 2000 && ZEMBRA_IAP_GetWorkState(&state) == 0; ++i) {
            if (i > 200 && state == ZEMBRA_IAP_IDLE)
                break;
            std::this_thread::yield();
        }
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    Bytes bytes(data, size);
    const int how = bytes.next();
    action = bytes.next() % 6;
    const int told[] = {bytes.next(), bytes.next(), bytes.next()};
    const int file = cameraOf(video(bytes));
    mayDeliver = true;
    ZEMBRA_IAP_SetReceivePanoImageCallBackFunc(0, receive);
    if (ZEMBRA_IAP_Initialize(how & 1, how & 2, 0, 0) == 0) {
        ZEMBRA_IAP_SetLangPara(how >> 2 & 1);
        for (const int what : told)
            tell(what);
        ZEMBRA_IAP_Uninitialize();
        // A callback that ran meanwhile may have started it once more.
        action = 0;
        ZEMBRA_IAP_Uninitialize();
    }
    mayDeliver = false;
    REQUIRE(ZEMBRA_IAP_Uninitialize() == -1);
    close(file);
    return 0;
}
