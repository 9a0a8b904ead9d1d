#ifndef CAMERAWINDOW_H
#define CAMERAWINDOW_H

#include "open/iap/camerapicture.h"
#include "open/iap/frame.h"

#include <opencv2/core.hpp>

#include <optional>
#include <string>

/*
 * Makes frames of a camera's pictures: the middle of each, 13.5 x 8.8 mm of paper or what there is
 * of it, turned as the camera is built in, at the camera's resolution but 300 dpi at most. A larger
 * window would show more of the neighbouring lines, a finer one takes time and reads no better.
 */
class CameraWindow
{
public:
    /* For pictures of that size. `dpi`: their resolution on the paper. `turn`: how the picture has
     * to be turned clockwise to stand as the pen is held, 0, 90, 180 or 270 degrees. Nothing, and
     * why, when no frame comes out. */
    static std::optional<CameraWindow> of(int width, int height, double dpi, int turn,
                                          std::string& why);

    bool fits(const CameraPicture& picture) const;
    /* Of a picture that fits. */
    Frame frameOf(const CameraPicture& picture) const;

private:
    cv::Size m_picture;
    cv::Rect m_part;   // of the picture
    cv::Size m_scaled; // that part before it is turned
    int m_dpi = 0;
    int m_turn = 0;
};

#endif
