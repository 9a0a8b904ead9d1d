#include "store/localetext.h"

#include <QTest>

class TestLocaleText : public QObject
{
    Q_OBJECT

private slots:
    void decodes_data();
    void decodes();
    void encodes_data();
    void encodes();
    void messagePayloadsAreAsciiLetters();
    void loneSurrogateSurvivesUtf16();
    void secondMarkStays();
    void tellsGbk_data();
    void tellsGbk();
    void splitsLines_data();
    void splitsLines();
};

void TestLocaleText::decodes_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("text");
    QTest::newRow("nothing") << QByteArray() << QString();
    QTest::newRow("ascii") << QByteArray("scan\t1") << QStringLiteral("scan\t1");
    QTest::newRow("GBK") << QByteArray("\xC4\xE3\xBA\xC3") << QStringLiteral("你好");
    QTest::newRow("GBK, traditional") << QByteArray("\x81\x40\xFC\x41") << QStringLiteral("丂麬");
    QTest::newRow("UTF-8 with a mark") << QByteArray("\xEF\xBB\xBF\xC3\xA9") << QStringLiteral("é");
    QTest::newRow("UTF-16 little-endian")
        << QByteArray("\xFF\xFE\x60\x4F", 4) << QStringLiteral("你");
    QTest::newRow("UTF-16 big-endian") << QByteArray("\xFE\xFF\x4F\x60", 4) << QStringLiteral("你");
    QTest::newRow("mark alone") << QByteArray("\xFF\xFE") << QString();
    QTest::newRow("odd last byte") << QByteArray("\xFF\xFE\x41\x00\x42", 5) << QStringLiteral("A");
}

void TestLocaleText::decodes()
{
    QFETCH(const QByteArray, bytes);
    QFETCH(const QString, text);
    QCOMPARE(localetext::decode(bytes), text);
}

void TestLocaleText::encodes_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("nothing") << QString() << QByteArray();
    QTest::newRow("ascii") << QStringLiteral("soundyes") << QByteArray("soundyes");
    QTest::newRow("Chinese") << QStringLiteral("你好") << QByteArray("\xC4\xE3\xBA\xC3");
    QTest::newRow("Russian") << QStringLiteral("да") << QByteArray("\xA7\xD5\xA7\xD1");
    QTest::newRow("not in GBK") << QStringLiteral("aña") << QByteArray("a?a");
}

void TestLocaleText::encodes()
{
    QFETCH(const QString, text);
    QFETCH(const QByteArray, bytes);
    QCOMPARE(localetext::encode(text), bytes);
}

void TestLocaleText::messagePayloadsAreAsciiLetters()
{
    for (const char* word : {"scan", "soundyes", "soundno", "trigger", "escpressed"})
        QCOMPARE(localetext::encode(QString::fromLatin1(word)), QByteArray(word));
}

void TestLocaleText::loneSurrogateSurvivesUtf16()
{
    const QString text = localetext::decodeUtf16(QByteArray("\x3D\xD8\x41\x00", 4), false);
    QCOMPARE(text, QString(QChar(0xD83D)) + u'A');
}

void TestLocaleText::secondMarkStays()
{
    QCOMPARE(localetext::decode(QByteArray("\xFF\xFE\xFF\xFE\x41\x00", 6)),
             QString(QChar(QChar::ByteOrderMark)) + u'A');
}

void TestLocaleText::tellsGbk_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<bool>("isGbk");
    QTest::newRow("nothing") << QByteArray() << true;
    QTest::newRow("ascii") << QByteArray("abc") << true;
    QTest::newRow("pairs") << QByteArray("a\xC4\xE3"
                                         "b")
                           << true;
    QTest::newRow("half a pair") << QByteArray("\xC4") << false;
    QTest::newRow("lead 80") << QByteArray("\x80\x41") << false;
    QTest::newRow("lead FF") << QByteArray("\xFF\x41") << false;
    QTest::newRow("trail 3F") << QByteArray("\xC4\x3F") << false;
    QTest::newRow("trail 7F") << QByteArray("\xC4\x7F") << false;
    QTest::newRow("trail FF") << QByteArray("\xC4\xFF") << false;
}

void TestLocaleText::tellsGbk()
{
    QFETCH(const QByteArray, bytes);
    QFETCH(const bool, isGbk);
    QCOMPARE(localetext::isGbk(bytes), isGbk);
}

void TestLocaleText::splitsLines_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QStringList>("lines");
    const QString a = QStringLiteral("a");
    const QString b = QStringLiteral("b");
    QTest::newRow("nothing") << QString() << QStringList();
    QTest::newRow("one") << a << QStringList{a};
    QTest::newRow("ended") << QStringLiteral("a\nb\n") << QStringList{a, b};
    QTest::newRow("not ended") << QStringLiteral("a\nb") << QStringList{a, b};
    QTest::newRow("carriage returns") << QStringLiteral("a\r\nb\r\n") << QStringList{a, b};
    QTest::newRow("empty line") << QStringLiteral("a\n\nb\n") << QStringList{a, QString(), b};
    QTest::newRow("empty last line") << QStringLiteral("a\n\n") << QStringList{a, QString()};
    QTest::newRow("only a line end") << QStringLiteral("\n") << QStringList{QString()};
}

void TestLocaleText::splitsLines()
{
    QFETCH(const QString, text);
    QFETCH(const QStringList, lines);
    QCOMPARE(localetext::lines(text), lines);
}

QTEST_GUILESS_MAIN(TestLocaleText)
#include "tst_localetext.moc"
