#include "platform/zembra_tts.h"

#include "desk/desklink.h"
#include "wavfile.h"

#include <QDir>
#include <QFile>
#include <QList>
#include <QTemporaryDir>
#include <QTest>

#include <atomic>
#include <condition_variable>
#include <limits>
#include <memory>
#include <mutex>
#include <thread>
#include <vector>

namespace {

struct Report
{
    int offset;
    int length;
    int kind;
    bool operator==(const Report&) const = default;
};

/* What the engine reports; the callback has no argument of its own. */
struct Reports
{
    std::mutex mutex;
    std::condition_variable changed;
    QList<Report> all;
    std::atomic<bool> playing = false;
    bool outsidePlay = false;
    int stopAt = 0; // the report on which to stop; 0 never

    void clear()
    {
        const std::lock_guard lock(mutex);
        all.clear();
        outsidePlay = false;
        stopAt = 0;
    }

    void waitFor(int count)
    {
        std::unique_lock lock(mutex);
        changed.wait(lock, [this, count] { return all.size() >= count; });
    }

    QStringList words(const QString& text)
    {
        const std::lock_guard lock(mutex);
        QStringList result;
        for (const Report& report : all)
            result.append(text.mid(report.offset, report.length));
        return result;
    }

    int count()
    {
        const std::lock_guard lock(mutex);
        return static_cast<int>(all.size());
    }
};

Reports s_reports;

int receive(int offset, int length, int kind)
{
    bool stop = false;
    {
        const std::lock_guard lock(s_reports.mutex);
        s_reports.all.append({offset, length, kind});
        s_reports.outsidePlay = s_reports.outsidePlay || !s_reports.playing;
        stop = s_reports.all.size() == s_reports.stopAt;
        s_reports.changed.notify_all();
    }
    if (stop)
        ZEMBRA_TTS_Stop();
    return 0;
}

int play(const QString& text)
{
    s_reports.playing = true;
    const int code = ZEMBRA_TTS_Play(text.utf16(), static_cast<int>(text.size() * 2), 0);
    s_reports.playing = false;
    return code;
}

int threadCount()
{
    return static_cast<int>(QDir(QStringLiteral("/proc/self/task"))
                                .entryList(QDir::Dirs | QDir::NoDotAndDotDot)
                                .size());
}

QString tag(int milliseconds)
{
    return QStringLiteral("<vtml_pause time=\"%1\"/>").arg(milliseconds);
}

constexpr int SamplesPerSecond = 22050;

} // namespace

/* Every test writes a WAV file of its own, at many times the pace of speech. */
class TstTtsEngine : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void speaksEveryLanguage_data();
    void speaksEveryLanguage();
    void everyVoiceSpeaks_data();
    void everyVoiceSpeaks();
    void reportsEachWordOnce_data();
    void reportsEachWordOnce();
    void longestTextIsReportedWhole();
    void pauseIsExact_data();
    void pauseIsExact();
    void naturalPauseIsKept();
    void pauseAloneIsSilence();
    void speedChangesLength();
    void unpunctuatedTextLosesNothing_data();
    void unpunctuatedTextLosesNothing();
    void volumeZeroIsSilent();
    void boostIsLouder();
    void settingsBeforeStart();
    void unknownLanguageKeepsVoice();
    void nullCallbackIsAllowed();
    void stopEndsPlay();
    void stopFromReport();
    void stopEndsWaitingTextsToo();
    void stopBeforePlayDoesNothing();
    void stopManyTimes();
    void noReportAfterReturn();
    void soundEndsSoonAfterStop();
    void textsComeOneAfterTheOther();
    void emptyAndWrongArguments();
    void oddTextIsHarmless_data();
    void oddTextIsHarmless();
    void startTwiceKeepsSettings();
    void notStarted();
    void closeEndsPlay();
    void startAndCloseAgainAndAgain();
    void fileIsValidWhileSpeaking();
    void unwritableFileIsNoOutput();
    void dummyDriverPacesWithoutDevice();

private:
    void start();
    std::vector<std::int16_t> recorded();
    std::size_t lengthOf(const QString& text, int rounds = 1);

    std::unique_ptr<QTemporaryDir> m_folder;
    QString m_wav;
};

