#include "tests/screens/album.h"
#include "tests/screens/screenset.h"
#include "widgets/spinmulti.h"
#include "widgets/spinspeed.h"
#include "widgets/spinvolum.h"
#include "widgets/spinvolump.h"
#include "widgets/talkinglist.h"
#include "widgets/ttsconfig.h"
#include "widgets/zbspinspeed.h"
#include "widgets/zbspintext.h"
#include "widgets/zbspinvolumt.h"

#include <QApplication>
#include <QTimerEvent>
#include <memory>

/* Settings pages and their rows. */
class TestPageScreens : public QObject
{
    Q_OBJECT

private slots:
    void plainRows();
    void pagesOfFiveRows_data();
    void pagesOfFiveRows();
    void bars_data();
    void bars();
    void barsOfEveryKind();
    void volumeAsAPage();
    void severalValues_data();
    void severalValues();
    void longTexts();
    void chinese();
    void everyPictureIsUsed();

private:
    template <class Row>
    static Row* add(TTSConfig& page, const QString& label, const QStringList& values, int index);
    static QStringList numbers(int last);

    Album m_album{QStringLiteral("pages")};
};

template <class Row>
Row* TestPageScreens::add(TTSConfig& page, const QString& label, const QStringList& values,
                          int index)
{
    auto* row = new Row;
    row->setText1(label);
    for (const QString& value : values)
        row->addItem(value);
    row->setCurIndex(index);
    page.addItem(row);
    return row;
}

QStringList TestPageScreens::numbers(int last)
{
    QStringList values;
    for (int i = 0; i <= last; ++i)
        values.append(QString::number(i));
    return values;
}

void TestPageScreens::plainRows()
{
    TTSConfig page;
    add<SpinItems>(page, QStringLiteral("Reading"), {QStringLiteral("On"), QStringLiteral("Off")},
                   1);
    add<SpinItems>(page, QStringLiteral("Word Pause"), numbers(10), 10);
    add<SpinVolum>(page, QStringLiteral("Volume"), numbers(5), 3);
    page.showPage();
    COMPARE_SCREEN(m_album, &page, "plain");
    QVERIFY(page.setCurIndex(2));
    COMPARE_SCREEN(m_album, &page, "plain-bar");
}

void TestPageScreens::pagesOfFiveRows_data()
{
    QTest::addColumn<int>("current");
    for (int i = 0; i < 5; ++i)
        QTest::addRow("five-%d", i + 1) << i;
}

void TestPageScreens::pagesOfFiveRows()
{
    QFETCH(int, current);
    TTSConfig page;
    add<SpinItems>(page, QStringLiteral("Reading"), {QStringLiteral("On"), QStringLiteral("Off")},
                   0);
    add<ZbSpinVolumt>(page, QStringLiteral("Speed"), numbers(10), 5);
    add<SpinItems>(page, QStringLiteral("Word Pause"), numbers(10), 4);
    add<SpinItems>(page, QStringLiteral("Punc Pause"), {QStringLiteral("30")}, 0);
    add<SpinVolum>(page, QStringLiteral("Volume"), numbers(5), 4);
    QVERIFY(page.setCurIndex(current));
    QVERIFY2(m_album.shows(&page, QString::fromUtf8(QTest::currentDataTag())),
             qPrintable(m_album.problem()));
}

void TestPageScreens::bars_data()
{
    QTest::addColumn<int>("current");
    for (int i = 0; i < 3; ++i)
        QTest::addRow("bars-%d", i + 1) << i;
}

void TestPageScreens::bars()
{
    QFETCH(int, current);
    TTSConfig page;
    add<SpinVolum>(page, QStringLiteral("Empty"), numbers(5), 0);
    add<SpinVolum>(page, QStringLiteral("Middle"), numbers(5), 3);
    add<SpinVolum>(page, QStringLiteral("Full"), numbers(5), 5);
    QVERIFY(page.setCurIndex(current));
    QVERIFY2(m_album.shows(&page, QString::fromUtf8(QTest::currentDataTag())),
             qPrintable(m_album.problem()));
}

