#include "tests/screens/screenset.h"
#include "widgets/evenlines.h"
#include "widgets/painting.h"

#include <QApplication>
#include <limits>

/* Where the lines of a message end, in the pen's font: 31 Latin characters a line. */
class TestEvenLines : public QObject
{
    Q_OBJECT

private slots:
    void lines_data();
    void lines();
    void paragraphs();
    void moreThanThereIsRoomFor();
    void oddTexts_data();
    void oddTexts();

private:
    static constexpr int Width = 248; // of a message with its frame
    static QStringList even(const QString& text, int maxLines = painting::MaxLines)
    {
        return evenlines::evenLines(text, Width, maxLines);
    }
};

void TestEvenLines::lines_data()
{
    QTest::addColumn<QString>("text"); // a stroke where a line ends
    const auto row = [](const char* name, const char* text) {
        QTest::newRow(name) << QString::fromUtf8(text);
    };
    row("one line", "Please wait.");
    row("fills the line", "Este nombre no se puede usar ab");
    row("no word alone", "Are you sure you/want to delete it?");
    row("sentences", "Hay demasiados archivos./Borre algunos.");
    row("three lines", "Das Wörterbuch lässt/sich nicht öffnen./Bitte ein anderes wählen.");
    row("sentence too long", "Die Datei ist zu groß. Bitte/nicht am Computer bearbeiten.");
    row("clause", "Scan the new name,/press OK to confirm.");
    row("no-break space", "Le dictionnaire ne s'ouvre/pas du tout, hélas\u00a0!");
    row("names", "Rename [shopping 2]/to [kitchen 12]");
    row("Russian", "Слишком много файлов./Удалите ненужные.");
    row("Chinese clause", "文件系统已损坏，/请连接电脑修复。");
    row("Chinese", "扫描语言与词典的/源语言不一致了吗？");
}

void TestEvenLines::lines()
{
    QFETCH(QString, text);
    QString whole = text;
    whole.replace(QStringLiteral("，/"), QStringLiteral("，"))
        .replace(QStringLiteral("的/"), QStringLiteral("的"))
        .replace(u'/', u' ');
    QCOMPARE(even(whole).join(u'/'), text);
}

void TestEvenLines::paragraphs()
{
    QCOMPARE(even(QStringLiteral("first\nsecond")),
             (QStringList{QStringLiteral("first"), QStringLiteral("second")}));
    QCOMPARE(even(QString()), QStringList{QString()});
}

void TestEvenLines::moreThanThereIsRoomFor()
{
    const QString text = QStringLiteral("More words than there is room for. ").repeated(9);
    QCOMPARE(even(text), painting::wrapText(text, Width, painting::MaxLines));
    QVERIFY(even(text).last().endsWith(QChar(0x2026)));
    const int many = std::numeric_limits<int>::max();
    QCOMPARE(even(text, many), painting::wrapText(text, Width, many));
}

void TestEvenLines::oddTexts_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("word too long")
        << QStringLiteral("a ") + QString(40, u'x') + QStringLiteral(" b");
    QTest::newRow("blanks") << QString(40, u' ');
    QTest::newRow("blanks around") << QStringLiteral("  one two three four five six seven eight  ");
    QTest::newRow("stops") << QString(70, u'.');
    QTest::newRow("bracket") << QStringLiteral("a name [that never ends, however long one waits");
    QTest::newRow("pairs") << QStringLiteral("\U0001F600").repeated(40);
    QTest::newRow("half a pair") << QString(40, QChar(0xD83D));
    QTest::newRow("control") << QStringLiteral("tab\tand\x01 more of them than a line has");
}

// Never more lines than plain ones, never wider than the screen, and nothing is lost.
void TestEvenLines::oddTexts()
{
    QFETCH(QString, text);
    const QStringList lines = even(text);
    QCOMPARE(lines.size(), painting::wrapText(text, Width, painting::MaxLines).size());
    for (const QString& line : lines)
        QVERIFY(painting::textWidth(line) <= Width);
    const auto bare = [](const QString& some) { return painting::oneLine(some).remove(u' '); };
    QCOMPARE(bare(lines.join(QString())), bare(text));
}

SCREEN_TEST_MAIN(TestEvenLines)
#include "tst_evenlines.moc"
