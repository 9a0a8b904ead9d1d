#include "app/mystyle.h"
#include "app/palette.h"
#include "widgets/spinmulti.h"
#include "widgets/spinspeed.h"
#include "widgets/spinvolum.h"
#include "widgets/spinvolump.h"
#include "widgets/zbspinmulti.h"
#include "widgets/zbspinspeed.h"
#include "widgets/zbspintext.h"
#include "widgets/zbspinvolum.h"
#include "widgets/zbspinvolumt.h"

#include <QApplication>
#include <QProgressBar>
#include <QSignalSpy>
#include <QTest>
#include <functional>

using Make = std::function<SpinItems*()>;
Q_DECLARE_METATYPE(Make)

/* The rows that show their value as a bar, or several values at once. */
class TestSpinners : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void barOfEachClass_data();
    void barOfEachClass();
    void valueBeyondTheRangeFillsTheBar();
    void barFollowsEveryChange();
    void textScaleIsAsLongAsItsList();
    void stopsAtBothEnds_data();
    void stopsAtBothEnds();
    void textScaleStopsAtTheFirstOnly();
    void emptySpinnersStepNowhere_data();
    void emptySpinnersStepNowhere();
    void barIsSeenInTheInverseRow_data();
    void barIsSeenInTheInverseRow();
    void severalValuesMoveTogether();
    void windowOfValuesFollows();
    void aLongLabelTakesThePlaceOfValues();
};

namespace {

template <class Spinner> Make make()
{
    return [] { return new Spinner; };
}

void fill(SpinItems& row, int count)
{
    for (int i = 0; i < count; ++i)
        row.addItem(QString::number(i));
}

QImage picture(SpinItems& row)
{
    QPixmap pixmap(row.size());
    pixmap.fill(Qt::black);
    row.render(&pixmap, QPoint(), QRegion(), QWidget::DrawChildren);
    return pixmap.toImage().convertToFormat(QImage::Format_RGB32);
}

} // namespace

// What is looked at here is the screen of the pen.
void TestSpinners::initTestCase()
{
    QApplication::setStyle(new MyStyle);
    QApplication::setPalette(screenPalette());
}

void TestSpinners::barOfEachClass_data()
{
    QTest::addColumn<Make>("create");
    QTest::addColumn<int>("maximum");
    QTest::addColumn<int>("index");
    QTest::addColumn<int>("value");
    QTest::addColumn<int>("width");
    QTest::addColumn<QString>("styleSheet");
    const auto sheet = [](const char* border, const char* width, const char* margin) {
        return QStringLiteral("QProgressBar{%1padding: 0px ;margin: 0px ;}"
                              "QProgressBar::chunk {background-color: white;width: %2;margin: %3;}")
            .arg(QLatin1String(border), QLatin1String(width), QLatin1String(margin));
    };
    QTest::newRow("SpinVolum") << make<SpinVolum>() << 15 << 5 << 15 << 67
                               << sheet("", "8px", "3px");
    QTest::newRow("SpinSpeed") << make<SpinSpeed>() << 15 << 3 << 9 << 67
                               << sheet("", "8px", "3px");
    QTest::newRow("SpinVolump") << make<SpinVolump>() << 15 << 4 << 12 << 67
                                << sheet("border: 1px solid white ;", "13px", "0.5px");
    QTest::newRow("ZbSpinSpeed") << make<ZbSpinSpeed>() << 15 << 2 << 6 << 57
                                 << sheet("", "7px", "2px");
    QTest::newRow("ZbSpinVolum") << make<ZbSpinVolum>() << 15 << 1 << 3 << 57
                                 << sheet("", "7px", "2px");
    QTest::newRow("ZbSpinVolumt") << make<ZbSpinVolumt>() << 100 << 10 << 100 << 67
                                  << sheet("", "3px", "2px");
    QTest::newRow("ZbSpinText") << make<ZbSpinText>() << 30 << 7 << 21 << 57
                                << sheet("", "7px", "2px");
}

