#include "widgets/painting.h"

#include "widgets/evenlines.h"

#include <QFontMetrics>
#include <QPainter>
#include <QTextLayout>

namespace painting {

namespace {

// Room at the left and right of a message: the frame and a gap.
constexpr int MessageMargin = 4;

// Between the lines of a message that leaves room: Chinese characters are as high as the line.
constexpr int Leading = 2;

// The column of marks at the right edge of a list, and the room at both ends of a row.
constexpr int MarkColumn = 10;
constexpr int RowMargin = 2;

// Between two things that stand in one line.
constexpr int Gap = 8;

// The second text takes at most this part of a row.
constexpr int SecondTextLimit = 96;

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

// The start of a text with an ellipsis, even if the text would fit. Never half a surrogate pair.
QString cut(const QString& text, int width, const QFont& font = screenFont())
{
    const QFontMetrics metrics(font);
    const QChar ellipsis(0x2026);
    const int room = width - metrics.horizontalAdvance(ellipsis);
    int length = static_cast<int>(text.size());
    while (length > 0
           && (metrics.horizontalAdvance(text, length) > room
               || text.at(length - 1).isHighSurrogate()))
        --length;
    return text.left(length).trimmed() + ellipsis;
}

} // namespace

QFont screenFont()
{
    return onScreen(QFont(QStringLiteral("nits")));
}

QFont onScreen(const QFont& font)
{
    QFont shown = font;
    shown.setPixelSize(LineHeight);
    shown.setStyleStrategy(QFont::NoAntialias);
    shown.setHintingPreference(QFont::PreferNoHinting);
    shown.setKerning(false);
    return shown;
}

int textWidth(const QString& text, const QFont& font)
{
    return QFontMetrics(font).horizontalAdvance(text);
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
    lines.append(cut(last, width));
    return lines;
}

QString elide(const QString& text, int width, const QFont& font)
{
    return textWidth(text, font) <= width ? text : cut(text, width, font);
}

void drawLine(QPainter& painter, const QRect& box, const QString& text, int scroll,
              const QFont& font)
{
    painter.save();
    painter.setClipRect(box, Qt::IntersectClip);
    painter.setFont(font);
    painter.drawText(box.left() - scroll, box.top() + Ascent, text);
    painter.restore();
}

void drawTitle(QPainter& painter, const QString& title, const QString& number, int reserved)
{
    const int numberWidth = number.isEmpty() ? reserved : textWidth(number);
    const int numberLeft = ScreenWidth - numberWidth;
    const QString shown = elide(oneLine(title), numberLeft - Gap);
    drawLine(painter, QRect(0, 0, numberLeft, LineHeight), shown);
    drawLine(painter, QRect(numberLeft, 0, numberWidth, LineHeight), number);
    const int ruleLeft = textWidth(shown) + Gap;
    const int ruleRight = numberLeft - Gap;
    if (ruleLeft < ruleRight)
        painter.drawLine(ruleLeft, LineHeight / 2, ruleRight, LineHeight / 2);
}

QRect listRow(int row)
{
    return {0, (row + 1) * LineHeight, ScreenWidth - MarkColumn, LineHeight};
}

int rowRoom(const QString& second)
{
    const int room = ScreenWidth - MarkColumn - 2 * RowMargin;
    return second.isEmpty() ? room : room - qMin(SecondTextLimit, textWidth(second)) - Gap;
}

void drawRow(QPainter& painter, const QRect& box, const QPalette& palette, const Row& row)
{
    painter.save();
    if (row.current)
        painter.fillRect(box, palette.color(QPalette::Highlight));
    painter.setPen(palette.color(row.current ? QPalette::HighlightedText : QPalette::WindowText));
    const int room = rowRoom(row.second);
    const QString text = row.elided ? elide(row.text, room) : row.text;
    drawLine(painter, QRect(box.left() + RowMargin, box.top(), room, LineHeight), text,
             row.elided ? 0 : row.scroll);
    if (!row.second.isEmpty()) {
        const QString second = elide(row.second, SecondTextLimit);
        const int width = textWidth(second);
        drawLine(painter, QRect(box.right() + 1 - RowMargin - width, box.top(), width, LineHeight),
                 second);
    }
    painter.restore();
}

void drawMark(QPainter& painter, const QRect& row, Mark mark)
{
    constexpr int rows = 4;
    const int middle = row.right() + MarkColumn / 2;
    const int top = row.top() + (row.height() - rows) / 2;
    for (int i = 0; i < rows; ++i) {
        const int half = mark == Mark::Up ? i : rows - 1 - i;
        painter.drawLine(middle - half, top + i, middle + half, top + i);
    }
}

void drawMessage(QPainter& painter, const QRect& box, const QString& text)
{
    const QStringList lines = evenlines::evenLines(text, box.width() - 2 * MessageMargin, MaxLines);
    const bool framed = lines.size() < MaxLines;
    const int pitch = framed ? LineHeight + Leading : LineHeight;
    const int height = static_cast<int>(lines.size()) * pitch - (pitch - LineHeight);
    int top = box.top() + (box.height() - height) / 2;
    if (framed)
        painter.drawRect(box.adjusted(0, 0, -1, -1));
    for (const QString& line : lines) {
        const int left = box.left() + (box.width() - textWidth(line)) / 2;
        drawLine(painter, QRect(left, top, box.right() + 1 - left, LineHeight), line);
        top += pitch;
    }
}

} // namespace painting
