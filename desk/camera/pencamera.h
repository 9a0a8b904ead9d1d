#ifndef PENCAMERA_H
#define PENCAMERA_H

#include <QImage>
#include <QPointF>

#include <cstdint>

/* Which way up the camera looks at the page. */
struct CameraMount
{
    bool leftHand = false; // the pen is held the other way round: frames are turned by 180 degrees
    bool vertical = false; // the pen lies across a column: frames are turned by 90 degrees, so that
                           // the column runs from left to right through them
};

/* What the camera of the pen is like. */
struct CameraSettings
{
    int width = 160; // pixels
    int height = 104;
    int dpi = 300;                  // resolution on the paper: 13.5 x 8.8 mm
    double framesPerSecond = 150.0; // for those who cut the frames
    double exposureUs = 200.0;      // the picture is smeared by the motion in this time
    double rotationDeg = 0.0;       // the pen is turned on the paper, clockwise
    double blurPx = 0.5;            // sigma of the lens, in pixels of the frame
    double noise = 2.0;             // sigma of the sensor, in grey levels
    double lightGradient = 0.15;    // 0 even light to 1 one side of the frame dark
    double brightness = 225.0;      // grey level of white paper in full light
    CameraMount mount;
    std::uint32_t seed = 1; // of the noise
};

/* Where the pen is: the point of the page in the middle of the picture. */
struct PenPose
{
    QPointF mm;             // from the upper left corner of the page, x right, y down
    double angleDeg = 0.0;  // turn of the pen on the paper, clockwise
    QPointF velocityMmPerS; // for the motion blur
};

/*
 * The pen's camera over a printed page. Frames depend on the settings, the pose and the number of
 * the frame only. Beyond the page's edges the paper is white.
 */
class PenCamera
{
public:
    /* `page` is kept as a grey picture (Format_Grayscale8) of `pageDpi` dots per inch; 600 is a
     * good choice, less than the camera's own resolution makes blurred frames. */
    PenCamera(const QImage& page, double pageDpi, const CameraSettings& settings = {});

    /* The frame number `index` (it seeds the noise), seen at `pose`: Format_Grayscale8, width x
     * height as the settings say, rows possibly padded as QImage does. Costs about a
     * millisecond. Any thread. */
    QImage frameAt(const PenPose& pose, std::uint32_t index) const;

    const CameraSettings& settings() const { return m_settings; }

private:
    double paperAt(double xMm, double yMm) const;
    QPointF paperPoint(const PenPose& pose, double u, double v) const;

    QImage m_page;
    double m_pageDotsPerMm;
    CameraSettings m_settings;
};

#endif
