/*
 * Line picture to text: the running engine beside the `tesseract` command on the same pictures.
 *
 * cmake --preset release && cmake --build --preset release --target ocr_line
 * QT_QPA_PLATFORM=offscreen build/release/bench/ocr_line [LINES]
 *
 * Needs tesseract-ocr with the models Latin, rus, eng and chi_sim, fonts-liberation and
 * fonts-arphic-gbsn00lp. Reads the first LINES lines (10) of each file of tests/data/lines. The
 * command loads its model for every line, as a program that calls it for every scan would. Both
 * sides use one thread and the same models. Ratios count more than absolute figures; run it on an
 * otherwise idle machine.
 */
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
    Language{"Chinese", "zh", ZEMBRA_OCR_LANG_CHINESE, "chi_sim"},
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

    QString read(std::vector<unsigned char>& pixels, const QImage& image)
    {
        unsigned short* text = nullptr;
        int length = 0;
        ZEMBRA_OCR_Recognize(m_handle, pixels.data(), image.width(), image.height(), &text, &length,
                             ZEMBRA_OCR_HORIZONTAL, 0);
        const QString result = QString::fromUtf16(reinterpret_cast<char16_t*>(text), length);
        ZEMBRA_OCR_FreeRecogResult(text);
        return result;
    }

private:
    void* m_handle = nullptr;
};

/* Runs the command once; what it costs, and the memory that it needs at the most, in MB. */
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
    qsizetype characters = 0;

    void add(const Totals& other)
    {
        engine.add(other.engine);
        command.add(other.command);
        characters += other.characters;
    }

    void print(const char* name) const
    {
        const auto errors = [this](const Series& series) {
            return 100.0 * series.errors / static_cast<double>(std::max<qsizetype>(1, characters));
        };
        const double wall = median(engine.wall);
        const double cpu = median(engine.cpu);
        const double commandWall = median(command.wall);
        const double commandCpu = median(command.cpu);
        std::printf("%-11s %5lld %8.1f %8.1f %6.2f%% | %8.1f %8.1f %6.2f%% | %6.2f %6.2f\n", name,
                    static_cast<long long>(engine.wall.size()), wall, cpu, errors(engine),
                    commandWall, commandCpu, errors(command), wall / commandWall, cpu / commandCpu);
        std::fflush(stdout);
    }
};

/* What the engine is meant to give: apostrophes in their plain form. */
QString plain(QString text)
{
    return text.replace(QChar(0x2019), QLatin1Char('\''));
}

void measureLine(const QString& text, const Language& language, RunningEngine& engine,
                 double& commandMb, Totals& totals)
{
    const bool chinese = language.engineLanguage == ZEMBRA_OCR_LANG_CHINESE;
    const QImage image = printedLine(text, chinese ? ChineseFont : SerifFont, 44);
    if (image.isNull())
        return;
    QTemporaryDir folder;
    const QString picture = folder.filePath(QStringLiteral("line.png"));
    image.save(picture);
    std::vector<unsigned char> pixels = pixelsOf(image);
    QString read;
    const Cost own = measure([&] { read = engine.read(pixels, image); });
    totals.engine.add(own, editDistance(plain(read), plain(text)));
    const Cost command = runCommand(picture, language.model, &read, &commandMb);
    totals.command.add(command, editDistance(plain(read), plain(text)));
    totals.characters += text.size();
}

} // namespace

int main(int argc, char** argv)
{
    qputenv("OMP_THREAD_LIMIT", "1");
    const QGuiApplication application(argc, argv);
    const int most = argc > 1 ? std::max(1, QByteArray(argv[1]).toInt()) : 10;
    std::printf("Lines of print; medians in ms, errors in characters\n");
    std::printf("%-11s %5s %8s %8s %7s | %8s %8s %7s | %6s %6s\n", "", "", "engine", "engine",
                "engine", "command", "command", "command", "wall", "CPU");
    std::printf("%-11s %5s %8s %8s %7s | %8s %8s %7s | %6s %6s\n", "language", "lines", "wall",
                "CPU", "errors", "wall", "CPU", "errors", "ratio", "ratio");
    Totals totals;
    const double before = residentMb();
    RunningEngine engine;
    QStringList memory;
    const char* model = "";
    for (const Language& language : Languages) {
        engine.setLanguage(language.engineLanguage);
        std::vector<unsigned char> dot(1);
        engine.read(dot, QImage(1, 1, QImage::Format_Grayscale8)); // waits for the model
        Totals own;
        double commandMb = 0;
        for (const QString& text : linesOf(language, most))
            measureLine(text, language, engine, commandMb, own);
        own.print(language.name);
        totals.add(own);
        if (qstrcmp(model, language.model) != 0)
            memory.append(QStringLiteral("%1 with %2 (command: %3)")
                              .arg(residentMb(), 0, 'f', 0)
                              .arg(QLatin1String(language.model))
                              .arg(commandMb, 0, 'f', 0));
        model = language.model;
    }
    totals.print("all");
    std::printf("resident memory in MB, models stay loaded: %.0f without one, %s\n", before,
                qPrintable(memory.join(QStringLiteral(", "))));
    return 0;
}
