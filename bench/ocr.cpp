/*
 * Line picture to text: the running engine beside the `tesseract` command on the same pictures.
 *
 * cmake --preset release && cmake --build --preset release --target ocr
 * QT_QPA_PLATFORM=offscreen build/release/bench/ocr [LINES]
 *
 * Needs tesseract-ocr with the models Latin, rus, eng and chi_sim, fonts-liberation and
 * fonts-arphic-gbsn00lp. Reads the first LINES lines (10) of files of tests/data/lines, serif and
 * sans by turns (Chinese has one font), letters of 32, 44 and 56 pixels by turns (8, 11 and 13 pt
 * at 300 dpi). The command is called as a program would that starts it for every scan: it loads its
 * model each time. In the last column it reads all lines of a language in one call. All use one
 * thread and the same models. Ratios count more than absolute figures. Ends with 1 when the engine
 * needs more than a quarter of the command's processor time.
 */
#include "bench/recognizer.h"
#include "platform/zembra_ocr.h"
#include "tests/unit/open/printedline.h"

#include <QFile>
#include <QGuiApplication>
#include <QList>
#include <QStringList>
#include <QTemporaryDir>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <vector>

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

struct Language
{
    const char* name;
    const char* file; // in tests/data/lines
    int engineLanguage;
    const char* model; // of the command
    int direction = ZEMBRA_OCR_HORIZONTAL;

    bool isChinese() const { return engineLanguage == ZEMBRA_OCR_LANG_CHINESE; }
};

constexpr std::array Languages = {
    Language{"English", "en", ZEMBRA_OCR_LANG_LATIN, "Latin"},
    Language{"French", "fr", ZEMBRA_OCR_LANG_LATIN, "Latin"},
    Language{"German", "de", ZEMBRA_OCR_LANG_LATIN, "Latin"},
    Language{"Spanish", "es", ZEMBRA_OCR_LANG_LATIN, "Latin"},
    Language{"Italian", "it", ZEMBRA_OCR_LANG_LATIN, "Latin"},
    Language{"Swedish", "sv", ZEMBRA_OCR_LANG_LATIN, "Latin"},
    Language{"Danish", "da", ZEMBRA_OCR_LANG_LATIN, "Latin"},
    Language{"Norwegian", "no", ZEMBRA_OCR_LANG_LATIN, "Latin"},
    Language{"Dutch", "nl", ZEMBRA_OCR_LANG_LATIN, "Latin"},
    Language{"Portuguese", "pt", ZEMBRA_OCR_LANG_LATIN, "Latin"},
    Language{"Russian", "ru", ZEMBRA_OCR_LANG_CYRILLIC, "rus+eng"},
    Language{"Russian, English", "ru-en", ZEMBRA_OCR_LANG_CYRILLIC, "rus+eng"},
    Language{"Chinese", "zh", ZEMBRA_OCR_LANG_CHINESE, "chi_sim"},
    Language{"Chinese, English", "zh-en", ZEMBRA_OCR_LANG_CHINESE, "chi_sim"},
    Language{"Chinese, vertical", "zh", ZEMBRA_OCR_LANG_CHINESE, "chi_sim", ZEMBRA_OCR_VERTICAL},
};

QStringList linesOf(const Language& language, int most)
{
    QFile file(QStringLiteral(SWIPELINE_SOURCE_DIR "/tests/data/lines/%1.txt")
                   .arg(QLatin1String(language.file)));
    if (!file.open(QIODevice::ReadOnly))
        return {};
    const QStringList lines =
        QString::fromUtf8(file.readAll()).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    return lines.mid(0, most);
}

struct Cost
{
    double wallMs = 0;
    double cpuMs = 0;
};

double milliseconds(const timeval& time)
{
    return static_cast<double>(time.tv_sec) * 1000 + static_cast<double>(time.tv_usec) / 1000;
}

double cpuOf(const rusage& usage)
{
    return milliseconds(usage.ru_utime) + milliseconds(usage.ru_stime);
}

double ownCpu()
{
    rusage usage = {};
    ::getrusage(RUSAGE_SELF, &usage);
    return cpuOf(usage);
}

/* Resident memory of this process, in MB. */
double residentMb()
{
    QFile file(QStringLiteral("/proc/self/statm"));
    if (!file.open(QIODevice::ReadOnly))
        return 0;
    const double pages = file.readAll().split(' ').value(1).toDouble();
    return pages * static_cast<double>(::sysconf(_SC_PAGESIZE)) / 1048576;
}

