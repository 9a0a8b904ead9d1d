#include "testwindow.h"
#include "twosheets.h"

#include "desk/desklook.h"
#include "desk/oledview.h"
#include "desk/pageview.h"
#include "desk/typedialog.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QDoubleSpinBox>
#include <QFile>
#include <QFontComboBox>
#include <QLabel>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QSpinBox>
#include <QTabBar>
#include <QTest>
#include <utility>

/* The controls of the window that adjust the desk, each used once. */
class TestDeskControls : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_test = std::make_unique<TestWindow>();
        m_desk = &m_test->session();
        QVERIFY(m_test->show());
        m_window = &m_test->window();
    }

    void cleanup()
    {
        m_test.reset();
        desklook::apply(false);
    }

    void everyLetterIsUsedOnce()
    {
        QMap<QKeySequence, QString> used;
        const auto take = [&used](const QString& text) {
            const QKeySequence letter = QKeySequence::mnemonic(text);
            if (letter.isEmpty())
                return true;
            const bool fresh = !used.contains(letter);
            if (!fresh)
                qWarning() << text << "and" << used.value(letter);
            used.insert(letter, text);
            return fresh;
        };
        for (const QAbstractButton* const button : m_window->findChildren<QAbstractButton*>())
            QVERIFY(take(button->text()));
        for (const QLabel* const label : m_window->findChildren<QLabel*>())
            QVERIFY(!label->buddy() || take(label->text()));
        const auto* const tabs = m_window->findChild<QTabBar*>();
        for (int i = 0; i < tabs->count(); ++i)
            QVERIFY(take(tabs->tabText(i)));
        QVERIFY(used.size() > 10);
    }

    void everythingHasAName()
    {
        for (const QWidget* const widget : m_window->findChildren<QWidget*>()) {
            // The lists of combo boxes are windows of their own.
            if (!(widget->focusPolicy() & Qt::TabFocus) || widget->focusProxy()
                || widget->window() != m_window)
                continue;
            const auto* const button = qobject_cast<const QAbstractButton*>(widget);
            const bool named = !widget->accessibleName().isEmpty()
                               || (button && !button->text().isEmpty())
                               || qobject_cast<const QTabBar*>(widget) || hasBuddy(widget);
            QVERIFY2(named, widget->metaObject()->className());
        }
    }

    void switchesReachThePen()
    {
        QVERIFY(m_test->startPen());
        const auto click = [this](const char* text) {
            QTest::mouseClick(m_test->button(text), Qt::LeftButton);
            return m_desk->launcher().log().constLast();
        };
        QCOMPARE(click("USB cable").payload, "plug");
        QVERIFY(m_desk->launcher().isUsbPlugged());
        QCOMPARE(click("USB cable").payload, "delete");
        QVERIFY(!m_desk->launcher().isUsbPlugged());
        QVERIFY(click("Power key").delivered);
        QCOMPARE(click("Save").payload, "save");
        auto* const messages = m_window->findChild<QListWidget*>();
        QCOMPARE(messages->count(), int(m_desk->launcher().log().size()));
        QVERIFY(messages->item(messages->count() - 1)
                    ->text()
                    .endsWith(u"\u2192  execute(QString)  save"));
        QSignalSpy ended(m_desk, &DeskSession::penEnded);
        QCOMPARE(click("Stop").payload, "stop");
        QVERIFY(ended.wait());
        QVERIFY(ended[0][1].toBool());
        for (const char* text : {"USB cable", "Power key", "Save", "Stop"})
            QVERIFY2(!m_test->button(text)->isEnabled(), text);
    }

    void theCardAndTheMemory()
    {
        m_test->button("Card out")->click();
        QVERIFY(m_desk->storage().isCardOut());
        QVERIFY(!QFile::exists(m_test->path("mnt/mmc")));
        m_test->button("Card out")->click();
        QVERIFY(QFile::exists(m_test->path("mnt/mmc/e_ScanFile")));
        m_test->button("Memory full")->click();
        QVERIFY(m_desk->storage().isFull());
        QVERIFY(m_desk->storage().setFull(false));
        QVERIFY(!m_test->button("Memory full")->isChecked());
        QVERIFY(m_window->recorder().script().contains(
            "card out\ncard in\nstorage full\nstorage free\n"));
    }

    void aTypedTextBecomesThePage()
    {
        QTest::keyClick(m_window, Qt::Key_T, Qt::ControlModifier);
        auto* const dialog = m_window->findChild<TypeDialog*>();
        QVERIFY(dialog && dialog->isVisible());
        QSignalSpy laid(m_desk, &DeskSession::pageChanged);
        dialog->findChild<QPlainTextEdit*>()->setPlainText("Own words\nin two lines");
        QVERIFY(laid.wait(20000));
        QCOMPARE(m_desk->page().lines.size(), 2);
        const double width = m_desk->page().lines[0].mm.width();
        dialog->findChild<QDoubleSpinBox*>()->setValue(24.0);
        QVERIFY(laid.wait(20000));
        QVERIFY(m_desk->page().lines[0].mm.width() > width * 1.9);
        QVERIFY(m_window->memory().page == dialog->source());
    }

    void aTypedTextIsInItsLanguage()
    {
        m_test->button("Type...")->click();
        auto* const dialog = m_window->findChild<TypeDialog*>();
        QVERIFY(dialog);
        QSignalSpy laid(m_desk, &DeskSession::pageChanged);
        dialog->findChild<QPlainTextEdit*>()->setPlainText("\u5c71\u6c34");
        auto* const language = dialog->findChild<QComboBox*>();
        language->setCurrentIndex(language->findData("zh"));
        const QString family = dialog->findChild<QFontComboBox*>()->currentFont().family();
        QTRY_COMPARE_WITH_TIMEOUT(m_desk->page().language, "zh", 20000);
        QCOMPARE(m_window->memory().page.family, family);
        dialog->findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Close)->click();
        QTRY_VERIFY(!m_window->findChild<TypeDialog*>());
        // It begins with what is on the desk.
        m_test->button("Type...")->click();
        QCOMPARE(m_window->findChild<TypeDialog*>()->source().text, "\u5c71\u6c34");
        QCOMPARE(m_window->findChild<TypeDialog*>()->source().language, "zh");
    }

    void theChooserLaysAPage()
    {
        auto* const chooser = m_window->findChild<QComboBox*>();
        chooser->setFocus();
        QSignalSpy laid(m_desk, &DeskSession::pageChanged);
        QTest::keyClick(chooser, Qt::Key_R); // "Russian"
        QVERIFY(laid.wait(30000));
        QCOMPARE(m_desk->page().language, "ru");
    }

    void sheetsOfAPdfFile()
    {
        auto* const sheet = m_window->findChild<QSpinBox*>();
        QVERIFY(!sheet->isVisible());
        const QString path = m_test->path("two sheets.pdf");
        writeTwoSheets(path);
        QSignalSpy laid(m_desk, &DeskSession::pageChanged);
        QVERIFY(m_test->drop(path));
        QVERIFY(laid.wait(30000));
        QVERIFY(sheet->isVisible());
        QCOMPARE(sheet->text(), "Sheet 1 of 2");
        QCOMPARE(m_desk->page().lines.size(), 1);
        sheet->setFocus();
        QTest::keyClick(sheet, Qt::Key_Up);
        QVERIFY(laid.wait(30000));
        QCOMPARE(sheet->text(), "Sheet 2 of 2");
        QCOMPARE(m_desk->page().lines.size(), 2);
    }

    void theRulerKeepsTheHandOnItsLine()
    {
        QVERIFY(m_test->layPage(PageLoader::named("english")));
        QWidget* const paper = m_test->page().viewport();
        QPoint start(paper->width() / 4, 60);
        QSignalSpy wanted(&m_test->page(), &PageView::lineWanted);
        for (; start.y() < paper->height() && wanted.isEmpty(); start += QPoint(0, 6))
            QTest::mouseDClick(paper, Qt::LeftButton, {}, start);
        QCOMPARE(wanted.size(), 1); // a line is there
        const auto heights = [this, paper, start] {
            QSignalSpy moves(&m_test->page(), &PageView::swipeMoves);
            QTest::mousePress(paper, Qt::LeftButton, {}, start);
            QTest::mouseMove(paper, start + QPoint(60, 0));
            QTest::mouseMove(paper, start + QPoint(120, 30));
            QTest::mouseRelease(paper, Qt::LeftButton, {}, start + QPoint(120, 30));
            QSet<double> seen;
            for (const QList<QVariant>& move : std::as_const(moves))
                seen.insert(move[0].toPointF().y());
            return seen.size();
        };
        QCOMPARE(heights(), 1);
        m_test->button("Ruler")->click();
        QVERIFY(heights() > 1);
    }

    void aDroppedPictureBecomesThePage()
    {
        QImage picture(300, 200, QImage::Format_Grayscale8);
        picture.fill(Qt::white);
        const QString path = m_test->path("dropped.png");
        QVERIFY(picture.save(path));
        QSignalSpy laid(m_desk, &DeskSession::pageChanged);
        QVERIFY(m_test->drop(path));
        QVERIFY(laid.wait(20000));
        QCOMPARE(m_desk->page().name, "dropped.png");
        QVERIFY(!m_test->drop(m_test->path("notes.xyz")));
    }

    void aSwipeWithoutCameraIsToldOnThePage()
    {
        auto* const page = m_window->findChild<PageView*>();
        QSignalSpy laid(m_desk, &DeskSession::pageChanged);
        m_desk->pageLoader().load(PageLoader::named("english"));
        QVERIFY(laid.wait(20000));
        page->setFocus();
        QTest::keyClick(page, Qt::Key_Down);
        const QImage before = page->grab().toImage();
        QTest::keyClick(page, Qt::Key_Return);
        QTRY_COMPARE(page->outcome(), "The pen is off: start it first");
        QVERIFY(page->grab().toImage() != before);
        m_desk->pageLoader().load(PageLoader::named("german"));
        QVERIFY(laid.wait(20000));
        QCOMPARE(page->outcome(), QString()); // it was about another page
    }

    void aPageIsSeenAtOnce()
    {
        PrintedPage sheet;
        sheet.image = QImage(1000, 1000, QImage::Format_Grayscale8);
        sheet.image.fill(Qt::black);
        sheet.dpi = 150.0;
        PageView page;
        page.resize(600, 600);
        page.setPage(sheet);
        QVERIFY(page.grab().toImage().pixelColor(300, 300).lightness() < 10);
    }

    void thePenLeansTowardsItsHand()
    {
        PrintedPage sheet;
        sheet.image = QImage(1000, 1000, QImage::Format_Grayscale8);
        sheet.image.fill(Qt::white);
        sheet.dpi = 150.0;
        PageView page;
        page.resize(900, 900);
        page.setPage(sheet);
        const QPointF mm(80.0, 60.0);
        const auto isDark = [&](double x) {
            const QPoint at = page.toViewport({mm + QPointF(x, 9.0), QSizeF()}).topLeft().toPoint();
            return page.viewport()->grab().toImage().pixelColor(at).lightness() < 120;
        };
        QVERIFY(!isDark(6.0) && !isDark(-6.0));
        page.showCamera(mm, 0.0);
        QVERIFY(isDark(6.0) && !isDark(-6.0));
        page.setLeftHand(true);
        QVERIFY(!isDark(6.0) && isDark(-6.0));
        page.hideCamera();
        QVERIFY(!isDark(6.0) && !isDark(-6.0));
    }

    void aPageThatCannotBeReadIsTold()
    {
        const QString path = m_test->path("bad.pdf");
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write("no PDF") > 0);
        file.close();
        QSignalSpy failed(m_desk, &DeskSession::pageFailed);
        QVERIFY(m_test->drop(path));
        QVERIFY(failed.wait(20000));
        QVERIFY(failed[0][0].toString().contains("bad.pdf is no PDF file"));
        const auto* const chooser = m_window->findChild<QComboBox*>();
        QCOMPARE(chooser->currentIndex(), -1); // no sample lies there
        QCOMPARE(chooser->placeholderText(), "bad.pdf");
    }

    void darkAndBack()
    {
        m_test->button("Dark desk")->click();
        QVERIFY(desklook::isDark());
        QVERIFY(m_window->picture().pixelColor(3, 3).lightness() < 60);
        QCOMPARE(m_window->memory().dark, std::optional<bool>(true));
        m_test->button("Dark desk")->click();
        QVERIFY(m_window->picture().pixelColor(3, 3).lightness() > 200);
    }

    void fitsSmallAndLargeScreens_data()
    {
        QTest::addColumn<QSize>("size");
        QTest::addColumn<int>("factor");
        QTest::newRow("netbook") << QSize(1024, 600) << 2;
        QTest::newRow("laptop") << QSize(1366, 740) << 3;
        QTest::newRow("usual") << QSize(1240, 980) << 4;
    }

    void fitsSmallAndLargeScreens()
    {
        QFETCH(QSize, size);
        m_window->resize(size);
        QTRY_COMPARE(m_window->size(), size);
        auto* const display = m_window->findChild<OledView*>();
        QTRY_COMPARE(display->factor(), [] {
            QFETCH(int, factor);
            return factor;
        }());
        QApplication::processEvents();
        // Nothing covers the keys, nothing sticks out.
        for (const QAbstractButton* const each : m_window->findChildren<QAbstractButton*>()) {
            if (!each->isVisible() || each->text().isEmpty())
                continue;
            const QRect place(each->mapTo(m_window, QPoint(0, 0)), each->size());
            QVERIFY2(m_window->rect().contains(place), qPrintable(each->text()));
            const QRect glass(display->mapTo(m_window, QPoint(0, 0)), display->size());
            QVERIFY2(!glass.intersects(place), qPrintable(each->text()));
        }
        QVERIFY(m_test->page().height() >= 120);
    }

    void whatWasRememberedIsThereAgain()
    {
        DeskMemory memory;
        memory.ruler = false;
        memory.dark = true;
        memory.hand.wobbleMm = 0.5;
        memory.tab = 3;
        m_window->recall(memory);
        const DeskMemory now = m_window->memory();
        QCOMPARE(now.ruler, false);
        QCOMPARE(now.dark, memory.dark);
        QVERIFY(now.hand == memory.hand);
        QCOMPARE(now.tab, 3);
    }

private:
    bool hasBuddy(const QWidget* widget) const
    {
        for (const QLabel* const label : m_window->findChildren<QLabel*>()) {
            if (label->buddy() == widget)
                return true;
        }
        return false;
    }

    std::unique_ptr<TestWindow> m_test;
    DeskSession* m_desk = nullptr;
    DeskWindow* m_window = nullptr;
};

QTEST_MAIN(TestDeskControls)
#include "tst_deskcontrols.moc"
