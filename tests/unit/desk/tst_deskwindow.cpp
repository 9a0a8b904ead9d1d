#include "testwindow.h"

#include "desk/captionview.h"
#include "desk/desklook.h"
#include "desk/keybutton.h"
#include "desk/oledview.h"
#include "desk/pageview.h"

#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>
#include <QWheelEvent>

/* The window with mouse and keyboard, against a process that stands for the pen. */
class TestDeskWindow : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { QApplication::setAttribute(Qt::AA_DontUseNativeDialogs); }

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

    void endAndWheelMoveThePage()
    {
        QVERIFY(m_test->layPage(PageLoader::named("english")));
        PageView& page = m_test->page();
        QScrollBar* const bar = page.verticalScrollBar();
        page.setFocus();
        QTest::keyClick(&page, Qt::Key_End);
        QVERIFY(bar->value() > 0);
        QSignalSpy wanted(&page, &PageView::lineWanted);
        QTest::keyClick(&page, Qt::Key_Return);
        QCOMPARE(wanted.constLast()[0].toInt(), int(m_desk->page().lines.size()) - 1);
        QTest::keyClick(&page, Qt::Key_Home);
        QTest::keyClick(&page, Qt::Key_Return);
        QCOMPARE(wanted.constLast()[0].toInt(), 0);
        bar->setValue(0);
        const QPointF middle = page.viewport()->rect().center();
        QWheelEvent wheel(middle, page.viewport()->mapToGlobal(middle), {}, {0, -120}, {}, {},
                          Qt::NoScrollPhase, false);
        QApplication::sendEvent(page.viewport(), &wheel);
        QVERIFY(bar->value() > 0);
    }

    void theCaptionShowsWhatIsSaid()
    {
        auto* const caption = m_window->findChild<CaptionView*>();
        const QImage before = caption->grab().toImage();
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Down);
        QTRY_COMPARE(caption->accessibleDescription(), "Second half");
        QTRY_VERIFY(!m_desk->transcript().isSpeaking());
        QVERIFY(caption->grab().toImage() != before);
    }

    void aSwipeWithoutCameraIsExplained()
    {
        QVERIFY(m_test->layPageForSwipes());
        QSignalSpy ended(m_desk, &DeskSession::penEnded);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
        QVERIFY(ended.wait());
        QTRY_VERIFY(!m_desk->link().isCameraOn());
        m_test->page().setFocus();
        QTest::keyClick(&m_test->page(), Qt::Key_Down);
        QTest::keyClick(&m_test->page(), Qt::Key_Return);
        auto* const status = m_window->findChild<QLabel*>("status");
        QVERIFY2(status->text().contains("start it first"), qPrintable(status->text()));
        QVERIFY(status->property("alarm").toBool());
        QCOMPARE(status->palette().color(QPalette::WindowText), desklook::colours().alarm);
    }

    void helpAndFocusByKey()
    {
        QTest::keyClick(m_window, Qt::Key_F6);
        QVERIFY(m_test->page().hasFocus());
        QTest::keyClick(m_window, Qt::Key_F6);
        QVERIFY(m_window->findChild<OledView*>()->hasFocus());
        QTest::keyClick(m_window, Qt::Key_F1);
        auto* const help = m_window->findChild<QMessageBox*>();
        if (!help)
            QFAIL("no help");
        QVERIFY(help->isVisible());
        QVERIFY(help->text().contains("F6"));
        help->button(QMessageBox::Close)->click();
        QTRY_VERIFY(!m_window->findChild<QMessageBox*>());
        m_test->button("?")->click();
        QVERIFY(m_window->findChild<QMessageBox*>());
    }

    void aFileIsOpenedByKey()
    {
        QImage picture(300, 200, QImage::Format_Grayscale8);
        picture.fill(Qt::white);
        QVERIFY(picture.save(m_test->path("opened.png")));
        QSignalSpy laid(m_desk, &DeskSession::pageChanged);
        QTest::keyClick(m_window, Qt::Key_O, Qt::ControlModifier);
        QVERIFY(chooseFile("opened.png"));
        QTRY_COMPARE_WITH_TIMEOUT(laid.size(), 1, 30000);
        QCOMPARE(m_desk->page().name, "opened.png");
    }

    void aScriptIsSavedAndPlayed()
    {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Down);
        QTRY_VERIFY(m_test->isRightLit());
        QTRY_VERIFY(!m_desk->transcript().isSpeaking());
        const QString script = m_window->recorder().script();
        QVERIFY(script.contains("key Down"));
        QTest::keyClick(m_window, Qt::Key_S, Qt::ControlModifier);
        QVERIFY(chooseFile("done.desk"));
        QFile saved(m_test->path("done.desk"));
        QVERIFY(saved.open(QIODevice::ReadOnly));
        QCOMPARE(QString::fromUtf8(saved.readAll()), script);
        auto* const status = m_window->findChild<QLabel*>("status");
        QVERIFY(status->text().startsWith("Saved as "));

        QTest::keyClick(m_window, Qt::Key_R, Qt::ControlModifier);
        QVERIFY(chooseFile("done.desk"));
        QVERIFY(m_test->button("Stop playing"));
        QTRY_COMPARE_WITH_TIMEOUT(status->text(), "done.desk was played to its end", 30000);
        QCOMPARE(m_desk->penRuns(), 2U);
        QVERIFY(m_test->isRightLit()); // the key was pressed again
        QVERIFY(!m_test->button("Stop playing"));
    }

    void aScriptThatPlaysIsStopped()
    {
        QFile endless(m_test->path("endless.desk"));
        QVERIFY(endless.open(QIODevice::WriteOnly) && endless.write("wait spoken nonsense\n") > 0);
        endless.close();
        m_test->tabs().setCurrentIndex(3);
        m_test->button("Play...")->click();
        QVERIFY(chooseFile("endless.desk"));
        QTRY_COMPARE(m_desk->penRuns(), 2U);
        QTRY_VERIFY(m_test->isLeftLit());
        m_test->button("Stop playing")->click();
        auto* const status = m_window->findChild<QLabel*>("status");
        QTRY_VERIFY(status->text().startsWith("endless.desk ended early"));
        QVERIFY(m_test->button("Play..."));
        QVERIFY(m_desk->pen().isRunning()); // goes on by hand
        QVERIFY(endless.open(QIODevice::WriteOnly) && endless.write("no command\n") > 0);
        endless.close();
        m_test->button("Play...")->click();
        QVERIFY(chooseFile("endless.desk"));
        QVERIFY2(status->text().contains("line 1"), qPrintable(status->text()));
        QCOMPARE(m_desk->penRuns(), 2U);
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
    /* Gives the file dialog that is open a name in the run root. */
    bool chooseFile(const QString& name)
    {
        auto* const dialog = m_window->findChild<QFileDialog*>();
        if (!dialog || !dialog->isVisible())
            return false;
        dialog->findChild<QLineEdit*>("fileNameEdit")->setText(m_test->path(name));
        static_cast<QDialog*>(dialog)->accept();
        return QTest::qWaitFor([this] { return !m_window->findChild<QFileDialog*>(); })
               && m_test->activate();
    }

    std::unique_ptr<TestWindow> m_test;
    DeskSession* m_desk = nullptr;
    DeskWindow* m_window = nullptr;
};

QTEST_MAIN(TestDeskWindow)
#include "tst_deskwindow.moc"
