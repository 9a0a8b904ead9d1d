#ifndef STITCHER_H
#define STITCHER_H

#include "open/iap/frame.h"
#include "open/iap/motiontracker.h"
#include "open/iap/panorama.h"
#include "open/iap/printtone.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

/* How the pen is held, and what is expected on the paper. */
struct ScanSettings
{
    bool leftHand = false; // the camera sees the paper upside down
    bool vertical = false; // the line runs down the page, characters lie on their left side
    bool han = false;      // square characters without gaps between words
};

/* What came of a swipe. */
struct SwipePicture
{
    enum class Failure { None, NoPrint, BadMotion };

    Failure failure = Failure::None;
    std::string reason; // in words, for the log
    int width = 0;
    int height = 0;
    std::vector<std::uint8_t> pixels; // width x height, 0 black to 255 white
    int framesUsed = 0;
    int framesFed = 0;
};

/*
 * Makes one picture of a line from the frames of one swipe. Cost per frame is constant; memory
 * follows the area that the pen has seen, and finish() takes that of the rectangle around it, whose
 * size is limited (Panorama::MostSide, MostArea): frames beyond it are left out. Not thread-safe;
 * knows nothing of time but what the frames say.
 */
class Stitcher
{
public:
    explicit Stitcher(const ScanSettings& settings);

    /* Frames in the order in which they were taken. A frame that is no valid one, or whose size or
     * resolution differs from the first one's, is left out. */
    void feed(const Frame& frame);

    /* The swipe has ended. */
    SwipePicture finish();

private:
    struct Waiting
    {
        cv::Mat grey;
        std::int64_t timeUs;
    };

    bool fitsIn(const Frame& frame) const;
    void look(const cv::Mat& grey, std::int64_t timeUs);
    void settleTone();
    void place(const cv::Mat& grey, std::int64_t timeUs);
    void remember(const Shift& place);

    ScanSettings m_settings;
    int m_dpi = 0;
    cv::Size m_size;
    ToneFinder m_toneFinder;
    std::optional<PrintTone> m_tone;
    std::vector<Waiting> m_waiting; // for the tone; a few at most
    MotionTracker m_tracker;
    std::optional<Panorama> m_panorama;
    std::vector<cv::Point2d> m_path; // of the frames' middles, some pixels apart
    int m_fed = 0;
    int m_blankBefore = 0; // frames without print before the tone was known
    int m_oddFrames = 0;
    bool m_full = false;
};

#endif