void TestSpinners::barOfEachClass()
{
    QFETCH(Make, create);
    QFETCH(int, index);
    const std::unique_ptr<SpinItems> row(create());
    fill(*row, 11);
    row->setCurIndex(index);
    row->show();
    QCOMPARE(row->getCurIndex(), index);
    const auto* bar = row->findChild<QProgressBar*>();
    QVERIFY(bar);
    QVERIFY(bar->isVisible());
    QVERIFY(!bar->isTextVisible());
    QCOMPARE(bar->minimum(), 0);
    QTEST(bar->maximum(), "maximum");
    QTEST(bar->value(), "value");
    QTEST(bar->width(), "width");
    QCOMPARE(bar->height(), 18);
    QCOMPARE(bar->x(), rowlayout::ValueColumn + 3);
    QVERIFY(row->rect().contains(bar->geometry()));
    QTEST(bar->styleSheet(), "styleSheet");
}

void TestSpinners::valueBeyondTheRangeFillsTheBar()
{
    SpinVolum row;
    fill(row, 11);
    row.setCurIndex(10);
    QCOMPARE(row.getCurIndex(), 10);
    QCOMPARE(row.bar()->value(), 15);
    row.setCurIndex(1);
    QCOMPARE(row.bar()->value(), 3);
}

void TestSpinners::barFollowsEveryChange()
{
    ZbSpinVolumt row;
    fill(row, 11);
    QCOMPARE(row.bar()->value(), 0);
    row.moveNext();
    QCOMPARE(row.bar()->value(), 10);
    row.setCurIndex(6);
    QCOMPARE(row.bar()->value(), 60);
    row.movePrev();
    QCOMPARE(row.bar()->value(), 50);
    row.setCurIndex(11);
    QCOMPARE(row.bar()->value(), 50);
}

void TestSpinners::textScaleIsAsLongAsItsList()
{
    ZbSpinText row;
    fill(row, 3);
    QCOMPARE(row.bar()->maximum(), 6);
    row.addItem(QStringLiteral("more"));
    QCOMPARE(row.bar()->maximum(), 9);
    row.setCurIndex(3);
    QCOMPARE(row.bar()->value(), 9);
}

void TestSpinners::stopsAtBothEnds_data()
{
    QTest::addColumn<Make>("create");
    QTest::newRow("SpinVolum") << make<SpinVolum>();
    QTest::newRow("SpinSpeed") << make<SpinSpeed>();
    QTest::newRow("SpinVolump") << make<SpinVolump>();
    QTest::newRow("ZbSpinSpeed") << make<ZbSpinSpeed>();
    QTest::newRow("ZbSpinVolum") << make<ZbSpinVolum>();
    QTest::newRow("ZbSpinVolumt") << make<ZbSpinVolumt>();
    QTest::newRow("SpinMulti") << make<SpinMulti>();
    QTest::newRow("ZbSpinMulti") << make<ZbSpinMulti>();
}

void TestSpinners::stopsAtBothEnds()
{
    QFETCH(Make, create);
    const std::unique_ptr<SpinItems> row(create());
    fill(*row, 3);
    row->movePrev();
    QCOMPARE(row->getCurIndex(), 0);
    row->moveNext();
    row->moveNext();
    QCOMPARE(row->getCurIndex(), 2);
    row->moveNext();
    QCOMPARE(row->getCurIndex(), 2);
    row->movePrev();
    QCOMPARE(row->getCurIndex(), 1);
}

void TestSpinners::textScaleStopsAtTheFirstOnly()
{
    ZbSpinText row;
    fill(row, 3);
    row.movePrev();
    QCOMPARE(row.getCurIndex(), 0);
    row.setCurIndex(2);
    row.moveNext();
    QCOMPARE(row.getCurIndex(), 0);
    QCOMPARE(row.bar()->value(), 0);
}

void TestSpinners::emptySpinnersStepNowhere_data()
{
    stopsAtBothEnds_data();
    QTest::newRow("ZbSpinText") << make<ZbSpinText>();
}

