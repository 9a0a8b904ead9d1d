/*
 * What a swipe loses: a printed line is read as it is, and as the scan engine makes it of the
 * camera's frames, by the same recogniser. Prints the character error rate of both for each
 * language, then for hard conditions, then the time a frame takes.
 */
#include "bench/handmodel/swipe.h"
#include "bench/recognizer.h"
#include "bench/stitchspeed.h"
#include "open/iap/stitcher.h"

#include <QCommandLineParser>
#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QTextStream>

#include <opencv2/core.hpp>

#include <functional>
#include <map>

namespace {

struct Language
{
    const char* code;
    const char* model;
};

constexpr Language Languages[] = {{"en", "Latin"}, {"fr", "Latin"},   {"de", "Latin"},
                                  {"es", "Latin"}, {"it", "Latin"},   {"sv", "Latin"},
                                  {"da", "Latin"}, {"no", "Latin"},   {"nl", "Latin"},
                                  {"pt", "Latin"}, {"ru", "rus+eng"}, {"zh", "chi_sim"}};

struct Condition
{
    QString name;
    std::function<void(Swipe&)> change;
};

const std::vector<Condition>& conditions()
{
    static const std::vector<Condition> all = {
        {"ordinary, 150 mm/s", [](Swipe&) {}},
        {"slow, 50 mm/s", [](Swipe& s) { s.hand.speedMmPerS = 50; }},
        {"fast, 400 mm/s", [](Swipe& s) { s.hand.speedMmPerS = 400; }},
        {"left hand", [](Swipe& s) { s.camera.mount.leftHand = true; }},
        {"backwards", [](Swipe& s) { s.backwards = true; }},
        {"left hand, backwards",
         [](Swipe& s) {
             s.camera.mount.leftHand = true;
             s.backwards = true;
         }},
        {"turned by 4 degrees", [](Swipe& s) { s.camera.rotationDeg = 4; }},
        {"turned by -10 degrees", [](Swipe& s) { s.camera.rotationDeg = -10; }},
        {"wobble 0.4 mm, 2 degrees",
         [](Swipe& s) {
             s.hand.wobbleMm = 0.4;
             s.hand.wobbleDeg = 2;
         }},
        {"the hand stops", [](Swipe& s) { s.hand.stopAt = 0.4; }},
        {"aimed 0.5 mm too low", [](Swipe& s) { s.aimMm = 0.5; }},
        {"uneven light", [](Swipe& s) { s.camera.lightGradient = 0.5; }},
        {"noise of 6 levels", [](Swipe& s) { s.camera.noise = 6; }},
        {"blur of 1 pixel", [](Swipe& s) { s.camera.blurPx = 1.0; }},
        {"100 frames a second", [](Swipe& s) { s.camera.framesPerSecond = 100; }},
        {"200 dpi",
         [](Swipe& s) {
             s.camera.dpi = 200;
             s.camera.width = 108;
             s.camera.height = 70;
         }},
        {"vertical (Chinese only)", [](Swipe& s) { s.camera.mount.vertical = true; }},
    };
    return all;
}

struct Tally
{
    int letters = 0;
    int cleanErrors = 0;
    int swipeErrors = 0;
    int lines = 0;
    int withoutPicture = 0;
    double widthOff = 0.0; // sum of relative differences

    double cleanRate() const { return letters ? 100.0 * cleanErrors / letters : 0.0; }
    double swipeRate() const { return letters ? 100.0 * swipeErrors / letters : 0.0; }
};

QStringList linesOf(const QString& code)
{
    QFile file(QStringLiteral(SWIPELINE_SOURCE_DIR "/tests/data/lines/%1.txt").arg(code));
    if (!file.open(QIODevice::ReadOnly))
        qFatal("cannot read %s", qPrintable(file.fileName()));
    return QString::fromUtf8(file.readAll()).split('\n', Qt::SkipEmptyParts);
}

/* The line as a scanner would give it: 300 dpi, a white rim. */
QImage cleanLine(const QString& text, PrintSettings print)
{
    print.dpi = 300;
    print.marginMm = 1.5;
    print.vertical = false;
    return PrintSheet({text}, print).picture();
}

class Trial
{
public:
    explicit Trial(const QString& dumpFolder) : m_dumpFolder(dumpFolder) {}

