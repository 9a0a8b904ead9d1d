#include "desk/camera/printsheet.h"

#include <QFont>
#include <QFontMetricsF>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace {

constexpr double MmPerInch = 25.4;
constexpr double PointsPerInch = 72.0;

} // namespace

PrintSheet::PrintSheet(const QStringList& lines, const PrintSettings& settings)
    : m_settings(settings)
{
    QFont font(settings.family);
    font.setPixelSize(
        static_cast<int>(std::lround(settings.points * settings.dpi / PointsPerInch)));
    font.setHintingPreference(QFont::PreferNoHinting);
    if (settings.vertical)
        printColumns(lines, font);
    else
        printRows(lines, font);
}

QImage PrintSheet::blankPage(double width, double height) const
{
    QImage page(static_cast<int>(std::ceil(width)), static_cast<int>(std::ceil(height)),
                QImage::Format_Grayscale8);
    page.fill(QColor(m_settings.paper, m_settings.paper, m_settings.paper));
    return page;
}

void PrintSheet::printRows(const QStringList& lines, const QFont& font)
{
    const QFontMetricsF metrics(font);
    const double dotsPerMm = m_settings.dpi / MmPerInch;
    const double margin = m_settings.marginMm * dotsPerMm;
    const double step = font.pixelSize() * m_settings.leading;
    double widest = 0.0;
    for (const QString& line : lines)
        widest = std::max(widest, metrics.horizontalAdvance(line));
    m_picture = blankPage(widest + 2.0 * margin, step * double(lines.size()) + 2.0 * margin);
    QPainter painter(&m_picture);
    painter.setFont(font);
    painter.setPen(QColor(m_settings.ink, m_settings.ink, m_settings.ink));
    double baseline = margin + metrics.ascent();
    for (const QString& line : lines) {
        painter.drawText(QPointF(margin, baseline), line);
        const double top = baseline - metrics.capHeight();
        m_lines.push_back({line, QRectF(margin / dotsPerMm, top / dotsPerMm,
                                        metrics.horizontalAdvance(line) / dotsPerMm,
                                        metrics.capHeight() / dotsPerMm)});
        baseline += step;
    }
}

void PrintSheet::printColumns(const QStringList& lines, const QFont& font)
{
    const double dotsPerMm = m_settings.dpi / MmPerInch;
    const double margin = m_settings.marginMm * dotsPerMm;
    const double side = font.pixelSize();
    const double step = side * m_settings.leading;
    qsizetype longest = 0;
    for (const QString& line : lines)
        longest = std::max(longest, line.size());
    m_picture = blankPage(step * double(lines.size()) + 2.0 * margin,
                          side * double(longest) + 2.0 * margin);
    QPainter painter(&m_picture);
    painter.setFont(font);
    painter.setPen(QColor(m_settings.ink, m_settings.ink, m_settings.ink));
    double left = m_picture.width() - margin - side;
    for (const QString& line : lines) {
        for (qsizetype i = 0; i < line.size(); ++i)
            painter.drawText(QRectF(left, margin + double(i) * side, side, side), Qt::AlignCenter,
                             line.mid(i, 1));
        m_lines.push_back({line, QRectF(left / dotsPerMm, margin / dotsPerMm, side / dotsPerMm,
                                        side * double(line.size()) / dotsPerMm)});
        left -= step;
    }
}