void TestSpinners::emptySpinnersStepNowhere()
{
    QFETCH(Make, create);
    const std::unique_ptr<SpinItems> row(create());
    row->moveNext();
    row->movePrev();
    row->setCurIndex(0);
    row->setSelect(true);
    row->show();
    QCOMPARE(row->getCurIndex(), 0);
    QCOMPARE(row->getCurItem(), QString());
    QVERIFY(!picture(*row).isNull());
}

void TestSpinners::barIsSeenInTheInverseRow_data()
{
    QTest::addColumn<Make>("create");
    QTest::newRow("SpinVolum") << make<SpinVolum>();
    QTest::newRow("SpinVolump") << make<SpinVolump>();
    QTest::newRow("ZbSpinSpeed") << make<ZbSpinSpeed>();
    QTest::newRow("ZbSpinVolumt") << make<ZbSpinVolumt>();
}

// Empty, half full and full must look different, selected or not, and the extent of an empty bar
// must be seen.
void TestSpinners::barIsSeenInTheInverseRow()
{
    QFETCH(Make, create);
    const std::unique_ptr<SpinItems> row(create());
    fill(*row, 6);
    row->show();
    const QRect bar = row->findChild<QProgressBar*>()->geometry();
    const QRect surroundings = bar.adjusted(-3, 0, 3, 0);
    for (const bool selected : {false, true}) {
        row->setSelect(selected);
        row->setCurIndex(0);
        const QImage empty = picture(*row).copy(surroundings);
        row->setCurIndex(3);
        const QImage half = picture(*row).copy(surroundings);
        row->setCurIndex(5);
        const QImage full = picture(*row).copy(surroundings);
        QVERIFY(empty != half);
        QVERIFY(half != full);
        QImage blank(surroundings.size(), QImage::Format_RGB32);
        blank.fill(selected ? Qt::white : Qt::black);
        QVERIFY(empty != blank);
        QVERIFY(full != blank);
        // A full bar does not run into the inverse row.
        const QImage all = picture(*row);
        const int middle = bar.center().y();
        QCOMPARE(all.pixelColor(bar.right() + 1, middle), QColor(Qt::black));
        QCOMPARE(all.pixelColor(bar.left() - 1, middle), QColor(Qt::black));
    }
}

void TestSpinners::severalValuesMoveTogether()
{
    SpinMulti row;
    fill(row, 9);
    row.addIndex(4);
    QCOMPARE(row.getCurIndex(), 4);
    row.addIndex(-2);
    QCOMPARE(row.getCurItem(), QStringLiteral("2"));
    row.addIndex(100);
    QCOMPARE(row.getCurIndex(), 8);
    row.addIndex(-100);
    QCOMPARE(row.getCurIndex(), 0);
}

void TestSpinners::windowOfValuesFollows()
{
    SpinMulti row;
    fill(row, 9);
    const QImage three = picture(row);
    row.setShowMax(1);
    const QImage one = picture(row);
    QVERIFY(one != three);
    row.setShowMax(0);
    QCOMPARE(picture(row), one);
    row.setShowMax(3);
    row.setCurIndex(4);
    QVERIFY(picture(row) != three);
}

void TestSpinners::aLongLabelTakesThePlaceOfValues()
{
    SpinMulti row;
    for (int value = 10; value < 20; ++value)
        row.addItem(QString::number(value));
    row.setText1(QStringLiteral("Satzzeichenpause "));
    row.setShowMax(3);
    const QImage three = picture(row);
    row.setShowMax(2);
    QVERIFY(picture(row) != three);
    row.setShowMax(5);
    QCOMPARE(picture(row), three);
    row.setText1(QStringLiteral("Pausa "));
    QVERIFY(picture(row) != three);
    const QImage five = picture(row);
    row.setShowMax(3);
    QVERIFY(picture(row) != five);
}

QTEST_MAIN(TestSpinners)
#include "tst_spinners.moc"
