#include "open/iap/camerawindow.h"

#include <opencv2/imgproc.hpp>

#include <algorithm>
#include <cmath>

namespace {

constexpr double WindowWidthMm = 13.5;
constexpr double WindowHeightMm = 8.8;
constexpr double FinestDpi = 300.0;          // of a frame
constexpr double FinestCameraDpi = 20'000.0; // beyond all sense

bool isSide(int pixels)
{
    return pixels >= MinFrameSide && pixels <= MaxFrameSide;
}

/* The brightness alone, of a part of the picture. */
cv::Mat greyPart(const CameraPicture& picture, const cv::Rect& part)
{
    auto* start = const_cast<std::uint8_t*>(picture.pixels);
    const int type = picture.pixelBytes == 2 ? CV_8UC2 : CV_8U;
    const cv::Mat whole(picture.height, picture.width, type, start, picture.rowBytes);
    if (picture.pixelBytes == 1)
        return whole(part);
    cv::Mat grey;
    cv::extractChannel(whole(part), grey, picture.brightness);
    return grey;
}

} // namespace

std::optional<CameraWindow> CameraWindow::of(int width, int height, double dpi, int turn,
                                             std::string& why)
{
    const bool lying = turn == 90 || turn == 270;
    const auto pixels = [dpi](double mm) { return int(std::lround(mm / MmPerInch * dpi)); };
    const auto size = std::to_string(width) + " x " + std::to_string(height) + " pixels";
    if (!(dpi >= MinFrameDpi && dpi <= FinestCameraDpi)) {
        why = "the camera's " + size + " are not of " + std::to_string(MinFrameDpi) + " to "
              + std::to_string(int(FinestCameraDpi)) + " dpi";
        return std::nullopt;
    }
    CameraWindow window;
    window.m_picture = cv::Size(width, height);
    window.m_part.width = std::min(width, pixels(lying ? WindowHeightMm : WindowWidthMm));
    window.m_part.height = std::min(height, pixels(lying ? WindowWidthMm : WindowHeightMm));
    window.m_part.x = (width - window.m_part.width) / 2;
    window.m_part.y = (height - window.m_part.height) / 2;
    const double scale = std::min(1.0, FinestDpi / dpi);
    window.m_scaled = cv::Size(int(std::lround(window.m_part.width * scale)),
                               int(std::lround(window.m_part.height * scale)));
    window.m_dpi = int(std::lround(dpi * scale));
    window.m_turn = turn;
    if (!isSide(window.m_scaled.width) || !isSide(window.m_scaled.height)) {
        why = "the camera's " + size + " at " + std::to_string(std::lround(dpi))
              + " dpi show too little paper";
        return std::nullopt;
    }
    return window;
}

bool CameraWindow::fits(const CameraPicture& picture) const
{
    return m_picture == cv::Size(picture.width, picture.height);
}

Frame CameraWindow::frameOf(const CameraPicture& picture) const
{
    cv::Mat grey = greyPart(picture, m_part);
    if (grey.size() != m_scaled) {
        cv::Mat scaled;
        cv::resize(grey, scaled, m_scaled, 0.0, 0.0, cv::INTER_AREA);
        grey = scaled;
    }
    if (m_turn != 0) {
        cv::Mat turned;
        const int how = m_turn == 90    ? cv::ROTATE_90_CLOCKWISE
                        : m_turn == 180 ? cv::ROTATE_180
                                        : cv::ROTATE_90_COUNTERCLOCKWISE;
        cv::rotate(grey, turned, how);
        grey = turned;
    }
    Frame frame;
    frame.timeUs = picture.timeUs;
    frame.width = grey.cols;
    frame.height = grey.rows;
    frame.dpi = m_dpi;
    frame.pixels.reserve(grey.total());
    for (int y = 0; y < grey.rows; ++y) {
        const std::uint8_t* row = grey.ptr<std::uint8_t>(y);
        frame.pixels.insert(frame.pixels.end(), row, row + grey.cols);
    }
    return frame;
}
