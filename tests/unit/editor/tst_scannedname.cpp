#include "editor/scannedname.h"

#include <QTest>

class TestScannedName : public QObject
{
    Q_OBJECT

private slots:
    void becomesOneTrimmedLine_data();
    void becomesOneTrimmedLine();
};

void TestScannedName::becomesOneTrimmedLine_data()
{
    QTest::addColumn<QString>("scan");
    QTest::addColumn<QString>("name");
    QTest::newRow("as it is") << QStringLiteral("Chapter 2") << QStringLiteral("Chapter 2");
    QTest::newRow("blanks at the ends") << QStringLiteral("  a b ") << QStringLiteral("a b");
    QTest::newRow("lines and tabs") << QStringLiteral("a\r\nb\tc") << QStringLiteral("a b c");
    QTest::newRow("separators") << QStringLiteral("a\u2028b\u2029\u00a0c")
                                << QStringLiteral("a b c");
    QTest::newRow("controls") << QStringLiteral("a\u0001\u009bb") << QStringLiteral("a b");
    QTest::newRow("zero") << QString(QChar(0)) + u'a' << QStringLiteral("a");
    QTest::newRow("only blanks") << QStringLiteral(" \n ") << QString();
    QTest::newRow("nothing") << QString() << QString();
}

void TestScannedName::becomesOneTrimmedLine()
{
    QFETCH(QString, scan);
    QTEST(nameFromScan(scan), "name");
}

QTEST_APPLESS_MAIN(TestScannedName)
#include "tst_scannedname.moc"
