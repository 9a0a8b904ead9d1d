#include "app/widgetchange.h"

#include <QTest>

namespace {

// Notes in which order a screen is hidden, disabled and so on.
class Screen : public QWidget
{
public:
    explicit Screen(QStringList& log, const QString& name, QWidget* parent)
        : QWidget(parent), m_log(log)
    {
        setObjectName(name);
        setFocusPolicy(Qt::StrongFocus);
        hide();
    }

protected:
    void changeEvent(QEvent* event) override
    {
        if (event->type() == QEvent::EnabledChange)
            note(isEnabled() ? QStringLiteral("enabled") : QStringLiteral("disabled"));
    }
    void showEvent(QShowEvent*) override { note(QStringLiteral("shown")); }
    void hideEvent(QHideEvent*) override { note(QStringLiteral("hidden")); }
    void focusInEvent(QFocusEvent* event) override
    {
        note(event->reason() == Qt::OtherFocusReason ? QStringLiteral("focused")
                                                     : QStringLiteral("focused oddly"));
    }

private:
    void note(const QString& what) { m_log.append(objectName() + u' ' + what); }

    QStringList& m_log;
};

} // namespace

class TestWidgetChange : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void firstSwitchJustShows();
    void oldScreenLeavesBeforeNewOneComes();
    void switchWithFromRemembersIt();
    void nullTargetLeavesCurrentRecorded();
    void backFromNothingDoesNothing();
    void backLeadsToTheGivenScreen();
    void deletedScreenIsForgotten();

private:
    std::unique_ptr<QWidget> m_window;
    QStringList m_log;
    Screen* m_a = nullptr;
    Screen* m_b = nullptr;
};

void TestWidgetChange::init()
{
    m_window = std::make_unique<QWidget>();
    m_a = new Screen(m_log, QStringLiteral("a"), m_window.get());
    m_b = new Screen(m_log, QStringLiteral("b"), m_window.get());
    m_b->setEnabled(false);
    m_window->show();
    m_window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
    m_log.clear();
}

void TestWidgetChange::cleanup()
{
    WidgetChange::quitFun();
    WidgetChange::myChange = nullptr;
    m_window.reset();
    m_log.clear();
}

void TestWidgetChange::firstSwitchJustShows()
{
    QCOMPARE(WidgetChange::Instance()->getCurWidget(), nullptr);
    WidgetChange::Instance()->Go2NewWidget(m_b);
    QCOMPARE(m_log, (QStringList{"b enabled", "b shown", "b focused"}));
    QCOMPARE(WidgetChange::Instance()->getCurWidget(), m_b);
}

void TestWidgetChange::oldScreenLeavesBeforeNewOneComes()
{
    WidgetChange::Instance()->Go2NewWidget(m_a);
    m_log.clear();
    WidgetChange::Instance()->Go2NewWidget(m_b);
    QCOMPARE(m_log, (QStringList{"a hidden", "a disabled", "b enabled", "b shown", "b focused"}));
}

void TestWidgetChange::switchWithFromRemembersIt()
{
    WidgetChange::Instance()->Go2NewWidget(m_a);
    WidgetChange::Instance()->Go2NewWidget(m_a, m_b);
    QCOMPARE(WidgetChange::Instance()->getCurWidget(), m_b);
    QVERIFY(m_a->isHidden() && !m_a->isEnabled());
    QVERIFY(m_b->isVisible() && m_b->isEnabled());
}

void TestWidgetChange::nullTargetLeavesCurrentRecorded()
{
    WidgetChange::Instance()->Go2NewWidget(m_a);
    WidgetChange::Instance()->Go2NewWidget(m_a, nullptr);
    QVERIFY(m_a->isHidden());
    QCOMPARE(WidgetChange::Instance()->getCurWidget(), m_a);
}

void TestWidgetChange::backFromNothingDoesNothing()
{
    WidgetChange::Instance()->Go2NewWidget(m_a);
    m_log.clear();
    WidgetChange::Instance()->Go2PrevWidget(nullptr, m_b);
    QVERIFY(m_log.isEmpty());
    QCOMPARE(WidgetChange::Instance()->getCurWidget(), m_a);
}

void TestWidgetChange::backLeadsToTheGivenScreen()
{
    WidgetChange::Instance()->Go2NewWidget(m_a);
    WidgetChange::Instance()->Go2NewWidget(m_b);
    m_log.clear();
    WidgetChange::Instance()->Go2PrevWidget(m_b, m_a);
    QCOMPARE(m_log, (QStringList{"b hidden", "b disabled", "a enabled", "a shown", "a focused"}));
    QCOMPARE(WidgetChange::Instance()->getCurWidget(), m_a);
}

void TestWidgetChange::deletedScreenIsForgotten()
{
    WidgetChange::Instance()->Go2NewWidget(m_a);
    delete m_a;
    QCOMPARE(WidgetChange::Instance()->getCurWidget(), nullptr);
    WidgetChange::Instance()->Go2NewWidget(m_b);
    QVERIFY(m_b->isVisible());
}

QTEST_MAIN(TestWidgetChange)
#include "tst_widgetchange.moc"
