#include "widgets/painting.h"

#include <QFontMetrics>
#include <QPainter>
#include <QTextLayout>

namespace painting {

namespace {

// Room at the left and right of a message: the frame and a gap.
constexpr int MessageMargin = 4;

// Pixels from the top of a line to the base line: the font's ascent at this size.
constexpr int Ascent = 14;

QStringList wrapParagraph(const QString& paragraph, int width)
{
    QTextLayout layout(paragraph, screenFont());
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    layout.setTextOption(option);
    QStringList lines;
    layout.beginLayout();
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLineWidth(width);
        lines.append(paragraph.mid(line.textStart(), line.textLength()).trimmed());
    }
    layout.endLayout();
    return lines;
}

} // namespace

QFont screenFont()
{
    QFont font(QStringLiteral("nits"));
    font.setPixelSize(LineHeight);
    font.setStyleStrategy(QFont::NoAntialias);
    font.setHintingPreference(QFont::PreferNoHinting);
    font.setKerning(false);
    return font;
}

int textWidth(const QString& text)
{
    return QFontMetrics(screenFont()).horizontalAdvance(text);
}

QString oneLine(const QString& text)
{
    QString line = text;
    for (QChar& c : line) {
        if (c.category() == QChar::Other_Control || c == QChar::LineSeparator
            || c == QChar::ParagraphSeparator)
            c = QLatin1Char(' ');
    }
    return line;
}

QStringList wrapText(const QString& text, int width, int maxLines)
{
    QStringList lines;
    const QStringList paragraphs = text.split(QLatin1Char('\n'));
    for (const QString& paragraph : paragraphs)
        lines += wrapParagraph(oneLine(paragraph), width);
    if (lines.size() <= maxLines)
        return lines;
    // The cut line takes the start of what follows along, so that the ellipsis comes where the
    // width ends and not where the line happened to break.
    const QString last = lines.mid(maxLines - 1, 2).join(QLatin1Char(' '));
    lines = lines.mid(0, maxLines - 1);
    const QFontMetrics metrics(screenFont());
    const int room = width - metrics.horizontalAdvance(QChar(0x2026));
    int length = static_cast<int>(last.size());
    while (length > 0 && metrics.horizontalAdvance(last.left(length)) > room)
        --length;
    lines.append(last.left(length).trimmed() + QChar(0x2026));
    return lines;
}

void drawLine(QPainter& painter, const QRect& box, const QString& text, int scroll)
{
    painter.save();
    painter.setClipRect(box, Qt::IntersectClip);
    painter.setFont(screenFont());
    painter.drawText(box.left() - scroll, box.top() + Ascent, text);
    painter.restore();
}

void drawMessage(QPainter& painter, const QRect& box, const QString& text)
{
    const QStringList lines = wrapText(text, box.width() - 2 * MessageMargin, MaxLines);
    const int height = static_cast<int>(lines.size()) * LineHeight;
    int top = box.top() + (box.height() - height) / 2;
    if (lines.size() < MaxLines)
        painter.drawRect(box.adjusted(0, 0, -1, -1));
    for (const QString& line : lines) {
        const int left = box.left() + (box.width() - textWidth(line)) / 2;
        drawLine(painter, QRect(left, top, box.right() + 1 - left, LineHeight), line);
        top += LineHeight;
    }
}

} // namespace painting
