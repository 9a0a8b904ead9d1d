#include "editor/wordwalk.h"

#include <QTest>

class TestWordWalk : public QObject
{
    Q_OBJECT

private slots:
    void walkVisitsEveryWord_data();
    void walkVisitsEveryWord();
    void wordAtFindsTheWordUnderOrBeforeThePosition();
    void nothingBeyondTheEnds();
};

void TestWordWalk::walkVisitsEveryWord_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QStringList>("words");
    QTest::newRow("plain") << "one two" << QStringList{"one", "two"};
    QTest::newRow("separators") << " one,two. three!? " << QStringList{"one", "two", "three"};
    QTest::newRow("lines") << "one\n\n    two" << QStringList{"one", "two"};
    QTest::newRow("apostrophe and hyphen")
        << "don't well-known" << QStringList{"don't", "well-known"};
    QTest::newRow("Chinese") << QStringLiteral("\u4f60\u597d")
                             << QStringList{QStringLiteral("\u4f60"), QStringLiteral("\u597d")};
    QTest::newRow("mixed") << QStringLiteral("\u4f60USB\u597d")
                           << QStringList{QStringLiteral("\u4f60"), "USB",
                                          QStringLiteral("\u597d")};
    QTest::newRow("outside the first plane")
        << QStringLiteral("\U00020000\U00020001")
        << QStringList{QStringLiteral("\U00020000"), QStringLiteral("\U00020001")};
    QTest::newRow("empty") << "" << QStringList{};
    QTest::newRow("only separators") << " .,:;?! " << QStringList{};
}

void TestWordWalk::walkVisitsEveryWord()
{
    QFETCH(QString, text);
    QFETCH(QStringList, words);
    QStringList forward;
    for (WordSpan word = nextWord(text, -1); word.isValid(); word = nextWord(text, word.start))
        forward.append(text.mid(word.start, word.length()));
    QCOMPARE(forward, words);

    QStringList backward;
    for (WordSpan word = previousWord(text, text.size()); word.isValid();
         word = previousWord(text, word.start))
        backward.prepend(text.mid(word.start, word.length()));
    QCOMPARE(backward, words);
}

void TestWordWalk::wordAtFindsTheWordUnderOrBeforeThePosition()
{
    const QString text = QStringLiteral("one, two");
    QCOMPARE(wordAt(text, 0).start, 0);
    QCOMPARE(wordAt(text, 2).start, 0);
    QCOMPARE(wordAt(text, 3).start, 0); // directly behind
    QVERIFY(!wordAt(text, 4).isValid());
    QCOMPARE(wordAt(text, 5).start, 5);
    QCOMPARE(wordAt(text, 8).start, 5);
}

void TestWordWalk::nothingBeyondTheEnds()
{
    const QString text = QStringLiteral("one");
    QVERIFY(!nextWord(text, 0).isValid());
    QVERIFY(!previousWord(text, 0).isValid());
    QVERIFY(!wordAt(text, 100).isValid());
    QVERIFY(!wordAt(QString(), 0).isValid());
}

QTEST_GUILESS_MAIN(TestWordWalk)
#include "tst_wordwalk.moc"
