#include "editor/appendrules.h"

#include <QTest>

class TestAppendRules : public QObject
{
    Q_OBJECT

private slots:
    void fullDocumentTakesNothing();
    void documentTakesWhatFits();
    void lineEndsOfTheDocumentCountTwo();
    void paragraphBreakCountsOneMore();
    void trailingBlank_data();
    void trailingBlank();
    void trailingBlankIsLeftOutWhenItDoesNotFit();
};

void TestAppendRules::fullDocumentTakesNothing()
{
    QVERIFY(!fitsIntoFile(QString(32768, u'a'), QStringLiteral("b")));
    QVERIFY(!fitsIntoFile(QString(16384, u'\n'), QStringLiteral("b")));
}

void TestAppendRules::documentTakesWhatFits()
{
    QVERIFY(fitsIntoFile(QString(32767, u'a'), QStringLiteral("b")));
    QVERIFY(!fitsIntoFile(QString(32767, u'a'), QStringLiteral("bc")));
    QVERIFY(fitsIntoFile(QString(), QString(32768, u'b')));
    QVERIFY(!fitsIntoFile(QString(), QString(32769, u'b')));
}

void TestAppendRules::lineEndsOfTheDocumentCountTwo()
{
    QVERIFY(fitsIntoFile(QString(16383, u'\n'), QStringLiteral("bc")));
    QVERIFY(!fitsIntoFile(QString(16383, u'\n'), QStringLiteral("bcd")));
}

void TestAppendRules::paragraphBreakCountsOneMore()
{
    const QString paragraph = QStringLiteral("\n    ");
    QVERIFY(fitsIntoFile(QString(32768 - 6, u'a'), paragraph));
    QVERIFY(!fitsIntoFile(QString(32768 - 5, u'a'), paragraph));
    // Any other text of that length counts its length.
    QVERIFY(fitsIntoFile(QString(32768 - 5, u'a'), QStringLiteral("abcde")));
}

void TestAppendRules::trailingBlank_data()
{
    QTest::addColumn<QString>("scan");
    QTest::addColumn<bool>("blank");
    for (const char* text : {"Why?", "Stop!", "End.", "and,", "12", "a", "Z"})
        QTest::addRow("%s", text) << QString::fromLatin1(text) << true;
    for (const char* text : {"", "a ", "a-", "a;", "a:", "(a)", "50%", "a\""})
        QTest::addRow("'%s'", text) << QString::fromLatin1(text) << false;
    QTest::newRow("umlaut") << QStringLiteral("f\u00fc") << true;
    QTest::newRow("Cyrillic") << QStringLiteral("\u0434\u0430") << true;
    QTest::newRow("Chinese") << QStringLiteral("\u4f60\u597d") << true;
    QTest::newRow("Chinese outside the first plane") << QStringLiteral("\U00020000") << true;
    QTest::newRow("Chinese full stop") << QStringLiteral("\u597d\u3002") << false;
    QTest::newRow("emoji") << QStringLiteral("\U0001F600") << false;
    QTest::newRow("lone surrogate") << QString(QChar(0xdc00)) << false;
}

void TestAppendRules::trailingBlank()
{
    QFETCH(QString, scan);
    QFETCH(bool, blank);
    QCOMPARE(withTrailingBlank(QString(), scan), blank ? scan + u' ' : scan);
}

void TestAppendRules::trailingBlankIsLeftOutWhenItDoesNotFit()
{
    const QString scan = QStringLiteral("ab");
    QCOMPARE(withTrailingBlank(QString(32765, u'x'), scan), QStringLiteral("ab "));
    QCOMPARE(withTrailingBlank(QString(32766, u'x'), scan), scan);
}

QTEST_GUILESS_MAIN(TestAppendRules)
#include "tst_appendrules.moc"
