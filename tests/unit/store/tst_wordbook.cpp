#include "store/localetext.h"
#include "store/wordbook.h"

#include <QElapsedTimer>
#include <QTest>

class TestWordBook : public QObject
{
    Q_OBJECT

private slots:
    void formatsByteByByte();
    void formatsInTheLocaleEncoding();
    void anEmptyBookIsAnEmptyFile();
    void readsWhatItFormats_data();
    void readsWhatItFormats();
    void writesAsCodePoints_data();
    void writesAsCodePoints();
    void readsBlocks_data();
    void readsBlocks();
    void readsOtherEncodings_data();
    void readsOtherEncodings();
    void aLongBookIsFast();
};

namespace {

QVector<WordItem> book(const QString& word, const QString& translation)
{
    return {{word, translation}};
}

QString formatted(const QString& word, const QString& translation)
{
    return localetext::decode(wordbook::format(book(word, translation)));
}

// Entries as one text, "word=translation" each.
QStringList entries(const QVector<WordItem>& items)
{
    QStringList texts;
    for (const WordItem& item : items)
        texts.append(item.word + u'=' + item.translation);
    return texts;
}

} // namespace

void TestWordBook::formatsByteByByte()
{
    const QVector<WordItem> items{{QStringLiteral("one"), QStringLiteral("eins\nn. (-, -en)")},
                                  {QStringLiteral("two"), QString()}};
    QCOMPARE(wordbook::format(items), QByteArray("<WORD>\n"
                                                 "one\n"
                                                 "</WORD_END>\n"
                                                 "<TRANS_BEGIN>\n"
                                                 "eins\n"
                                                 "n. (-, -en)\n"
                                                 "</TRANS_END>\n"
                                                 "<WORD>\n"
                                                 "two\n"
                                                 "</WORD_END>\n"
                                                 "<TRANS_BEGIN>\n"
                                                 "\n"
                                                 "</TRANS_END>\n"));
}

void TestWordBook::formatsInTheLocaleEncoding()
{
    QCOMPARE(wordbook::format(book(QStringLiteral("你好"), QStringLiteral("é"))),
             QByteArray("<WORD>\n\xC4\xE3\xBA\xC3\n</WORD_END>\n"
                        "<TRANS_BEGIN>\n\xA8\xA6\n</TRANS_END>\n"));
}

void TestWordBook::anEmptyBookIsAnEmptyFile()
{
    QCOMPARE(wordbook::format({}), QByteArray());
    QVERIFY(wordbook::parse({}).isEmpty());
}

void TestWordBook::readsWhatItFormats_data()
{
    QTest::addColumn<QString>("word");
    QTest::addColumn<QString>("translation");
    QTest::newRow("plain") << "word"
                           << "Wort";
    QTest::newRow("empty") << ""
                           << "";
    QTest::newRow("two lines") << "word"
                               << "one\ntwo";
    QTest::newRow("empty lines") << "word"
                                 << "\n\none\n\n";
    QTest::newRow("Chinese") << QStringLiteral("词") << QStringLiteral("單詞\n字");
    QTest::newRow("beyond the encoding")
        << QStringLiteral("Größe ñandú") << QStringLiteral("çà\n\u0414\u0451 \U0001F600 €");
    QTest::newRow("lone surrogate") << QString(QChar(0xD83D)) << QString(QChar(0xDE00)) + u'x';
    QTest::newRow("replacement character") << QStringLiteral("\uFFFD") << "";
    QTest::newRow("without a glyph")
        << QStringLiteral("a\uFEFFb\u00AD\u200D") << QStringLiteral("\uFEFF");
    QTest::newRow("line ends in the word") << "a\nb\r\nc"
                                           << "Wort";
    QTest::newRow("carriage returns") << "a"
                                      << "b\r\nc\rd";
    QTest::newRow("end of the block") << "a"
                                      << "b\n</TRANS_END>\nc";
    QTest::newRow("all marks") << "<TRANS_BEGIN>"
                               << "<WORD>\n</WORD_END>\n<TRANS_BEGIN>\nx";
    QTest::newRow("word is a mark") << "</TRANS_END>"
                                    << "</TRANS_END>";
    QTest::newRow("word begins a word") << "<WORD>"
                                        << "x";
    QTest::newRow("looks like a code point") << "&#241;"
                                             << "&#60;/TRANS_END>\n&#38;#241;";
    QTest::newRow("nearly a code point") << "&# &#; &#x; &#12 &;"
                                         << "&#99999999; &#1114112; &";
    QTest::newRow("looks like a mark in bytes") << QStringLiteral("锘縸") << "";
    QTest::newRow("controls") << QStringLiteral("a\tb\u0001\u2028\u2029\u0085c") << "\x7F";
}

void TestWordBook::readsWhatItFormats()
{
    QFETCH(QString, word);
    QFETCH(QString, translation);
    const WordItem other{QStringLiteral("other"), QStringLiteral("anders")};
    const QVector<WordItem> read =
        wordbook::parse(wordbook::format({other, {word, translation}, other}));
    // A line end is added to every translation.
    QCOMPARE(entries(read),
             (QStringList{"other=anders\n", word + u'=' + translation + u'\n', "other=anders\n"}));
}

