#include "engines/stimg.h"

#include <QTest>
#include <limits>
#include <vector>

class TestStImg : public QObject
{
    Q_OBJECT

private slots:
    void theRecordHasACopyOfThePixels();
    void aSizeOfZeroGivesAnEmptyArray_data();
    void aSizeOfZeroGivesAnEmptyArray();
    void aSizeWithoutSenseIsNoPicture_data();
    void aSizeWithoutSenseIsNoPicture();
    void releasingFreesBothBuffers();
    void releasingNullDoesNothing();
};

void TestStImg::theRecordHasACopyOfThePixels()
{
    std::vector<unsigned char> pixels{1, 2, 3, 4, 5, 6};
    _stImg* const record = makeImage(pixels.data(), 2, 3, 9);
    pixels.assign(pixels.size(), 0xa5);
    QCOMPARE(record->width, 2);
    QCOMPARE(record->height, 3);
    QCOMPARE(record->flag, 9);
    QVERIFY(!record->buffer);
    QCOMPARE(std::vector<unsigned char>(record->image, record->image + 6),
             (std::vector<unsigned char>{1, 2, 3, 4, 5, 6}));
    releaseImage(record);
}

void TestStImg::aSizeOfZeroGivesAnEmptyArray_data()
{
    QTest::addColumn<int>("width");
    QTest::addColumn<int>("height");
    QTest::newRow("no width") << 0 << 50;
    QTest::newRow("no height") << 400 << 0;
    QTest::newRow("neither") << 0 << 0;
}

void TestStImg::aSizeOfZeroGivesAnEmptyArray()
{
    QFETCH(int, width);
    QFETCH(int, height);
    const unsigned char pixel = 0;
    _stImg* const record = makeImage(&pixel, width, height, 1);
    QVERIFY(record->image);
    QCOMPARE(record->width, width);
    QCOMPARE(record->height, height);
    releaseImage(record);
}

void TestStImg::aSizeWithoutSenseIsNoPicture_data()
{
    constexpr int Largest = std::numeric_limits<int>::max();
    QTest::addColumn<int>("width");
    QTest::addColumn<int>("height");
    QTest::newRow("negative width") << -1 << 10;
    QTest::newRow("negative height") << 10 << -1;
    QTest::newRow("both negative") << -1000 << -1000;
    QTest::newRow("smallest") << std::numeric_limits<int>::min() << 1;
    QTest::newRow("largest") << Largest << Largest;
    QTest::newRow("product wraps to a small number") << 0x10001 << 0x10000;
}

void TestStImg::aSizeWithoutSenseIsNoPicture()
{
    QFETCH(int, width);
    QFETCH(int, height);
    QVERIFY(!isSaneImageSize(width, height));
    const unsigned char pixel = 0;
    _stImg* const record = makeImage(&pixel, width, height, 3);
    QVERIFY(record->image);
    QCOMPARE(record->width, 0);
    QCOMPARE(record->height, 0);
    QCOMPARE(record->flag, 3);
    releaseImage(record);
}

void TestStImg::releasingFreesBothBuffers()
{
    // A buffer that is forgotten, or freed twice, is seen by the address sanitizer.
    auto* const record = new _stImg;
    record->buffer = new unsigned char[10];
    record->image = new unsigned char[10];
    releaseImage(record);
}

void TestStImg::releasingNullDoesNothing()
{
    releaseImage(nullptr);
}

QTEST_APPLESS_MAIN(TestStImg)
#include "tst_stimg.moc"
