#include "store/filelist.h"
#include "store/scantext.h"

#include <QTest>

class TestFileList : public QObject
{
    Q_OBJECT

private slots:
    void formatsByteByByte();
    void emptyListIsTheIndexAlone();
    void idIsNotWritten();
    void separatorsBecomeBlanks();
    void readsWhatItFormats();
    void readsOtherEncodings_data();
    void readsOtherEncodings();
    void emptyFileIsAnEmptyList();
    void badIndexReadsAsZero();
    void badStorageReadsAsZero();
    void carriageReturnsAreLeftOut();
    void malformedLineEndsTheLoad_data();
    void malformedLineEndsTheLoad();
    void emptyFieldsAreKept();
    void oddLastByteIsLeftOut();
};

namespace {
filelist::List parseText(const QString& text)
{
    return filelist::parse(scantext::encode(text));
}
} // namespace

void TestFileList::formatsByteByByte()
{
    const QByteArray expected("\xFF\xFE"
                              "1\0\n\0"
                              "a\0\t\0b\0\t\0"
                              "2\0\t\0"
                              "0\0\n\0"
                              "\x60\x4F\t\0\t\0\t\0"
                              "1\0\n\0",
                              34);
    const QVector<FileInfo> files{
        {QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("2"), 0, 0},
        {QStringLiteral("你"), QString(), QString(), 1, 1}};
    QCOMPARE(filelist::format(1, files).toHex(' '), expected.toHex(' '));
}

void TestFileList::emptyListIsTheIndexAlone()
{
    QCOMPARE(filelist::format(-1, {}), scantext::encode(QStringLiteral("-1\n")));
}

void TestFileList::idIsNotWritten()
{
    QCOMPARE(filelist::format(0, {{QStringLiteral("a"), {}, {}, 0, 5}}),
             filelist::format(0, {{QStringLiteral("a"), {}, {}, 0, 7}}));
}

void TestFileList::separatorsBecomeBlanks()
{
    const QByteArray bytes = filelist::format(
        0, {{QStringLiteral("a\tb"), QStringLiteral("c\nd\re"), QStringLiteral("1"), 0, 0}});
    QCOMPARE(bytes, scantext::encode(QStringLiteral("0\na b\tc d e\t1\t0\n")));
}

void TestFileList::readsWhatItFormats()
{
    const QVector<FileInfo> files{
        {QStringLiteral("121105"), QStringLiteral("orld. "), QStringLiteral("20121105"), 0, 0},
        {QStringLiteral("😀 я"), QStringLiteral("Import"), QStringLiteral("20121106"), 1, 1},
        {QString(), QString(), QString(), 7, 2}};
    const filelist::List list = filelist::parse(filelist::format(2, files));
    QVERIFY(list.wellFormed);
    QCOMPARE(list.current, 2);
    QCOMPARE(list.files.size(), files.size());
    for (int i = 0; i < files.size(); ++i) {
        QCOMPARE(list.files.at(i).name, files.at(i).name);
        QCOMPARE(list.files.at(i).brief, files.at(i).brief);
        QCOMPARE(list.files.at(i).date, files.at(i).date);
        QCOMPARE(list.files.at(i).storage, files.at(i).storage);
        QCOMPARE(list.files.at(i).id, i);
    }
}

void TestFileList::readsOtherEncodings_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("ascii") << QByteArray("0\nname\tb\t1\t0\n");
    QTest::newRow("UTF-8 with a mark") << QByteArray("\xEF\xBB\xBF"
                                                     "0\nname\tb\t1\t0\n");
    QByteArray big = scantext::encode(QStringLiteral("0\nname\tb\t1\t0\n"));
    for (qsizetype i = 0; i < big.size(); i += 2)
        std::swap(big[i], big[i + 1]);
    QTest::newRow("big-endian") << big;
}

void TestFileList::readsOtherEncodings()
{
    QFETCH(const QByteArray, bytes);
    const filelist::List list = filelist::parse(bytes);
    QVERIFY(list.wellFormed);
    QCOMPARE(list.files.size(), 1);
    QCOMPARE(list.files.at(0).name, QStringLiteral("name"));
}

void TestFileList::emptyFileIsAnEmptyList()
{
    for (const QByteArray& bytes : {QByteArray(), QByteArray("\xFF\xFE")}) {
        const filelist::List list = filelist::parse(bytes);
        QVERIFY(list.wellFormed);
        QCOMPARE(list.current, 0);
        QVERIFY(list.files.isEmpty());
    }
}

void TestFileList::badIndexReadsAsZero()
{
    QCOMPARE(parseText(QStringLiteral("x\n")).current, 0);
    QCOMPARE(parseText(QStringLiteral("99999999999\n")).current, 0);
    QCOMPARE(parseText(QStringLiteral("-1\n")).current, -1);
}

void TestFileList::badStorageReadsAsZero()
{
    QCOMPARE(parseText(QStringLiteral("0\na\tb\tc\tx\n")).files.at(0).storage, 0);
}

void TestFileList::carriageReturnsAreLeftOut()
{
    const filelist::List list = parseText(QStringLiteral("1\r\na\tb\tc\t1\r\n"));
    QVERIFY(list.wellFormed);
    QCOMPARE(list.current, 1);
    QCOMPARE(list.files.at(0).storage, 1);
}

void TestFileList::malformedLineEndsTheLoad_data()
{
    QTest::addColumn<QString>("line");
    QTest::newRow("three fields") << QStringLiteral("a\tb\tc");
    QTest::newRow("five fields") << QStringLiteral("a\tb\tc\t0\te");
    QTest::newRow("empty line") << QString();
    QTest::newRow("rubbish") << QStringLiteral("rubbish");
}

void TestFileList::malformedLineEndsTheLoad()
{
    QFETCH(const QString, line);
    const filelist::List list =
        parseText(QStringLiteral("0\ngood\tb\tc\t0\n") + line + QStringLiteral("\nx\tb\tc\t0\n"));
    QVERIFY(!list.wellFormed);
    QCOMPARE(list.files.size(), 1);
    QCOMPARE(list.files.at(0).name, QStringLiteral("good"));
}

void TestFileList::emptyFieldsAreKept()
{
    const filelist::List list = parseText(QStringLiteral("0\n\t\t\t\n"));
    QVERIFY(list.wellFormed);
    QCOMPARE(list.files.size(), 1);
    QVERIFY(list.files.at(0).name.isEmpty());
}

void TestFileList::oddLastByteIsLeftOut()
{
    const QByteArray bytes = scantext::encode(QStringLiteral("0\na\tb\tc\t0\n")) + 'x';
    const filelist::List list = filelist::parse(bytes);
    QVERIFY(list.wellFormed);
    QCOMPARE(list.files.size(), 1);
}

QTEST_GUILESS_MAIN(TestFileList)
#include "tst_filelist.moc"
