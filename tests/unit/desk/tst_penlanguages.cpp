#include "desk/penlanguages.h"

#include <QDir>
#include <QFile>
#include <QSettings>
#include <QTemporaryDir>
#include <QTest>

using penlanguages::Language;

/* The launcher's list of languages, and the setting that names one of them. */
class TestPenLanguages : public QObject
{
    Q_OBJECT

private slots:
    void theDeviceTable();
    void aTableOfItsOwn();
    void noTable();
    void namesThatMeanARow();
    void onlyOneSettingChanges();
    void settingsThatCannotBeWritten();

private:
    QString settings() const { return m_root.filePath("apps/config/config.ini"); }

    QTemporaryDir m_root;
};

void TestPenLanguages::theDeviceTable()
{
    const QVector<Language> languages = penlanguages::list(SWIPELINE_SOURCE_DIR "/device");
    QStringList names;
    for (const Language& language : languages)
        names.append(language.name + u' ' + QString::number(language.code));
    QCOMPARE(names,
             QStringList({"English 101", "French 103", "German 104", "Spanish 105", "Italian 106",
                          "Russian 151", "Chinese 1", "Traditional Chinese 2"}));
    QCOMPARE(languages.at(5).ownName, "Русский");
}

void TestPenLanguages::aTableOfItsOwn()
{
    QVERIFY(QDir(m_root.path()).mkpath("apps/config"));
    QFile table(m_root.filePath("apps/config/menulan.cfg"));
    QVERIFY(table.open(QIODevice::WriteOnly));
    table.write("German\tDeutsch\t104\r\n\nOdd\n");
    table.close();
    const QVector<Language> languages = penlanguages::list(m_root.path());
    QCOMPARE(languages.size(), 2);
    QCOMPARE(languages.at(0).ownName, "Deutsch");
    QCOMPARE(languages.at(0).code, 104);
    QCOMPARE(languages.at(1).name, "Odd");
    QCOMPARE(languages.at(1).code, 0);
}

void TestPenLanguages::noTable()
{
    QVERIFY(penlanguages::list("/nowhere").isEmpty());
    QCOMPARE(penlanguages::chosen("/nowhere"), 0);
}

void TestPenLanguages::namesThatMeanARow()
{
    const QVector<Language> languages = penlanguages::list(SWIPELINE_SOURCE_DIR "/device");
    for (const char* name : {"German", "german", "DEUTSCH", "Deutsch", "104"})
        QCOMPARE(penlanguages::rowOf(languages, name), 2);
    QCOMPARE(penlanguages::rowOf(languages, "русский"), 5);
    QCOMPARE(penlanguages::rowOf(languages, "traditional chinese"), 7);
    QCOMPARE(penlanguages::rowOf(languages, "繁體中文"), 7);
    for (const char* name : {"", "Ger", "2x", "Swedish"})
        QCOMPARE(penlanguages::rowOf(languages, name), -1);
}

void TestPenLanguages::onlyOneSettingChanges()
{
    QVERIFY(penlanguages::choose(m_root.path(), 3));
    QCOMPARE(penlanguages::chosen(m_root.path()), 3);
    {
        QSettings(settings(), QSettings::IniFormat).setValue("SystemSet/Speed", 9);
        QSettings(settings(), QSettings::IniFormat).setValue("InfoScan/ReadControl", 1);
    }
    QVERIFY(penlanguages::choose(m_root.path(), 5));
    QCOMPARE(penlanguages::chosen(m_root.path()), 5);
    const QSettings now(settings(), QSettings::IniFormat);
    QCOMPARE(now.value("SystemSet/Speed").toInt(), 9);
    QCOMPARE(now.value("InfoScan/ReadControl").toInt(), 1);
}

void TestPenLanguages::settingsThatCannotBeWritten()
{
    const QTemporaryDir other;
    QFile file(other.filePath("apps")); // where a folder should be
    QVERIFY(file.open(QIODevice::WriteOnly));
    QVERIFY(!penlanguages::choose(other.path(), 1));
}

QTEST_GUILESS_MAIN(TestPenLanguages)
#include "tst_penlanguages.moc"
