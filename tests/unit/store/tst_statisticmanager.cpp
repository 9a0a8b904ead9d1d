#include "store/statisticmanager.h"

#include <QMap>
#include <QTest>

class TestStatisticManager : public QObject
{
    Q_OBJECT

private slots:
    void namesEveryCode();
};

void TestStatisticManager::namesEveryCode()
{
    const QMap<int, QString> names{{1, "zh"},   {101, "en"}, {103, "fr"}, {104, "de"}, {105, "es"},
                                   {106, "it"}, {107, "sv"}, {108, "da"}, {109, "no"}, {110, "nl"},
                                   {111, "pt"}, {151, "ru"}, {152, "ar"}, {200, "en"}, {201, "en"},
                                   {202, "es"}, {203, "en"}, {204, "en"}, {205, "en"}, {206, "en"}};
    for (int code = -300; code <= 300; ++code)
        QCOMPARE(StatisticManager::IsoMapFun(code), names.value(code, QStringLiteral("other")));
}

QTEST_GUILESS_MAIN(TestStatisticManager)
#include "tst_statisticmanager.moc"
