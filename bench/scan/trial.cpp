#include "bench/scan/trial.h"

#include <QDir>
#include <QRegularExpression>
#include <QTextStream>

#include <ctime>

namespace {

/* The line as a scanner would give it: 300 dpi, black on white, alone, with a white rim. */
QImage cleanPicture(const SwipeCase& swiped)
{
    PrintSettings print = swiped.print;
    print.dpi = 300;
    print.marginMm = 1.5;
    print.vertical = false;
    print.ink = PrintSettings().ink;
    print.paper = PrintSettings().paper;
    return PrintSheet({swiped.text}, print).picture();
}

QImage imageOf(const SwipePicture& picture)
{
    return {picture.pixels.data(), picture.width, picture.height, picture.width,
            QImage::Format_Grayscale8};
}

/* Width of the print by its height; 0 without print. */
double proportionOf(const QImage& picture)
{
    QRect ink;
    for (int y = 0; y < picture.height(); ++y) {
        const uchar* row = picture.constScanLine(y);
        for (int x = 0; x < picture.width(); ++x)
            if (row[x] < 128)
                ink |= QRect(x, y, 1, 1);
    }
    return ink.isEmpty() ? 0.0 : double(ink.width()) / ink.height();
}

/* Nobody counts the dots of a leader. */
QString judged(const QString& text, bool han)
{
    static const QRegularExpression dots("[ .\\x{2026}\\x{00b7}]*[.\\x{2026}\\x{00b7}]"
                                         "[ .\\x{2026}\\x{00b7}]{2,}");
    return comparable(text, han).replace(dots, QStringLiteral(" ... "));
}

} // namespace

void Tally::add(const Tally& other)
{
    letters += other.letters;
    cleanErrors += other.cleanErrors;
    swipeErrors += other.swipeErrors;
    lines += other.lines;
    lost += other.lost;
    frames += other.frames;
    widthOff += other.widthOff;
    measured += other.measured;
    feedSeconds += other.feedSeconds;
    finishSeconds.insert(finishSeconds.end(), other.finishSeconds.begin(),
                         other.finishSeconds.end());
}

double cpuSeconds()
{
    timespec now = {};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return double(now.tv_sec) + double(now.tv_nsec) * 1e-9;
}

std::vector<Frame> framesOf(const SwipeCase& swiped)
{
    return swipeFrames(PrintSheet(swiped.lines, swiped.print), 1, swiped.swipe);
}

LineResult engineResult(const SwipeCase& swiped, bool han, const std::vector<Frame>& frames)
{
    Stitcher stitcher({swiped.swipe.camera.mount.leftHand, swiped.print.vertical, han});
    LineResult result;
    const double start = cpuSeconds();
    for (const Frame& frame : frames)
        stitcher.feed(frame);
    const double fed = cpuSeconds();
    result.picture = stitcher.finish();
    result.finishSeconds = cpuSeconds() - fed;
    result.feedSeconds = fed - start;
    return result;
}

Recognizer& Trial::recognizerFor(const QString& model)
{
    auto& recognizer = m_recognizers[model];
    if (!recognizer)
        recognizer = std::make_unique<Recognizer>(model);
    return *recognizer;
}

QString Trial::read(const ScanLanguage& language, const SwipePicture& picture)
{
    if (picture.width == 0)
        return {};
    return judged(recognizerFor(language.model)
                      .read(picture.pixels.data(), picture.width, picture.height, picture.width),
                  language.han);
}

const Trial::CleanLine& Trial::cleanLine(const ScanLanguage& language, const SwipeCase& swiped)
{
    CleanLine& clean =
        m_clean[QString("%1|%2|%3").arg(swiped.print.points).arg(swiped.print.family, swiped.text)];
    if (clean.proportion == 0.0) {
        const QImage picture = cleanPicture(swiped);
        clean.text = judged(recognizerFor(language.model)
                                .read(picture.constBits(), picture.width(), picture.height(),
                                      int(picture.bytesPerLine())),
                            language.han);
        clean.proportion = proportionOf(picture);
    }
    return clean;
}

void Trial::judge(const ScanLanguage& language, const SwipeCase& swiped, const LineResult& result,
                  const QString& name, Tally& tally)
{
    const QString printed = judged(swiped.text, language.han);
    const CleanLine& clean = cleanLine(language, swiped);
    const QString read = this->read(language, result.picture);
    const int errors = editDistance(read, printed);
    const int cleanErrors = editDistance(clean.text, printed);
    tally.letters += int(printed.size());
    tally.cleanErrors += cleanErrors;
    tally.swipeErrors += errors;
    ++tally.lines;
    tally.lost += 2 * errors > printed.size() ? 1 : 0;
    tally.frames += result.picture.framesFed;
    tally.feedSeconds += result.feedSeconds;
    tally.finishSeconds.push_back(result.finishSeconds);
    const QImage picture = imageOf(result.picture);
    double off = 0.0;
    if (result.picture.width > 0 && !swiped.print.vertical) {
        off = proportionOf(picture) / clean.proportion - 1.0;
        tally.widthOff += std::abs(off);
        ++tally.measured;
    }
    if (verbose && errors > cleanErrors)
        QTextStream(stderr) << name << ' ' << swiped.print.points << " pt " << swiped.print.family
                            << " off " << off * 100.0 << " %\n   " << printed << "\n-> " << read
                            << " | " << QString::fromStdString(result.picture.reason) << '\n';
    if (!dumpFolder.isEmpty() && result.picture.width > 0)
        picture.save(QDir(dumpFolder).filePath(name + ".png"));
}