void TestWordBook::writesAsCodePoints_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("written");
    QTest::newRow("not in the encoding") << QStringLiteral("señor") << "se&#241;or";
    QTest::newRow("above 16 bits") << QStringLiteral("\U0001F600") << "&#128512;";
    QTest::newRow("a code point") << "&#241;"
                                  << "&#38;#241;";
    QTest::newRow("none") << "a & b &amp; # ;"
                          << "a & b &amp; # ;";
    QTest::newRow("nearly one") << "&#x41;"
                                << "&#x41;";
}

void TestWordBook::writesAsCodePoints()
{
    QFETCH(QString, text);
    QFETCH(QString, written);
    QCOMPARE(
        formatted(text, text),
        QStringLiteral("<WORD>\n%1\n</WORD_END>\n<TRANS_BEGIN>\n%1\n</TRANS_END>\n").arg(written));
}

void TestWordBook::readsBlocks_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QStringList>("expected");
    QTest::newRow("a word alone") << QByteArray("<WORD>\nlonely\n") << QStringList();
    QTest::newRow("a word and its end")
        << QByteArray("<WORD>\nlonely\n</WORD_END>\n") << QStringList();
    QTest::newRow("a word begins and the file ends") << QByteArray("<WORD>\n") << QStringList();
    QTest::newRow("a translation that the file ends in")
        << QByteArray("<WORD>\na\n</WORD_END>\n<TRANS_BEGIN>\nb\nc") << QStringList{"a=b\nc\n"};
    QTest::newRow("a translation that only begins")
        << QByteArray("<WORD>\na\n<TRANS_BEGIN>") << QStringList{"a="};
    QTest::newRow("a translation without a line")
        << QByteArray("<WORD>\na\n<TRANS_BEGIN>\n</TRANS_END>\n") << QStringList{"a="};
    QTest::newRow("two translations have the same word")
        << QByteArray("<WORD>\na\n<TRANS_BEGIN>\nb\n</TRANS_END>\n<TRANS_BEGIN>\nc\n</TRANS_END>\n")
        << QStringList{"a=b\n", "a=c\n"};
    QTest::newRow("a translation without a word")
        << QByteArray("<TRANS_BEGIN>\nb\n</TRANS_END>\n") << QStringList{"=b\n"};
    QTest::newRow("other lines") << QByteArray(
        "x\n<WORD>\na\nx\n</WORD_END>\n\n</TRANS_END>\n<TRANS_BEGIN>\nb\n"
        "</TRANS_END>\nx\n") << QStringList{"a=b\n"};
    QTest::newRow("the last word counts")
        << QByteArray("<WORD>\na\n<WORD>\nb\n<TRANS_BEGIN>\nc\n</TRANS_END>\n")
        << QStringList{"b=c\n"};
    QTest::newRow("marks with blanks are none")
        << QByteArray(" <WORD>\na\n<WORD>\nb\n<TRANS_BEGIN> \n<TRANS_BEGIN>\nc\n</TRANS_END> \n")
        << QStringList{"b=c\n</TRANS_END> \n"};
    QTest::newRow("carriage returns")
        << QByteArray("<WORD>\r\na\r\n</WORD_END>\r\n<TRANS_BEGIN>\r\nb\r\n</TRANS_END>\r\n")
        << QStringList{"a=b\n"};
}

void TestWordBook::readsBlocks()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QStringList, expected);
    QCOMPARE(entries(wordbook::parse(bytes)), expected);
}

void TestWordBook::readsOtherEncodings_data()
{
    QTest::addColumn<QByteArray>("bytes");
    const QString text = QStringLiteral("<WORD>\n你\n<TRANS_BEGIN>\nñ\n</TRANS_END>\n");
    QTest::newRow("UTF-8") << "\xEF\xBB\xBF" + text.toUtf8();
    QTest::newRow("UTF-16") << "\xFF\xFE"
                                   + QByteArray(reinterpret_cast<const char*>(text.utf16()),
                                                2 * text.size());
}

void TestWordBook::readsOtherEncodings()
{
    QFETCH(QByteArray, bytes);
    QCOMPARE(entries(wordbook::parse(bytes)), QStringList{QStringLiteral("你=ñ\n")});
}

// A full book of the longest entries, all of them with characters that need code points.
void TestWordBook::aLongBookIsFast()
{
    const QString line = QStringLiteral("señor, größer, шире 字 ").repeated(20) + u'\n';
    const QVector<WordItem> items(100, {QStringLiteral("ñ"), line.repeated(20)});
    QElapsedTimer clock;
    clock.start();
    const QByteArray bytes = wordbook::format(items);
    QCOMPARE(wordbook::parse(bytes).size(), 100);
    QVERIFY2(clock.elapsed() < 5000, qPrintable(QString::number(clock.elapsed())));
}

QTEST_GUILESS_MAIN(TestWordBook)
#include "tst_wordbook.moc"
