#include "dict/pairname.h"

#include <QCoreApplication>
#include <QTest>
#include <QTranslator>

namespace {

/* A language in which every text stands in angle brackets. */
class Bracketed : public QTranslator
{
public:
    QString translate(const char* context, const char* text, const char* disambiguation,
                      int n) const override
    {
        Q_UNUSED(disambiguation)
        Q_UNUSED(n)
        return QLatin1String(context) == QLatin1String("LanguagePairs")
                   ? u'<' + QLatin1String(text) + u'>'
                   : QString();
    }
    bool isEmpty() const override { return false; }
};

} // namespace

class TestPairName : public QObject
{
    Q_OBJECT

private slots:
    void withoutTranslation();
    void translated_data();
    void translated();
};

void TestPairName::withoutTranslation()
{
    for (const char* name : {"English-German", "Chinese-English", "Elvish-German", "a", ""})
        QCOMPARE(pairname::shown(QLatin1String(name)), QLatin1String(name));
}

void TestPairName::translated_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("shown");
    const auto row = [](const char* name, const char* shown) {
        QTest::newRow(name) << QString::fromLatin1(name) << QString::fromLatin1(shown);
    };
    row("English-German", "<English-><German>");
    row("French-French", "<French-><French>");
    row("Arabic-Norwegian", "<Arabic-><Norwegian>");
    row("Elvish-German", "Elvish-German");
    row("English-Elvish", "English-Elvish");
    row("English-German-French", "English-German-French");
    row("english-german", "english-german");
    row("English-German-", "English-German-");
    row("English-", "English-");
    row("-German", "-German");
    row("English", "English");
    row("English to German", "English to German");
    row("", "");
}

void TestPairName::translated()
{
    QFETCH(QString, name);
    Bracketed language;
    QVERIFY(QCoreApplication::installTranslator(&language));
    QTEST(pairname::shown(name), "shown");
    QVERIFY(QCoreApplication::removeTranslator(&language));
}

QTEST_GUILESS_MAIN(TestPairName)
#include "tst_pairname.moc"
