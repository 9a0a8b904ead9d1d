#include "desk/penpicture.h"

#include <QColor>
#include <QPainter>
#include <algorithm>

namespace {

constexpr QRgb PanelColour = qRgb(8, 10, 12);
constexpr QRgb UnlitColour = qRgb(14, 17, 20);
constexpr QRgb LitColour = qRgb(232, 245, 255);
constexpr QRgb LitGapColour = qRgb(128, 140, 150); // between lit pixels: their light meets here
constexpr double HaloStrength = 0.18;

/* The light that scatters around lit pixels: the picture softened and added at low strength. */
QImage halo(const QImage& oneBit, QSize size)
{
    const QImage small =
        oneBit.convertToFormat(QImage::Format_RGB32)
            .scaled(oneBit.size() / 2, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    return small.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

} // namespace

namespace penpicture {

QImage toOneBit(const QImage& frame)
{
    QImage result(PanelSize, QImage::Format_Mono);
    result.setColorTable({qRgb(0, 0, 0), qRgb(255, 255, 255)});
    result.fill(0U);
    const QImage source = frame.convertToFormat(QImage::Format_RGB32);
    const int width = std::min(source.width(), PanelSize.width());
    const int height = std::min(source.height(), PanelSize.height());
    for (int y = 0; y < height; ++y) {
        const auto* line = reinterpret_cast<const QRgb*>(source.constScanLine(y));
        for (int x = 0; x < width; ++x) {
            if (qGray(line[x]) >= 128)
                result.setPixel(x, y, 1);
        }
    }
    return result;
}

QImage magnified(const QImage& oneBit, int factor)
{
    return oneBit.scaled(oneBit.size() * std::max(factor, 1));
}

QImage luminous(const QImage& oneBit, int factor)
{
    const int step = std::max(factor, 1);
    QImage result(oneBit.size() * step, QImage::Format_RGB32);
    result.fill(PanelColour);
    QPainter painter(&result);
    const int dot = step > 2 ? step - 1 : step;
    const auto paintDots = [&](uint state, int size, QRgb colour) {
        for (int y = 0; y < oneBit.height(); ++y) {
            for (int x = 0; x < oneBit.width(); ++x) {
                if (uint(oneBit.pixelIndex(x, y)) == state)
                    painter.fillRect(x * step, y * step, size, size, QColor(colour));
            }
        }
    };
    paintDots(0, dot, UnlitColour);
    painter.setCompositionMode(QPainter::CompositionMode_Plus);
    painter.setOpacity(HaloStrength);
    painter.drawImage(0, 0, halo(oneBit, result.size()));
    painter.setOpacity(1.0);
    painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
    paintDots(1, step, LitGapColour);
    paintDots(1, dot, LitColour);
    return result;
}

} // namespace penpicture
