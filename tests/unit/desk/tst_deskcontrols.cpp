#include "desk/desklook.h"
#include "desk/desksession.h"
#include "desk/deskwindow.h"
#include "desk/oledview.h"
#include "desk/pageview.h"
#include "desk/typedialog.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QDragEnterEvent>
#include <QFile>
#include <QLabel>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QSlider>
#include <QTabBar>
#include <QTemporaryDir>
#include <QTest>
#include <QUrl>

/* The controls of the window that adjust the desk, each used once. */
class TestDeskControls : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_root = std::make_unique<QTemporaryDir>();
        QVERIFY(QDir(m_root->path()).mkpath("mnt/mmc/e_ScanFile"));
        DeskSetting setting;
        setting.penProgram = TESTPEN;
        setting.root = m_root->path();
        m_desk = std::make_unique<DeskSession>(setting);
        QVERIFY(m_desk->open());
        m_window = std::make_unique<DeskWindow>(*m_desk);
        m_window->show();
        m_window->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
    }

    void cleanup()
    {
        m_window.reset();
        m_desk.reset();
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
                || widget->window() != m_window.get())
                continue;
            const auto* const button = qobject_cast<const QAbstractButton*>(widget);
            const bool named = !widget->accessibleName().isEmpty()
                               || (button && !button->text().isEmpty())
                               || qobject_cast<const QTabBar*>(widget) || hasBuddy(widget);
            QVERIFY2(named, widget->metaObject()->className());
        }
    }

    void slidersMoveTheHand()
    {
        chooseTab(2);
        auto* const speed = slider("Speed");
        QVERIFY(speed->isVisible());
        speed->setFocus();
        QTest::keyClick(speed, Qt::Key_Right);
        QCOMPARE(m_desk->hand().speedMmPerS, 160.0);
        QCOMPARE(speed->accessibleDescription(), "160 mm/s");
        QTest::keyClick(slider("Tilt"), Qt::Key_Left);
        QCOMPARE(m_desk->hand().tiltDeg, -1.0);
        box("Left hand")->click();
        QVERIFY(m_desk->hand().left);
        button("Usual hand")->click();
        QVERIFY(m_desk->hand() == HandModel());
        HandModel other;
        other.blurPx = 2.0;
        m_desk->setHand(other); // by a script
        QCOMPARE(slider("Blur")->accessibleDescription(), "2.0 px");
    }

    void theCardAndTheMemory()
    {
        button("Card out")->click();
        QVERIFY(m_desk->storage().isCardOut());
        QVERIFY(!QFile::exists(m_root->filePath("mnt/mmc")));
        button("Card out")->click();
        QVERIFY(QFile::exists(m_root->filePath("mnt/mmc/e_ScanFile")));
        button("Memory full")->click();
        QVERIFY(m_desk->storage().isFull());
        QVERIFY(m_desk->storage().setFull(false));
        QVERIFY(!button("Memory full")->isChecked());
        QVERIFY(m_window->recorder().script().contains(
            "card out\ncard in\nstorage full\nstorage free\n"));
    }

    void aTypedTextBecomesThePage()
    {
        QTest::keyClick(m_window.get(), Qt::Key_T, Qt::ControlModifier);
        auto* const dialog = m_window->findChild<TypeDialog*>();
        QVERIFY(dialog && dialog->isVisible());
        QSignalSpy laid(m_desk.get(), &DeskSession::pageChanged);
        dialog->findChild<QPlainTextEdit*>()->setPlainText("Own words\nin two lines");
        QVERIFY(laid.wait(20000));
        QCOMPARE(m_desk->page().lines.size(), 2);
        const double width = m_desk->page().lines[0].mm.width();
        dialog->findChild<QDoubleSpinBox*>()->setValue(24.0);
        QVERIFY(laid.wait(20000));
        QVERIFY(m_desk->page().lines[0].mm.width() > width * 1.9);
        QVERIFY(m_window->memory().page == dialog->source());
    }

    void aDroppedPictureBecomesThePage()
    {
        QImage picture(300, 200, QImage::Format_Grayscale8);
        picture.fill(Qt::white);
        const QString path = m_root->filePath("dropped.png");
        QVERIFY(picture.save(path));
        QSignalSpy laid(m_desk.get(), &DeskSession::pageChanged);
        QVERIFY(drop(path));
        QVERIFY(laid.wait(20000));
        QCOMPARE(m_desk->page().name, "dropped.png");
        QVERIFY(!drop(m_root->filePath("notes.xyz")));
    }

    void aPageThatCannotBeReadIsTold()
    {
        const QString path = m_root->filePath("bad.pdf");
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write("no PDF") > 0);
        file.close();
        QSignalSpy failed(m_desk.get(), &DeskSession::pageFailed);
        QVERIFY(drop(path));
        QVERIFY(failed.wait(20000));
        QVERIFY(failed[0][0].toString().contains("bad.pdf is no PDF file"));
    }

    void darkAndBack()
    {
        box("Dark desk")->click();
        QVERIFY(desklook::isDark());
        QVERIFY(m_window->picture().pixelColor(3, 3).lightness() < 60);
        QCOMPARE(m_window->memory().dark, std::optional<bool>(true));
        box("Dark desk")->click();
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
            const QRect place(each->mapTo(m_window.get(), QPoint(0, 0)), each->size());
            QVERIFY2(m_window->rect().contains(place), qPrintable(each->text()));
            const QRect glass(display->mapTo(m_window.get(), QPoint(0, 0)), display->size());
            QVERIFY2(!glass.intersects(place), qPrintable(each->text()));
        }
        QVERIFY(m_window->findChild<PageView*>()->height() >= 120);
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
    static QString plain(QString text) { return text.remove('&'); }

    bool hasBuddy(const QWidget* widget) const
    {
        for (const QLabel* const label : m_window->findChildren<QLabel*>()) {
            if (label->buddy() == widget)
                return true;
        }
        return false;
    }

    QPushButton* button(const QString& text) const
    {
        for (QPushButton* const each : m_window->findChildren<QPushButton*>()) {
            if (plain(each->text()) == text)
                return each;
        }
        return nullptr;
    }

    QCheckBox* box(const QString& text) const
    {
        for (QCheckBox* const each : m_window->findChildren<QCheckBox*>()) {
            if (plain(each->text()) == text)
                return each;
        }
        return nullptr;
    }

    QSlider* slider(const QString& name) const
    {
        for (QSlider* const each : m_window->findChildren<QSlider*>()) {
            if (each->accessibleName() == name)
                return each;
        }
        return nullptr;
    }

    void chooseTab(int tab) { m_window->findChild<QTabBar*>()->setCurrentIndex(tab); }

    /* Whether the window takes a file that is dropped on it. */
    bool drop(const QString& path)
    {
        QMimeData data;
        data.setUrls({QUrl::fromLocalFile(path)});
        QDragEnterEvent enter(QPoint(200, 200), Qt::CopyAction, &data, Qt::LeftButton, {});
        enter.setAccepted(false);
        QApplication::sendEvent(m_window.get(), &enter);
        if (!enter.isAccepted())
            return false;
        QDropEvent event(QPointF(200, 200), Qt::CopyAction, &data, Qt::LeftButton, {});
        QApplication::sendEvent(m_window.get(), &event);
        return true;
    }

    std::unique_ptr<QTemporaryDir> m_root;
    std::unique_ptr<DeskSession> m_desk;
    std::unique_ptr<DeskWindow> m_window;
};

QTEST_MAIN(TestDeskControls)
#include "tst_deskcontrols.moc"
