#include "widgets/painting.h"
#include "widgets/spinitems.h"
#include "widgets/talkinglist.h"

#include <QApplication>
#include <QSignalSpy>
#include <QTest>
#include <QTimerEvent>

/* A plain row of a settings page. */
class TestSpinItems : public QObject
{
    Q_OBJECT

private slots:
    void startsEmpty();
    void nameFontAndSize();
    void lastValueStepsOnToTheFirst();
    void firstValueStepsBackToTheLast();
    void emptyRowStepsNowhere();
    void setCurIndexIgnoresWhatIsOutside();
    void triggerEmitsWhatItIsGiven();
    void steppingAloneTriggersNothing();
    void selectedRowIsInverse();
    void valuesStandBelowEachOther();
    void interSpaceKeepsLabelAndValueApart();
    void textFontIsDrawnAtTheScreensSize();
    void longTextScrollsWhileSelected_data();
    void longTextScrollsWhileSelected();
    void textThatFitsDoesNotScroll();
    void hiddenRowDoesNotScroll();
    void animationCanBeSwitchedOff();
    void choiceIsOneLineHigh();
    void textIsPlainAndOneLine();
};

namespace {

const QString LongText = QStringLiteral("A text that is longer than any row of a page has room");

void fill(SpinItems& row)
{
    row.setText1(QStringLiteral("Label"));
    for (const char* value : {"A", "B", "C"})
        row.addItem(QLatin1String(value));
}

QImage picture(SpinItems& row)
{
    QPixmap pixmap(row.size());
    pixmap.fill(row.palette().color(QPalette::Window));
    row.render(&pixmap, QPoint(), QRegion(), QWidget::DrawChildren);
    return pixmap.toImage().convertToFormat(QImage::Format_RGB32);
}

// First column of `image` from x on that has a pixel unlike the top left one, its width if none.
int firstInk(const QImage& image, int x)
{
    for (; x < image.width(); ++x) {
        for (int y = 0; y < image.height(); ++y) {
            if (image.pixel(x, y) != image.pixel(0, 0))
                return x;
        }
    }
    return x;
}

} // namespace

void TestSpinItems::startsEmpty()
{
    const SpinItems row;
    QCOMPARE(row.getCurItem(), QString());
    QCOMPARE(row.getText1(), QString());
    QCOMPARE(row.getCurIndex(), 0);
    QCOMPARE(row.count(), 0);
    QVERIFY(!row.isSelected());
    QVERIFY(!row.isLeftRightClick());
}

void TestSpinItems::nameFontAndSize()
{
    const SpinItems row;
    QCOMPARE(row.objectName(), QStringLiteral("SpinItems"));
    QCOMPARE(row.font().family(), QStringLiteral("nits"));
    QCOMPARE(row.size(), QSize(246, 20));
    QCOMPARE(row.focusPolicy(), Qt::NoFocus);
}

void TestSpinItems::lastValueStepsOnToTheFirst()
{
    SpinItems row;
    fill(row);
    row.setCurIndex(2);
    QCOMPARE(row.getCurItem(), QStringLiteral("C"));
    row.moveNext();
    QCOMPARE(row.getCurItem(), QStringLiteral("A"));
    row.moveNext();
    QCOMPARE(row.getCurIndex(), 1);
}

void TestSpinItems::firstValueStepsBackToTheLast()
{
    SpinItems row;
    fill(row);
    row.movePrev();
    QCOMPARE(row.getCurIndex(), 2);
    row.movePrev();
    QCOMPARE(row.getCurIndex(), 1);
}

void TestSpinItems::emptyRowStepsNowhere()
{
    SpinItems row;
    row.moveNext();
    row.movePrev();
    row.setCurIndex(0);
    QCOMPARE(row.getCurIndex(), 0);
    QCOMPARE(row.getCurItem(), QString());
    row.setSelect(true);
    row.show();
    QVERIFY(!picture(row).isNull());
}

void TestSpinItems::setCurIndexIgnoresWhatIsOutside()
{
    SpinItems row;
    fill(row);
    row.setCurIndex(1);
    row.setCurIndex(-1);
    QCOMPARE(row.getCurIndex(), 1);
    row.setCurIndex(3);
    QCOMPARE(row.getCurIndex(), 1);
    row.setCurIndex(0);
    QCOMPARE(row.getCurIndex(), 0);
}

void TestSpinItems::triggerEmitsWhatItIsGiven()
{
    SpinItems row;
    QSignalSpy triggered(&row, &SpinItems::triggered);
    row.trigger(7, QStringLiteral("text"));
    QCOMPARE(triggered, (QList<QVariantList>{{7, QStringLiteral("text")}}));
}

void TestSpinItems::steppingAloneTriggersNothing()
{
    SpinItems row;
    fill(row);
    QSignalSpy triggered(&row, &SpinItems::triggered);
    row.moveNext();
    row.movePrev();
    row.setCurIndex(2);
    QCOMPARE(triggered.size(), 0);
}

