#include "desk/linefinder.h"
#include "desk/pageloader.h"
#include "desk/typesetter.h"

#include <QFile>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

namespace {

/* Whether the box holds ink and its surroundings up to `mm` above and below hold none. */
bool boxesOneLine(const PrintedPage& page, const QRectF& mm)
{
    const double scale = page.dpi / PrintedPage::MmPerInch;
    const QRect box = QRectF(mm.topLeft() * scale, mm.size() * scale).toAlignedRect();
    const QRect above(0, box.top() - 12, page.image.width(), 8);
    const QRect below(0, box.bottom() + 5, page.image.width(), 8);
    return !linefinder::inkBox(page.image, box).isEmpty()
           && linefinder::inkBox(page.image, above).isEmpty()
           && linefinder::inkBox(page.image, below).isEmpty();
}

} // namespace

class TestPrintedPage : public QObject
{
    Q_OBJECT

private slots:
    void samplesHaveLines_data()
    {
        QTest::addColumn<QString>("language");
        QTest::newRow("english") << "en";
        QTest::newRow("german") << "de";
        QTest::newRow("french") << "fr";
        QTest::newRow("spanish") << "es";
        QTest::newRow("italian") << "it";
        QTest::newRow("portuguese") << "pt";
        QTest::newRow("dutch") << "nl";
        QTest::newRow("swedish") << "sv";
        QTest::newRow("danish") << "da";
        QTest::newRow("norwegian") << "no";
        QTest::newRow("russian") << "ru";
        QTest::newRow("chinese") << "zh";
        QCOMPARE(PageLoader::samples(),
                 QStringList({"english", "german", "french", "spanish", "italian", "portuguese",
                              "dutch", "swedish", "danish", "norwegian", "russian", "chinese"}));
    }

    void samplesHaveLines()
    {
        PageSource source;
        source.name = QTest::currentDataTag();
        const PageLoader::Result result = PageLoader::loadNow(source);
        QCOMPARE(result.error, QString());
        const PrintedPage& page = result.page;
        QTEST(page.language, "language");
        QCOMPARE(page.image.format(), QImage::Format_Grayscale8);
        QVERIFY(qAbs(page.sizeMm().width() - 148.0) < 0.1);
        QVERIFY(qAbs(page.sizeMm().height() - 210.0) < 0.1);
        QVERIFY(page.lines.size() >= 8);
        QString text;
        double lastMiddle = 0.0;
        for (const PrintedPage::Line& line : page.lines) {
            QVERIFY2(boxesOneLine(page, line.mm), qPrintable(line.text));
            QVERIFY(line.mm.center().y() > lastMiddle + 3.0);
            lastMiddle = line.mm.center().y();
            text += line.text + QLatin1Char(' ');
        }
        // Nothing of the text is lost at the foot of the page.
        QVERIFY2(lastMiddle < 195.0, "the page is too long");
        QFile file(QStringLiteral(SWIPELINE_SOURCE_DIR "/desk/pages/%1.html").arg(source.name));
        QVERIFY(file.open(QIODevice::ReadOnly));
        const QString html = QString::fromUtf8(file.readAll());
        const QString ending = html.trimmed().chopped(4).right(8);
        QVERIFY2(text.remove(' ').contains(QString(ending).remove(' ')), qPrintable(ending));
    }

    void plainTextKeepsItsLines()
    {
        typesetter::Style style;
        style.language = "en";
        const PrintedPage page = typesetter::setPlain("t", "First line\nSecond\n\nThird", style);
        QCOMPARE(page.lines.size(), 3);
        QCOMPARE(page.lines[0].text, "First line");
        QCOMPARE(page.lines[2].text, "Third");
        QVERIFY(page.lines[0].mm.width() > page.lines[1].mm.width());
        QVERIFY(qAbs(page.lines[0].mm.left() - page.lines[2].mm.left()) < 1.0);
    }

