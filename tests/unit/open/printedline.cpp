#include "printedline.h"

#include <QFontDatabase>
#include <QFontMetrics>
#include <QPainter>

#include <algorithm>
#include <optional>

namespace {

std::optional<QFont> fontOf(const char* file, int pixelSize)
{
    const int id = QFontDatabase::addApplicationFont(QString::fromLatin1(file));
    const QStringList families = QFontDatabase::applicationFontFamilies(id);
    if (families.isEmpty())
        return std::nullopt;
    QFont font(families.first());
    font.setPixelSize(pixelSize);
    return font;
}

} // namespace

QImage printedLine(const QString& text, const char* fontFile, int pixelSize)
{
    const std::optional<QFont> loaded = fontOf(fontFile, pixelSize);
    if (!loaded)
        return {};
    const QFont& font = *loaded;
    const QFontMetrics metrics(font);
    QImage image(metrics.horizontalAdvance(text) + pixelSize, metrics.height() + pixelSize / 4,
                 QImage::Format_Grayscale8);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.setFont(font);
    painter.drawText(pixelSize / 2, pixelSize / 8 + metrics.ascent(), text);
    return image;
}

QImage printedColumn(const QString& text, int pixelSize)
{
    const std::optional<QFont> font = fontOf(ChineseFont, pixelSize);
    if (!font)
        return {};
    const QFontMetrics metrics(*font);
    const int pitch = pixelSize + std::max(1, pixelSize / 12);
    QImage image(static_cast<int>(text.size()) * pitch + pixelSize, pixelSize + pixelSize / 2,
                 QImage::Format_Grayscale8);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.setFont(*font);
    for (int i = 0; i < text.size(); ++i) {
        painter.resetTransform();
        painter.translate(pixelSize / 2.0 + i * pitch, pixelSize / 4.0);
        if (QStringLiteral("，。、").contains(text[i])) {
            painter.translate(pixelSize * 0.55, -pixelSize * 0.55);
        } else if (QStringLiteral("（）《》").contains(text[i])) {
            painter.translate(pixelSize / 2.0, pixelSize / 2.0);
            painter.rotate(90);
            painter.translate(-pixelSize / 2.0, -pixelSize / 2.0);
        }
        painter.drawText(0, metrics.ascent() * pixelSize / metrics.height(), text.mid(i, 1));
    }
    return image;
}
