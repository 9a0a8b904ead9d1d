#include "open/iap/cameraoptions.h"

#include "open/iap/camerapicture.h"

#include <charconv>
#include <cstdlib>
#include <string_view>

namespace {

constexpr double NarrowestMm = 2.0;
constexpr double WidestMm = 500.0;
constexpr int MostPicturesPerSecond = 1000;
constexpr int LargestKey = 767; // KEY_MAX of the kernel

/* What a variable holds; empty when it is not set. */
std::string_view valueOf(const char* variable)
{
    const char* value = std::getenv(variable);
    return value ? value : std::string_view();
}

/* A number at the beginning of a text, which then begins behind it. */
template <typename Number>
std::optional<Number> takeNumber(std::string_view& text, Number low, Number high)
{
    Number value{};
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc() || !(value >= low && value <= high))
        return std::nullopt;
    text.remove_prefix(std::size_t(end - text.data()));
    return value;
}

bool takeMark(std::string_view& text, char mark)
{
    if (text.empty() || text.front() != mark)
        return false;
    text.remove_prefix(1);
    return true;
}

/* A variable with a number and nothing else; what is not set changes nothing. */
template <typename Number>
bool readNumber(const char* variable, Number low, Number high, Number& value)
{
    std::string_view text = valueOf(variable);
    if (text.empty())
        return true;
    const std::optional<Number> number = takeNumber(text, low, high);
    if (!number || !text.empty())
        return false;
    value = *number;
    return true;
}

/* "320x240@120", or "320x240" */
bool readMode(std::string_view text, CameraOptions& options)
{
    if (text.empty())
        return true;
    const auto width = takeNumber(text, SmallestPictureSide, LargestPictureSide);
    if (!width || !takeMark(text, 'x'))
        return false;
    const auto height = takeNumber(text, SmallestPictureSide, LargestPictureSide);
    if (!height)
        return false;
    options.width = *width;
    options.height = *height;
    if (text.empty())
        return true;
    if (!takeMark(text, '@'))
        return false;
    const auto rate = takeNumber(text, 1, MostPicturesPerSecond);
    if (!rate)
        return false;
    options.rate = *rate;
    return text.empty();
}

} // namespace

std::optional<CameraOptions> CameraOptions::fromEnvironment(std::string& why)
{
    CameraOptions options;
    options.camera = valueOf(CameraVariable);
    options.tip = valueOf("SWIPELINE_TIP");
    if (!readNumber("SWIPELINE_CAMERA_MM", NarrowestMm, WidestMm, options.widthMm))
        why = "SWIPELINE_CAMERA_MM is no width from 2 to 500 mm";
    else if (!readNumber("SWIPELINE_CAMERA_TURN", 0, 270, options.turn) || options.turn % 90 != 0)
        why = "SWIPELINE_CAMERA_TURN is none of 0, 90, 180 and 270";
    else if (!readMode(valueOf("SWIPELINE_CAMERA_MODE"), options))
        why = "SWIPELINE_CAMERA_MODE is not like 320x240@120";
    else if (!readNumber("SWIPELINE_TIP_KEY", 1, LargestKey, options.tipKey))
        why = "SWIPELINE_TIP_KEY is no code of a key";
    else
        return options;
    return std::nullopt;
}