    void aTypedTextIsSetAsChosen()
    {
        PageSource source;
        source.kind = PageSource::Kind::Typed;
        source.text = "Typed by hand\nand read";
        source.language = "en";
        source.family = "DejaVu Sans";
        source.sizePt = 8.0;
        const PrintedPage small = PageLoader::loadNow(source).page;
        QCOMPARE(small.lines.size(), 2);
        QCOMPARE(small.lines[1].text, "and read");
        QCOMPARE(small.language, "en");
        source.sizePt = 16.0;
        const PrintedPage large = PageLoader::loadNow(source).page;
        const double growth = large.lines[0].mm.width() / small.lines[0].mm.width();
        QVERIFY2(qAbs(growth - 2.0) < 0.05, qPrintable(QString::number(growth)));
        source.family = "Liberation Serif";
        QVERIFY(PageLoader::loadNow(source).page.lines[0].mm.width()
                < large.lines[0].mm.width() * 0.95);
        source.text = " \n ";
        QVERIFY(PageLoader::loadNow(source).error.contains("no text"));
    }

    void knowsWhatCanBeAPage()
    {
        for (const char* name : {"/a/b.PDF", "x.png", "x.JPG", "x.jpeg", "x.bmp"})
            QVERIFY2(PageLoader::canBePage(name), name);
        for (const char* name : {"/a/b.txt", "png", "x.desk", ""})
            QVERIFY2(!PageLoader::canBePage(name), name);
    }

    void longLinesAreBroken()
    {
        typesetter::Style style;
        const PrintedPage page =
            typesetter::setPlain("t", QString("wood water ").repeated(30), style);
        QVERIFY(page.lines.size() > 2);
        for (const PrintedPage::Line& line : page.lines)
            QVERIFY(line.mm.right() < 148.0 - 15.0);
    }

    void markupInPlainTextIsText()
    {
        typesetter::Style style;
        const PrintedPage page = typesetter::setPlain("t", "<b>bold</b> & so on", style);
        QCOMPARE(page.lines.size(), 1);
        QCOMPARE(page.lines[0].text, "<b>bold</b> & so on");
    }

    void wayGoesOverTheWholeLine()
    {
        PrintedPage page;
        page.lines = {{QRectF(20, 30, 100, 4), "a"}};
        const QLineF way = page.wayOver(0);
        QCOMPARE(way.y1(), 32.0);
        QCOMPARE(way.y2(), 32.0);
        QVERIFY(way.x1() <= 16.0 && way.x1() >= 10.0);
        QVERIFY(way.x2() >= 124.0 && way.x2() <= 130.0);
    }

    void findsTheLineBelowAPoint()
    {
        PrintedPage page;
        page.lines = {{QRectF(20, 30, 100, 4), "a"}, {QRectF(20, 36, 50, 4), "b"}};
        QCOMPARE(page.lineAt(QPointF(60, 32)), 0);
        QCOMPARE(page.lineAt(QPointF(60, 34.9)), 0);
        QCOMPARE(page.lineAt(QPointF(60, 35.1)), 1);
        QCOMPARE(page.lineAt(QPointF(100, 38)), -1);
        QCOMPARE(page.lineAt(QPointF(60, 60)), -1);
        QCOMPARE(PrintedPage().lineAt(QPointF(1, 1)), -1);
    }

    void findsLinesOfAPicture()
    {
        QTemporaryDir dir;
        QImage picture(600, 400, QImage::Format_RGB32);
        picture.fill(Qt::white);
        {
            QPainter painter(&picture);
            painter.fillRect(100, 50, 300, 30, Qt::black);
            painter.fillRect(120, 120, 200, 30, Qt::black);
            painter.fillRect(10, 300, 40, 2, Qt::black); // a rule, too thin for print
        }
        const QString path = dir.filePath("page.png");
        QVERIFY(picture.save(path));
        PageSource source = PageLoader::named(path);
        source.pictureDpi = 150.0;
        const PageLoader::Result result = PageLoader::loadNow(source);
        QCOMPARE(result.error, QString());
        QCOMPARE(result.page.dpi, 150.0);
        QCOMPARE(result.page.lines.size(), 2);
        QVERIFY(qAbs(result.page.lines[0].mm.left() - 100 * 25.4 / 150) < 0.01);
        QVERIFY(qAbs(result.page.lines[0].mm.width() - 300 * 25.4 / 150) < 0.01);
    }

