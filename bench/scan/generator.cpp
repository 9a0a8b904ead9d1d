#include "bench/scan/generator.h"

#include <QFile>

#include <algorithm>
#include <cmath>
#include <map>
#include <random>

namespace {

/* Numbers that are the same with every compiler. */
class Dice
{
public:
    Dice(std::uint32_t seed, std::uint32_t language, std::uint32_t index)
    {
        std::seed_seq all{seed, language, index};
        m_random.seed(all);
    }
    double between(double low, double high)
    {
        return low + (high - low) * static_cast<double>(m_random()) / 4294967296.0;
    }
    int below(int count) { return static_cast<int>(between(0.0, count)); }

private:
    std::mt19937 m_random;
};

const QStringList& linesOf(const QString& code)
{
    static std::map<QString, QStringList> known;
    QStringList& lines = known[code];
    if (lines.isEmpty()) {
        QFile file(QStringLiteral(SWIPELINE_SOURCE_DIR "/tests/data/lines/%1.txt").arg(code));
        if (!file.open(QIODevice::ReadOnly))
            qFatal("cannot read %s", qPrintable(file.fileName()));
        lines = QString::fromUtf8(file.readAll()).split('\n', Qt::SkipEmptyParts);
    }
    return lines;
}

/* The beginning of one line and the end of another. */
QString mixedLine(const ScanLanguage& language, Dice& dice)
{
    const QStringList& lines = linesOf(language.code);
    const QString& one = lines[dice.below(int(lines.size()))];
    const QString& other = lines[dice.below(int(lines.size()))];
    if (language.han)
        return one.left(one.size() / 2) + other.mid(other.size() / 2);
    const QStringList first = one.split(' ');
    const QStringList second = other.split(' ');
    return (first.mid(0, first.size() / 2) + second.mid(second.size() / 2)).join(' ');
}

/* `unit` repeated in the middle of the line, between two blanks. */
void putIn(SwipeCase& c, const QString& unit, bool blanks = true)
{
    const qsizetype half = c.text.size() / 2;
    const qsizetype gap = c.text.indexOf(' ', half);
    const qsizetype at = gap < 0 ? half : gap;
    const QString blank = blanks ? QStringLiteral(" ") : QString();
    c.text = c.text.left(at) + blank + unit + blank + c.text.mid(gap < 0 ? at : at + 1);
    c.lines[1] = c.text;
}

void invert(SwipeCase& c)
{
    c.print.ink = 235;
    c.print.paper = 25;
}

} // namespace

const std::vector<ScanLanguage>& scanLanguages()
{
    static const std::vector<ScanLanguage> all = {
        {"en", "Latin"}, {"fr", "Latin"}, {"de", "Latin"},   {"es", "Latin"},
        {"it", "Latin"}, {"sv", "Latin"}, {"da", "Latin"},   {"no", "Latin"},
        {"nl", "Latin"}, {"pt", "Latin"}, {"ru", "rus+eng"}, {"zh", "chi_sim", true}};
    return all;
}

