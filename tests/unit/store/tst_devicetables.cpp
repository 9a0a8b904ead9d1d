// The tables that come with the device.
#include "store/languagemanager.h"
#include "store/localetext.h"
#include "tests/fakes/testroot.h"

#include <QFile>
#include <QTest>

class TestDeviceTables : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanupTestCase();
    void scanLanguages();
    void displayLanguages();
    void menuTableHasTheSameOrder();
    void everyLanguageIsSpoken();
    void englishWithoutSettings();

private:
    TestRoot m_root;
    QString m_menuTable;
};

void TestDeviceTables::initTestCase()
{
    for (const QString& name : {QStringLiteral("/apps/config/scanlanguage.cfg"),
                                QStringLiteral("/apps/config/menulan.cfg")}) {
        QFile table(QStringLiteral(SWIPELINE_SOURCE_DIR "/device") + name);
        QVERIFY(table.open(QIODevice::ReadOnly));
        const QByteArray bytes = table.readAll();
        QCOMPARE(bytes.left(2), QByteArray("\xFF\xFE"));
        m_root.write(name, bytes);
        m_menuTable = localetext::decode(bytes);
    }
    QCOMPARE(LanguageManager::Instance()->init(), 0);
}

void TestDeviceTables::cleanupTestCase()
{
    LanguageManager::quitFun();
}

void TestDeviceTables::scanLanguages()
{
    const LanguageManager* const manager = LanguageManager::Instance();
    const QVector<QPair<int, QString>> expected{
        {101, QStringLiteral("English")}, {103, QStringLiteral("French")},
        {104, QStringLiteral("German")},  {105, QStringLiteral("Spanish")},
        {106, QStringLiteral("Italian")}, {107, QStringLiteral("Swedish")},
        {108, QStringLiteral("Danish")},  {109, QStringLiteral("Norwegian")},
        {110, QStringLiteral("Dutch")},   {111, QStringLiteral("Portuguese")},
        {151, QStringLiteral("Russian")}, {1, QStringLiteral("Chinese, simplified")}};
    QCOMPARE(manager->getLanguageSize(), expected.size());
    for (int row = 0; row < expected.size(); ++row) {
        QCOMPARE(manager->getIntByID(row), expected.at(row).first);
        QCOMPARE(manager->getChnByID(row), expected.at(row).second);
        languageInfo info;
        QVERIFY(manager->getInfoByID(row, info));
        QCOMPARE(info.id, row);
    }
}

void TestDeviceTables::displayLanguages()
{
    const LanguageManager* const manager = LanguageManager::Instance();
    QVector<int> codes;
    for (int row = 0; row < manager->getShowLanSize(); ++row) {
        codes.append(manager->getLanIntByID(row));
        QCOMPARE(manager->getIDByLanINT(codes.last()), row);
        QVERIFY(!manager->getShowLanByID(row).isEmpty());
    }
    QCOMPARE(codes, QVector<int>({101, 103, 104, 105, 106, 151, 1, 2}));
}

// Who looks for his own language finds it by its own name.
void TestDeviceTables::menuTableHasTheSameOrder()
{
    const LanguageManager* const manager = LanguageManager::Instance();
    const QStringList ownNames{QStringLiteral("English"),  QStringLiteral("Français"),
                               QStringLiteral("Deutsch"),  QStringLiteral("Español"),
                               QStringLiteral("Italiano"), QStringLiteral("Русский"),
                               QStringLiteral("简体中文"), QStringLiteral("繁體中文")};
    const QStringList rows = localetext::lines(m_menuTable);
    QCOMPARE(rows.size(), ownNames.size());
    QCOMPARE(manager->getMenuLanSize(), rows.size());
    QCOMPARE(manager->getShowLanSize(), rows.size());
    for (int row = 0; row < rows.size(); ++row) {
        const QStringList fields = rows.at(row).split(u'\t');
        QCOMPARE(fields.size(), 3);
        QCOMPARE(fields.at(1), ownNames.at(row));
        QCOMPARE(fields.at(2).toInt(), manager->getLanIntByID(row));
    }
}

void TestDeviceTables::everyLanguageIsSpoken()
{
    const LanguageManager* const manager = LanguageManager::Instance();
    for (int row = 0; row < manager->getLanguageSize(); ++row)
        QVERIFY(manager->getTTSFlagByID(row) != 0);
}

void TestDeviceTables::englishWithoutSettings()
{
    QCOMPARE(LanguageManager::Instance()->getLanIntByID(0), 101);
    QCOMPARE(LanguageManager::Instance()->getIntByID(0), 101);
    QCOMPARE(LanguageManager::Instance()->getDefaultShowLan(), 101);
}

QTEST_GUILESS_MAIN(TestDeviceTables)
#include "tst_devicetables.moc"
