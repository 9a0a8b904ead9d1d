/*
 * What it costs to save a text safely, and to log a scan before it is spoken.
 *
 *     build/release/bench/store_save [FOLDER] [--runs N]
 *
 * FOLDER is where the run root is made: a folder on the storage that is to be measured, else the
 * one for temporary files. Each run saves in all ways, one after the other, so that the ratio is
 * of one run. No whole-machine sync() is counted for any of them.
 */
#include "platform/devicepaths.h"
#include "store/scantext.h"
#include "store/storejournal.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdio>
#include <functional>
#include <unistd.h>

namespace {

const QString Place = QStringLiteral("/mnt/mmc/e_ScanFile/text.txt");

double medianOf(QVector<double> values)
{
    std::sort(values.begin(), values.end());
    return values.at(values.size() / 2);
}

double worstOf(const QVector<double>& values)
{
    return *std::max_element(values.begin(), values.end());
}

bool saveWith(const QByteArray& content, const std::function<void(int)>& flush)
{
    QFile file(devicePath(Place));
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate)
        || file.write(content) != content.size() || !file.flush())
        return false;
    flush(file.handle());
    return true;
}

struct Way
{
    const char* name;
    std::function<bool(int)> run;
    QVector<double> times;
};

void print(const Way& way, double base)
{
    const double median = medianOf(way.times);
    std::printf("%-34s median %7.2f ms   worst %7.2f ms   %5.2f of write and fsync\n", way.name,
                median, worstOf(way.times), median / base);
}

bool measure(int runs)
{
    StoreJournal journal;
    journal.recover();
    const QString page = QStringLiteral("A line of a page, as it is printed.\n").repeated(100);
    const auto textOf = [&](int run) {
        return scantext::encode(QString::number(run).rightJustified(8, u'0') + page);
    };
    Way ways[] = {
        {"truncate, write, fsync",
         [&](int run) { return saveWith(textOf(run), [](int file) { ::fsync(file); }); },
         {}},
        {"truncate, write, sync() of all",
         [&](int run) { return saveWith(textOf(run), [](int file) { ::syncfs(file); }); },
         {}},
        {"with the journal",
         [&](int run) { return journal.write(Place, textOf(run)) == StoreJournal::Result::Done; },
         {}},
        {"logging a scan of 60 letters",
         [&](int) { return journal.noteScan(Place, 8, page.left(60), int(page.size()) + 8); },
         {}},
    };
    for (int run = 0; run < runs; ++run)
        for (Way& way : ways) {
            QElapsedTimer timer;
            timer.start();
            if (!way.run(run))
                return false;
            way.times.append(static_cast<double>(timer.nsecsElapsed()) / 1e6);
        }
    for (const Way& way : ways)
        print(way, medianOf(ways[0].times));
    return true;
}

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    QCommandLineParser parser;
    parser.addHelpOption();
    parser.addPositionalArgument(QStringLiteral("folder"), QStringLiteral("storage to measure"));
    parser.addOption({QStringLiteral("runs"), QStringLiteral("how often"), QStringLiteral("N"),
                      QStringLiteral("100")});
    parser.process(application);
    const QString folder = parser.positionalArguments().value(0, QDir::tempPath());
    const QTemporaryDir root(folder + QStringLiteral("/store_save-XXXXXX"));
    qputenv("SWIPELINE_ROOT", QFile::encodeName(root.path()));
    for (const char* place : {"/apps/config", "/mnt/mmc/e_ScanFile"})
        QDir().mkpath(devicePath(QString::fromLatin1(place)));
    if (!root.isValid() || !measure(std::max(1, parser.value(QStringLiteral("runs")).toInt()))) {
        std::fprintf(stderr, "%s cannot be written to\n", qPrintable(folder));
        return 1;
    }
    return 0;
}