void TstTtsEngine::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    m_wav = m_folder->filePath(QStringLiteral("speech.wav"));
    qputenv(desklink::WavVariable, QFile::encodeName(m_wav));
    qputenv("SWIPELINE_WAV_SPEED", "2000");
    qunsetenv("SDL_AUDIODRIVER");
    s_reports.clear();
    start();
    ZEMBRA_TTS_SetHighlight_CallBack(receive);
    QCOMPARE(ZEMBRA_TTS_SetLang(101), 0);
    ZEMBRA_TTS_SetSpeed(48);
    ZEMBRA_TTS_SetVolume(100);
    ZEMBRA_TTS_SetVolumeLevel(0);
}

void TstTtsEngine::cleanup()
{
    ZEMBRA_TTS_Uninitialize();
}

void TstTtsEngine::start()
{
    const char* folders[] = {"/no/such/voices", "/no/such/languages"};
    QCOMPARE(ZEMBRA_TTS_Initialize(folders, 2, 80), 0);
}

std::vector<std::int16_t> TstTtsEngine::recorded()
{
    // What was heard last may still be on its way to the file; closing waits for it.
    ZEMBRA_TTS_Uninitialize();
    const auto samples = readWav(m_wav);
    start();
    if (!samples)
        qFatal("not a valid file");
    return *samples;
}

/* The shortest of several: the synthesizer's sounds vary by fractions of a millisecond each time,
 * and now and then by a whole period of the voice. */
std::size_t TstTtsEngine::lengthOf(const QString& text, int rounds)
{
    std::size_t shortest = std::numeric_limits<std::size_t>::max();
    std::size_t before = recorded().size();
    for (int round = 0; round < rounds; ++round) {
        if (play(text) != 0)
            qFatal("not spoken");
        const std::size_t after = recorded().size();
        shortest = std::min(shortest, after - before);
        before = after;
    }
    return shortest;
}

void TstTtsEngine::speaksEveryLanguage_data()
{
    QTest::addColumn<int>("language");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QStringList>("words");
    const auto add = [](const char* name, int language, const char* text) {
        QStringList words = QString::fromUtf8(text).split(QLatin1Char(' '));
        for (QString& word : words)
            while (!word.isEmpty() && word.back().isPunct())
                word.chop(1);
        QTest::newRow(name) << language << QString::fromUtf8(text) << words;
    };
    add("English", 101, "The harbour lay quiet, and only the gulls were awake.");
    add("French", 103, "Le garçon préfère l'été à Nîmes, près du fleuve.");
    add("German", 104, "Über den Dächern hörte man die Glocken läuten, groß und klein.");
    add("Spanish", 105, "El niño comió una piña en la montaña aquel otoño.");
    add("Italian", 106, "Perché la città è così bella di sera, verso il mare.");
    add("Swedish", 107, "Sjön låg stilla när båten gled förbi ön på kvällen.");
    add("Danish", 108, "Røde æbler hang på træet ved den gamle gård.");
    add("Norwegian", 109, "Båten lå på fjorden, og været var klart og kaldt.");
    add("Dutch", 110, "De molen draait langzaam in de wind bij het water.");
    add("Portuguese", 111, "O pão fresco da manhã não dura até ao serão.");
    add("Russian", 151, "Над рекой поднимался туман, и деревня ещё спала.");
    add("Arabic", 152, "كان البحر هادئا، والطيور تحلق فوق الماء.");
    const QString chinese = QStringLiteral("清晨的湖面很安静，只有几只小船。");
    QStringList characters;
    for (const QChar c : chinese)
        if (!c.isPunct())
            characters.append(c);
    QTest::newRow("Chinese") << 1 << chinese << characters;
    QTest::newRow("Chinese, traditional")
        << 2 << QStringLiteral("讀書") << QStringList({"讀", "書"});
}

void TstTtsEngine::speaksEveryLanguage()
{
    QFETCH(int, language);
    QFETCH(QString, text);
    QFETCH(QStringList, words);
    QCOMPARE(ZEMBRA_TTS_SetLang(language), 0);
    QCOMPARE(play(text), 0);
    QCOMPARE(s_reports.words(text), words);
    const auto samples = recorded();
    QVERIFY(peakOf(samples) > 3000);
    // Nobody speaks more than 20 syllables a second.
    QVERIFY(samples.size() > static_cast<std::size_t>(words.size()) * SamplesPerSecond / 20);
}

