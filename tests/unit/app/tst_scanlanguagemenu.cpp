#include "app/scanlanguagemenu.h"

#include "app/languagename.h"
#include "app/startup.h"
#include "store/languagemanager.h"
#include "tests/fakes/testroot.h"

#include <QCollator>
#include <QFile>
#include <QFileInfo>
#include <QTest>
#include <QTranslator>

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
    void everyLanguageOfTheDeviceHasAName_data();
    void everyLanguageOfTheDeviceHasAName();
    void namesOfAnotherTableStay();
};

namespace {

QVector<ScanLanInfoForSort> named(const QStringList& names)
{
    QVector<ScanLanInfoForSort> languages;
    for (const QString& name : names)
        languages.append({name, static_cast<int>(languages.size())});
    return languages;
}

QString namesOf(const QVector<ScanLanInfoForSort>& languages, QChar between = u' ')
{
    QStringList names;
    for (const ScanLanInfoForSort& language : languages)
        names.append(language.displayName);
    return names.join(between);
}

// The names in the table that comes with the device.
QStringList namesOfTheDevice()
{
    const QString place = QStringLiteral("/apps/config/scanlanguage.cfg");
    QFile table(QStringLiteral(SWIPELINE_SOURCE_DIR "/device") + place);
    if (!table.open(QIODevice::ReadOnly))
        return {};
    const TestRoot root;
    root.write(place, table.readAll());
    QStringList names;
    if (LanguageManager::Instance()->init() == 0) {
        for (int row = 0; row < LanguageManager::Instance()->getLanguageSize(); ++row)
            names.append(LanguageManager::Instance()->getChnByID(row));
    }
    LanguageManager::quitFun();
    return names;
}

/* The interface in a language while it lives. */
class Interface
{
public:
    explicit Interface(int code)
    {
        const char* const file = translationFor(code);
        const QString name = QFileInfo(QString::fromLatin1(file)).completeBaseName();
        m_installed =
            m_texts.load(QStringLiteral(SWIPELINE_BINARY_DIR "/translations/%1.qm").arg(name))
            && QCoreApplication::installTranslator(&m_texts);
    }
    ~Interface() { QCoreApplication::removeTranslator(&m_texts); }
    Q_DISABLE_COPY_MOVE(Interface)

    bool isInstalled() const { return m_installed; }
    bool has(const QString& language) const
    {
        return !m_texts.translate("LanguageNames", language.toUtf8().constData()).isEmpty();
    }

private:
    QTranslator m_texts;
    bool m_installed = false;
};

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

void TestScanLanguageMenu::everyLanguageOfTheDeviceHasAName_data()
{
    QTest::addColumn<int>("language");
    QTest::addColumn<QString>("expected"); // the menu
    const auto row = [](const char* name, int code, const char* names) {
        QTest::newRow(name) << code << QString::fromUtf8(names);
    };
    row("English", 101,
        "Chinese, simplified/Danish/Dutch/English/French/German/Italian/Norwegian/Portuguese/"
        "Russian/Spanish/Swedish");
    row("French", 103,
        "Allemand/Anglais/Chinois simplifié/Danois/Espagnol/Français/Italien/Néerlandais/"
        "Norvégien/Portugais/Russe/Suédois");
    row("German", 104,
        "Chinesisch, vereinfacht/Dänisch/Deutsch/Englisch/Französisch/Italienisch/"
        "Niederländisch/Norwegisch/Portugiesisch/Russisch/Schwedisch/Spanisch");
    row("Spanish", 105,
        "Alemán/Chino simplificado/Danés/Español/Francés/Inglés/Italiano/Neerlandés/Noruego/"
        "Portugués/Ruso/Sueco");
    row("Italian", 106,
        "Cinese semplificato/Danese/Francese/Inglese/Italiano/Norvegese/Olandese/Portoghese/"
        "Russo/Spagnolo/Svedese/Tedesco");
    row("Russian", 151,
        "Английский/Датский/Испанский/Итальянский/Китайский упрощённый/Немецкий/"
        "Нидерландский/Норвежский/Португальский/Русский/Французский/Шведский");
    row("Simplified Chinese: by sound", 1,
        "丹麦语/德语/俄语/法语/荷兰语/简体中文/挪威语/葡萄牙语/瑞典语/西班牙语/意大利语/英语");
    row("Traditional Chinese: by strokes", 2,
        "丹麥語/西班牙語/法語/俄語/英語/挪威語/荷蘭語/瑞典語/義大利語/葡萄牙語/德語/簡體中文");
}

void TestScanLanguageMenu::everyLanguageOfTheDeviceHasAName()
{
    QFETCH(int, language);
    QFETCH(QString, expected);
    const Interface interface(language);
    QVERIFY2(interface.isInstalled(), "build the target translations");
    QVector<ScanLanInfoForSort> languages;
    const QStringList names = namesOfTheDevice();
    for (const QString& name : names) {
        QVERIFY2(interface.has(name), qPrintable(name));
        languages.append({languagename::shown(name), static_cast<int>(languages.size())});
    }
    sortScanLanMenu(languages, localeOfLanguage(language));
    QCOMPARE(namesOf(languages, u'/'), expected);
}

void TestScanLanguageMenu::namesOfAnotherTableStay()
{
    constexpr int German = 104;
    const Interface interface(German);
    QVERIFY(interface.isInstalled());
    QCOMPARE(languagename::shown(QStringLiteral("French")), QStringLiteral("Französisch"));
    for (const char* name : {"Русский", "Français", "简体中文", "Elvish", "french", ""})
        QCOMPARE(languagename::shown(QString::fromUtf8(name)), QString::fromUtf8(name));
}

QTEST_GUILESS_MAIN(TestScanLanguageMenu)
#include "tst_scanlanguagemenu.moc"