template <typename Work> Cost measure(Work work)
{
    const auto start = std::chrono::steady_clock::now();
    const double cpu = ownCpu();
    work();
    const std::chrono::duration<double, std::milli> wall = std::chrono::steady_clock::now() - start;
    return {wall.count(), ownCpu() - cpu};
}

std::vector<unsigned char> pixelsOf(const QImage& image)
{
    std::vector<unsigned char> pixels;
    for (int y = 0; y < image.height(); ++y)
        pixels.insert(pixels.end(), image.constScanLine(y), image.constScanLine(y) + image.width());
    return pixels;
}

class RunningEngine
{
public:
    RunningEngine()
    {
        QByteArray folder = InstalledModels;
        ZEMBRA_OCR_Initialize(&m_handle, folder.data());
    }
    ~RunningEngine()
    {
        ZEMBRA_OCR_ExitEngine(m_handle);
        ZEMBRA_OCR_FreeEngine(m_handle);
    }
    RunningEngine(const RunningEngine&) = delete;
    RunningEngine& operator=(const RunningEngine&) = delete;

    void setLanguage(int language)
    {
        int list[] = {language, ZEMBRA_OCR_LANG_END};
        ZEMBRA_OCR_SetActiveLanguages(m_handle, list);
    }

    QString read(std::vector<unsigned char>& pixels, const QImage& image,
                 int direction = ZEMBRA_OCR_HORIZONTAL)
    {
        unsigned short* text = nullptr;
        int length = 0;
        ZEMBRA_OCR_Recognize(m_handle, pixels.data(), image.width(), image.height(), &text, &length,
                             direction, 0);
        const QString result = QString::fromUtf16(reinterpret_cast<char16_t*>(text), length);
        ZEMBRA_OCR_FreeRecogResult(text);
        return result;
    }

private:
    void* m_handle = nullptr;
};

/* Runs the command once on a picture, or on a list of them; what it costs, and the memory that it
 * needs at the most, in MB. */
Cost runCommand(const QString& picture, const char* model, QString* text, double* memoryMb)
{
    const QString output = picture + QStringLiteral(".out");
    const QByteArray in = QFile::encodeName(picture);
    const QByteArray out = QFile::encodeName(output);
    const auto start = std::chrono::steady_clock::now();
    const pid_t child = ::fork();
    if (child == 0) {
        if (!::freopen("/dev/null", "w", stderr))
            ::_exit(127);
        ::execlp("tesseract", "tesseract", in.constData(), out.constData(), "-l", model, "--psm",
                 "7", "--oem", "1", static_cast<char*>(nullptr));
        ::_exit(127);
    }
    int status = 0;
    rusage usage = {};
    ::wait4(child, &status, 0, &usage);
    const std::chrono::duration<double, std::milli> wall = std::chrono::steady_clock::now() - start;
    QFile file(output + QStringLiteral(".txt"));
    if (file.open(QIODevice::ReadOnly))
        *text = QString::fromUtf8(file.readAll()).simplified();
    *memoryMb = static_cast<double>(usage.ru_maxrss) / 1024;
    return {wall.count(), cpuOf(usage)};
}

double median(QList<double> values)
{
    std::sort(values.begin(), values.end());
    return values.isEmpty() ? 0 : values.at(values.size() / 2);
}

/* What one of the two needed, and what it got wrong. */
struct Series
{
    QList<double> wall;
    QList<double> cpu;
    int errors = 0;

    void add(const Cost& cost, int wrong)
    {
        wall.append(cost.wallMs);
        cpu.append(cost.cpuMs);
        errors += wrong;
    }

    void add(const Series& other)
    {
        wall += other.wall;
        cpu += other.cpu;
        errors += other.errors;
    }
};

struct Totals
{
    Series engine;
    Series command;
    double togetherCpu = 0; // of one call of the command for all lines
    qsizetype characters = 0;

    void add(const Totals& other)
    {
        engine.add(other.engine);
        command.add(other.command);
        togetherCpu += other.togetherCpu;
        characters += other.characters;
    }

    double cpuRatio() const { return median(engine.cpu) / median(command.cpu); }

    void print(const char* name) const
    {
        const auto errors = [this](const Series& series) {
            return 100.0 * series.errors / static_cast<double>(std::max<qsizetype>(1, characters));
        };
        const auto lines = static_cast<double>(std::max<qsizetype>(1, engine.wall.size()));
        const double wall = median(engine.wall);
        const double commandWall = median(command.wall);
        std::printf("%-17s %5.0f %7.1f %7.1f %6.2f%% | %7.1f %7.1f %6.2f%% | %5.2f %5.2f | %7.1f\n",
                    name, lines, wall, median(engine.cpu), errors(engine), commandWall,
                    median(command.cpu), errors(command), wall / commandWall, cpuRatio(),
                    togetherCpu / lines);
        std::fflush(stdout);
    }
};