void TestPageScreens::barsOfEveryKind()
{
    TTSConfig page;
    add<SpinSpeed>(page, QStringLiteral("SpinSpeed"), numbers(5), 2);
    add<SpinVolump>(page, QStringLiteral("SpinVolump"), numbers(5), 2);
    add<ZbSpinSpeed>(page, QStringLiteral("ZbSpinSpeed"), numbers(5), 5);
    add<ZbSpinVolumt>(page, QStringLiteral("ZbSpinVolumt"), numbers(10), 10);
    add<ZbSpinText>(page, QStringLiteral("ZbSpinText"), numbers(8), 8);
    add<SpinVolump>(page, QStringLiteral("SpinVolump"), numbers(5), 5);
    page.showPage();
    COMPARE_SCREEN(m_album, &page, "kinds-1");
    QVERIFY(page.setCurIndex(1));
    COMPARE_SCREEN(m_album, &page, "kinds-2");
    QVERIFY(page.setCurIndex(5));
    COMPARE_SCREEN(m_album, &page, "kinds-3");
}

void TestPageScreens::volumeAsAPage()
{
    SpinVolump page;
    page.resize(256, 64);
    page.setText1(QStringLiteral("Volume"));
    for (const QString& value : numbers(5))
        page.addItem(value);
    page.setCurIndex(3);
    COMPARE_SCREEN(m_album, &page, "volume-page");
}

void TestPageScreens::severalValues_data()
{
    QTest::addColumn<int>("value");
    QTest::newRow("several-first") << 0;
    QTest::newRow("several-middle") << 4;
    QTest::newRow("several-last") << 8;
}

void TestPageScreens::severalValues()
{
    QFETCH(int, value);
    TTSConfig page;
    add<SpinMulti>(page, QStringLiteral("Three"), numbers(8), value);
    add<SpinMulti>(page, QStringLiteral("Five"), numbers(8), value)->setShowMax(5);
    add<SpinMulti>(page, QStringLiteral("Words"),
                   {QStringLiteral("left"), QStringLiteral("right"), QStringLiteral("both")},
                   value / 4);
    page.showPage();
    QVERIFY2(m_album.shows(&page, QString::fromUtf8(QTest::currentDataTag())),
             qPrintable(m_album.problem()));
}

void TestPageScreens::longTexts()
{
    TTSConfig page;
    const QString longText =
        QStringLiteral("A text that is longer than any row of a page has room");
    SpinItems* label = add<SpinItems>(page, longText, numbers(5), 5);
    add<SpinVolum>(page, longText, numbers(5), 2);
    add<SpinItems>(page, QStringLiteral("Label"), {longText}, 0);
    page.show();
    label->setAnimated(false);
    COMPARE_SCREEN(m_album, &page, "long");
    label->setAnimated(true);
    for (int i = 0; i < slowscroll::RestTicks + 20; ++i) {
        QTimerEvent tick(label->scrollTimerId());
        QCoreApplication::sendEvent(label, &tick);
    }
    COMPARE_SCREEN(m_album, &page, "long-scrolled");
}

void TestPageScreens::chinese()
{
    TTSConfig page;
    add<SpinItems>(page, QStringLiteral("朗读"), {QStringLiteral("开启")}, 0);
    add<SpinItems>(page, QString(), {QStringLiteral("英语 - 简体中文（牛津高阶）")}, 0);
    add<SpinItems>(page, QStringLiteral("Скорость чтения"), {QStringLiteral("Выкл.")}, 0);
    QVERIFY(page.setCurIndex(1));
    COMPARE_SCREEN(m_album, &page, "chinese");
}

void TestPageScreens::everyPictureIsUsed()
{
    QCOMPARE(m_album.unused(), QStringList());
}

SCREEN_TEST_MAIN(TestPageScreens)
#include "tst_pagescreens.moc"
