#include "store/statisticmanager.h"
#include "tests/fakes/calls.h"
#include "tests/fakes/testroot.h"
#include "tests/unit/store/crashmodel.h"
#include "tests/unit/store/faultyoperations.h"

#include <QDir>
#include <QMap>
#include <QTest>
#include <cerrno>
#include <memory>

class TestStatisticManager : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void namesEveryCode();
    void aNewRecordIsEmpty();
    void writesARecordByteByByte();
    void everyRecordHasAMark();
    void addsToWhatIsThere();
    void separatorsInTheWordBecomeBlanks();
    void withoutACardItIsMinusOne();
    void aFailureLeavesTheFile();
    void aCutOfPowerLeavesTheOldRecords();
    void theStorageIsSynced();
    void quittingForgets();

private:
    static StatisticManager& statistics() { return *StatisticManager::Instance(); }
    static QString place() { return QStringLiteral("/mnt/mmc/Stastistic_File.txt"); }
    static QByteArray record(const QString& text);
    QByteArray file() const { return m_root->read(place()); }

    const statisticInfo m_info{QStringLiteral("1353456789012"), 1, QStringLiteral("word"),
                               QStringLiteral("en")};
    std::unique_ptr<TestRoot> m_root;
};

// FF FE and UTF-16, little-endian, spelled out.
QByteArray TestStatisticManager::record(const QString& text)
{
    QByteArray bytes("\xFF\xFE");
    for (const QChar c : text) {
        bytes += static_cast<char>(c.unicode() & 0xFF);
        bytes += static_cast<char>(c.unicode() >> 8);
    }
    return bytes;
}

void TestStatisticManager::init()
{
    m_root = std::make_unique<TestRoot>();
    fakes::reset();
}

void TestStatisticManager::cleanup()
{
    StatisticManager::quitFun();
    m_root.reset();
}

void TestStatisticManager::namesEveryCode()
{
    const QMap<int, QString> names{{1, "zh"},   {101, "en"}, {103, "fr"}, {104, "de"}, {105, "es"},
                                   {106, "it"}, {107, "sv"}, {108, "da"}, {109, "no"}, {110, "nl"},
                                   {111, "pt"}, {151, "ru"}, {152, "ar"}, {200, "en"}, {201, "en"},
                                   {202, "es"}, {203, "en"}, {204, "en"}, {205, "en"}, {206, "en"}};
    for (int code = -300; code <= 300; ++code)
        QCOMPARE(StatisticManager::IsoMapFun(code), names.value(code, QStringLiteral("other")));
}

void TestStatisticManager::aNewRecordIsEmpty()
{
    const statisticInfo info;
    QCOMPARE(info.time + info.word + info.languages, QString());
    QCOMPARE(info.count, 0);
    QCOMPARE(statistics().flush(info), 0);
    QCOMPARE(file(), record(QStringLiteral("\t\t0\t\r\n")));
}

void TestStatisticManager::writesARecordByteByByte()
{
    QVERIFY(!m_root->exists(place()));
    const statisticInfo info{QStringLiteral("12"), -3, QStringLiteral("\u4F60"),
                             QStringLiteral("en")};
    QCOMPARE(statistics().flush(info), 0);
    QCOMPARE(file().toHex(' '), QByteArray("ff fe 60 4f 09 00 31 00 32 00 09 00 2d 00 33 00 09 00 "
                                           "65 00 6e 00 0d 00 0a 00"));
}

void TestStatisticManager::everyRecordHasAMark()
{
    QCOMPARE(statistics().flush(m_info), 0);
    QCOMPARE(statistics().flush(m_info), 0);
    QCOMPARE(file(), record(QStringLiteral("word\t1353456789012\t1\ten\r\n")).repeated(2));
}

void TestStatisticManager::addsToWhatIsThere()
{
    m_root->write(place(), "anything");
    QCOMPARE(statistics().flush(m_info), 0);
    QCOMPARE(file(), "anything" + record(QStringLiteral("word\t1353456789012\t1\ten\r\n")));
}

void TestStatisticManager::separatorsInTheWordBecomeBlanks()
{
    statisticInfo info = m_info;
    info.word = QStringLiteral("a\tb\r\nc");
    info.languages = QStringLiteral("en\tx\n");
    QCOMPARE(statistics().flush(info), 0);
    QCOMPARE(file(), record(QStringLiteral("a b  c\t1353456789012\t1\ten\tx \r\n")));
}

void TestStatisticManager::withoutACardItIsMinusOne()
{
    QVERIFY(QDir(m_root->path(QStringLiteral("/mnt/mmc"))).removeRecursively());
    QCOMPARE(statistics().flush(m_info), -1);
    QCOMPARE(fakes::calls(), QStringList());
}

void TestStatisticManager::aFailureLeavesTheFile()
{
    QCOMPARE(statistics().flush(m_info), 0);
    const QByteArray before = file();
    int failures = 0;
    for (const auto call : {FaultyOperations::Call::Open, FaultyOperations::Call::Size,
                            FaultyOperations::Call::Write, FaultyOperations::Call::Flush}) {
        FaultyOperations faulty;
        faulty.failAt(call, 1, ENOSPC);
        QCOMPARE(statistics().flush(m_info), -1);
        QCOMPARE(file(), before);
        ++failures;
    }
    QCOMPARE(failures, 4);
}

// As a card behaves.
void TestStatisticManager::aCutOfPowerLeavesTheOldRecords()
{
    for (int i = 0; i < 20; ++i)
        QCOMPARE(statistics().flush(m_info), 0);
    const QByteArray before = file();
    CrashModel model(m_root->path(QString()));
    QCOMPARE(statistics().flush(m_info), 0);
    FileOperations::setCurrent(nullptr);
    const QByteArray after = file();
    for (int events = 0; events <= model.events(); ++events) {
        for (const CrashModel::State& state : model.statesAfter(events, CrashModel::Kind::Fat)) {
            const QByteArray found = state.value(place().toLatin1());
            QVERIFY2(found.startsWith(before), qPrintable(QString::number(events)));
            QVERIFY(found == after || events < model.events());
        }
    }
    QVERIFY(model.events() > 1);
}

void TestStatisticManager::theStorageIsSynced()
{
    QCOMPARE(statistics().flush(m_info), 0);
    QCOMPARE(fakes::calls(), QStringList{"syncStorage()"});
}

void TestStatisticManager::quittingForgets()
{
    StatisticManager* const first = StatisticManager::Instance();
    QCOMPARE(StatisticManager::Instance(), first);
    StatisticManager::quitFun();
    QVERIFY(!StatisticManager::manager);
}

QTEST_GUILESS_MAIN(TestStatisticManager)
#include "tst_statisticmanager.moc"
