#include "tests/unit/open/iappictures.h"

#include <opencv2/imgproc.hpp>

#include <algorithm>

namespace {

const QString MiddleLine = QStringLiteral("Nobody in the village knew who built the bridge.");

constexpr std::int64_t FrameUs = 6667;

bool isBlank(const Frame& frame)
{
    const auto [low, high] = std::minmax_element(frame.pixels.begin(), frame.pixels.end());
    return *high - *low < 60;
}

/* The grey of a row of marks on white paper, six pixels wide and high, with gaps. */
std::uint8_t markAt(int x, int y)
{
    const int column = x / 6;
    const int row = (y + 60) / 6;
    if (row < 8 || row > 11 || column % 5 == 0)
        return 240;
    std::uint32_t mixed = std::uint32_t(column) * 2654435761U ^ std::uint32_t(row) * 2246822519U;
    mixed = (mixed ^ mixed >> 15) * 2246822519U;
    return (mixed >> 16) % 100 < 45 ? 30 : 240;
}

} // namespace

PrintSheet partedLine(const QString& left, const QString& right)
{
    const PrintSettings print;
    const QString blank(int(25.0 / (print.points * 0.32 * 0.353)), QLatin1Char(' '));
    return PrintSheet({QString(), left + blank + right, QString()}, print);
}

std::vector<Frame> swipeWithRest(const PrintSheet& page, double mmPerSecond, int seconds)
{
    Swipe swipe;
    swipe.hand.speedMmPerS = mmPerSecond;
    swipe.camera.framesPerSecond = 200;
    std::vector<Frame> frames = swipeFrames(page, 1, swipe);
    const auto inside = [](const Frame& frame) { return !isBlank(frame); };
    const auto print = std::find_if(frames.begin(), frames.end(), inside);
    const auto blank = std::find_if(print, frames.end(), isBlank);
    if (blank == frames.end())
        return {};
    constexpr std::int64_t restStepUs = 100000;
    std::vector<Frame> all(frames.begin(), blank);
    std::int64_t restUs = 0;
    for (; restUs < seconds * std::int64_t(1000000); restUs += restStepUs) {
        all.push_back(*blank);
        all.back().timeUs += restUs;
    }
    for (auto frame = blank; frame != frames.end(); ++frame) {
        all.push_back(*frame);
        all.back().timeUs += restUs;
    }
    return all;
}

std::vector<Frame> endlessSwipe(int pixels)
{
    constexpr int step = 50;
    const cv::Size size(160, 104);
    std::vector<Frame> frames;
    for (int x = 0; x < pixels; x += step) {
        Frame frame = {std::int64_t(frames.size()) * FrameUs, size.width, size.height, 300,
                       std::vector<std::uint8_t>(std::size_t(size.area()))};
        // It begins above the line and goes on below it.
        const int top = std::min(30, x / 10 - 35) - size.height / 2;
        for (int row = 0; row < size.height; ++row)
            for (int column = 0; column < size.width; ++column)
                frame.pixels[std::size_t(row) * size.width + column] =
                    markAt(x + column, top + row);
        frames.push_back(std::move(frame));
    }
    return frames;
}

PrintSheet threeLines(const PrintSettings& print)
{
    return PrintSheet({QStringLiteral("She kept a small notebook in the pocket of her coat."),
                       MiddleLine,
                       QStringLiteral("A quiet rain fell on the roofs and filled the barrels.")},
                      print);
}

PrintSheet blankPage()
{
    return PrintSheet({QString(), QString(60, QLatin1Char(' ')), QString()}, {});
}

cv::Mat cleanLine(const PrintSettings& print, const QString& text)
{
    PrintSettings scanned = print;
    scanned.dpi = 300;
    scanned.marginMm = 1.5;
    return matOf(PrintSheet({text.isEmpty() ? MiddleLine : text}, scanned).picture());
}

cv::Mat matOf(const QImage& picture)
{
    return cv::Mat(picture.height(), picture.width(), CV_8U,
                   const_cast<uchar*>(picture.constBits()),
                   static_cast<std::size_t>(picture.bytesPerLine()))
        .clone();
}

cv::Mat inkedPart(const cv::Mat& line)
{
    return line(cv::boundingRect(line < 128));
}

double likeness(const cv::Mat& one, const cv::Mat& other)
{
    cv::Mat a;
    cv::Mat b;
    inkedPart(one).convertTo(a, CV_32F);
    cv::resize(inkedPart(other), b, a.size(), 0, 0, cv::INTER_AREA);
    b.convertTo(b, CV_32F);
    cv::GaussianBlur(a, a, cv::Size(5, 5), 0);
    cv::GaussianBlur(b, b, cv::Size(5, 5), 0);
    a -= cv::mean(a)[0];
    b -= cv::mean(b)[0];
    return a.dot(b) / (cv::norm(a) * cv::norm(b));
}
