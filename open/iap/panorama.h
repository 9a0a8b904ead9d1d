#ifndef PANORAMA_H
#define PANORAMA_H

#include "open/iap/registration.h"

#include <opencv2/core.hpp>

#include <map>
#include <utility>

/*
 * The picture of the whole swipe, put together frame by frame. Its plane is that of the first
 * frame, the first frame's middle being the origin. It is kept in tiles that are made where frames
 * fall: adding a frame costs the same however long the swipe is, and memory follows the area seen.
 * The rectangle around it is limited as well, since picture() is made of the whole of it.
 */
class Panorama
{
public:
    static constexpr int TileSide = 128;
    static constexpr std::size_t MostTiles = 512; // 67 MB
    /* Of bounds(), in pixels: 1.4 m of print at 300 dots an inch. OpenCV turns no picture of 32,767
     * or more, not even one that gets so long by turning. */
    static constexpr int MostSide = 16384;
    static constexpr int MostArea = 16 << 20; // 200 mm at 600 dots an inch, 25 degrees oblique

    /* `frameSize`: of every frame that will be added. */
    explicit Panorama(cv::Size frameSize);

    /* Adds a frame's ink map at its place. Frames are blended: what was seen in the middle of a
     * frame weighs most. False, and nothing is added, when the panorama would grow too large. */
    bool add(const cv::Mat& ink, const Shift& place);

    bool isEmpty() const { return m_tiles.empty(); }
    /* What has been seen so far, in the plane's coordinates. */
    cv::Rect bounds() const { return m_bounds; }

    /* The ink of the area, 8 bit; 0 where nothing was seen. `seen`, when wanted: 255 where a frame
     * fell. */
    cv::Mat picture(const cv::Rect& area, cv::Mat* seen = nullptr) const;

private:
    using TileIndex = std::pair<int, int>; // row, column

    static bool isTooLarge(const cv::Rect& bounds);
    cv::Rect placedBounds(const Shift& place) const;
    void addToTile(const TileIndex& index, const cv::Mat& patch, const cv::Rect& patchArea);

    cv::Size m_frameSize;
    cv::Mat m_weights;
    cv::Mat m_weighted; // scratch: a frame's ink times weight, and the weight
    cv::Mat m_patch;    // scratch: the same, turned into the plane
    std::map<TileIndex, cv::Mat> m_tiles;
    cv::Rect m_bounds;
};

#endif
