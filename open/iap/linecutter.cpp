#include "open/iap/linecutter.h"

#include "open/iap/characterrow.h"
#include "open/iap/frame.h"
#include "open/iap/inklevel.h"
#include "open/iap/legibility.h"
#include "open/iap/lineband.h"
#include "open/iap/straightener.h"

#include <opencv2/imgproc.hpp>

#include <algorithm>
#include <cstdint>
#include <numeric>

namespace {

constexpr double ProfileSmoothingMm = 0.2;
constexpr double InkPart = 0.3; // of the darkest print: from here on a pixel belongs to a letter
constexpr int LeastInk = 40;    // of 255
constexpr int LeastPixels = 5;  // of a mark that is kept
constexpr int SmallestLetter = 18;
constexpr int LargestLetter = 36;
constexpr double WantedLetter = 26.0;
constexpr double TallestCoreMm = 7.5;
constexpr double FullestCore = 0.58; // of the core's pixels: half black or more
// Small print out of focus spreads into its gaps: up to 0.67 was seen of 6 points.
constexpr double FullestSmallCore = 0.76;
constexpr int Rim = 12; // white pixels around the line

double meanRow(const std::vector<cv::Point2d>& path)
{
    const double sum = std::accumulate(path.begin(), path.end(), 0.0,
                                       [](double s, const cv::Point2d& p) { return s + p.y; });
    return path.empty() ? 0.0 : sum / double(path.size());
}

/* Where the seen area ends: marks that reach it are cut by it. */
cv::Mat rimOf(const cv::Mat& seen)
{
    cv::Mat inner;
    cv::erode(seen, inner, cv::getStructuringElement(cv::MORPH_RECT, cv::Size(5, 5)),
              cv::Point(-1, -1), 1, cv::BORDER_CONSTANT, cv::Scalar(0));
    return seen & ~inner;
}

/* The marks (connected ink) of the line, sorted out from its neighbours'. */
class LineMarks
{
public:
    LineMarks(const LineStrip& strip, const LineBand& band) : m_band(band)
    {
        const cv::Mat core = strip.ink.rowRange(band.coreTop, band.coreBottom + 1);
        const int threshold =
            std::max(LeastInk, static_cast<int>(InkPart * levelAbove(core, 0.01)));
        const cv::Mat dark = strip.ink >= threshold;
        cv::Mat labels;
        cv::Mat stats;
        cv::Mat middles;
        const int count = cv::connectedComponentsWithStats(dark, labels, stats, middles, 8, CV_32S);
        std::vector<Mark> marks(static_cast<std::size_t>(count));
        for (int i = 1; i < count; ++i) {
            const int* row = stats.ptr<int>(i);
            marks[i].box = cv::Rect(row[cv::CC_STAT_LEFT], row[cv::CC_STAT_TOP],
                                    row[cv::CC_STAT_WIDTH], row[cv::CC_STAT_HEIGHT]);
            marks[i].area = row[cv::CC_STAT_AREA];
            marks[i].middleRow = middles.at<double>(i, 1);
        }
        findCuts(labels, rimOf(strip.seen), marks);
        paint(labels, marks);
    }

    const cv::Mat& ours() const { return m_ours; }
    const cv::Mat& foreign() const { return m_foreign; }
    cv::Rect bounds() const { return m_bounds; }

private:
    enum class Side { None, Foreign, Ours, Both };
    struct Mark
    {
        cv::Rect box;
        int area = 0;
        double middleRow = 0.0;
        bool isCut = false;       // by the end of what was seen
        bool isCutInCore = false; // at the line's beginning or end
    };

    void findCuts(const cv::Mat& labels, const cv::Mat& rim, std::vector<Mark>& marks) const
    {
        for (int y = 0; y < labels.rows; ++y)
            for (int x = 0; x < labels.cols; ++x)
                if (rim.at<std::uint8_t>(y, x) != 0) {
                    Mark& mark = marks[labels.at<int>(y, x)];
                    mark.isCut = true;
                    mark.isCutInCore |= y >= m_band.coreTop && y <= m_band.coreBottom;
                }
    }

    Side sideOf(const Mark& mark) const
    {
        const int last = mark.box.y + mark.box.height - 1;
        const bool inCore = mark.box.y <= m_band.coreBottom && last >= m_band.coreTop;
        const bool inNeighbour = mark.box.y <= m_band.aboveBottom || last >= m_band.belowTop;
        if (mark.area < LeastPixels)
            return Side::Foreign;
        // Half a letter can only be misread. Of a longer mark (joined letters) most is there.
        if (mark.isCutInCore && mark.box.width < 2 * m_band.coreHeight())
            return Side::Foreign;
        if (inCore)
            return inNeighbour ? Side::Both : Side::Ours;
        const bool inReach = mark.middleRow >= m_band.top && mark.middleRow <= m_band.bottom;
        return inReach && !inNeighbour && !mark.isCut ? Side::Ours : Side::Foreign;
    }

