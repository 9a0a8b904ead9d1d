#include "tests/screens/album.h"

#include <QDir>
#include <QTemporaryDir>
#include <QTest>
#include <QWidget>

/* The comparison itself: it must be able to fail. */
class TestAlbum : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void samePixelsMatch();
    void missingPictureFailsAndIsDumped();
    void onePixelFailsAndIsDumped();
    void dumpsOfAMendedScreenVanish();
    void pictureOfAnotherSizeFails();
    void widgetOfAnotherSizeFails();
    void unusedPictureIsNamed();
    void greyIsLitFromTheMiddle();

private:
    QString pictures() const { return m_folder->filePath(QStringLiteral("pictures")); }
    QString dumps() const { return m_folder->filePath(QStringLiteral("dumps")); }
    void store(const QImage& image, const QString& name) const;
    QStringList dumped() const;

    std::unique_ptr<QTemporaryDir> m_folder;
};

static QImage darkScreen()
{
    QImage image(256, 64, QImage::Format_Mono);
    image.setColorTable({qRgb(0, 0, 0), qRgb(255, 255, 255)});
    image.fill(0);
    return image;
}

void TestAlbum::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    QVERIFY(m_folder->isValid());
    QVERIFY(QDir().mkpath(pictures()));
}

void TestAlbum::store(const QImage& image, const QString& name) const
{
    QVERIFY(image.save(pictures() + '/' + name + QStringLiteral(".png")));
}

QStringList TestAlbum::dumped() const
{
    return QDir(dumps()).entryList(QDir::Files, QDir::Name);
}

void TestAlbum::samePixelsMatch()
{
    QImage screen = darkScreen();
    screen.setPixel(3, 5, 1);
    store(screen, QStringLiteral("a"));
    Album album(pictures(), dumps());
    QVERIFY2(album.matches(screen, QStringLiteral("a")), qPrintable(album.problem()));
    QCOMPARE(dumped(), QStringList());
}

void TestAlbum::missingPictureFailsAndIsDumped()
{
    Album album(pictures(), dumps());
    QVERIFY(!album.matches(darkScreen(), QStringLiteral("a")));
    QVERIFY(album.problem().contains(QStringLiteral("no picture")));
    QCOMPARE(dumped(), QStringList{QStringLiteral("a-got.png")});
}

void TestAlbum::onePixelFailsAndIsDumped()
{
    store(darkScreen(), QStringLiteral("a"));
    QImage screen = darkScreen();
    screen.setPixel(255, 63, 1);
    Album album(pictures(), dumps());
    QVERIFY(!album.matches(screen, QStringLiteral("a")));
    QVERIFY(album.problem().contains(QStringLiteral("1 pixels differ")));
    QCOMPARE(dumped(), (QStringList{QStringLiteral("a-diff.png"), QStringLiteral("a-expected.png"),
                                    QStringLiteral("a-got.png")}));
    const QImage diff(dumps() + QStringLiteral("/a-diff.png"));
    QCOMPARE(diff.pixelColor(255, 63), QColor(Qt::red));
    QCOMPARE(diff.pixelColor(0, 0), QColor(Qt::black));
}

void TestAlbum::dumpsOfAMendedScreenVanish()
{
    store(darkScreen(), QStringLiteral("a"));
    QImage screen = darkScreen();
    screen.setPixel(0, 0, 1);
    Album album(pictures(), dumps());
    QVERIFY(!album.matches(screen, QStringLiteral("a")));
    QVERIFY(album.matches(darkScreen(), QStringLiteral("a")));
    QCOMPARE(dumped(), QStringList());
}

void TestAlbum::pictureOfAnotherSizeFails()
{
    store(darkScreen().copy(0, 0, 256, 63), QStringLiteral("a"));
    Album album(pictures(), dumps());
    QVERIFY(!album.matches(darkScreen(), QStringLiteral("a")));
    QVERIFY(album.problem().contains(QStringLiteral("not 256 x 64")));
}

void TestAlbum::widgetOfAnotherSizeFails()
{
    store(darkScreen(), QStringLiteral("a"));
    QWidget widget;
    widget.setFixedSize(256, 65);
    Album album(pictures(), dumps());
    QVERIFY(!album.shows(&widget, QStringLiteral("a")));
    QVERIFY(album.problem().contains(QStringLiteral("does not fill")));
}

void TestAlbum::unusedPictureIsNamed()
{
    store(darkScreen(), QStringLiteral("a"));
    store(darkScreen(), QStringLiteral("b"));
    Album album(pictures(), dumps());
    QVERIFY(album.matches(darkScreen(), QStringLiteral("a")));
    QCOMPARE(album.unused(), QStringList{QStringLiteral("b")});
}

void TestAlbum::greyIsLitFromTheMiddle()
{
    QWidget widget;
    widget.setFixedSize(256, 64);
    QPalette palette;
    palette.setColor(QPalette::Window, QColor(127, 127, 127));
    widget.setPalette(palette);
    QCOMPARE(Album::screenOf(&widget).pixelIndex(9, 9), 0);
    palette.setColor(QPalette::Window, QColor(128, 128, 128));
    widget.setPalette(palette);
    QCOMPARE(Album::screenOf(&widget).pixelIndex(9, 9), 1);
}

QTEST_MAIN(TestAlbum)
#include "tst_album.moc"