void TstTtsEngine::everyVoiceSpeaks_data()
{
    QTest::addColumn<int>("voice");
    for (const int voice : {200, 201, 202, 203, 204, 205, 206, 211, 212})
        QTest::addRow("%d", voice) << voice;
}

void TstTtsEngine::everyVoiceSpeaks()
{
    QFETCH(int, voice);
    QCOMPARE(ZEMBRA_TTS_SetLang(voice), 0);
    const QString text = QStringLiteral("one 二 three");
    QCOMPARE(play(text), 0);
    QCOMPARE(s_reports.words(text), QStringList({"one", "二", "three"}));
    QVERIFY(peakOf(recorded()) > 3000);
}

void TstTtsEngine::reportsEachWordOnce_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QStringList>("words");
    QTest::newRow("joined by the synthesizer")
        << QStringLiteral("It is one of the best of the day to the end.")
        << QStringList(
               {"It", "is", "one", "of", "the", "best", "of", "the", "day", "to", "the", "end"});
    QTest::newRow("numbers") << QStringLiteral("Pi is 3.14, not 12345 or 1,000.")
                             << QStringList({"Pi", "is", "3.14", "not", "12345", "or", "1,000"});
    QTest::newRow("dots") << QStringLiteral("well.. and so... on")
                          << QStringList({"well", "and", "so", "on"});
    QTest::newRow("tags everywhere")
        << QStringLiteral("One") + tag(100) + QStringLiteral(" two,") + tag(200) + tag(100)
               + QStringLiteral(" three") + tag(100)
        << QStringList({"One", "two", "three"});
    QTest::newRow("looks like mark-up")
        << QStringLiteral("a <vtml_pause time=\"x\"/> b")
        << QStringList({"a", "<vtml_pause", "time=", "x", "/>", "b"});
    QTest::newRow("emoji") << QStringLiteral("so \U0001f600 on")
                           << QStringList({"so", "\U0001f600", "on"});
}

void TstTtsEngine::reportsEachWordOnce()
{
    QFETCH(QString, text);
    QFETCH(QStringList, words);
    QCOMPARE(play(text), 0);
    QCOMPARE(s_reports.words(text), words);
    for (const Report& report : std::as_const(s_reports.all))
        QCOMPARE(report.kind, int(ZEMBRA_TTS_WORD));
    QVERIFY(!s_reports.outsidePlay);
}

void TstTtsEngine::longestTextIsReportedWhole()
{
    ZEMBRA_TTS_Uninitialize();
    qputenv("SWIPELINE_WAV_SPEED", "10000");
    start();
    QString text = QStringLiteral("and so it goes on, ").repeated(2000).left(32768);
    ZEMBRA_TTS_SetSpeed(96);
    QCOMPARE(play(text), 0);
    QCOMPARE(s_reports.count(), static_cast<int>(text.split(QLatin1Char(' ')).size()) - 1
                                    + (text.endsWith(QLatin1Char(' ')) ? 0 : 1));
    int after = -1;
    for (const Report& report : std::as_const(s_reports.all)) {
        QVERIFY(report.offset > after);
        after = report.offset + report.length;
    }
}

void TstTtsEngine::pauseIsExact_data()
{
    QTest::addColumn<QString>("before");
    QTest::addColumn<QString>("after");
    QTest::addColumn<int>("milliseconds");
    for (const int milliseconds : {200, 400, 2000}) {
        QTest::addRow("comma %d", milliseconds) << "Hello,"
                                                << " world." << milliseconds;
        QTest::addRow("stop %d", milliseconds) << "Hello."
                                               << " World." << milliseconds;
        QTest::addRow("question %d", milliseconds) << "Hello?"
                                                   << " World." << milliseconds;
        QTest::addRow("semicolon %d", milliseconds) << "Hello;"
                                                    << " world." << milliseconds;
        QTest::addRow("word %d", milliseconds) << "Hello"
                                               << " world." << milliseconds;
        QTest::addRow("end %d", milliseconds) << "Hello world."
                                              << "" << milliseconds;
    }
}

