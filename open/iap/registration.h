#ifndef REGISTRATION_H
#define REGISTRATION_H

#include <opencv2/core.hpp>

#include <array>
#include <vector>

/*
 * Where one frame lies in the picture plane of another (or of the panorama): a point p of the
 * frame is found at R(angle) (p - m) + m + (x, y), m being the frame's middle. Pixels, radians,
 * x right, y down.
 */
struct Shift
{
    double x = 0.0;
    double y = 0.0;
    double angle = 0.0;
};

/* First `inner` (frame to key), then `outer` (key to panorama). */
Shift composed(const Shift& outer, const Shift& inner);

/* A frame's ink prepared for registration: three sizes, and the pixels that tell most about its
 * position. */
class FramePyramid
{
public:
    static constexpr int Levels = 3;

    struct Level
    {
        cv::Mat ink;     // 8 bit
        cv::Mat sum;     // integral of ink, 32 bit
        cv::Mat squares; // integral of its square, double
    };
    struct EdgePixel
    {
        float x;
        float y; // from the frame's middle
        float ink;
        float slopeX;
        float slopeY;
    };

    /* `ink` as of inkMap; at least 16 pixels wide and high. */
    explicit FramePyramid(const cv::Mat& ink);

    const Level& level(int index) const { return m_levels[index]; }
    const std::vector<EdgePixel>& edges() const { return m_edges; }
    cv::Size size() const { return m_levels[0].ink.size(); }
    /* Whether there is print enough to tell a position. */
    bool hasPrint() const;

private:
    void collectEdges();

    std::array<Level, Levels> m_levels;
    std::vector<EdgePixel> m_edges;
};

struct Registration
{
    Shift shift;        // of the frame in the key's plane
    double score = 0.0; // normalised correlation of the overlap, -1 to 1
};

/*
 * Finds the frame in the plane of the key frame, both of the same size. The whole frame is
 * searched, and `expected` decides between places that look alike (print repeats itself). Cost
 * depends on the frame's size only.
 */
Registration registerFrame(const FramePyramid& key, const FramePyramid& frame,
                           const Shift& expected);

#endif
