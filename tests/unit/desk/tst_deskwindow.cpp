#include "testwindow.h"

#include "desk/keybutton.h"
#include "desk/oledview.h"
#include "desk/pageview.h"

#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QPlainTextEdit>
#include <QSignalSpy>
#include <QTest>

/* The window with mouse and keyboard, against a process that stands for the pen. */
class TestDeskWindow : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_test = std::make_unique<TestWindow>();
        m_desk = &m_test->session();
        QVERIFY(m_test->show());
        m_window = &m_test->window();
        QVERIFY(m_test->startPen());
    }

    void cleanup() { m_test.reset(); }

    void keyboardGoesToThePen()
    {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Down);
        QTRY_VERIFY(m_test->isRightLit());
    }

    void enterOfTheNumberPadIsOk()
    {
        auto* const ok = m_test->key(Qt::Key_Return);
        const QImage before = ok->grab().toImage();
        QTest::keyPress(QApplication::focusWidget(), Qt::Key_Enter);
        QVERIFY(ok->grab().toImage() != before);
        QTest::keyRelease(QApplication::focusWidget(), Qt::Key_Enter);
        QCOMPARE(ok->grab().toImage(), before);
    }

    void anotherLanguageIsChosen()
    {
        QComboBox* languages = nullptr;
        const auto boxes = m_window->findChildren<QComboBox*>();
        for (QComboBox* const box : boxes) {
            if (box->findText("Deutsch") >= 0)
                languages = box;
        }
        if (!languages)
            QFAIL("no box of languages");
        QCOMPARE(languages->count(), 8);
        QCOMPARE(languages->currentText(), "English");
        QSignalSpy ended(m_desk, &DeskSession::penEnded);
        languages->setFocus();
        QTest::keyClick(languages, Qt::Key_D); // "Deutsch"
        QVERIFY(ended.wait());
        QTRY_COMPARE(languages->currentText(), "Deutsch");
        QCOMPARE(m_desk->penRuns(), 2U);
        QVERIFY(QFile::exists(m_test->path("apps/config/config.ini")));
        QTRY_VERIFY(m_test->isLeftLit());
    }

    void keysOnThePenAreClickable()
    {
        QTest::mouseClick(m_test->key(Qt::Key_Down), Qt::LeftButton);
        QTRY_VERIFY(m_test->isRightLit());
    }

    void spaceBarPressesTheFocusedKey()
    {
        m_test->key(Qt::Key_Down)->setFocus();
        QTest::keyClick(m_test->key(Qt::Key_Down), Qt::Key_Space);
        QTRY_VERIFY(m_test->isRightLit());
    }

    void tabReachesEverything()
    {
        QSet<QWidget*> reached;
        for (int i = 0; i < 60; ++i) {
            reached.insert(QApplication::focusWidget());
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        }
        const auto wanted = m_window->findChildren<QWidget*>();
        for (QWidget* const widget : wanted) {
            const bool stop = widget->isVisible() && widget->isEnabled()
                              && (widget->focusPolicy() & Qt::TabFocus) && !widget->focusProxy();
            if (stop && widget->focusPolicy() != Qt::NoFocus)
                QVERIFY2(reached.contains(widget), widget->metaObject()->className());
        }
        QVERIFY(reached.size() >= 18);
    }

    void pageKeepsItsArrowKeys()
    {
        QVERIFY(m_test->layPageForSwipes());
        PageView* const page = &m_test->page();
        page->setFocus();
        QSignalSpy wanted(page, &PageView::lineWanted);
        QTest::keyClick(page, Qt::Key_Down);
        QTest::keyClick(page, Qt::Key_Down);
        QTest::keyClick(page, Qt::Key_Return);
        QCOMPARE(wanted.size(), 1);
        QCOMPARE(wanted[0][0].toInt(), 1);
        QVERIFY(!m_test->isRightLit());
        QTRY_COMPARE(m_desk->swipeReports().size(), 1);
        // Escape still is the pen's.
        QSignalSpy ended(m_desk, &DeskSession::penEnded);
        QTest::keyClick(page, Qt::Key_Escape);
        QVERIFY(ended.wait());
    }

    void aDragIsASwipe()
    {
        QVERIFY(m_test->layPageForSwipes());
        QWidget* const paper = m_test->page().viewport();
        QSignalSpy looks(m_desk, &DeskSession::swipeLooksAt);
        const QPoint start(paper->width() / 4, 150);
        QTest::mousePress(paper, Qt::LeftButton, {}, start);
        QVERIFY(!m_test->page().hasFocus()); // the keys stay with the pen
        for (int x = 10; x <= 200; x += 10) {
            const auto before = looks.size();
            QTest::mouseMove(paper, start + QPoint(x, 0));
            QTRY_VERIFY(looks.size() > before);
        }
        QTest::mouseRelease(paper, Qt::LeftButton, {}, start + QPoint(200, 0));
        QTRY_COMPARE(m_desk->swipeReports().size(), 1);
        QTRY_VERIFY(!m_desk->isSwiping());
        QVERIFY(looks.size() > 5);
        QVERIFY(looks.last()[0].toPointF().x() > looks.first()[0].toPointF().x() + 10.0);
    }

    void aNewPageEndsTheDrag()
    {
        QVERIFY(m_test->layPageForSwipes());
        PageView* const page = &m_test->page();
        QSignalSpy ends(page, &PageView::swipeEnds);
        QSignalSpy moves(page, &PageView::swipeMoves);
        const QPoint start(page->viewport()->width() / 4, 150);
        QTest::mousePress(page->viewport(), Qt::LeftButton, {}, start);
        QTest::mouseMove(page->viewport(), start + QPoint(40, 0));
        QTRY_VERIFY(!moves.isEmpty());
        QVERIFY(ends.isEmpty());
        QVERIFY(m_test->layPageForSwipes());
        QCOMPARE(ends.size(), 1);
        moves.clear();
        QTest::mouseMove(page->viewport(), start + QPoint(80, 0));
        QTest::mouseRelease(page->viewport(), Qt::LeftButton, {}, start + QPoint(80, 0));
        QVERIFY(moves.isEmpty());
        QCOMPARE(ends.size(), 1);
        QTRY_VERIFY(!m_desk->isSwiping());
    }

    void theChooserNamesThePage()
    {
        QVERIFY(m_test->layPageForSwipes());
        auto* const chooser = m_window->findChild<QComboBox*>();
        QCOMPARE(chooser->currentText(), "English");
        QSignalSpy changed(m_desk, &DeskSession::pageChanged);
        PageSource source;
        source.name = "chinese";
        m_desk->pageLoader().load(source);
        QVERIFY(changed.wait(30000));
        QCOMPARE(chooser->currentText(), "Chinese");
        QCOMPARE(chooser->currentData().toString(), "chinese");
    }

    void theCardIsShown()
    {
        auto* const card = m_window->findChild<QPlainTextEdit*>();
        QTRY_COMPARE(card->toPlainText(), "No scan files yet");
        QFile file(m_test->path("mnt/mmc/e_ScanFile/notes.txt"));
        QVERIFY(file.open(QIODevice::WriteOnly));
        QVERIFY(file.write("A line.") > 0);
        file.close();
        QTRY_VERIFY(card->toPlainText().contains("notes.txt (7 bytes)\nA line."));
    }

    void aClickIsNoSwipe()
    {
        QVERIFY(m_test->layPageForSwipes());
        QWidget* const paper = m_test->page().viewport();
        QTest::mouseClick(paper, Qt::LeftButton, {}, QPoint(paper->width() / 2, 150));
        QVERIFY(!m_desk->isSwiping());
    }

    void aDoubleClickSwipesTheLine()
    {
        QVERIFY(m_test->layPageForSwipes());
        PageView* const page = &m_test->page();
        QSignalSpy wanted(page, &PageView::lineWanted);
        // Somewhere below the head of the page stands a line.
        for (int y = 60; y < page->viewport()->height() && wanted.isEmpty(); y += 6)
            QTest::mouseDClick(page->viewport(), Qt::LeftButton, {},
                               QPoint(page->viewport()->width() / 3, y));
        QCOMPARE(wanted.size(), 1);
        QTRY_COMPARE(m_desk->swipeReports().size(), 1);
    }

    void closingLetsThePenSave()
    {
        QSignalSpy ended(m_desk, &DeskSession::penEnded);
        QVERIFY(!m_window->close());
        QVERIFY(ended.wait());
        QVERIFY(ended[0][1].toBool());
        QCOMPARE(m_desk->launcher().log().last().payload, "stop");
        QTRY_VERIFY(!m_window->isVisible());
    }

    void aStoppedPenCanBeStartedAgain()
    {
        QSignalSpy ended(m_desk, &DeskSession::penEnded);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_F8);
        QVERIFY(ended.wait());
        auto* const oled = m_window->findChild<OledView*>();
        QVERIFY(oled->accessibleDescription().contains("crashed"));
        QVERIFY(m_test->button("Start the pen")->isVisible());
        m_test->button("Start the pen")->click();
        QTRY_VERIFY(m_test->isLeftLit());
        QVERIFY(oled->accessibleDescription().isEmpty());
    }

private:
    std::unique_ptr<TestWindow> m_test;
    DeskSession* m_desk = nullptr;
    DeskWindow* m_window = nullptr;
};

QTEST_MAIN(TestDeskWindow)
#include "tst_deskwindow.moc"
