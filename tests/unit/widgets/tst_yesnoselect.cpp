#include "widgets/spinitems.h"
#include "widgets/talkinglist.h"
#include "widgets/yesnoselect.h"

#include <QApplication>
#include <QPointer>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>
#include <QTimerEvent>

/* The question that is answered with Yes or No. */
class TestYesnoSelect : public QObject
{
    Q_OBJECT

private slots:
    void fillsTheScreenAsAWindow();
    void hasTwoChoiceRows();
    void confirmedAtOnceMeansYes();
    void rightThenEnterMeansNo();
    void escapeMeansNeither();
    void closedFromOutsideMeansNeither();
    void leftOnYesSpeaksYesAgain();
    void rightOnNoSpeaksNoAgain();
    void leftComesBackToYes();
    void showingTellsTheCurrentChoice();
    void leavingIsToldBeforeTheDialogCloses_data();
    void leavingIsToldBeforeTheDialogCloses();
    void otherKeysChangeNothing();
    void onlyTheCurrentChoiceIsSelected();
    void keysReachADialogWithAParent();
    void slotMayDeleteTheDialog();
    void longQuestionScrolls();
    void questionOfThreeLinesDoesNotScroll();
    void messageReplacesTheOneBefore();
};

namespace {

const QString Yes = QStringLiteral("Yes");
const QString No = QStringLiteral("No");
const QString LongText = QStringLiteral("A line of words that fills it. ").repeated(5);

// Runs the dialog and presses the keys once it is shown.
int run(YesnoSelect& dialog, const QList<Qt::Key>& keys)
{
    QTimer::singleShot(0, &dialog, [&dialog, keys] {
        for (const Qt::Key key : keys)
            QTest::keyClick(&dialog, key);
    });
    return dialog.exec();
}

QList<SpinItems*> choices(const YesnoSelect& dialog)
{
    return dialog.findChildren<SpinItems*>();
}

} // namespace

void TestYesnoSelect::fillsTheScreenAsAWindow()
{
    QWidget parent;
    const YesnoSelect dialog(&parent);
    QCOMPARE(dialog.objectName(), QStringLiteral("YesnoSelect"));
    QVERIFY(dialog.isWindow());
    QVERIFY(dialog.windowFlags().testFlag(Qt::FramelessWindowHint));
    QCOMPARE(dialog.size(), QSize(256, 64));
    QCOMPARE(dialog.getValue(), 0);
}

void TestYesnoSelect::hasTwoChoiceRows()
{
    const YesnoSelect dialog(QStringLiteral("Sure?"));
    QCOMPARE(choices(dialog).size(), 2);
    QCOMPARE(choices(dialog).at(0)->getText1(), Yes);
    QCOMPARE(choices(dialog).at(1)->getText1(), No);
    for (const SpinItems* row : choices(dialog)) {
        QCOMPARE(row->height(), 69);
        QVERIFY(row->y() < 64);
    }
    QVERIFY(!choices(dialog).at(0)->geometry().intersects(choices(dialog).at(1)->geometry()));
}

void TestYesnoSelect::confirmedAtOnceMeansYes()
{
    YesnoSelect dialog;
    QCOMPARE(run(dialog, {Qt::Key_Return}), 1);
    QCOMPARE(dialog.getValue(), 0);
    QVERIFY(!dialog.isVisible());
}

void TestYesnoSelect::rightThenEnterMeansNo()
{
    YesnoSelect dialog;
    QCOMPARE(run(dialog, {Qt::Key_Right, Qt::Key_Return}), 1);
    QCOMPARE(dialog.getValue(), 1);
}

void TestYesnoSelect::escapeMeansNeither()
{
    YesnoSelect dialog;
    QCOMPARE(run(dialog, {Qt::Key_Right, Qt::Key_Escape}), 0);
    QCOMPARE(dialog.getValue(), 2);
}

void TestYesnoSelect::closedFromOutsideMeansNeither()
{
    YesnoSelect dialog;
    QSignalSpy escaped(&dialog, &YesnoSelect::signalEsc);
    QTimer::singleShot(0, &dialog, [] { QApplication::closeAllWindows(); });
    QCOMPARE(dialog.exec(), 0);
    QCOMPARE(dialog.getValue(), 2);
    QCOMPARE(escaped.size(), 0);
}

void TestYesnoSelect::leftOnYesSpeaksYesAgain()
{
    YesnoSelect dialog;
    dialog.show();
    QSignalSpy moved(&dialog, &YesnoSelect::singalLR);
    QTest::keyClick(&dialog, Qt::Key_Left);
    QTest::keyClick(&dialog, Qt::Key_Left);
    QCOMPARE(moved, (QList<QVariantList>{{0, Yes}, {0, Yes}}));
    QVERIFY(choices(dialog).at(0)->isSelected());
}

void TestYesnoSelect::rightOnNoSpeaksNoAgain()
{
    YesnoSelect dialog;
    dialog.show();
    QSignalSpy moved(&dialog, &YesnoSelect::singalLR);
    QTest::keyClick(&dialog, Qt::Key_Right);
    QTest::keyClick(&dialog, Qt::Key_Right);
    QCOMPARE(moved, (QList<QVariantList>{{1, No}, {1, No}}));
    QVERIFY(choices(dialog).at(1)->isSelected());
}

void TestYesnoSelect::leftComesBackToYes()
{
    YesnoSelect dialog;
    QSignalSpy moved(&dialog, &YesnoSelect::singalLR);
    QCOMPARE(run(dialog, {Qt::Key_Right, Qt::Key_Left, Qt::Key_Return}), 1);
    QCOMPARE(dialog.getValue(), 0);
    QCOMPARE(moved, (QList<QVariantList>{{1, No}, {0, Yes}}));
}

