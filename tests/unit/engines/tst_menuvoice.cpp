#include "engines/menuvoice.h"
#include "store/engineunits.h"

#include <QTest>
#include <limits>

class TestMenuVoice : public QObject
{
    Q_OBJECT

private slots:
    void englishHasAVoiceForEachChoice_data();
    void englishHasAVoiceForEachChoice();
    void spanishFollowsItsSetting();
    void otherLanguagesSpeakWithTheirNumber();
    void volumeAndSpeedAreScaled();
};

void TestMenuVoice::englishHasAVoiceForEachChoice_data()
{
    QTest::addColumn<int>("choice");
    QTest::addColumn<int>("voice");
    const std::vector<std::pair<int, int>> rows = {{0, 200}, {1, 201}, {2, 203},
                                                   {3, 206}, {4, 205}, {5, 206}};
    for (const auto& [choice, voice] : rows)
        QTest::addRow("%d", choice) << choice << voice;
}

void TestMenuVoice::englishHasAVoiceForEachChoice()
{
    QFETCH(int, choice);
    QFETCH(int, voice);
    QCOMPARE(menuVoice(101, choice, 0), voice);
    QCOMPARE(menuVoice(200, choice, 1), voice);
    for (const int other : {-1, 6, 1000}) {
        QCOMPARE(menuVoice(101, other, 0), 101);
        QCOMPARE(menuVoice(200, other, 0), 200);
    }
}

void TestMenuVoice::spanishFollowsItsSetting()
{
    QCOMPARE(menuVoice(105, 3, 1), 202);
    QCOMPARE(menuVoice(105, 3, 0), 105);
    QCOMPARE(menuVoice(105, 0, 2), 105);
}

void TestMenuVoice::otherLanguagesSpeakWithTheirNumber()
{
    for (const int language : {0, 1, 2, 103, 104, 106, 151, 201})
        QCOMPARE(menuVoice(language, 3, 1), language);
}

void TestMenuVoice::volumeAndSpeedAreScaled()
{
    constexpr int Largest = std::numeric_limits<int>::max();
    QCOMPARE(engineunits::volume(4), 80);
    QCOMPARE(engineunits::speed(6), 48);
    QCOMPARE(engineunits::spanishVariantSpeed(6), 90);
    QCOMPARE(engineunits::volume(Largest), Largest);
    QCOMPARE(engineunits::speed(std::numeric_limits<int>::min()), std::numeric_limits<int>::min());
}

QTEST_APPLESS_MAIN(TestMenuVoice)
#include "tst_menuvoice.moc"