const std::vector<Fault>& faults()
{
    using Case = SwipeCase;
    static const std::vector<Fault> all = {
        {"ordinary", [](Case&) {}},
        {"speed 20 mm/s", [](Case& c) { c.swipe.hand.speedMmPerS = 20; }},
        {"speed 400 mm/s", [](Case& c) { c.swipe.hand.speedMmPerS = 400; }},
        {"speed 800 mm/s",
         [](Case& c) {
             c.swipe.hand.speedMmPerS = 800;
             c.swipe.camera.framesPerSecond = 200;
         }},
        {"stop of 3 s",
         [](Case& c) {
             c.swipe.hand.stopAt = 0.4;
             c.swipe.hand.stopSeconds = 3.0;
         }},
        {"30 frames/s, 150 mm/s",
         [](Case& c) {
             c.swipe.hand.speedMmPerS = 150;
             c.swipe.camera.framesPerSecond = 30;
         }},
        {"60 frames/s", [](Case& c) { c.swipe.camera.framesPerSecond = 60; }},
        {"turned by 15 degrees", [](Case& c) { c.swipe.camera.rotationDeg = 15; }},
        {"turned by -15 degrees", [](Case& c) { c.swipe.camera.rotationDeg = -15; }},
        {"drift of 0.5 mm",
         [](Case& c) {
             c.swipe.aimMm = -0.25;
             c.swipe.driftMm = 0.75;
         }},
        {"aimed 0.5 mm too high", [](Case& c) { c.swipe.aimMm = -0.5; }},
        {"wobble 0.4 mm, 2 degrees",
         [](Case& c) {
             c.swipe.hand.wobbleMm = 0.4;
             c.swipe.hand.wobbleDeg = 2;
         }},
        {"noise of 20 levels", [](Case& c) { c.swipe.camera.noise = 20; }},
        {"blur of 1.5 pixels", [](Case& c) { c.swipe.camera.blurPx = 1.5; }},
        {"low ink (contrast 20 %)", [](Case& c) { c.print.ink = 204; }},
        {"uneven light (60 %)", [](Case& c) { c.swipe.camera.lightGradient = 0.6; }},
        {"white on black", invert},
        {"6 points", [](Case& c) { c.print.points = 6; }},
        {"14 points", [](Case& c) { c.print.points = 14; }},
        {"left hand, backwards",
         [](Case& c) {
             c.swipe.camera.mount.leftHand = true;
             c.swipe.backwards = true;
         }},
        {"vertical", [](Case& c) { c.print.vertical = c.swipe.camera.mount.vertical = true; },
         true},
        {"tight lines (1.0)", [](Case& c) { c.print.leading = 1.0; }},
        {"dot leaders", [](Case& c) { putIn(c, QString(24, QLatin1Char('.'))); }, false, true},
        {"illillill", [](Case& c) { putIn(c, "illillillillillill"); }, false, true},
        {"blank of 25 mm",
         [](Case& c) {
             const double blankMm = c.print.points * (c.print.vertical ? 1.0 : 0.32) * 0.353;
             putIn(c, QString(int(25.0 / blankMm), ' '), false);
         },
         false, true},
        {"200 dpi camera",
         [](Case& c) {
             c.swipe.camera.dpi = 200;
             c.swipe.camera.width = 108;
             c.swipe.camera.height = 70;
         }},
    };
    return all;
}

SwipeCase swipeCase(const ScanLanguage& language, const Fault& fault, int index, std::uint32_t seed)
{
    const auto number = std::uint32_t(&language - scanLanguages().data());
    Dice dice(seed, number, std::uint32_t(index));
    static const QStringList families = {"DejaVu Serif", "DejaVu Sans", "Liberation Serif",
                                         "Liberation Sans"};
    SwipeCase c;
    c.text = mixedLine(language, dice);
    c.lines = {mixedLine(language, dice), c.text, mixedLine(language, dice)};
    c.print.family = families[dice.below(4)];
    if (language.han)
        c.print.family = QStringLiteral("AR PL SungtiL GB");
    c.print.points = 6.0 + 0.5 * dice.below(17);
    c.print.leading = dice.between(1.15, 1.4);
    c.print.ink = int(dice.between(10, 60));
    HandSettings& hand = c.swipe.hand;
    hand.speedMmPerS = dice.between(60, 300);
    hand.speedVariation = dice.between(0.1, 0.25);
    hand.wobbleMm = dice.between(0.05, 0.25);
    hand.wobbleDeg = dice.between(0.2, 1.0);
    hand.seed = seed * 1000003 + number * 1009 + std::uint32_t(index) + 1;
    CameraSettings& camera = c.swipe.camera;
    camera.seed = hand.seed;
    camera.rotationDeg = dice.between(-3, 3);
    c.swipe.aimMm = dice.between(-0.2, 0.2);
    camera.framesPerSecond = dice.between(100, 200);
    camera.noise = dice.between(1, 3);
    camera.blurPx = dice.between(0.4, 0.7);
    camera.lightGradient = dice.between(0.0, 0.25);
    camera.mount.leftHand = dice.below(4) == 0;
    c.swipe.backwards = dice.below(4) == 0;
    fault.apply(c);
    return c;
}
