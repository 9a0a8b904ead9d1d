#include "store/scannames.h"

#include <QTest>

namespace {
const QDate Day(2012, 11, 5);

QVector<FileInfo> named(const QStringList& names)
{
    QVector<FileInfo> files;
    for (const QString& name : names)
        files.append({name, {}, {}, 0, 0});
    return files;
}
} // namespace

class TestScanNames : public QObject
{
    Q_OBJECT

private slots:
    void next_data();
    void next();
    void following_data();
    void following();
    void followingIsAlwaysNew();
    void datesAreDigits();
    void listedName_data();
    void listedName();
    void placesFiles_data();
    void placesFiles();
    void usable_data();
    void usable();
};

void TestScanNames::next_data()
{
    QTest::addColumn<QStringList>("names");
    QTest::addColumn<QString>("expected");
    const auto row = [](const char* what, const QStringList& names, const char* expected) {
        QTest::newRow(what) << names << QString::fromLatin1(expected);
    };
    row("empty list", {}, "121105");
    row("other days", {"121104", "notes"}, "121105");
    row("first of the day is there", {"121105"}, "121105_1");
    row("second", {"121105", "121105_1"}, "121105_2");
    row("first deleted", {"121105_1"}, "121105_2");
    row("gap stays", {"121105", "121105_7"}, "121105_8");
    row("order does not matter", {"121105_7", "121105"}, "121105_8");
    row("no number counts as 0", {"121105_x"}, "121105_1");
    row("number with a tail counts as 0", {"121105_3x"}, "121105_1");
    row("any separator", {"121105-4"}, "121105_5");
    row("no separator: the first digit is skipped", {"12110599"}, "121105_10");
    row("day elsewhere: position from the start", {"copy 121105_4"}, "121105_1");
    row("day elsewhere, digits at that position", {"x1211059"}, "121105_10");
    row("negative counts as 0", {"121105_-4"}, "121105_1");
    row("more than 32 bits", {"121105_4294967296"}, "121105_4294967297");
    row("largest number", {"121105_9223372036854775806"}, "121105_9223372036854775807");
    row("cannot be counted on", {"121105_9223372036854775807"}, "121105_1");
    row("more than 64 bits", {"121105_99999999999999999999"}, "121105_1");
    row("case and storage do not matter", {"121105_2 Copy"}, "121105_1");
}

void TestScanNames::next()
{
    QFETCH(const QStringList, names);
    QFETCH(const QString, expected);
    QCOMPARE(scannames::next(named(names), Day), expected);
}

void TestScanNames::following_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("expected");
    QTest::newRow("day") << QStringLiteral("121105") << QStringLiteral("121105_1");
    QTest::newRow("number") << QStringLiteral("121105_9") << QStringLiteral("121105_10");
}

void TestScanNames::following()
{
    QFETCH(const QString, name);
    QFETCH(const QString, expected);
    QCOMPARE(scannames::following(name), expected);
}

void TestScanNames::followingIsAlwaysNew()
{
    QString name = QStringLiteral("121105_9223372036854775806");
    QStringList seen;
    for (int i = 0; i < 4; ++i) {
        QVERIFY(!seen.contains(name));
        seen.append(name);
        name = scannames::following(name);
    }
}

void TestScanNames::datesAreDigits()
{
    QCOMPARE(scannames::dateText(Day), QStringLiteral("20121105"));
}

void TestScanNames::listedName_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("isNull");
    QTest::newRow("plain") << QStringLiteral("notes.txt") << QStringLiteral("notes") << false;
    QTest::newRow("anywhere") << QStringLiteral("a.txt.bak") << QStringLiteral("a") << false;
    QTest::newRow("first") << QStringLiteral("a.txtb.txt") << QStringLiteral("a") << false;
    QTest::newRow("nothing before") << QStringLiteral(".txt") << QString() << false;
    QTest::newRow("case") << QStringLiteral("a.TXT") << QString() << true;
    QTest::newRow("none") << QStringLiteral("atxt") << QString() << true;
}

void TestScanNames::listedName()
{
    QFETCH(const QString, file);
    QFETCH(const QString, name);
    QFETCH(const bool, isNull);
    QCOMPARE(scannames::listedName(file), name);
    QCOMPARE(scannames::listedName(file).isNull(), isNull);
}

void TestScanNames::placesFiles_data()
{
    QTest::addColumn<int>("storage");
    QTest::addColumn<QString>("place");
    QTest::newRow("card") << 0 << QStringLiteral("/mnt/mmc/e_ScanFile/a b.txt");
    QTest::newRow("second store") << 1 << QStringLiteral("/mnt/mtdblock3/e_ListenFile/a b.txt");
    QTest::newRow("unknown") << 2 << QString();
    QTest::newRow("negative") << -1 << QString();
}

void TestScanNames::placesFiles()
{
    QFETCH(const int, storage);
    QFETCH(const QString, place);
    QCOMPARE(scannames::devicePlace({QStringLiteral("a b"), {}, {}, storage, 0}), place);
}

void TestScanNames::usable_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("isUsable");
    QTest::newRow("plain") << QStringLiteral("a b") << true;
    QTest::newRow("dots") << QStringLiteral("..") << true; // the file is "...txt"
    QTest::newRow("empty") << QString() << false;
    QTest::newRow("elsewhere") << QStringLiteral("../../apps/config/x") << false;
    QTest::newRow("zero") << QString(QChar(0)) << false;
}

void TestScanNames::usable()
{
    QFETCH(const QString, name);
    QFETCH(const bool, isUsable);
    QCOMPARE(scannames::isUsable(name), isUsable);
}

QTEST_GUILESS_MAIN(TestScanNames)
#include "tst_scannames.moc"
