/*
 * How long the user waits: for the first menu after a start, and for the voice after a key; and
 * what memory the pen takes.
 *
 *     build/release/bench/pen_start [RUN-ROOT] [--starts N] [--keys N]
 *
 * Start: the program is started as on a pen but for the display (nothing is shown), from fork to
 * the message by which it tells the launcher that it is on screen. Key: the same application
 * inside this process with the real engines, from a press of Down in the main menu to the first
 * word that is heard; the sound goes through SDL's disk driver, which keeps the pace of a sound
 * card.
 */
#include "app/mainwindow.h"
#include "app/startup.h"
#include "app/widgetchange.h"
#include "engines/cttsthread.h"
#include "engines/ttsplayer.h"
#include "platform/qcopchannel.h"
#include "store/configreader.h"
#include "store/filemanager.h"
#include "store/languagemanager.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QEventLoop>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstdio>
#include <thread>

namespace {

constexpr int PatienceMs = 20'000;

qint64 nowUs()
{
    const auto now = std::chrono::steady_clock::now().time_since_epoch();
    return std::chrono::duration_cast<std::chrono::microseconds>(now).count();
}

void printSpread(const char* what, QList<double> milliseconds)
{
    if (milliseconds.isEmpty()) {
        std::printf("%-34s nothing measured\n", what);
        return;
    }
    std::sort(milliseconds.begin(), milliseconds.end());
    const auto at = [&](double share) {
        const double place = share * static_cast<double>(milliseconds.size() - 1);
        return milliseconds.at(static_cast<qsizetype>(place));
    };
    std::printf("%-34s median %7.1f ms   worst %7.1f ms   (%lld runs)\n", what, at(0.5), at(1.0),
                static_cast<long long>(milliseconds.size()));
}

// VmRSS of a process in MiB.
double residentMiB(qint64 pid)
{
    QFile status(QStringLiteral("/proc/%1/status").arg(pid));
    if (!status.open(QIODevice::ReadOnly))
        return 0;
    for (const QByteArray& line : status.readAll().split('\n')) {
        if (line.startsWith("VmRSS:"))
            return line.mid(6).simplified().split(' ').value(0).toDouble() / 1024;
    }
    return 0;
}

// Models load in the background after the start: the memory counts once it has stopped growing.
double settledMiB(qint64 pid)
{
    double last = 0;
    for (int calm = 0; calm < 10;) {
        QEventLoop pause;
        QTimer::singleShot(100, &pause, &QEventLoop::quit);
        pause.exec();
        const double now = residentMiB(pid);
        calm = now - last < 0.2 ? calm + 1 : 0;
        last = std::max(now, last);
    }
    return last;
}

class StartBench : public QObject
{
public:
    explicit StartBench(const QString& program)
        : m_program(program), m_launcher(QStringLiteral("mainprocess"))
    {
        connect(&m_launcher, &QCopChannel::received, this, [this](const QString& message) {
            if (message == QLatin1String("Show(QString)")) {
                m_shownUs = nowUs();
                m_shown.quit();
            }
        });
    }

    void run(int starts)
    {
        QList<double> times;
        double atMenu = 0;
        double settled = 0;
        for (int i = 0; i < starts; ++i) {
            QProcess pen;
            const qint64 begin = nowUs();
            pen.start(m_program, {});
            QTimer::singleShot(PatienceMs, &m_shown, &QEventLoop::quit);
            m_shown.exec();
            if (m_shownUs < begin) {
                std::printf("%s does not come up\n", qPrintable(m_program));
                return;
            }
            times.append(static_cast<double>(m_shownUs - begin) / 1000);
            atMenu = residentMiB(pen.processId());
            if (i == 0)
                settled = settledMiB(pen.processId());
            QCopChannel::send(QStringLiteral("scanprocess"), QStringLiteral("execute(QString)"),
                              "stop");
            pen.waitForFinished(PatienceMs);
        }
        printSpread("start to first menu", times);
        std::printf("%-34s %.0f MiB at the first menu, %.0f MiB with the models loaded\n",
                    "resident memory", atMenu, settled);
    }

private:
    QString m_program;
    QCopChannel m_launcher;
    QEventLoop m_shown;
    qint64 m_shownUs = 0;
};

// Listens to the sound file as it grows: when sound was last seen, and when it last began after
// a silence.
class SoundEars
{
public:
    explicit SoundEars(const QString& fileName) : m_file(fileName) {}
    ~SoundEars()
    {
        m_ends = true;
        m_thread.join();
    }

