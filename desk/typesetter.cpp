#include "desk/typesetter.h"

#include "desk/linefinder.h"

#include <QAbstractTextDocumentLayout>
#include <QPainter>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextLayout>

namespace {

constexpr double Dpi = 600.0;
constexpr QSizeF PaperMm(148.0, 210.0); // A5
constexpr double MarginMm = 16.0;

double pixels(double mm)
{
    return mm * Dpi / PrintedPage::MmPerInch;
}

QImage blankPaper()
{
    QImage paper(QSize(int(pixels(PaperMm.width())), int(pixels(PaperMm.height()))),
                 QImage::Format_Grayscale8);
    paper.fill(Qt::white);
    const int dotsPerMetre = qRound(Dpi / PrintedPage::MmPerInch * 1000.0);
    paper.setDotsPerMeterX(dotsPerMetre);
    paper.setDotsPerMeterY(dotsPerMetre);
    return paper;
}

void setLineHeights(QTextDocument& document, double height)
{
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        QTextBlockFormat format = block.blockFormat();
        format.setLineHeight(height * 100.0, QTextBlockFormat::ProportionalHeight);
        QTextCursor(block).setBlockFormat(format);
    }
}

/* The lines of print in the order of the text, with the boxes of their ink. */
QVector<PrintedPage::Line> linesOf(const QTextDocument& document, const QImage& paper,
                                   QPointF origin)
{
    QVector<PrintedPage::Line> lines;
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        const QTextLayout& layout = *block.layout();
        const QPointF blockPlace =
            document.documentLayout()->blockBoundingRect(block).topLeft() + origin;
        for (int i = 0; i < layout.lineCount(); ++i) {
            const QTextLine line = layout.lineAt(i);
            const QString text = block.text().mid(line.textStart(), line.textLength()).trimmed();
            const QRectF place = line.naturalTextRect().translated(blockPlace);
            const QRectF ink = linefinder::inkBox(paper, place.toAlignedRect());
            if (text.isEmpty() || ink.isEmpty())
                continue;
            const double mmPerPixel = PrintedPage::MmPerInch / Dpi;
            lines.append({QRectF(ink.topLeft() * mmPerPixel, ink.size() * mmPerPixel), text});
        }
    }
    return lines;
}

PrintedPage print(const QString& name, QTextDocument& document, const typesetter::Style& style)
{
    PrintedPage page;
    page.name = name;
    page.language = style.language;
    page.dpi = Dpi;
    page.image = blankPaper();
    const QPointF origin(pixels(MarginMm), pixels(MarginMm));
    setLineHeights(document, style.lineHeight);
    document.documentLayout()->setPaintDevice(&page.image);
    document.setDocumentMargin(0.0);
    document.setTextWidth(pixels(PaperMm.width() - 2 * MarginMm));

    QPainter painter(&page.image);
    painter.translate(origin);
    QAbstractTextDocumentLayout::PaintContext context;
    context.palette.setColor(QPalette::Text, Qt::black);
    document.documentLayout()->draw(&painter, context);
    painter.end();
    page.lines = linesOf(document, page.image, origin);
    return page;
}

QFont fontFor(const typesetter::Style& style)
{
    QFont font(style.family.isEmpty() ? typesetter::familyFor(style.language) : style.family);
    font.setPointSizeF(style.sizePt);
    font.setHintingPreference(QFont::PreferNoHinting);
    return font;
}

} // namespace

namespace typesetter {

QString familyFor(const QString& language)
{
    return language == QLatin1String("zh") ? QStringLiteral("AR PL SungtiL GB")
                                           : QStringLiteral("Liberation Serif");
}

PrintedPage setHtml(const QString& name, const QString& html, const Style& style)
{
    QTextDocument document;
    document.setDefaultFont(fontFor(style));
    document.setHtml(html);
    return print(name, document, style);
}

PrintedPage setPlain(const QString& name, const QString& text, const Style& style)
{
    QTextDocument document;
    document.setDefaultFont(fontFor(style));
    document.setPlainText(text);
    return print(name, document, style);
}

} // namespace typesetter