    /* Vertical lines are Chinese ones; other languages then add nothing. */
    Tally run(const Language& language, const Condition& condition, int lineCount, bool verbose)
    {
        const bool han = QLatin1String(language.code) == QLatin1String("zh");
        Swipe probe;
        condition.change(probe);
        if (probe.camera.mount.vertical && !han)
            return {};
        const QStringList lines = linesOf(language.code);
        Recognizer& recognizer = recognizerFor(language.model);
        Tally tally;
        for (int i = 0; i < lineCount && i < lines.size(); ++i) {
            PrintSettings print;
            print.points = 10 + i % 3;
            print.family = han ? "AR PL SungtiL GB" : i % 2 ? "Liberation Serif" : "DejaVu Serif";
            Swipe swipe;
            swipe.hand.seed = swipe.camera.seed = static_cast<std::uint32_t>(i + 1);
            condition.change(swipe);
            print.vertical = swipe.camera.mount.vertical;
            const PrintSheet page({lines[(i + 9) % 10], lines[i], lines[(i + 1) % 10]}, print);
            Stitcher stitcher({swipe.camera.mount.leftHand, print.vertical, han});
            for (const Frame& frame : swipeFrames(page, 1, swipe))
                stitcher.feed(frame);
            const SwipePicture picture = stitcher.finish();
            const QString printed = comparable(lines[i], han);
            const QString clean = cleanText(recognizer, lines[i], print, han);
            QString read;
            if (picture.width > 0)
                read = comparable(recognizer.read(picture.pixels.data(), picture.width,
                                                  picture.height, picture.width),
                                  han);
            else
                ++tally.withoutPicture;
            const int errors = editDistance(read, printed);
            tally.letters += static_cast<int>(printed.size());
            tally.cleanErrors += editDistance(clean, printed);
            tally.swipeErrors += errors;
            ++tally.lines;
            if (verbose && errors > 0)
                QTextStream(stderr) << "   " << printed << "\n-> " << read << " | "
                                    << QString::fromStdString(picture.reason) << '\n';
            if (!m_dumpFolder.isEmpty() && picture.width > 0)
                QImage(picture.pixels.data(), picture.width, picture.height, picture.width,
                       QImage::Format_Grayscale8)
                    .save(QDir(m_dumpFolder)
                              .filePath(QString("%1-%2-%3.png")
                                            .arg(condition.name.left(12), language.code)
                                            .arg(i)));
        }
        return tally;
    }

private:
    Recognizer& recognizerFor(const QString& model)
    {
        auto& recognizer = m_recognizers[model];
        if (!recognizer)
            recognizer = std::make_unique<Recognizer>(model);
        return *recognizer;
    }

    QString cleanText(Recognizer& recognizer, const QString& line, const PrintSettings& print,
                      bool han)
    {
        QString& text = m_clean[line];
        if (text.isEmpty()) {
            const QImage picture = cleanLine(line, print);
            text = comparable(recognizer.read(picture.constBits(), picture.width(),
                                              picture.height(), int(picture.bytesPerLine())),
                              han);
        }
        return text;
    }

    QString m_dumpFolder;
    std::map<QString, std::unique_ptr<Recognizer>> m_recognizers;
    std::map<QString, QString> m_clean;
};

void printRow(QTextStream& out, const QString& name, const Tally& tally)
{
    out << name.leftJustified(28) << QString::number(tally.lines).rightJustified(6)
        << QString::number(tally.letters).rightJustified(9)
        << QString::number(tally.cleanRate(), 'f', 2).rightJustified(9)
        << QString::number(tally.swipeRate(), 'f', 2).rightJustified(9)
        << QString::number(tally.withoutPicture).rightJustified(9) << Qt::endl;
}

void printHead(QTextStream& out, const QString& name)
{
    out << '\n'
        << name.leftJustified(28) << " lines  letters  clean %  swipe %  without\n"
        << QString(70, '-') << Qt::endl;
}

void add(Tally& sum, const Tally& part)
{
    sum.letters += part.letters;
    sum.cleanErrors += part.cleanErrors;
    sum.swipeErrors += part.swipeErrors;
    sum.lines += part.lines;
    sum.withoutPicture += part.withoutPicture;
}

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("OMP_THREAD_LIMIT", "1");
    QGuiApplication application(argc, argv);
    QCommandLineParser parser;
    parser.addHelpOption();
    parser.addOptions({{"lines", "Lines of each language (at most 10).", "count", "10"},
                       {"hard", "Lines of each language in hard conditions.", "count", "3"},
                       {"language", "This language only.", "code"},
                       {"condition", "This condition only (a part of its name).", "name"},
                       {"verbose", "Show the lines that were misread."},
                       {"dump", "Write the line pictures to this folder.", "folder"}});
    parser.process(application);
    cv::setNumThreads(1);
    QTextStream out(stdout);
    Trial trial(parser.value("dump"));
    const bool verbose = parser.isSet("verbose");

    const auto wanted = [&](const Language& language) {
        return !parser.isSet("language") || parser.value("language") == language.code;
    };
    if (!parser.isSet("condition")) {
        printHead(out, "language (ordinary hand)");
        Tally sum;
        for (const Language& language : Languages) {
            if (!wanted(language))
                continue;
            const Tally tally =
                trial.run(language, conditions()[0], parser.value("lines").toInt(), verbose);
            printRow(out, language.code, tally);
            add(sum, tally);
        }
        printRow(out, "all", sum);
    }
    printHead(out, "condition (all languages)");
    for (const Condition& condition : conditions()) {
        if (parser.isSet("condition") && !condition.name.contains(parser.value("condition")))
            continue;
        Tally sum;
        for (const Language& language : Languages)
            if (wanted(language))
                add(sum, trial.run(language, condition, parser.value("hard").toInt(), verbose));
        printRow(out, condition.name, sum);
    }
    if (!parser.isSet("condition"))
        printStitchSpeed(out);
    return 0;
}
