#include "bench/scan/refusals.h"

#include <QPainter>
#include <QTextStream>

#include <algorithm>
#include <random>

namespace {

using Frames = std::vector<Frame>;

const Fault& ordinary()
{
    return faults().front();
}

SwipeCase englishCase(int index, std::uint32_t seed)
{
    return swipeCase(scanLanguages().front(), ordinary(), index, seed);
}

Frames ofPage(const QImage& page, const SwipeCase& swiped)
{
    const PenCamera camera(page, 300.0, swiped.swipe.camera);
    const HandPath path = HandPath::sampled({20, 20}, {100, 20}, swiped.swipe.hand);
    Frames frames;
    for (std::uint32_t i = 0; i / swiped.swipe.camera.framesPerSecond < path.duration(); ++i) {
        const double t = i / swiped.swipe.camera.framesPerSecond;
        frames.push_back(frameOf(camera.frameAt(path.poseAt(t), i), std::int64_t(t * 1e6), 300));
    }
    return frames;
}

QImage whitePage()
{
    QImage page(1420, 480, QImage::Format_Grayscale8);
    page.fill(Qt::white);
    return page;
}

/* The pen in the air: the lens sees a grey blur, and the sensor's noise. */
Frames inTheAir(SwipeCase c, std::mt19937&)
{
    c.print.ink = 90;
    c.swipe.camera.blurPx = 14.0;
    c.swipe.camera.noise = 6;
    return framesOf(c);
}

Frames blankPaper(SwipeCase c, std::mt19937&)
{
    c.swipe.camera.noise = 8;
    return ofPage(whitePage(), c);
}

/* Frames in any order: no motion joins them. */
Frames shaken(SwipeCase c, std::mt19937& random)
{
    c.swipe.backwards = false;
    Frames frames = framesOf(c);
    for (std::size_t i = frames.size() - 1; i > 0; --i)
        std::swap(frames[i].pixels, frames[random() % (i + 1)].pixels);
    return frames;
}

/* So fast that no frame overlaps the next. */
Frames farTooFast(SwipeCase c, std::mt19937&)
{
    c.swipe.hand.speedMmPerS = 800;
    c.swipe.camera.framesPerSecond = 40;
    return framesOf(c);
}

/* A photograph: patches of grey of every size. */
Frames photograph(SwipeCase c, std::mt19937& random)
{
    QImage page = whitePage();
    QPainter painter(&page);
    painter.setPen(Qt::NoPen);
    for (int i = 0; i < 3000; ++i) {
        const int side = 6 + int(random() % 120);
        const int grey = int(random() % 256);
        painter.setBrush(QColor(grey, grey, grey, 90));
        painter.drawEllipse(int(random() % 1420) - 60, int(random() % 480) - 60, side,
                            6 + int(random() % 120));
    }
    painter.end();
    return ofPage(page, c);
}

/* Rules, as of a form or a table. */
Frames rules(SwipeCase c, std::mt19937& random)
{
    QImage page = whitePage();
    QPainter painter(&page);
    painter.setPen(QPen(Qt::black, 3));
    for (int y = int(random() % 40); y < page.height(); y += 60 + int(random() % 80))
        painter.drawLine(0, y, page.width(), y);
    for (int x = int(random() % 200); x < page.width(); x += 200 + int(random() % 200))
        painter.drawLine(x, 0, x, page.height());
    painter.end();
    return ofPage(page, c);
}

} // namespace

std::vector<Refusal> refusals(Trial& trial, int count, std::uint32_t seed)
{
    struct Kind
    {
        const char* name;
        Frames (*frames)(SwipeCase, std::mt19937&);
    };
    constexpr Kind kinds[] = {{"pen in the air", inTheAir}, {"blank paper", blankPaper},
                              {"shaken", shaken},           {"far too fast", farTooFast},
                              {"photograph", photograph},   {"rules of a table", rules}};
    std::vector<Refusal> all;
    for (const Kind& kind : kinds) {
        Refusal refusal = {kind.name};
        for (int i = 0; i < count; ++i) {
            std::mt19937 random(seed * 7919 + std::uint32_t(i));
            const SwipeCase swiped = englishCase(i, seed);
            const LineResult result = engineResult(swiped, false, kind.frames(swiped, random));
            const QString text = trial.read(scanLanguages().front(), result.picture);
            ++refusal.swipes;
            refusal.pictures += result.picture.width > 0 ? 1 : 0;
            refusal.letters += int(text.size());
            if (trial.verbose)
                QTextStream(stderr) << kind.name << ": " << text << " | "
                                    << QString::fromStdString(result.picture.reason) << '\n';
        }
        all.push_back(refusal);
    }
    return all;
}
