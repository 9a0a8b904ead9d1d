#include "desk/deskwindow.h"

#include "desk/desksession.h"
#include "desk/pageview.h"

#include <QCheckBox>
#include <QDir>
#include <QProcess>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

/* Drags of the mouse over the page, with the hand as it is at first, read by the pen itself. */
class TestDeskDrag : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        QVERIFY(m_folder.isValid());
        DeskSetting setting;
        setting.penProgram = PEN;
        setting.root = m_folder.filePath("pen");
        setting.wav = m_folder.filePath("speech.wav");
        QCOMPARE(QProcess::execute(SWIPELINE_SOURCE_DIR "/scripts/make-run-root", {setting.root}),
                 0);
        m_desk = std::make_unique<DeskSession>(setting);
        QVERIFY(m_desk->open());
        m_window = std::make_unique<DeskWindow>(*m_desk);
        m_window->show();
        QVERIFY(QTest::qWaitForWindowExposed(m_window.get()));
        m_page = m_window->findChild<PageView*>();
        QSignalSpy laid(m_desk.get(), &DeskSession::pageChanged);
        m_desk->pageLoader().load(PageLoader::named("english"));
        QVERIFY(laid.wait(30000));
        m_desk->startPen();
        QTRY_VERIFY_WITH_TIMEOUT(m_desk->hasWindow() && m_desk->transcript().contains("New file"),
                                 30000);
        m_desk->sendKey(Qt::Key_Return, true); // a new file
        m_desk->sendKey(Qt::Key_Return, false);
        QTRY_VERIFY_WITH_TIMEOUT(m_desk->link().isCameraOn(), 30000);
    }

    void cleanupTestCase()
    {
        m_window.reset();
        m_desk.reset();
    }

    void aDragIsRead_data()
    {
        QTest::addColumn<bool>("ruler");
        QTest::addColumn<int>("line");
        QTest::newRow("along the ruler") << true << 1;
        QTest::newRow("by hand") << false << 2;
    }

    void aDragIsRead()
    {
        QFETCH(bool, ruler);
        QFETCH(int, line);
        for (QCheckBox* const box : m_window->findChildren<QCheckBox*>()) {
            if (QString(box->text()).remove('&') == "Ruler")
                box->setChecked(ruler);
        }
        const QString text = m_desk->page().lines.at(line).text;
        drag(m_desk->page().wayOver(line));
        QTRY_VERIFY_WITH_TIMEOUT(m_desk->transcript().contains(text), 30000);
    }

    void aDragBesideThePrintIsTold()
    {
        drag(QLineF(20.0, 5.0, 90.0, 5.0));
        QTRY_COMPARE_WITH_TIMEOUT(m_page->outcome(), "No print was found under the pen", 30000);
    }

private:
    /* Drags as a mouse does: from pixel to pixel, at the pace of the camera's pictures. */
    void drag(const QLineF& mm)
    {
        QWidget* const paper = m_page->viewport();
        const QPoint from = m_page->toViewport({mm.p1(), QSizeF()}).topLeft().toPoint();
        const QPoint to = m_page->toViewport({mm.p2(), QSizeF()}).topLeft().toPoint();
        QVERIFY(paper->rect().contains(from) && paper->rect().contains(to));
        QSignalSpy looks(m_desk.get(), &DeskSession::swipeLooksAt);
        QTest::mousePress(paper, Qt::LeftButton, {}, from);
        for (QPoint at = from; at.x() < to.x(); at.rx() += StepPixels) {
            const auto seen = looks.size();
            QTest::mouseMove(paper, at);
            QTRY_VERIFY(looks.size() > seen || at == from);
        }
        QTest::mouseRelease(paper, Qt::LeftButton, {}, to);
    }

    static constexpr int StepPixels = 4;

    QTemporaryDir m_folder;
    std::unique_ptr<DeskSession> m_desk;
    std::unique_ptr<DeskWindow> m_window;
    PageView* m_page = nullptr;
};

QTEST_MAIN(TestDeskDrag)
#include "tst_deskdrag.moc"