    void findsLinesOfAPdfFile()
    {
        QTemporaryDir dir;
        const QString path = dir.filePath("page.pdf");
        {
            QPdfWriter writer(path);
            writer.setPageSize(QPageSize(QPageSize::A5));
            writer.setPageMargins(QMarginsF());
            QPainter painter(&writer);
            painter.setFont(QFont("Liberation Serif", 12));
            const double dotsPerMm = writer.resolution() / 25.4;
            painter.drawText(QPointF(20, 40) * dotsPerMm, "The first line");
            painter.drawText(QPointF(20, 50) * dotsPerMm, "and the second");
        }
        PageSource source = PageLoader::named(path);
        const PageLoader::Result result = PageLoader::loadNow(source);
        QCOMPARE(result.error, QString());
        QVERIFY(qAbs(result.page.sizeMm().width() - 148.0) < 0.5);
        QCOMPARE(result.page.lines.size(), 2);
        QVERIFY(qAbs(result.page.lines[0].mm.left() - 20.0) < 1.0);
        // Without letters below the base line, the box ends on it.
        QVERIFY(qAbs(result.page.lines[0].mm.bottom() - 40.0) < 0.5);
        QVERIFY(qAbs(result.page.lines[1].mm.bottom() - 50.0) < 0.5);
        QCOMPARE(result.page.sheets, 1);
        source.pdfPage = 1;
        QVERIFY(PageLoader::loadNow(source).error.contains("has no page 2"));
    }

    void tellsWhatCannotBeLoaded_data()
    {
        QTest::addColumn<int>("kind");
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("part");
        QTest::newRow("sample") << int(PageSource::Kind::Sample) << "klingon"
                                << "no sample page";
        QTest::newRow("file") << int(PageSource::Kind::File) << "missing.png"
                              << "no file";
        QTest::newRow("picture") << int(PageSource::Kind::File) << "bad.png"
                                 << "cannot be read";
        QTest::newRow("pdf") << int(PageSource::Kind::File) << "bad.pdf"
                             << "no PDF file";
        QTest::newRow("text") << int(PageSource::Kind::Text) << "missing.txt"
                              << "cannot be read";
    }

    void tellsWhatCannotBeLoaded()
    {
        QTemporaryDir dir;
        for (const char* name : {"bad.png", "bad.pdf"}) {
            QFile file(dir.filePath(name));
            QVERIFY(file.open(QIODevice::WriteOnly));
            file.write("neither");
        }
        QFETCH(int, kind);
        QFETCH(QString, name);
        PageSource source;
        source.kind = PageSource::Kind(kind);
        source.name = source.kind == PageSource::Kind::Sample ? name : dir.filePath(name);
        const PageLoader::Result result = PageLoader::loadNow(source);
        QFETCH(QString, part);
        QVERIFY2(result.error.contains(part), qPrintable(result.error));
        QVERIFY(result.page.isEmpty());
    }

    void loadsInTheBackground()
    {
        PageLoader loader;
        QSignalSpy loaded(&loader, &PageLoader::loaded);
        PageSource english;
        english.name = "english";
        PageSource german;
        german.name = "german";
        loader.load(english);
        loader.load(german);
        QVERIFY(loader.isLoading());
        QVERIFY(loaded.wait(30000));
        QCOMPARE(loaded.size(), 1);
        QCOMPARE(loaded[0][0].value<PrintedPage>().language, "de");
    }
};

QTEST_MAIN(TestPrintedPage)
#include "tst_printedpage.moc"