void TstTtsEngine::pauseIsExact()
{
    QFETCH(QString, before);
    QFETCH(QString, after);
    QFETCH(int, milliseconds);
    const auto without = static_cast<int>(lengthOf(before + tag(0) + after, 8));
    const auto with = static_cast<int>(lengthOf(before + tag(milliseconds) + after, 8));
    QVERIFY2(std::abs(with - without - milliseconds * SamplesPerSecond / 1000)
                 <= 2 * SamplesPerSecond / 1000,
             qPrintable(QString::number(with - without)));
}

void TstTtsEngine::naturalPauseIsKept()
{
    // The tag divides the text for the synthesizer; the pause it makes by itself must stay.
    for (const char* mark : {",", ".", "?", "!", ";", ":"}) {
        const QString before = QStringLiteral("Hello") + QLatin1String(mark);
        const QString after = QStringLiteral(" World.");
        const auto whole = static_cast<int>(lengthOf(before + after, 8));
        const auto divided = static_cast<int>(lengthOf(before + tag(0) + after, 8));
        QVERIFY2(
            std::abs(whole - divided) <= 2 * SamplesPerSecond / 1000,
            qPrintable(QStringLiteral("%1: %2").arg(QLatin1String(mark)).arg(whole - divided)));
    }
}

void TstTtsEngine::pauseAloneIsSilence()
{
    QCOMPARE(lengthOf(tag(500)), std::size_t(SamplesPerSecond / 2));
    QCOMPARE(peakOf(recorded()), 0);
    QCOMPARE(s_reports.count(), 0);
}

void TstTtsEngine::speedChangesLength()
{
    const QString text = QStringLiteral("The harbour lay quiet, and only the gulls were awake.");
    QList<std::size_t> lengths;
    for (const int speed : {0, 24, 48, 72, 96}) {
        ZEMBRA_TTS_SetSpeed(speed);
        lengths.append(lengthOf(text));
    }
    for (qsizetype i = 1; i < lengths.size(); ++i)
        QVERIFY(lengths[i] < lengths[i - 1]);
    QVERIFY(lengths[0] > 3 * lengths[4]);
    ZEMBRA_TTS_SetSpeed(-50);
    QCOMPARE(lengthOf(text) / 100, lengths[0] / 100);
}

void TstTtsEngine::unpunctuatedTextLosesNothing_data()
{
    QTest::addColumn<int>("language");
    QTest::addColumn<QString>("word");
    QTest::addColumn<int>("few");
    QTest::addColumn<int>("many");
    QTest::newRow("Chinese") << 1 << QStringLiteral("人") << 53 << 530;
    QTest::newRow("numbers") << 101 << QStringLiteral("12345 ") << 8 << 80;
    QTest::newRow("words") << 101 << QStringLiteral("harbour ") << 20 << 400;
}

void TstTtsEngine::unpunctuatedTextLosesNothing()
{
    QFETCH(int, language);
    QFETCH(QString, word);
    QFETCH(int, few);
    QFETCH(int, many);
    ZEMBRA_TTS_SetLang(language);
    const auto some = static_cast<double>(lengthOf(word.repeated(few)));
    const auto all = static_cast<double>(lengthOf(word.repeated(many)));
    const double share = all / some / (static_cast<double>(many) / few);
    QVERIFY2(share > 0.85 && share < 1.15, qPrintable(QString::number(share)));
}

void TstTtsEngine::volumeZeroIsSilent()
{
    ZEMBRA_TTS_SetVolume(0);
    QCOMPARE(play(QStringLiteral("Nobody hears this.")), 0);
    QCOMPARE(s_reports.count(), 3);
    const auto samples = recorded();
    QVERIFY(samples.size() > SamplesPerSecond / 2);
    QCOMPARE(peakOf(samples), 0);
}

void TstTtsEngine::boostIsLouder()
{
    const QString text = QStringLiteral("Louder, please.");
    ZEMBRA_TTS_SetVolume(40);
    QCOMPARE(play(text), 0);
    const auto first = recorded();
    ZEMBRA_TTS_SetVolumeLevel(1000);
    QCOMPARE(play(text), 0);
    QVERIFY(peakOf(recorded(), first.size()) > 2 * peakOf(first));
}

