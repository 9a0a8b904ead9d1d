#include "platform/zembra_tts.h"
#include "tests/shared/testobjects.h"
#include "ttsfixture.h"
#include "wavfile.h"

#include <QTest>
#include <cstdlib>

/* How long and how loud a text is: pauses, speed and volume. */
class TstTtsSound : public TtsFixture
{
    Q_OBJECT

private slots:
    void pauseIsExact_data();
    void pauseIsExact();
    void naturalPauseIsKept();
    void narrowStopsPauseInChinese();
    void pauseBetweenWordsIsItsTag_data();
    void pauseBetweenWordsIsItsTag();
    void pauseAloneIsSilence();
    void speedChangesLength();
    void volumeZeroIsSilent();
    void boostIsLouder();
    void boostNeverClips();
};

void TstTtsSound::pauseIsExact_data()
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

void TstTtsSound::pauseIsExact()
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

void TstTtsSound::naturalPauseIsKept()
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

void TstTtsSound::narrowStopsPauseInChinese()
{
    ZEMBRA_TTS_SetLang(1);
    const QString marks = QStringLiteral(",.!?;:");
    for (const QChar mark : marks) {
        const QString text = QStringLiteral("马") + mark + QStringLiteral("路");
        QCOMPARE(play(text), 0);
        const int silence = longestSilenceOf(recorded()) * 1000 / SamplesPerSecond;
        QVERIFY2(silence > 100, qPrintable(text + QString::number(silence)));
    }
}

void TstTtsSound::pauseBetweenWordsIsItsTag_data()
{
    QTest::addColumn<int>("language");
    QTest::addColumn<QString>("before");
    QTest::addColumn<QString>("after");
    QTest::addColumn<bool>("more");
    QTest::newRow("word") << 101 << "No"
                          << " more" << false;
    QTest::newRow("quoted") << 104 << "\"Nie\""
                            << " mehr" << false;
    QTest::newRow("Russian") << 151 << QStringLiteral("луна") << QStringLiteral(" моя") << false;
    QTest::newRow("Chinese") << 1 << QStringLiteral("马") << QStringLiteral("路") << false;
    QTest::newRow("comma") << 101 << "No,"
                           << " more" << true;
    QTest::newRow("stop") << 101 << "No."
                          << " More" << true;
}

void TstTtsSound::pauseBetweenWordsIsItsTag()
{
    QFETCH(int, language);
    QFETCH(QString, before);
    QFETCH(QString, after);
    QFETCH(bool, more);
    constexpr int Pause = 300;
    ZEMBRA_TTS_SetLang(language);
    QCOMPARE(play(before + tag(Pause) + after), 0);
    const int silence = longestSilenceOf(recorded()) * 1000 / SamplesPerSecond;
    // A voice fades out and in within some milliseconds.
    const int least = Pause + (more ? 80 : -2);
    const int most = Pause + (more ? 500 : 40);
    QVERIFY2(silence >= least && silence <= most, qPrintable(QString::number(silence)));
}

void TstTtsSound::pauseAloneIsSilence()
{
    QCOMPARE(lengthOf(tag(500)), std::size_t(SamplesPerSecond / 2));
    QCOMPARE(peakOf(recorded()), 0);
    QCOMPARE(s_reports.count(), 0);
}

void TstTtsSound::speedChangesLength()
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

void TstTtsSound::volumeZeroIsSilent()
{
    ZEMBRA_TTS_SetVolume(0);
    QCOMPARE(play(QStringLiteral("Nobody hears this.")), 0);
    QCOMPARE(s_reports.count(), 3);
    const auto samples = recorded();
    QVERIFY(samples.size() > SamplesPerSecond / 2);
    QCOMPARE(peakOf(samples), 0);
}

void TstTtsSound::boostIsLouder()
{
    const QString text = QStringLiteral("Louder, please.");
    ZEMBRA_TTS_SetVolume(40);
    QCOMPARE(play(text), 0);
    const auto first = recorded();
    ZEMBRA_TTS_SetVolumeLevel(1000);
    QCOMPARE(play(text), 0);
    QVERIFY(peakOf(recorded(), first.size()) > 2 * peakOf(first));
}

void TstTtsSound::boostNeverClips()
{
    ZEMBRA_TTS_SetVolumeLevel(1000);
    QCOMPARE(play(QStringLiteral("Louder and louder: aaah, the alarm in the harbour!")), 0);
    const auto samples = recorded();
    QVERIFY(peakOf(samples) > 28000);
    QVERIFY(peakOf(samples) < 32300); // the soft knee ends below full scale
}

TEST_OBJECT(TstTtsSound)
#include "tst_tts_sound.moc"
