#include "store/localetext.h"
#include "store/scantext.h"

#include <QTest>

class TestScanText : public QObject
{
    Q_OBJECT

private slots:
    void encodesMarkThenUnits();
    void encodesLoneSurrogates();
    void convertsLineEnds();
    void decodes_data();
    void decodes();
    void decodesWhatItEncodes_data();
    void decodesWhatItEncodes();
    void chineseOfEveryKindIsRecognised_data();
    void chineseOfEveryKindIsRecognised();
    void countsSavedSize_data();
    void countsSavedSize();
    void briefOfNew_data();
    void briefOfNew();
    void briefOfSaved_data();
    void briefOfSaved();
};

void TestScanText::encodesMarkThenUnits()
{
    QCOMPARE(scantext::encode(QString()), QByteArray("\xFF\xFE"));
    QCOMPARE(scantext::encode(QStringLiteral("A\n你")),
             QByteArray("\xFF\xFE\x41\x00\x0A\x00\x60\x4F", 8));
}

void TestScanText::encodesLoneSurrogates()
{
    QCOMPARE(scantext::encode(QString(QChar(0xD83D))), QByteArray("\xFF\xFE\x3D\xD8"));
}

void TestScanText::convertsLineEnds()
{
    QCOMPARE(scantext::withCarriageReturns(QStringLiteral("\na\n\nb")),
             QStringLiteral("\r\na\r\n\r\nb"));
}

void TestScanText::decodes_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("text");
    const QByteArray hello("H\0i\0", 4);
    QTest::newRow("nothing") << QByteArray() << QString();
    QTest::newRow("one byte") << QByteArray("A") << QStringLiteral("A");
    QTest::newRow("zero byte") << QByteArray("\0", 1) << QString();
    QTest::newRow("our own") << QByteArray("\xFF\xFE" + hello) << QStringLiteral("Hi");
    QTest::newRow("no mark, little-endian") << hello << QStringLiteral("Hi");
    QTest::newRow("no mark, big-endian") << QByteArray("\0H\0i", 4) << QStringLiteral("Hi");
    QTest::newRow("big-endian mark") << QByteArray("\xFE\xFF\0H\0i", 6) << QStringLiteral("Hi");
    QTest::newRow("odd last byte") << QByteArray("\xFF\xFE" + hello + "x") << QStringLiteral("Hi");
    QTest::newRow("ascii") << QByteArray("Hi there") << QStringLiteral("Hi there");
    QTest::newRow("UTF-8") << QByteArray("caf\xC3\xA9") << QStringLiteral("café");
    QTest::newRow("UTF-8 with a mark") << QByteArray("\xEF\xBB\xBF"
                                                     "caf\xC3\xA9")
                                       << QStringLiteral("café");
    QTest::newRow("GBK") << QByteArray("\xC4\xE3\xBA\xC3, a") << QStringLiteral("你好, a");
    QTest::newRow("line ends of a PC") << QByteArray("\xFF\xFE"
                                                     "a\0\r\0\n\0b\0",
                                                     10)
                                       << QStringLiteral("a\nb");
    QTest::newRow("line ends of an old machine") << QByteArray("a\rb") << QStringLiteral("a\nb");
    QTest::newRow("CR byte within a unit")
        << QByteArray("\xFF\xFE\x0D\x4E\x00\x0D", 6) << QString(QChar(0x4E0D)) + QChar(0x0D00);
}

void TestScanText::decodes()
{
    QFETCH(const QByteArray, bytes);
    QFETCH(const QString, text);
    QCOMPARE(scantext::decode(bytes), text);
}

void TestScanText::decodesWhatItEncodes_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("empty") << QString();
    QTest::newRow("lines") << QStringLiteral("one\ntwo\n\n");
    QTest::newRow("scripts") << QStringLiteral("é ß я 你 😀");
    QTest::newRow("controls") << QString(QChar(0)) + QChar(1) + QChar(0x2029) + QChar(0xFEFF);
    QTest::newRow("lone surrogates") << QString(QChar(0xDC00)) + QChar(0xD800);
}

void TestScanText::decodesWhatItEncodes()
{
    QFETCH(const QString, text);
    QCOMPARE(scantext::decode(scantext::encode(text)), text);
    QCOMPARE(scantext::decode(scantext::encode(scantext::withCarriageReturns(text))), text);
}

void TestScanText::chineseOfEveryKindIsRecognised_data()
{
    QTest::addColumn<QByteArray>("bytes");
    const QString text = QStringLiteral("明月几时有，把酒问青天。不知天上宫阙，今夕是何年。");
    QTest::newRow("UTF-16 with a mark") << scantext::encode(text);
    QTest::newRow("UTF-16 without a mark") << scantext::encode(text).sliced(2);
    QTest::newRow("UTF-8") << text.toUtf8();
    QTest::newRow("GBK") << localetext::encode(text);
}

void TestScanText::chineseOfEveryKindIsRecognised()
{
    QFETCH(const QByteArray, bytes);
    QCOMPARE(scantext::decode(bytes),
             QStringLiteral("明月几时有，把酒问青天。不知天上宫阙，今夕是何年。"));
}

void TestScanText::countsSavedSize_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<qint64>("size");
    QTest::newRow("nothing") << QString() << qint64(0);
    QTest::newRow("letters") << QStringLiteral("abc") << qint64(6);
    QTest::newRow("line end counts twice") << QStringLiteral("a\nb\n") << qint64(12);
    QTest::newRow("surrogates") << QStringLiteral("😀") << qint64(4);
}

void TestScanText::countsSavedSize()
{
    QFETCH(const QString, text);
    QFETCH(const qint64, size);
    QCOMPARE(scantext::savedSize(text), size);
    QCOMPARE(scantext::encode(scantext::withCarriageReturns(text)).size() - 2, size);
}

void TestScanText::briefOfNew_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("brief");
    QTest::newRow("empty") << QString() << QString();
    QTest::newRow("short") << QStringLiteral("abc") << QStringLiteral("abc");
    QTest::newRow("six") << QStringLiteral("abcdef") << QStringLiteral("abcdef");
    QTest::newRow("blanks count") << QStringLiteral("Hello world \n") << QStringLiteral("orld \n");
}

void TestScanText::briefOfNew()
{
    QFETCH(const QString, text);
    QFETCH(const QString, brief);
    QCOMPARE(scantext::briefOfNew(text), brief);
}

void TestScanText::briefOfSaved_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("brief");
    QTest::newRow("empty") << QString() << QString();
    QTest::newRow("only blanks") << QStringLiteral(" \n\t ") << QString();
    QTest::newRow("blanks skipped") << QStringLiteral("Hello world \n") << QStringLiteral("oworld");
    QTest::newRow("short") << QStringLiteral("a b\tc") << QStringLiteral("abc");
    QTest::newRow("other spaces count")
        << QStringLiteral("abcde\u00A0f") << QStringLiteral("bcde\u00A0f");
}

void TestScanText::briefOfSaved()
{
    QFETCH(const QString, text);
    QFETCH(const QString, brief);
    QCOMPARE(scantext::briefOfSaved(text), brief);
}

QTEST_GUILESS_MAIN(TestScanText)
#include "tst_scantext.moc"
