/*
 * What a swipe loses: a printed line is read as it is, and as the scan engine makes it of the
 * camera's frames, by the same recogniser. Prints the character error rate of both for each
 * language on ordinary hands, then for each fault, then what becomes of swipes that cannot be read,
 * then other ways to join frames beside the engine's.
 */
#include "bench/handmodel/videofile.h"
#include "bench/scan/generator.h"
#include "bench/scan/peers.h"
#include "bench/scan/refusals.h"
#include "bench/scan/trial.h"

#include <QCommandLineParser>
#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QTextStream>

#include <opencv2/core.hpp>

#include <algorithm>

namespace {

using Joiner = LineResult (*)(const SwipeCase&, bool, const std::vector<Frame>&);

class Measurement
{
public:
    explicit Measurement(const QCommandLineParser& options)
        : m_language(options.value("language")), m_seed(options.value("seed").toUInt())
    {
        m_trial.verbose = options.isSet("verbose");
        m_trial.dumpFolder = options.value("dump");
        m_first = options.value("first").toInt();
        m_videoFolder = options.value("video");
    }

    void byLanguage(int count)
    {
        head("language (ordinary hand)");
        Tally sum;
        for (const ScanLanguage& language : scanLanguages()) {
            const Tally tally = swipes(language, faults().front(), count, engineResult);
            row(language.code, tally);
            sum.add(tally);
        }
        row("all", sum);
        speed(sum);
    }

    void byFault(const QString& part, int count)
    {
        head("fault (all languages)");
        for (const Fault& fault : faults()) {
            if (!fault.name.contains(part))
                continue;
            row(fault.name, allLanguages(fault, count, engineResult));
        }
    }

    void unreadable(int count)
    {
        m_out << "\nunreadable swipes               swipes  pictures  letters\n"
              << QString(70, '-') << Qt::endl;
        for (const Refusal& refusal : refusals(m_trial, count, m_seed))
            m_out << refusal.name.leftJustified(32)
                  << QString::number(refusal.swipes).rightJustified(6)
                  << QString::number(refusal.pictures).rightJustified(10)
                  << QString::number(refusal.letters).rightJustified(9) << Qt::endl;
    }

    void peers(int count)
    {
        for (const Fault& fault : faults()) {
            if (fault.name != "ordinary" && fault.name != "speed 400 mm/s")
                continue;
            head("joined by (" + fault.name + ")");
            peer("this engine", fault, count, engineResult);
            peer("phase correlation", fault, count, phaseCorrelationResult);
            if (hasScansStitcher())
                peer("OpenCV Stitcher, SCANS", fault, count, scansStitcherResult);
        }
    }

private:
    Tally swipes(const ScanLanguage& language, const Fault& fault, int count, Joiner join)
    {
        Tally tally;
        const bool unfit = language.han ? fault.notHan : fault.hanOnly;
        if (unfit || (!m_language.isEmpty() && m_language != language.code))
            return tally;
        for (int i = m_first; i < m_first + count; ++i) {
            const SwipeCase swiped = swipeCase(language, fault, i, m_seed);
            const std::vector<Frame> frames = framesOf(swiped);
            const LineResult result = join(swiped, language.han, frames);
            const auto name = QString("%1-%2-%3").arg(fault.name.left(14), language.code).arg(i);
            m_trial.judge(language, swiped, result, name, tally);
            keepVideo(name, swiped, frames);
        }
        return tally;
    }

    /* Of a pen in the left hand "-left" is part of the name: the pen has to be told. */
    void keepVideo(const QString& name, const SwipeCase& swiped, const std::vector<Frame>& frames)
    {
        if (m_videoFolder.isEmpty())
            return;
        const char* hand = swiped.swipe.camera.mount.leftHand ? "-left" : "";
        QFile file(QDir(m_videoFolder).filePath(name + hand + ".y4m"));
        const QByteArray video = videoOf(frames, frameRate(frames));
        if (!file.open(QIODevice::WriteOnly) || file.write(video) != video.size())
            qFatal("cannot write %s", qPrintable(file.fileName()));
        m_out << file.fileName() << ": " << swiped.text << Qt::endl;
    }

    Tally allLanguages(const Fault& fault, int count, Joiner join)
    {
        Tally sum;
        for (const ScanLanguage& language : scanLanguages())
            sum.add(swipes(language, fault, count, join));
        return sum;
    }

    void peer(const QString& name, const Fault& fault, int count, Joiner join)
    {
        const Tally tally = allLanguages(fault, count, join);
        row(name, tally);
        double total = tally.feedSeconds;
        for (const double seconds : tally.finishSeconds)
            total += seconds;
        m_out << "    CPU of a swipe, all in all: "
              << QString::number(1000.0 * total / std::max(1, tally.lines), 'f', 0) << " ms"
              << Qt::endl;
    }

    void head(const QString& name)
    {
        m_out << '\n'
              << name.leftJustified(32) << " lines letters clean % swipe % lost width %\n"
              << QString(74, '-') << Qt::endl;
    }

    void row(const QString& name, const Tally& tally)
    {
        if (tally.lines == 0)
            return;
        m_out << name.leftJustified(32) << QString::number(tally.lines).rightJustified(6)
              << QString::number(tally.letters).rightJustified(8)
              << QString::number(tally.cleanRate(), 'f', 2).rightJustified(8)
              << QString::number(tally.swipeRate(), 'f', 2).rightJustified(8)
              << QString::number(tally.lost).rightJustified(5)
              << QString::number(tally.widthRate(), 'f', 2).rightJustified(8) << Qt::endl;
    }

    void speed(Tally& tally)
    {
        std::vector<double>& after = tally.finishSeconds;
        if (after.empty())
            return;
        std::sort(after.begin(), after.end());
        m_out << "\none core follows, frames a second   "
              << qRound(tally.frames / tally.feedSeconds)
              << "\nlift to picture, CPU: median        " << 1000.0 * after[after.size() / 2]
              << " ms, longest " << 1000.0 * after.back() << " ms" << Qt::endl;
    }

    QTextStream m_out{stdout};
    Trial m_trial;
    QString m_language;
    std::uint32_t m_seed;
    int m_first = 0;
    QString m_videoFolder; // empty: none are kept
};

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("OMP_THREAD_LIMIT", "1");
    QGuiApplication application(argc, argv);
    QCommandLineParser parser;
    parser.addHelpOption();
    parser.addOptions({{"count", "Swipes of each language, ordinary hand.", "count", "40"},
                       {"hard", "Swipes of each language and fault.", "count", "5"},
                       {"peers", "Swipes of each language for the peers.", "count", "3"},
                       {"unreadable", "Swipes of each kind that cannot be read.", "count", "10"},
                       {"seed", "Of everything that is drawn.", "number", "1"},
                       {"first", "Number of the first swipe.", "number", "0"},
                       {"language", "This language only.", "code"},
                       {"fault", "Only faults with this in their name.", "name"},
                       {"verbose", "Show the lines that are worse than the clean picture."},
                       {"video", "Keep the camera's frames in this folder, as videos.", "folder"},
                       {"dump", "Write the line pictures to this folder.", "folder"}});
    parser.process(application);
    cv::setNumThreads(1);
    Measurement measurement(parser);
    if (!parser.isSet("fault"))
        measurement.byLanguage(parser.value("count").toInt());
    measurement.byFault(parser.value("fault"), parser.value("hard").toInt());
    if (!parser.isSet("fault")) {
        measurement.unreadable(parser.value("unreadable").toInt());
        if (const int count = parser.value("peers").toInt(); count > 0)
            measurement.peers(count);
    }
    return 0;
}
