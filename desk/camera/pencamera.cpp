#include "desk/camera/pencamera.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <numbers>
#include <vector>

namespace {

constexpr double MmPerInch = 25.4;
constexpr double White = 255.0;
constexpr int Fine = 2;          // samples per camera pixel in each direction
constexpr int MaxMotionTaps = 5; // pictures that are added up for a smeared one

double radians(double degrees)
{
    return degrees * std::numbers::pi / 180.0;
}

QPointF turned(QPointF p, double degrees)
{
    const double c = std::cos(radians(degrees));
    const double s = std::sin(radians(degrees));
    return {c * p.x() - s * p.y(), s * p.x() + c * p.y()};
}

/* A small picture of grey levels between 0 and 255 with fractions. */
struct Plane
{
    Plane(int w, int h) : width(w), height(h), values(static_cast<std::size_t>(w) * h) {}
    double& at(int x, int y) { return values[static_cast<std::size_t>(y) * width + x]; }
    double clamped(int x, int y) const
    {
        return values[static_cast<std::size_t>(std::clamp(y, 0, height - 1)) * width
                      + std::clamp(x, 0, width - 1)];
    }
    int width;
    int height;
    std::vector<double> values;
};

std::vector<double> gaussianKernel(double sigma)
{
    const int radius = static_cast<int>(std::ceil(3.0 * sigma));
    std::vector<double> kernel;
    double sum = 0.0;
    for (int i = -radius; i <= radius; ++i) {
        kernel.push_back(std::exp(-0.5 * i * i / (sigma * sigma)));
        sum += kernel.back();
    }
    for (double& weight : kernel)
        weight /= sum;
    return kernel;
}

Plane convolved(const Plane& source, const std::vector<double>& kernel, int dx, int dy)
{
    Plane result(source.width, source.height);
    const int radius = static_cast<int>(kernel.size() / 2);
    for (int y = 0; y < source.height; ++y)
        for (int x = 0; x < source.width; ++x) {
            double sum = 0.0;
            for (int i = -radius; i <= radius; ++i)
                sum += kernel[i + radius] * source.clamped(x + i * dx, y + i * dy);
            result.at(x, y) = sum;
        }
    return result;
}

Plane blurred(const Plane& source, double sigma)
{
    if (sigma < 0.1)
        return source;
    const std::vector<double> kernel = gaussianKernel(sigma);
    return convolved(convolved(source, kernel, 1, 0), kernel, 0, 1);
}

/* Noise of the sensor: the same numbers for the same seed and frame on every machine. */
class Noise
{
public:
    Noise(std::uint32_t seed, std::uint32_t index)
        : m_state((static_cast<std::uint64_t>(seed) << 32) ^ (index * 0x9e3779b97f4a7c15ULL))
    {
    }

    /* Nearly normal, sigma 1: the sum of four even ones. */
    double next()
    {
        m_state += 0x9e3779b97f4a7c15ULL;
        std::uint64_t z = m_state;
        z = (z ^ (z >> 30)) * 0xbf58476d1ce4e5b9ULL;
        z = (z ^ (z >> 27)) * 0x94d049bb133111ebULL;
        z ^= z >> 31;
        const std::uint64_t sum =
            (z & 0xffff) + ((z >> 16) & 0xffff) + ((z >> 32) & 0xffff) + (z >> 48);
        return (static_cast<double>(sum) - 2.0 * 65535.0) / 37837.2;
    }

private:
    std::uint64_t m_state;
};

} // namespace

PenCamera::PenCamera(const QImage& page, double pageDpi, const CameraSettings& settings)
    : m_page(page.convertToFormat(QImage::Format_Grayscale8)),
      m_pageDotsPerMm(pageDpi / MmPerInch),
      m_settings(settings)
{
}

double PenCamera::paperAt(double xMm, double yMm) const
{
    const double x = xMm * m_pageDotsPerMm - 0.5;
    const double y = yMm * m_pageDotsPerMm - 0.5;
    const int left = static_cast<int>(std::floor(x));
    const int top = static_cast<int>(std::floor(y));
    if (left < 0 || top < 0 || left + 1 >= m_page.width() || top + 1 >= m_page.height())
        return White;
    const uchar* upper = m_page.constScanLine(top) + left;
    const uchar* lower = upper + m_page.bytesPerLine();
    const double fx = x - left;
    const double fy = y - top;
    return (upper[0] * (1.0 - fx) + upper[1] * fx) * (1.0 - fy)
           + (lower[0] * (1.0 - fx) + lower[1] * fx) * fy;
}

QPointF PenCamera::paperPoint(const PenPose& pose, double u, double v) const
{
    const double base =
        (m_settings.mount.leftHand ? 180.0 : 0.0) + (m_settings.mount.vertical ? 90.0 : 0.0);
    const double scale = MmPerInch / m_settings.dpi;
    const QPointF fromMiddle((u - m_settings.width / 2.0) * scale,
                             (v - m_settings.height / 2.0) * scale);
    return pose.mm + turned(fromMiddle, base + m_settings.rotationDeg + pose.angleDeg);
}

QImage PenCamera::frameAt(const PenPose& pose, std::uint32_t index) const
{
    const int width = m_settings.width;
    const int height = m_settings.height;
    const QPointF smearMm = pose.velocityMmPerS * (m_settings.exposureUs * 1e-6);
    const double smearPx = std::hypot(smearMm.x(), smearMm.y()) * m_settings.dpi / MmPerInch;
    const int taps = std::clamp(static_cast<int>(std::ceil(smearPx * 2.0)), 1, MaxMotionTaps);

    // The turn is the same for the whole frame: two steps on the paper span it.
    const QPointF origin = paperPoint(pose, 0.5 / Fine, 0.5 / Fine);
    const QPointF stepU = paperPoint(pose, 1.5 / Fine, 0.5 / Fine) - origin;
    const QPointF stepV = paperPoint(pose, 0.5 / Fine, 1.5 / Fine) - origin;
    Plane plane(width, height);
    const double share = 1.0 / (Fine * Fine * taps);
    for (int tap = 0; tap < taps; ++tap) {
        const QPointF start = origin + smearMm * ((tap + 0.5) / taps - 0.5);
        for (int v = 0; v < height * Fine; ++v)
            for (int u = 0; u < width * Fine; ++u) {
                const QPointF p = start + stepU * u + stepV * v;
                plane.at(u / Fine, v / Fine) += share * paperAt(p.x(), p.y());
            }
    }
    plane = blurred(plane, m_settings.blurPx);

    Noise noise(m_settings.seed, index);
    QImage frame(width, height, QImage::Format_Grayscale8);
    for (int v = 0; v < height; ++v) {
        uchar* row = frame.scanLine(v);
        for (int u = 0; u < width; ++u) {
            const double dark = m_settings.lightGradient * (0.7 * u / width + 0.3 * v / height);
            const double grey = plane.at(u, v) * m_settings.brightness / White * (1.0 - dark)
                                + m_settings.noise * noise.next();
            row[u] = static_cast<uchar>(std::clamp(std::lround(grey), 0L, 255L));
        }
    }
    return frame;
}