void TstTtsEngine::settingsBeforeStart()
{
    ZEMBRA_TTS_Uninitialize();
    QCOMPARE(ZEMBRA_TTS_SetVolumeLevel(1000), 0);
    QCOMPARE(ZEMBRA_TTS_SetVolume(0), 0);
    QCOMPARE(ZEMBRA_TTS_SetLang(104), 0);
    QCOMPARE(ZEMBRA_TTS_SetSpeed(40), 0);
    QCOMPARE(ZEMBRA_TTS_Stop(), 0);
    QCOMPARE(ZEMBRA_TTS_Initialize(nullptr, 0, 80), 0);
    QCOMPARE(play(QStringLiteral("Leise.")), 0);
    QCOMPARE(peakOf(recorded()), 0);
}

void TstTtsEngine::unknownLanguageKeepsVoice()
{
    QCOMPARE(ZEMBRA_TTS_SetLang(151), 0);
    const QString text = QStringLiteral("деревня");
    const std::size_t russian = lengthOf(text, 4);
    for (const int code : {0, -1, 3, 102, 207, 999})
        QCOMPARE(ZEMBRA_TTS_SetLang(code), -1);
    QVERIFY(std::abs(static_cast<int>(lengthOf(text, 4) - russian)) < 100);
    ZEMBRA_TTS_SetLang(101); // spells the letters
    QVERIFY(lengthOf(text) > 2 * russian);
}

void TstTtsEngine::nullCallbackIsAllowed()
{
    QCOMPARE(ZEMBRA_TTS_SetHighlight_CallBack(nullptr), 0);
    QCOMPARE(play(QStringLiteral("To nobody.")), 0);
    QCOMPARE(s_reports.count(), 0);
}

void TstTtsEngine::stopEndsPlay()
{
    ZEMBRA_TTS_Uninitialize();
    qputenv("SWIPELINE_WAV_SPEED", "1");
    start();
    std::thread stopper([] {
        s_reports.waitFor(2);
        ZEMBRA_TTS_Stop();
    });
    QCOMPARE(play(QStringLiteral("and so it goes on ").repeated(500)), 1);
    stopper.join();
    QVERIFY(s_reports.count() < 100);
}

void TstTtsEngine::stopFromReport()
{
    s_reports.stopAt = 3;
    QCOMPARE(play(QStringLiteral("One two three four five six.")), 1);
    QCOMPARE(s_reports.count(), 3);
}

void TstTtsEngine::stopEndsWaitingTextsToo()
{
    ZEMBRA_TTS_Uninitialize();
    qputenv("SWIPELINE_WAV_SPEED", "1");
    start();
    const QString text = QStringLiteral("and so it goes on ").repeated(500);
    std::vector<int> codes(3, -5);
    std::atomic<int> entered = 0;
    std::vector<std::thread> threads;
    for (int& code : codes)
        threads.emplace_back([&code, &text, &entered] {
            ++entered;
            code = play(text);
        });
    s_reports.waitFor(1);
    QTRY_COMPARE(entered.load(), 3);
    // A thread may have announced itself and not yet be in; stopping goes on until all have ended.
    std::atomic<bool> done = false;
    std::thread stopper([&done] {
        while (!done) {
            ZEMBRA_TTS_Stop();
            std::this_thread::yield();
        }
    });
    for (std::thread& thread : threads)
        thread.join();
    done = true;
    stopper.join();
    for (const int code : codes)
        QCOMPARE(code, 1);
}

void TstTtsEngine::stopBeforePlayDoesNothing()
{
    for (int i = 0; i < 5; ++i)
        ZEMBRA_TTS_Stop();
    QCOMPARE(play(QStringLiteral("Still spoken.")), 0);
    QCOMPARE(s_reports.count(), 2);
}

void TstTtsEngine::stopManyTimes()
{
    const QString text = QStringLiteral("One two three four five six seven eight nine ten.");
    for (int round = 0; round < 200; ++round) {
        s_reports.clear();
        const int at = 1 + round % 9;
        std::thread stopper([at] {
            s_reports.waitFor(at);
            ZEMBRA_TTS_Stop();
        });
        const int code = play(text);
        stopper.join();
        // At this pace the text may have ended before the stop came.
        QVERIFY(code == 1 || (code == 0 && s_reports.count() == 10));
        QVERIFY(s_reports.count() >= at);
        QVERIFY(!s_reports.outsidePlay);
        for (qsizetype i = 1; i < s_reports.all.size(); ++i)
            QVERIFY(s_reports.all[i].offset > s_reports.all[i - 1].offset);
    }
    s_reports.clear();
    QCOMPARE(play(text), 0);
    QCOMPARE(s_reports.count(), 10);
}

