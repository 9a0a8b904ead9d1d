#include "printedline.h"

#include <QFontDatabase>
#include <QFontMetrics>
#include <QList>
#include <QPainter>

#include <algorithm>

QImage printedLine(const QString& text, const char* fontFile, int pixelSize)
{
    const int id = QFontDatabase::addApplicationFont(QString::fromLatin1(fontFile));
    const QStringList families = QFontDatabase::applicationFontFamilies(id);
    if (families.isEmpty())
        return {};
    QFont font(families.first());
    font.setPixelSize(pixelSize);
    const QFontMetrics metrics(font);
    QImage image(metrics.horizontalAdvance(text) + pixelSize, metrics.height() + pixelSize / 4,
                 QImage::Format_Grayscale8);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.setFont(font);
    painter.drawText(pixelSize / 2, pixelSize / 8 + metrics.ascent(), text);
    return image;
}

int editDistance(const QString& a, const QString& b)
{
    QList<int> previous(b.size() + 1);
    for (int j = 0; j <= b.size(); ++j)
        previous[j] = j;
    for (int i = 0; i < a.size(); ++i) {
        QList<int> current = {i + 1};
        for (int j = 0; j < b.size(); ++j)
            current.append(std::min(
                {previous[j] + (a[i] == b[j] ? 0 : 1), previous[j + 1] + 1, current[j] + 1}));
        previous = current;
    }
    return previous.last();
}