void TestSpinItems::selectedRowIsInverse()
{
    SpinItems row;
    fill(row);
    QImage plain = picture(row);
    row.setSelect(true);
    QVERIFY(row.isSelected());
    const QImage selected = picture(row);
    QVERIFY(plain.pixel(0, 0) != selected.pixel(0, 0));
    QVERIFY(plain.pixel(245, 19) != selected.pixel(245, 19));
    row.setSelect(false);
    QCOMPARE(picture(row), plain);
}

void TestSpinItems::valuesStandBelowEachOther()
{
    SpinItems first;
    SpinItems second;
    fill(first);
    fill(second);
    second.setText1(QStringLiteral("A longer label"));
    QCOMPARE(firstInk(picture(first), 150), firstInk(picture(second), 150));
    QVERIFY(firstInk(picture(first), 150) < 246);
}

void TestSpinItems::interSpaceKeepsLabelAndValueApart()
{
    SpinItems row;
    row.addItem(LongText);
    row.setText1(QStringLiteral("L"));
    row.setInterSpace(100);
    const int labelEnd = 2 + painting::textWidth(QStringLiteral("L"));
    QVERIFY(firstInk(picture(row), labelEnd) >= labelEnd + 100);
    row.setInterSpace(-5);
    QVERIFY(firstInk(picture(row), labelEnd) < labelEnd + 20);
}

void TestSpinItems::textFontIsDrawnAtTheScreensSize()
{
    SpinItems row;
    fill(row);
    const QImage before = picture(row);
    QFont font(QStringLiteral("nits"));
    font.setPointSize(40);
    row.setTextFont(font);
    QCOMPARE(picture(row), before);
    font.setUnderline(true);
    row.setTextFont(font);
    QVERIFY(picture(row) != before);
}

void TestSpinItems::longTextScrollsWhileSelected_data()
{
    QTest::addColumn<QString>("label");
    QTest::addColumn<QString>("value");
    QTest::newRow("label") << LongText << QStringLiteral("5");
    QTest::newRow("value") << QString() << LongText;
}

void TestSpinItems::longTextScrollsWhileSelected()
{
    QFETCH(QString, label);
    QFETCH(QString, value);
    SpinItems row;
    row.setText1(label);
    row.addItem(value);
    row.show();
    QCOMPARE(row.scrollTimerId(), -1);
    row.setSelect(true);
    QVERIFY(row.scrollTimerId() != -1);
    const QImage start = picture(row);
    for (int i = 0; i <= slowscroll::RestTicks; ++i) {
        QTimerEvent tick(row.scrollTimerId());
        QCoreApplication::sendEvent(&row, &tick);
    }
    QVERIFY(picture(row) != start);
    row.setSelect(false);
    QCOMPARE(row.scrollTimerId(), -1);
}

void TestSpinItems::textThatFitsDoesNotScroll()
{
    SpinItems row;
    fill(row);
    row.show();
    row.setSelect(true);
    QCOMPARE(row.scrollTimerId(), -1);
    row.setText1(LongText);
    QVERIFY(row.scrollTimerId() != -1);
    row.setText1(QStringLiteral("Short"));
    QCOMPARE(row.scrollTimerId(), -1);
}

void TestSpinItems::hiddenRowDoesNotScroll()
{
    SpinItems row;
    row.setText1(LongText);
    row.setSelect(true);
    QCOMPARE(row.scrollTimerId(), -1);
    row.show();
    QVERIFY(row.scrollTimerId() != -1);
    row.hide();
    QCOMPARE(row.scrollTimerId(), -1);
}

void TestSpinItems::animationCanBeSwitchedOff()
{
    SpinItems row;
    row.setText1(LongText);
    row.setSelect(true);
    row.show();
    QVERIFY(row.setProperty("animated", false));
    QCOMPARE(row.scrollTimerId(), -1);
    QVERIFY(row.setProperty("animated", true));
    QVERIFY(row.scrollTimerId() != -1);
}

void TestSpinItems::choiceIsOneLineHigh()
{
    SpinItems row;
    fill(row);
    row.setChoice(true);
    row.resize(128, 69);
    row.setSelect(true);
    const QImage image = picture(row);
    QVERIFY(image.pixel(0, 15) != image.pixel(0, 16));
    QCOMPARE(image.pixel(0, 68), image.pixel(0, 16));
}

void TestSpinItems::textIsPlainAndOneLine()
{
    SpinItems row;
    row.setText1(QStringLiteral("a\nb"));
    row.addItem(QStringLiteral("<b>c</b>\td"));
    QCOMPARE(row.getText1(), QStringLiteral("a\nb"));
    QCOMPARE(row.getCurItem(), QStringLiteral("<b>c</b>\td"));
    const QImage broken = picture(row);
    row.setText1(QStringLiteral("a b"));
    QCOMPARE(picture(row), broken);
}

QTEST_MAIN(TestSpinItems)
#include "tst_spinitems.moc"