void TstTtsEngine::noReportAfterReturn()
{
    for (int round = 0; round < 20; ++round) {
        s_reports.clear();
        s_reports.stopAt = 2;
        QCOMPARE(play(QStringLiteral("One two three four.")), 1);
        const int count = s_reports.count();
        QCOMPARE(play(tag(50)), 0); // time passes, nothing to report
        QCOMPARE(s_reports.count(), count);
    }
}

void TstTtsEngine::soundEndsSoonAfterStop()
{
    ZEMBRA_TTS_Uninitialize();
    qputenv("SWIPELINE_WAV_SPEED", "1");
    start();
    s_reports.stopAt = 1;
    QCOMPARE(play(QStringLiteral("Enough of it, and more than enough. ").repeated(40)), 1);
    // What was taken before the stop and 5 ms of fade: nothing of the minute and more to come.
    QVERIFY(recorded().size() <= 5 * SamplesPerSecond);
}

void TstTtsEngine::textsComeOneAfterTheOther()
{
    const QString text = QStringLiteral("One after the other.");
    const std::size_t one = lengthOf(text);
    const std::size_t before = recorded().size();
    std::vector<std::thread> threads;
    std::atomic<int> spoken = 0;
    for (int i = 0; i < 4; ++i)
        threads.emplace_back([&text, &spoken] { spoken += play(text) == 0; });
    for (std::thread& thread : threads)
        thread.join();
    QCOMPARE(spoken.load(), 4);
    const auto all = static_cast<double>(recorded().size() - before);
    QVERIFY(std::abs(all - 4.0 * static_cast<double>(one)) < 2000);
}

void TstTtsEngine::emptyAndWrongArguments()
{
    const unsigned short unit = 'a';
    QCOMPARE(ZEMBRA_TTS_Play(nullptr, 0, 0), 0);
    QCOMPARE(ZEMBRA_TTS_Play(nullptr, -4, 0), 0);
    QCOMPARE(ZEMBRA_TTS_Play(nullptr, 4, 0), -1);
    QCOMPARE(ZEMBRA_TTS_Play(&unit, 0, 0), 0);
    QCOMPARE(ZEMBRA_TTS_Play(&unit, -2, 0), 0);
    QCOMPARE(ZEMBRA_TTS_Play(&unit, 1, 0), 0);
    QCOMPARE(s_reports.count(), 0);
    QCOMPARE(ZEMBRA_TTS_Play(&unit, 3, 0), 0);
    QCOMPARE(s_reports.count(), 1);
}

void TstTtsEngine::oddTextIsHarmless_data()
{
    QTest::addColumn<int>("language");
    QTest::addColumn<QString>("text");
    const QString braille = QStringLiteral("\u28df\u28ef\u28ff");
    const QString controls = QStringLiteral("a\x01"
                                            "b\x1b[31m\x02 30V \x7f");
    QString surrogates;
    for (int i = 0; i < 40; ++i)
        surrogates += QChar(i % 3 == 0 ? 0xdc00 : 0xd83d);
    const QString marks = QStringLiteral("e\u0301\u0301\u0301\u0301\u0301 \u202e\u200f\ufeff x");
    const QString signs = QStringLiteral("[[_^_en]] <speak> %s%n \\ {0} &amp; `date`");
    for (const int language : {1, 101, 104, 151, 152}) {
        QTest::addRow("Braille %d", language) << language << braille;
        QTest::addRow("controls %d", language) << language << controls;
        QTest::addRow("surrogates %d", language) << language << surrogates;
        QTest::addRow("marks %d", language) << language << marks;
        QTest::addRow("signs %d", language) << language << signs;
        QTest::addRow("private use %d", language)
            << language << QStringLiteral("\ue000\uf8ff \U000f0000");
    }
}

void TstTtsEngine::oddTextIsHarmless()
{
    QFETCH(int, language);
    QFETCH(QString, text);
    QCOMPARE(ZEMBRA_TTS_SetLang(language), 0);
    QCOMPARE(play(text), 0);
    s_reports.clear();
    QCOMPARE(ZEMBRA_TTS_SetLang(101), 0);
    QCOMPARE(play(QStringLiteral("Still here.")), 0);
    QCOMPARE(s_reports.count(), 2);
}

