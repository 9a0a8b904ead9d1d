#ifndef SCAN_TRIAL_H
#define SCAN_TRIAL_H

#include "bench/recognizer.h"
#include "bench/scan/generator.h"
#include "open/iap/stitcher.h"

#include <map>
#include <memory>

/* The picture of a line that somebody made of a swipe's frames. */
struct LineResult
{
    SwipePicture picture;
    double feedSeconds = 0.0;   // CPU, all frames
    double finishSeconds = 0.0; // CPU, after the lift
};

/* What is known after some swipes. */
struct Tally
{
    int letters = 0;
    int cleanErrors = 0;
    int swipeErrors = 0;
    int lines = 0;
    int lost = 0; // without a picture, or more than half of the letters wrong
    int frames = 0;
    double widthOff = 0.0; // sum of relative differences of the print's proportions
    int measured = 0;      // widths
    double feedSeconds = 0.0;
    std::vector<double> finishSeconds;

    double cleanRate() const { return letters ? 100.0 * cleanErrors / letters : 0.0; }
    double swipeRate() const { return letters ? 100.0 * swipeErrors / letters : 0.0; }
    double widthRate() const { return measured ? 100.0 * widthOff / measured : 0.0; }
    void add(const Tally& other);
};

/* CPU seconds of this thread. */
double cpuSeconds();

std::vector<Frame> framesOf(const SwipeCase& swiped);

/* The scan engine's own. */
LineResult engineResult(const SwipeCase& swiped, bool han, const std::vector<Frame>& frames);

/* Reads what was made of swipes, and the clean picture of the same line. */
class Trial
{
public:
    bool verbose = false;
    QString dumpFolder;

    void judge(const ScanLanguage& language, const SwipeCase& swiped, const LineResult& result,
               const QString& name, Tally& tally);
    QString read(const ScanLanguage& language, const SwipePicture& picture);

private:
    struct CleanLine
    {
        QString text;
        double proportion = 0.0; // width of the print by its height
    };

    Recognizer& recognizerFor(const QString& model);
    const CleanLine& cleanLine(const ScanLanguage& language, const SwipeCase& swiped);

    std::map<QString, std::unique_ptr<Recognizer>> m_recognizers;
    std::map<QString, CleanLine> m_clean;
};

#endif
