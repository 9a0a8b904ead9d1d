/*
 * Line picture to text: the running engine beside the `tesseract` command on the same pictures.
 *
 * cmake --preset release && cmake --build --preset release --target ocr_line
 * QT_QPA_PLATFORM=offscreen build/release/bench/ocr_line [ROUNDS]
 *
 * Needs tesseract-ocr with the models Latin, rus, eng and chi_sim, fonts-liberation and
 * fonts-arphic-gbsn00lp. Both sides use one thread and the same models. Ratios count more than
 * absolute figures; run it on an otherwise idle machine.
 */
#include "platform/zembra_ocr.h"
#include "tests/unit/open/printedline.h"

#include <QFile>
#include <QGuiApplication>
#include <QList>
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

struct Line
{
    const char* language;
    int engineLanguage;
    const char* model; // of the command
    const char* text;
};

constexpr std::array Lines = {
    Line{"English", ZEMBRA_OCR_LANG_LATIN, "Latin",
         "The harbour lay quiet, and only the gulls were awake."},
    Line{"French", ZEMBRA_OCR_LANG_LATIN, "Latin",
         "Le garçon préfère l'été à Nîmes, près du fleuve."},
    Line{"German", ZEMBRA_OCR_LANG_LATIN, "Latin",
         "Über den Dächern hörte man die Glocken läuten, groß und klein."},
    Line{"Spanish", ZEMBRA_OCR_LANG_LATIN, "Latin",
         "El niño comió una piña en la montaña aquel otoño."},
    Line{"Italian", ZEMBRA_OCR_LANG_LATIN, "Latin",
         "Perché la città è così bella di sera, verso il mare."},
    Line{"Swedish", ZEMBRA_OCR_LANG_LATIN, "Latin",
         "Sjön låg stilla när båten gled förbi ön på kvällen."},
    Line{"Danish", ZEMBRA_OCR_LANG_LATIN, "Latin", "Røde æbler hang på træet ved den gamle gård."},
    Line{"Norwegian", ZEMBRA_OCR_LANG_LATIN, "Latin",
         "Båten lå på fjorden, og været var klart og kaldt."},
    Line{"Dutch", ZEMBRA_OCR_LANG_LATIN, "Latin",
         "De molen draait langzaam in de wind bij het water."},
    Line{"Portuguese", ZEMBRA_OCR_LANG_LATIN, "Latin",
         "O pão fresco da manhã não dura até ao serão."},
    Line{"Russian", ZEMBRA_OCR_LANG_CYRILLIC, "rus+eng",
         "Над рекой поднимался туман, и деревня ещё спала."},
    Line{"Chinese", ZEMBRA_OCR_LANG_CHINESE, "chi_sim", "清晨的湖面很安静，只有几只小船。"},
};

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

struct Series
{
    QList<double> wall;
    QList<double> cpu;

    void add(const Cost& cost)
    {
        wall.append(cost.wallMs);
        cpu.append(cost.cpuMs);
    }
};

struct Totals
{
    Series engine;
    Series command;
};

void measureLine(const Line& line, RunningEngine& engine, int rounds, Totals& totals)
{
    const QString wanted = QString::fromUtf8(line.text);
    const bool chinese = line.engineLanguage == ZEMBRA_OCR_LANG_CHINESE;
    const QImage image = printedLine(wanted, chinese ? ChineseFont : SerifFont, 44);
    if (image.isNull()) {
        std::printf("%-11s no font\n", line.language);
        return;
    }
    QTemporaryDir folder;
    const QString picture = folder.filePath(QStringLiteral("line.png"));
    image.save(picture);
    std::vector<unsigned char> pixels = pixelsOf(image);

    Totals own;
    QString read;
    QString commandRead;
    double commandMb = 0;
    engine.setLanguage(line.engineLanguage);
    const Cost first = measure([&] { read = engine.read(pixels, image); });
    for (int round = 0; round < rounds; ++round) {
        own.engine.add(measure([&] { read = engine.read(pixels, image); }));
        own.command.add(runCommand(picture, line.model, &commandRead, &commandMb));
    }
    const double engineCpu = median(own.engine.cpu);
    const double commandCpu = median(own.command.cpu);
    std::printf("%-11s %7.0f %7.1f %7.1f %6.1f%% | %8.1f %8.1f %6.1f%% %6.0f | %6.2f %6.2f\n",
                line.language, first.wallMs, median(own.engine.wall), engineCpu,
                100.0 * editDistance(read, wanted) / static_cast<double>(wanted.size()),
                median(own.command.wall), commandCpu,
                100.0 * editDistance(commandRead, wanted) / static_cast<double>(wanted.size()),
                commandMb, median(own.engine.wall) / median(own.command.wall),
                engineCpu / commandCpu);
    std::fflush(stdout);
    for (const double value : std::as_const(own.engine.wall))
        totals.engine.wall.append(value);
    for (const double value : std::as_const(own.command.wall))
        totals.command.wall.append(value);
}

} // namespace

int main(int argc, char** argv)
{
    qputenv("OMP_THREAD_LIMIT", "1");
    const QGuiApplication application(argc, argv);
    const int rounds = argc > 1 ? std::max(1, QByteArray(argv[1]).toInt()) : 7;
    std::printf("One line of print, medians of %d rounds; errors in characters\n", rounds);
    std::printf("%-11s %7s %7s %7s %7s | %8s %8s %7s %6s | %6s %6s\n", "", "first", "engine",
                "engine", "engine", "command", "command", "command", "memory", "wall", "CPU");
    std::printf("%-11s %7s %7s %7s %7s | %8s %8s %7s %6s | %6s %6s\n", "language", "ms", "ms",
                "CPU ms", "errors", "ms", "CPU ms", "errors", "MB", "ratio", "ratio");
    Totals totals;
    const double before = residentMb();
    RunningEngine engine;
    QList<std::pair<const char*, double>> memory;
    const char* model = "";
    for (const Line& line : Lines) {
        measureLine(line, engine, rounds, totals);
        if (qstrcmp(model, line.model) != 0)
            memory.append({line.model, residentMb()});
        model = line.model;
    }
    std::printf("\nall lines: engine %.1f ms, command %.1f ms, ratio %.2f\n",
                median(totals.engine.wall), median(totals.command.wall),
                median(totals.engine.wall) / median(totals.command.wall));
    std::printf("resident memory: %.0f MB without a model", before);
    for (const auto& [name, megabytes] : std::as_const(memory))
        std::printf(", %.0f with %s", megabytes, name);
    std::printf(" (models stay loaded)\n");
    return 0;
}