void TestYesnoSelect::showingTellsTheCurrentChoice()
{
    YesnoSelect dialog;
    QSignalSpy shown(&dialog, &YesnoSelect::signalShow);
    dialog.show();
    QTest::keyClick(&dialog, Qt::Key_Right);
    dialog.hide();
    dialog.show();
    QCOMPARE(shown, (QList<QVariantList>{{0, Yes}, {1, No}}));
}

void TestYesnoSelect::leavingIsToldBeforeTheDialogCloses_data()
{
    QTest::addColumn<Qt::Key>("key");
    QTest::newRow("Enter") << Qt::Key_Return;
    QTest::newRow("Escape") << Qt::Key_Escape;
}

void TestYesnoSelect::leavingIsToldBeforeTheDialogCloses()
{
    QFETCH(Qt::Key, key);
    YesnoSelect dialog;
    QStringList order;
    connect(&dialog, &YesnoSelect::signalEsc, this, [&] {
        order.append(dialog.isVisible() ? QStringLiteral("told") : QStringLiteral("told late"));
    });
    connect(&dialog, &QDialog::finished, this, [&] { order.append(QStringLiteral("closed")); });
    run(dialog, {key});
    QCOMPARE(order, (QStringList{QStringLiteral("told"), QStringLiteral("closed")}));
}

void TestYesnoSelect::otherKeysChangeNothing()
{
    YesnoSelect dialog;
    dialog.show();
    QSignalSpy moved(&dialog, &YesnoSelect::singalLR);
    QSignalSpy escaped(&dialog, &YesnoSelect::signalEsc);
    for (const Qt::Key key : {Qt::Key_Up, Qt::Key_Down, Qt::Key_Tab, Qt::Key_F7, Qt::Key_Space})
        QTest::keyClick(&dialog, key);
    QVERIFY(dialog.isVisible());
    QCOMPARE(moved.size() + escaped.size(), 0);
    QVERIFY(choices(dialog).at(0)->isSelected());
}

void TestYesnoSelect::onlyTheCurrentChoiceIsSelected()
{
    YesnoSelect dialog;
    dialog.show();
    QTest::keyClick(&dialog, Qt::Key_Right);
    QVERIFY(!choices(dialog).at(0)->isSelected());
    QVERIFY(choices(dialog).at(1)->isSelected());
    QTest::keyClick(&dialog, Qt::Key_Left);
    QVERIFY(choices(dialog).at(0)->isSelected());
    QVERIFY(!choices(dialog).at(1)->isSelected());
}

void TestYesnoSelect::keysReachADialogWithAParent()
{
    QWidget parent;
    parent.show();
    YesnoSelect dialog(&parent);
    QTimer::singleShot(0, &dialog, [&dialog] {
        dialog.activateWindow();
        if (QTest::qWaitForWindowActive(&dialog))
            QTest::keyClick(dialog.windowHandle(), Qt::Key_Escape);
    });
    QCOMPARE(dialog.exec(), 0);
}

void TestYesnoSelect::slotMayDeleteTheDialog()
{
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Escape, Qt::Key_Left, Qt::Key_Right}) {
        auto* dialog = new YesnoSelect;
        const QPointer<YesnoSelect> alive(dialog);
        connect(dialog, &YesnoSelect::signalEsc, dialog, [dialog] { delete dialog; });
        connect(dialog, &YesnoSelect::singalLR, dialog, [dialog] { delete dialog; });
        dialog->show();
        QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier);
        QCoreApplication::sendEvent(dialog, &event);
        QVERIFY(!alive);
    }
}

void TestYesnoSelect::longQuestionScrolls()
{
    YesnoSelect dialog(LongText);
    QCOMPARE(dialog.scrollTimerId(), -1);
    dialog.show();
    QVERIFY(dialog.scrollTimerId() != -1);
    const QImage start = dialog.grab().toImage();
    for (int i = 0; i < 4 * slowscroll::RestTicks; ++i) {
        QTimerEvent tick(dialog.scrollTimerId());
        QCoreApplication::sendEvent(&dialog, &tick);
    }
    const QImage scrolled = dialog.grab().toImage();
    QVERIFY(scrolled != start);
    QCOMPARE(scrolled.copy(0, 48, 256, 16), start.copy(0, 48, 256, 16));
    QVERIFY(dialog.setProperty("animated", false));
    QCOMPARE(dialog.scrollTimerId(), -1);
    QCOMPARE(dialog.grab().toImage(), start);
    QVERIFY(dialog.setProperty("animated", true));
    dialog.hide();
    QCOMPARE(dialog.scrollTimerId(), -1);
}

void TestYesnoSelect::questionOfThreeLinesDoesNotScroll()
{
    YesnoSelect dialog(QStringLiteral("one\ntwo\nthree"));
    dialog.show();
    QCOMPARE(dialog.scrollTimerId(), -1);
    dialog.setMsgText(LongText);
    QVERIFY(dialog.scrollTimerId() != -1);
}

void TestYesnoSelect::messageReplacesTheOneBefore()
{
    YesnoSelect asked(QStringLiteral("Question"));
    YesnoSelect usual;
    QVERIFY(asked.grab().toImage() != usual.grab().toImage());
    asked.setMsgText(QStringLiteral("Are you sure to delete it?"));
    QCOMPARE(asked.grab().toImage(), usual.grab().toImage());
}

QTEST_MAIN(TestYesnoSelect)
#include "tst_yesnoselect.moc"
