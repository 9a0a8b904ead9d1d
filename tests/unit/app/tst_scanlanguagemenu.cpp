#include "app/scanlanguagemenu.h"

#include <QCollator>
#include <QTest>

class TestScanLanguageMenu : public QObject
{
    Q_OBJECT

private slots:
    void sortedInTheOrderOfTheInterface_data();
    void sortedInTheOrderOfTheInterface();
    void sameNamesKeepTheirOrder();
    void comparisonIsStrict();
    void placeIsFoundByRow();
    void localeFollowsTheLanguageCode_data();
    void localeFollowsTheLanguageCode();
};

namespace {

QVector<ScanLanInfoForSort> named(const QStringList& names)
{
    QVector<ScanLanInfoForSort> languages;
    for (const QString& name : names)
        languages.append({name, static_cast<int>(languages.size())});
    return languages;
}

QString namesOf(const QVector<ScanLanInfoForSort>& languages)
{
    QStringList names;
    for (const ScanLanInfoForSort& language : languages)
        names.append(language.displayName);
    return names.join(u' ');
}

} // namespace

void TestScanLanguageMenu::sortedInTheOrderOfTheInterface_data()
{
    QTest::addColumn<int>("language");
    QTest::addColumn<QString>("names");
    QTest::addColumn<QString>("expected");
    QTest::newRow("English") << 101 << "English Français Deutsch Español Русский 中文"
                             << "Deutsch English Español Français Русский 中文";
    QTest::newRow("Russian: own letters first") << 151 << "English Deutsch Русский Italiano"
                                                << "Русский Deutsch English Italiano";
    QTest::newRow("accents beside their letters") << 103 << "Zoulou Écossais Estonien Danois"
                                                  << "Danois Écossais Estonien Zoulou";
    QTest::newRow("Swedish letters last") << 107 << "Åländska Zulu Svenska"
                                          << "Svenska Zulu Åländska";
    QTest::newRow("code without a language") << 0 << "Norsk dansk Svenska"
                                             << "dansk Norsk Svenska";
}

void TestScanLanguageMenu::sortedInTheOrderOfTheInterface()
{
    QFETCH(int, language);
    QFETCH(QString, names);
    QFETCH(QString, expected);
    QVector<ScanLanInfoForSort> languages = named(names.split(u' '));
    sortScanLanMenu(languages, localeOfLanguage(language));
    QCOMPARE(namesOf(languages), expected);
}

void TestScanLanguageMenu::sameNamesKeepTheirOrder()
{
    QVector<ScanLanInfoForSort> languages = named({"b", "a", "b", "a"});
    sortScanLanMenu(languages, QLocale(QLocale::English));
    QVector<int> rows;
    for (const ScanLanInfoForSort& language : std::as_const(languages))
        rows.append(language.index);
    QCOMPARE(rows, (QVector<int>{1, 3, 0, 2}));
}

void TestScanLanguageMenu::comparisonIsStrict()
{
    const QCollator order{QLocale(QLocale::English)};
    QVERIFY(comQt(order, {"Deutsch", 1}, {"English", 0}));
    QVERIFY(!comQt(order, {"English", 0}, {"Deutsch", 1}));
    QVERIFY(!comQt(order, {"English", 0}, {"English", 1}));
}

void TestScanLanguageMenu::placeIsFoundByRow()
{
    const QVector<ScanLanInfoForSort> languages = {{"Deutsch", 2}, {"English", 0}, {"Svenska", 1}};
    QCOMPARE(placeOfLanguage(languages, 0), 1);
    QCOMPARE(placeOfLanguage(languages, 1), 2);
    QCOMPARE(placeOfLanguage(languages, 7), 0);
    QCOMPARE(placeOfLanguage({}, 0), 0);
}

void TestScanLanguageMenu::localeFollowsTheLanguageCode_data()
{
    QTest::addColumn<int>("code");
    QTest::addColumn<QLocale::Language>("language");
    QTest::addColumn<QLocale::Script>("script");
    QTest::newRow("English") << 101 << QLocale::English << QLocale::LatinScript;
    QTest::newRow("Russian") << 151 << QLocale::Russian << QLocale::CyrillicScript;
    QTest::newRow("simplified Chinese") << 1 << QLocale::Chinese << QLocale::SimplifiedHanScript;
    QTest::newRow("traditional Chinese") << 2 << QLocale::Chinese << QLocale::TraditionalHanScript;
    QTest::newRow("none") << 0 << QLocale::English << QLocale::LatinScript;
}

void TestScanLanguageMenu::localeFollowsTheLanguageCode()
{
    QFETCH(int, code);
    QFETCH(QLocale::Language, language);
    QFETCH(QLocale::Script, script);
    QCOMPARE(localeOfLanguage(code).language(), language);
    QCOMPARE(localeOfLanguage(code).script(), script);
}

QTEST_APPLESS_MAIN(TestScanLanguageMenu)
#include "tst_scanlanguagemenu.moc"