    qint64 beganUs() const { return m_beganUs; }
    bool isSilent() const { return nowUs() - m_loudUs > SilenceUs; }

private:
    static constexpr qint64 SilenceUs = 100'000;
    static constexpr auto Poll = std::chrono::microseconds(200);

    void listen()
    {
        while (!m_ends) {
            if (!m_file.isOpen())
                m_file.open(QIODevice::ReadOnly | QIODevice::Unbuffered);
            const QByteArray heard = m_file.isOpen() ? m_file.readAll() : QByteArray();
            const bool loud =
                std::any_of(heard.begin(), heard.end(), [](char c) { return c != 0; });
            if (loud) {
                const bool fresh = isSilent();
                m_loudUs = nowUs();
                if (fresh)
                    m_beganUs = m_loudUs.load();
            }
            std::this_thread::sleep_for(Poll);
        }
    }

    QFile m_file;
    std::atomic<bool> m_ends = false;
    std::atomic<qint64> m_loudUs = 0;
    std::atomic<qint64> m_beganUs = 0;
    std::thread m_thread{[this] { listen(); }};
};

// Runs the event loop until the condition holds; false when it does not come to hold.
template <class Condition> bool waitFor(Condition&& condition)
{
    const qint64 end = nowUs() + PatienceMs * qint64(1000);
    while (!condition() && nowUs() < end)
        QCoreApplication::processEvents(QEventLoop::AllEvents, 1);
    return condition();
}

void benchKeys(const SoundEars& ears, int keys)
{
    languageInit();
    ConfigReader::Instance()->setLanInfo(0);
    Init();
    MainWindow window;
    window.show();
    window.activateWindow();
    QList<double> times;
    for (int i = 0; i <= keys; ++i) {
        TTSPlayer::Instance()->stop();
        if (!waitFor([&] { return ears.isSilent() && !window.menuSpeech()->isRunning(); }))
            break;
        const qint64 begin = nowUs();
        QTest::keyClick(WidgetChange::Instance()->getCurWidget(),
                        i % 2 == 0 ? Qt::Key_Down : Qt::Key_Up);
        if (!waitFor([&] { return ears.beganUs() >= begin; }))
            break;
        if (i > 0) // the first one opens the sound output
            times.append(static_cast<double>(ears.beganUs() - begin) / 1000);
    }
    printSpread("key to first spoken sample", times);
}

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QTemporaryDir folder;
    qputenv("XDG_RUNTIME_DIR", QFile::encodeName(folder.path()));
    QApplication application(argc, argv);
    QCommandLineParser parser;
    parser.addHelpOption();
    parser.addPositionalArgument(
        QStringLiteral("root"),
        QStringLiteral("a fresh run root; without it one is made and thrown away"));
    parser.addOption({QStringLiteral("starts"), QStringLiteral("starts to measure"),
                      QStringLiteral("N"), QStringLiteral("10")});
    parser.addOption({QStringLiteral("keys"), QStringLiteral("keys to measure"),
                      QStringLiteral("N"), QStringLiteral("20")});
    parser.process(application);

    QString root = parser.positionalArguments().value(0);
    if (root.isEmpty()) {
        root = folder.filePath(QStringLiteral("pen"));
        if (QProcess::execute(QStringLiteral(SWIPELINE_SOURCE_DIR "/scripts/make-run-root"), {root})
            != 0)
            return 1;
    }
    qputenv("SWIPELINE_ROOT", QFile::encodeName(root));
    qputenv("FONTCONFIG_FILE", QFile::encodeName(root + QStringLiteral("/apps/res/fonts.conf")));
    const QString sound = folder.filePath(QStringLiteral("sound.wav"));
    qputenv("SWIPELINE_WAV", QFile::encodeName(sound));

    StartBench(QString::fromLatin1(SWIPELINE_BINARY_DIR "/app/swipeline"))
        .run(parser.value(QStringLiteral("starts")).toInt());

    const SoundEars ears(sound);
    benchKeys(ears, parser.value(QStringLiteral("keys")).toInt());
    return 0;
}
