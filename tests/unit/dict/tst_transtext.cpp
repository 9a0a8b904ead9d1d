#include "dict/transtext.h"

#include <QTest>

/* Entries as they are shown, and what of them is heard. */
class TestTransText : public QObject
{
    Q_OBJECT

private slots:
    void theGistIsHeardTheRestIsSeen();
    void squareBracketsAreForTheEyes_data();
    void squareBracketsAreForTheEyes();
    void spokenPlacesLeadToShownOnes();
    void placesOfTheSecondEntry();
    void anotherHeadwordGoesBeforeItsEntry();
    void anEntryAloneHasItsHeadword();
    void textsArePlain();
    void placesOutsideLeadNowhere();
    void hostileTextsTakeNoTime_data();
    void hostileTextsTakeNoTime();

private:
    static QString spoken(const QString& gist)
    {
        return layOutEntries({{QStringLiteral("w"), gist}}, QStringLiteral("w"))
            .entries.at(0)
            .spoken.text;
    }
};

void TestTransText::theGistIsHeardTheRestIsSeen()
{
    const TransText layout = layOutEntries(
        {{QStringLiteral("go"), QStringLiteral("1. gehen 2. fahren\n[gou]\nLet's go!")}},
        QStringLiteral("go"));
    QCOMPARE(layout.shown, QStringLiteral("1. gehen 2. fahren\n[gou]\nLet's go!"));
    QCOMPARE(layout.entries.size(), 1);
    QCOMPARE(layout.entries.at(0).spoken.text, QStringLiteral("1. gehen 2. fahren"));
    QCOMPARE(layout.entries.at(0).end, layout.shown.size());
}

void TestTransText::squareBracketsAreForTheEyes_data()
{
    QTest::addColumn<QString>("gist");
    QTest::addColumn<QString>("heard");
    const auto row = [](const char* name, const char16_t* gist, const char16_t* heard) {
        QTest::newRow(name) << QString::fromUtf16(gist) << QString::fromUtf16(heard);
    };
    row("gender", u"Haus [n], Heim [n]; bauen", u"Haus , Heim ; bauen");
    row("at the end", u"Haus [n]", u"Haus");
    row("at the beginning", u"[f] Haus", u"Haus");
    row("in parentheses", u"von ([+ dat]) dort", u"von dort");
    row("one in the other", u"a [b [c] d] e", u"a e");
    row("not closed", u"a [b c", u"a [b c");
    row("closed only", u"a ] b", u"a ] b");
    row("nothing but brackets", u"[haus]", u"haus");
    row("only marks beside them", u"- [haus]", u"- haus");
    row("reference", u"→ go, walk", u"go, walk");
    row("nothing", u"", u"");
}

void TestTransText::squareBracketsAreForTheEyes()
{
    QFETCH(QString, gist);
    QFETCH(QString, heard);
    QCOMPARE(spoken(gist), heard);
}

void TestTransText::spokenPlacesLeadToShownOnes()
{
    const QString gist = QStringLiteral("[a] Haus [n], Heim [n]");
    const TransText layout = layOutEntries({{QStringLiteral("house"), gist}}, "house");
    const SpokenText& heard = layout.entries.at(0).spoken;
    QCOMPARE(heard.text.size(), heard.origin.size());
    for (const QString& word : {QStringLiteral("Haus"), QStringLiteral("Heim")}) {
        int start = -1;
        int length = -1;
        QVERIFY(heard.shownRange(int(heard.text.indexOf(word)), 4, start, length));
        QCOMPARE(layout.shown.mid(start, length), word);
    }
}

void TestTransText::placesOfTheSecondEntry()
{
    const TransText layout =
        layOutEntries({{QStringLiteral("run"), QStringLiteral("laufen\n[ran]")},
                       {QStringLiteral("Run"), QStringLiteral("Lauf [m], Flucht")}},
                      QStringLiteral("run"));
    QCOMPARE(layout.shown, QStringLiteral("laufen\n[ran]\nLauf [m], Flucht"));
    QCOMPARE(layout.entries.at(1).start, layout.shown.indexOf(QStringLiteral("Lauf")));
    const SpokenText& heard = layout.entries.at(1).spoken;
    int start = -1;
    int length = -1;
    QVERIFY(heard.shownRange(int(heard.text.indexOf(QStringLiteral("Flucht"))), 6, start, length));
    QCOMPARE(layout.shown.mid(start, length), QStringLiteral("Flucht"));
}

// "ran" was looked up: the reader sees what the entry is about. It is heard with the word.
void TestTransText::anotherHeadwordGoesBeforeItsEntry()
{
    const TransText layout =
        layOutEntries({{QStringLiteral("run"), QStringLiteral("laufen")}}, QStringLiteral("ran"));
    QCOMPARE(layout.shown, QStringLiteral("run: laufen"));
    QCOMPARE(layout.entries.at(0).spoken.text, QStringLiteral("laufen"));
    int start = -1;
    int length = -1;
    QVERIFY(layout.entries.at(0).spoken.shownRange(0, 6, start, length));
    QCOMPARE(layout.shown.mid(start, length), QStringLiteral("laufen"));
    QCOMPARE(layOutEntries({{QString(), QStringLiteral("laufen")}}, "ran").shown,
             QStringLiteral("laufen"));
}

void TestTransText::anEntryAloneHasItsHeadword()
{
    QCOMPARE(layOutEntry({QStringLiteral("run"), QStringLiteral("laufen\n[ran]")}).shown,
             QStringLiteral("run: laufen\n[ran]"));
}

// Nothing of a dictionary's text acts in the pane, and every character keeps its place.
void TestTransText::textsArePlain()
{
    const QString text = QStringLiteral("a\tb\u2028c\u2029d\ufffce\ufdd0f\r<b>&amp;");
    const QString shown = layOutEntries({{QStringLiteral("w"), text}}, "w").shown;
    QCOMPARE(shown, QStringLiteral("a b c d e f <b>&amp;"));
}

void TestTransText::placesOutsideLeadNowhere()
{
    const SpokenText heard = {QStringLiteral("ab"), {3, 4}};
    int start = 0;
    int length = 0;
    QVERIFY(!heard.shownRange(-1, 1, start, length));
    QVERIFY(!heard.shownRange(2, 1, start, length));
    QVERIFY(!heard.shownRange(0, 0, start, length));
    QVERIFY(heard.shownRange(1, 99, start, length));
    QCOMPARE(start, 4);
    QCOMPARE(length, 1);
    QVERIFY(heard.shownRange(0, 2147483647, start, length));
    QCOMPARE(length, 2);
}

void TestTransText::hostileTextsTakeNoTime_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("opening brackets") << QString(8000, u'[');
    QTest::newRow("closing brackets") << QString(8000, u']');
    QTest::newRow("nested") << QString(4000, u'[') + QString(4000, u']');
    QTest::newRow("line ends") << QString(8000, u'\n');
    QTest::newRow("one word") << QString(8000, u'x');
}

void TestTransText::hostileTextsTakeNoTime()
{
    QFETCH(QString, text);
    QVector<_stScanContent> contents;
    for (int i = 0; i < 20; ++i)
        contents.append({QStringLiteral("w"), text});
    QElapsedTimer timer;
    timer.start();
    QCOMPARE(layOutEntries(contents, QStringLiteral("w")).entries.size(), 20);
    QVERIFY2(timer.elapsed() < 1000, "quadratic");
}

QTEST_APPLESS_MAIN(TestTransText)
#include "tst_transtext.moc"