    void paint(const cv::Mat& labels, const std::vector<Mark>& marks)
    {
        std::vector<Side> sides(marks.size(), Side::None);
        for (std::size_t i = 1; i < marks.size(); ++i)
            sides[i] = sideOf(marks[i]);
        m_ours = cv::Mat::zeros(labels.size(), CV_8U);
        m_foreign = cv::Mat::zeros(labels.size(), CV_8U);
        for (int y = 0; y < labels.rows; ++y)
            for (int x = 0; x < labels.cols; ++x) {
                const Side side = sides[labels.at<int>(y, x)];
                const bool inBand = y >= m_band.top && y <= m_band.bottom;
                if (side == Side::Ours || (side == Side::Both && inBand))
                    m_ours.at<std::uint8_t>(y, x) = 255;
                else if (side != Side::None)
                    m_foreign.at<std::uint8_t>(y, x) = 255;
            }
        m_bounds = cv::boundingRect(m_ours);
    }

    LineBand m_band;
    cv::Mat m_ours;
    cv::Mat m_foreign;
    cv::Rect m_bounds;
};

/* The line's ink alone, from paper (0) to full black (255). */
cv::Mat cleanedInk(const cv::Mat& ink, const LineMarks& marks)
{
    static const cv::Mat halo = cv::getStructuringElement(cv::MORPH_ELLIPSE, cv::Size(7, 7));
    cv::Mat aroundOurs;
    cv::Mat aroundForeign;
    cv::dilate(marks.ours(), aroundOurs, halo);
    cv::dilate(marks.foreign(), aroundForeign, halo);
    const cv::Mat elsewhere = aroundOurs == 0;
    const int ground = levelAbove(ink(marks.bounds()), 0.5, elsewhere(marks.bounds()));
    const int full =
        std::max(ground + 1, levelAbove(ink(marks.bounds()), 0.2, marks.ours()(marks.bounds())));
    cv::Mat cleaned;
    ink.convertTo(cleaned, CV_8U, 255.0 / (full - ground), -255.0 * ground / (full - ground));
    cleaned.setTo(0, elsewhere & aroundForeign);
    return cleaned(marks.bounds()).clone();
}

/* Whether the rows full of ink are too many for letters, or too full. */
bool isBlot(const cv::Mat& ink, int coreHeight, double dotsPerMm)
{
    if (coreHeight > TallestCoreMm * dotsPerMm)
        return true;
    if (ink.cols < 3 * coreHeight) // one letter may be as full as it likes
        return false;
    const double fullest = coreHeight < SmallestLetter ? FullestSmallCore : FullestCore;
    return cv::countNonZero(ink >= 128) > fullest * coreHeight * ink.cols;
}

cv::Mat scaledToRead(const cv::Mat& ink, int letterHeight)
{
    if (letterHeight >= SmallestLetter && letterHeight <= LargestLetter)
        return ink;
    const double scale = std::clamp(WantedLetter / letterHeight, 0.2, 4.0);
    cv::Mat scaled;
    cv::resize(ink, scaled, cv::Size(), scale, scale,
               scale < 1.0 ? cv::INTER_AREA : cv::INTER_CUBIC);
    return scaled;
}

} // namespace

cv::Mat cutLine(const LineStrip& strip, const LineCutSettings& settings)
{
    const double dotsPerMm = settings.dpi / MmPerInch;
    const LineStrip level = levelled(strip, lineAngle(strip));
    if (level.ink.empty())
        return {};
    const LineStrip straight = unbent(level);
    // Lying characters fill their column like Chinese ones fill a row.
    const bool square = settings.han || settings.vertical;
    const std::vector<float> profile =
        rowProfile(straight.ink, straight.seen, ProfileSmoothingMm * dotsPerMm);
    const std::optional<LineBand> band =
        findLine(profile, meanRow(straight.path), dotsPerMm, square);
    if (!band)
        return {};
    const LineMarks marks(straight, *band);
    if (marks.bounds().empty())
        return {};
    cv::Mat ink = cleanedInk(straight.ink, marks);
    const int letterHeight = square ? band->coreHeight() / 2 : band->coreHeight();
    if (!isLegible(ink, letterHeight) || isBlot(ink, band->coreHeight(), dotsPerMm))
        return {};
    if (settings.vertical)
        ink = characterRow(ink);
    ink = scaledToRead(ink, letterHeight);
    cv::copyMakeBorder(ink, ink, Rim, Rim, Rim, Rim, cv::BORDER_CONSTANT, cv::Scalar(0));
    return 255 - ink;
}