void TstTtsEngine::startTwiceKeepsSettings()
{
    ZEMBRA_TTS_SetVolume(0);
    for (int i = 0; i < 3; ++i)
        QCOMPARE(ZEMBRA_TTS_Initialize(nullptr, 0, 80), 0);
    QCOMPARE(play(QStringLiteral("Quiet as before.")), 0);
    QCOMPARE(s_reports.count(), 3);
    QCOMPARE(peakOf(recorded()), 0);
}

void TstTtsEngine::notStarted()
{
    QCOMPARE(ZEMBRA_TTS_Uninitialize(), 0);
    QCOMPARE(ZEMBRA_TTS_Uninitialize(), -1);
    QCOMPARE(play(QStringLiteral("Nobody.")), -1);
    QCOMPARE(play(QString()), -1);
    QCOMPARE(s_reports.count(), 0);
}

void TstTtsEngine::closeEndsPlay()
{
    ZEMBRA_TTS_Uninitialize();
    qputenv("SWIPELINE_WAV_SPEED", "1");
    start();
    std::thread closer([] {
        s_reports.waitFor(1);
        ZEMBRA_TTS_Uninitialize();
    });
    QCOMPARE(play(QStringLiteral("and so it goes on ").repeated(500)), 1);
    closer.join();
    QCOMPARE(play(QStringLiteral("Closed.")), -1);
}

void TstTtsEngine::startAndCloseAgainAndAgain()
{
    const int threads = threadCount();
    for (int round = 0; round < 20; ++round) {
        QCOMPARE(ZEMBRA_TTS_Uninitialize(), 0);
        start();
        s_reports.clear();
        QCOMPARE(play(QStringLiteral("Round after round.")), 0);
        QCOMPARE(s_reports.count(), 3);
        QCOMPARE(threadCount(), threads);
    }
}

void TstTtsEngine::fileIsValidWhileSpeaking()
{
    ZEMBRA_TTS_Uninitialize();
    qputenv("SWIPELINE_WAV_SPEED", "20");
    start();
    QVERIFY(readWav(m_wav));
    std::atomic<bool> done = false;
    std::thread speaker([&done] {
        play(QStringLiteral("and so it goes on, ").repeated(20));
        done = true;
    });
    std::size_t before = 0;
    int grown = 0;
    while (!done) {
        // One that is read while its header is being written may be seen half new; not twice.
        auto samples = readWav(m_wav);
        if (!samples)
            samples = readWav(m_wav);
        if (!samples || samples->size() < before)
            break;
        grown += samples->size() > before;
        before = samples->size();
        std::this_thread::yield();
    }
    const bool all = done;
    speaker.join();
    QVERIFY(all);
    QVERIFY(grown > 3);
}

void TstTtsEngine::unwritableFileIsNoOutput()
{
    ZEMBRA_TTS_Uninitialize();
    qputenv(desklink::WavVariable, "/no/such/folder/speech.wav");
    QCOMPARE(ZEMBRA_TTS_Initialize(nullptr, 0, 80), -1);
    QCOMPARE(play(QStringLiteral("Nowhere.")), -1);
}

void TstTtsEngine::dummyDriverPacesWithoutDevice()
{
    ZEMBRA_TTS_Uninitialize();
    qunsetenv(desklink::WavVariable);
    qputenv("SDL_AUDIODRIVER", "no such driver");
    start();
    const QString text = QStringLiteral("One two.");
    QCOMPARE(play(text), 0);
    QCOMPARE(s_reports.words(text), QStringList({"One", "two"}));
    s_reports.clear();
    s_reports.stopAt = 1;
    QCOMPARE(play(QStringLiteral("Three four five six seven.")), 1);
    QCOMPARE(s_reports.count(), 1);
    const int threads = threadCount();
    for (int round = 0; round < 3; ++round) {
        QCOMPARE(ZEMBRA_TTS_Uninitialize(), 0);
        start();
        QCOMPARE(threadCount(), threads);
    }
}

QTEST_GUILESS_MAIN(TstTtsEngine)
#include "tst_tts_engine.moc"
