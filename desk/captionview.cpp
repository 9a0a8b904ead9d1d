#include "desk/captionview.h"

#include "desk/desklook.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QPainterPath>
#include <algorithm>

namespace {

constexpr int Height = 40;
constexpr int TextLeft = 54;

/* What is spoken without tags, line breaks and the blanks around them; `offset` is moved along. */
QString readable(const QString& text, int& offset)
{
    QString result;
    bool inTag = false;
    int newOffset = 0;
    const qsizetype lastTagEnd = text.lastIndexOf(QLatin1Char('>'));
    for (int i = 0; i < text.size(); ++i) {
        if (i == offset)
            newOffset = int(result.size());
        const QChar c = text.at(i);
        if (c == QLatin1Char('<') && i < lastTagEnd)
            inTag = true;
        const bool blank = inTag || c.isSpace();
        if (!blank)
            result.append(c);
        else if (!result.isEmpty() && !result.endsWith(QLatin1Char(' ')))
            result.append(QLatin1Char(' '));
        if (c == QLatin1Char('>'))
            inTag = false;
    }
    offset = newOffset;
    return result;
}

} // namespace

CaptionView::CaptionView(QWidget* parent) : QWidget(parent)
{
    setAccessibleName(tr("What the pen says"));
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    setFixedHeight(Height);
}

void CaptionView::showTranscript(const Transcript& transcript)
{
    m_speaking = transcript.isSpeaking();
    m_text.clear();
    m_wordLength = 0;
    if (!transcript.utterances().isEmpty()) {
        const Transcript::Utterance& last = transcript.utterances().last();
        m_wordOffset = -1;
        if (m_speaking && !last.words.isEmpty()) {
            m_wordOffset = last.words.last().offset;
            m_wordLength = last.words.last().length;
        }
        m_text = readable(last.text, m_wordOffset);
    }
    setAccessibleDescription(m_text);
    update();
}

QSize CaptionView::sizeHint() const
{
    return {400, Height};
}

void CaptionView::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    paintSpeaker(painter);
    paintText(painter);
}

void CaptionView::paintSpeaker(QPainter& painter) const
{
    const QColor colour = m_speaking ? desklook::colours().accent : desklook::colours().faintText;
    painter.save();
    painter.translate(22, Height / 2.0);
    QPainterPath cone;
    cone.moveTo(-11, -4);
    cone.lineTo(-6, -4);
    cone.lineTo(1, -10);
    cone.lineTo(1, 10);
    cone.lineTo(-6, 4);
    cone.lineTo(-11, 4);
    cone.closeSubpath();
    painter.fillPath(cone, colour);
    if (m_speaking) {
        painter.setPen(QPen(colour, 2, Qt::SolidLine, Qt::RoundCap));
        for (int radius = 5; radius <= 13; radius += 4)
            painter.drawArc(QRectF(2 - radius, -radius, 2 * radius, 2 * radius), -45 * 16, 90 * 16);
    }
    painter.restore();
}

void CaptionView::paintText(QPainter& painter) const
{
    QFont font = this->font();
    font.setPixelSize(17);
    painter.setFont(font);
    const QRectF area(TextLeft, 0, width() - TextLeft - 12, Height);
    if (m_text.isEmpty()) {
        painter.setPen(desklook::colours().quietText);
        painter.drawText(area, Qt::AlignVCenter, tr("What the pen says appears here"));
        return;
    }
    const QFontMetricsF metrics(font);
    const double wordLeft = metrics.horizontalAdvance(m_text.left(m_wordOffset));
    const double wordWidth = metrics.horizontalAdvance(m_text.mid(m_wordOffset, m_wordLength));
    const double whole = metrics.horizontalAdvance(m_text);
    const double mostShift = std::max(0.0, whole - area.width());
    const double shift = std::clamp(wordLeft + wordWidth / 2 - area.width() / 2, 0.0, mostShift);

    painter.setClipRect(area);
    painter.translate(area.left() - shift, 0);
    const QRectF word(wordLeft - 3, 7, wordWidth + 6, Height - 14);
    if (m_wordLength > 0) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(desklook::Spoken);
        painter.drawRoundedRect(word, 5, 5);
    }
    const QRectF line(0, 0, whole + 10, Height);
    painter.setPen(m_speaking ? desklook::colours().text : desklook::colours().quietText);
    painter.drawText(line, Qt::AlignVCenter, m_text);
    if (m_wordLength == 0)
        return;
    // The mark is bright on every desk: its word is dark.
    painter.setClipRect(word, Qt::IntersectClip);
    painter.setPen(desklook::SpokenText);
    painter.drawText(line, Qt::AlignVCenter, m_text);
}