QImage picture(const QString& text, const Language& language, int number)
{
    constexpr std::array Sizes = {32, 44, 56};
    const int size = Sizes.at(static_cast<std::size_t>(number) % Sizes.size());
    if (language.direction == ZEMBRA_OCR_VERTICAL)
        return printedColumn(text, size);
    const char* western = number % 2 == 0 ? SerifFont : SansFont;
    return printedLine(text, language.isChinese() ? ChineseFont : western, size);
}

/* One line through both; the picture goes into `file`. */
void measureLine(const QString& text, const QString& file, const QImage& image,
                 const Language& language, RunningEngine& engine, double& commandMb, Totals& totals)
{
    image.save(file);
    std::vector<unsigned char> pixels = pixelsOf(image);
    const QString wanted = comparable(text, language.isChinese());
    QString read;
    const Cost own = measure([&] { read = engine.read(pixels, image, language.direction); });
    totals.engine.add(own, editDistance(comparable(read, language.isChinese()), wanted));
    const Cost command = runCommand(file, language.model, &read, &commandMb);
    totals.command.add(command, editDistance(comparable(read, language.isChinese()), wanted));
    totals.characters += wanted.size();
}

Totals measureLanguage(const Language& language, int most, RunningEngine& engine, double& commandMb)
{
    Totals totals;
    const QTemporaryDir folder;
    QFile list(folder.filePath(QStringLiteral("list.txt")));
    if (!list.open(QIODevice::WriteOnly))
        return totals;
    int number = 0;
    for (const QString& text : linesOf(language, most)) {
        const QString file = folder.filePath(QStringLiteral("%1.png").arg(number));
        const QImage image = picture(text, language, number++);
        if (image.isNull())
            continue;
        measureLine(text, file, image, language, engine, commandMb, totals);
        list.write(QFile::encodeName(file) + '\n');
    }
    list.close();
    QString read;
    double memory = 0;
    totals.togetherCpu = runCommand(list.fileName(), language.model, &read, &memory).cpuMs;
    return totals;
}

/* Until the model of a language is ready: there is no reading before. */
Cost loadTime(RunningEngine& engine, const Language& language)
{
    engine.setLanguage(language.engineLanguage);
    std::vector<unsigned char> dot(1);
    return measure([&] { engine.read(dot, QImage(1, 1, QImage::Format_Grayscale8)); });
}

void printHeading()
{
    std::printf("Lines of print; medians in ms, errors in characters\n");
    std::printf("%-17s %5s %7s %7s %7s | %7s %7s %7s | %5s %5s | %7s\n", "", "", "engine", "engine",
                "engine", "command", "command", "command", "wall", "CPU", "one call");
    std::printf("%-17s %5s %7s %7s %7s | %7s %7s %7s | %5s %5s | %7s\n", "language", "lines",
                "wall", "CPU", "errors", "wall", "CPU", "errors", "ratio", "ratio", "CPU/line");
}

} // namespace

int main(int argc, char** argv)
{
    qputenv("OMP_THREAD_LIMIT", "1");
    const QGuiApplication application(argc, argv);
    const int most = argc > 1 ? std::max(1, QByteArray(argv[1]).toInt()) : 10;
    constexpr double LargestRatio = 0.25;
    printHeading();
    Totals totals;
    const double before = residentMb();
    RunningEngine engine;
    QStringList models;
    const char* model = "";
    for (const Language& language : Languages) {
        const Cost load = loadTime(engine, language);
        double commandMb = 0;
        const Totals own = measureLanguage(language, most, engine, commandMb);
        own.print(language.name);
        totals.add(own);
        if (qstrcmp(model, language.model) != 0)
            models.append(
                QStringLiteral("%1: loaded in %2 ms (CPU %3 ms), %4 MB resident (command: %5)")
                    .arg(QLatin1String(language.model))
                    .arg(load.wallMs, 0, 'f', 0)
                    .arg(load.cpuMs, 0, 'f', 0)
                    .arg(residentMb(), 0, 'f', 0)
                    .arg(commandMb, 0, 'f', 0));
        model = language.model;
    }
    totals.print("all");
    std::printf("%.0f MB without a model; models stay loaded, one after the other:\n%s\n", before,
                qPrintable(models.join(QLatin1Char('\n'))));
    return totals.cpuRatio() <= LargestRatio ? 0 : 1;
}
