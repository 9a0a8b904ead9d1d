#include "widgets/sandglass.h"

#include "platform/devicepaths.h"

#include <QLabel>
#include <QMovie>
#include <QPainter>
#include <QPixmap>

namespace {

constexpr int Side = 33;

QPixmap standingHourglass()
{
    QPixmap picture(Side, Side);
    picture.fill(Qt::black);
    QPainter painter(&picture);
    painter.setPen(Qt::white);
    painter.drawRect(6, 2, 20, 2);
    painter.drawRect(6, 28, 20, 2);
    const QPoint upper[] = {{8, 5}, {24, 5}, {17, 16}, {15, 16}};
    const QPoint lower[] = {{15, 16}, {17, 16}, {24, 27}, {8, 27}};
    painter.drawPolygon(upper, 4);
    painter.drawPolygon(lower, 4);
    painter.setBrush(Qt::white);
    const QPoint sandAbove[] = {{11, 9}, {21, 9}, {16, 16}};
    const QPoint sandBelow[] = {{16, 21}, {22, 27}, {10, 27}};
    painter.drawPolygon(sandAbove, 3);
    painter.drawPolygon(sandBelow, 3);
    return picture;
}

} // namespace

SandGlass::SandGlass(QWidget* parent) : QWidget(parent)
{
    setObjectName(QStringLiteral("SandGlass"));
    setFixedSize(Side, Side);
    auto* label = new QLabel(this);
    label->setObjectName(QStringLiteral("label"));
    label->setGeometry(0, 0, Side, Side);
    auto* movie = new QMovie(devicePath(QStringLiteral("/apps/res/sandglass.gif")), {}, label);
    // A damaged file may pass for a picture by its first bytes: its first frame decides.
    if (movie->isValid() && movie->jumpToFrame(0) && !movie->currentPixmap().isNull()) {
        label->setMovie(movie);
        movie->start();
    } else {
        delete movie;
        label->setPixmap(standingHourglass());
    }
}
