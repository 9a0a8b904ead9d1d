#include "tests/unit/widgets/pagefixture.h"
#include "widgets/announcer.h"
#include "widgets/comboboxborder.h"
#include "widgets/messagewidget.h"

#include <QApplication>
#include <QLabel>
#include <QMouseEvent>
#include <QPointer>
#include <QSignalSpy>
#include <QStringList>

/* The message that stays, the combo box with a border, and who speaks messages. */
class TestMessageWidget : public QObject
{
    Q_OBJECT

private slots:
    void cleanup();

    void labelCoversTheScreen();
    void titleReplacesTheText();
    void longTitleEndsWithAnEllipsis();
    void escapeAndEnterAreTold();
    void otherKeysAreIgnored();
    void goesBackToThePreviousWidget();
    void staysWithoutAPreviousWidget();
    void slotMayDeleteTheWidget();
    void isSpokenWhenShown();

    void borderIsDrawnRoundTheComboBox();
    void comboBoxIgnoresMousePresses();
};

namespace {

const QString Text = QStringLiteral("Text");

struct Fixture : PageFixture<QWidget>
{
    Fixture() : message(new MessageWidget(Text, &window)) {}

    void showMessage()
    {
        window.show();
        WidgetChange::Instance()->Go2NewWidget(message);
    }

    QLabel* label() const { return message->findChild<QLabel*>(QStringLiteral("label")); }

    MessageWidget* message; // owned by the window
};

} // namespace

void TestMessageWidget::cleanup()
{
    announcer::setSpeaker(nullptr);
}

void TestMessageWidget::labelCoversTheScreen()
{
    const Fixture f;
    QCOMPARE(f.message->objectName(), QStringLiteral("MessageWidget"));
    QVERIFY(f.label());
    QCOMPARE(f.label()->geometry(), QRect(0, 0, 256, 64));
    QCOMPARE(f.label()->alignment(), Qt::AlignHCenter | Qt::AlignVCenter);
    QCOMPARE(f.label()->textFormat(), Qt::PlainText);
    QCOMPARE(f.label()->text(), Text);
}

void TestMessageWidget::titleReplacesTheText()
{
    const Fixture f;
    QString title = QStringLiteral("<b>Other</b>");
    f.message->setTitle(title);
    QCOMPARE(f.label()->text(), title);
    f.message->setTitle(QString());
    QCOMPARE(f.label()->text(), QString());
}

void TestMessageWidget::longTitleEndsWithAnEllipsis()
{
    const Fixture f;
    f.message->setTitle(QStringLiteral("many words ").repeated(40));
    QVERIFY(f.label()->text().endsWith(QChar(0x2026)));
    QVERIFY(f.label()->text().startsWith(QStringLiteral("many words")));
}

void TestMessageWidget::escapeAndEnterAreTold()
{
    const Fixture f;
    QSignalSpy escaped(f.message, &MessageWidget::escpressed);
    QTest::keyClick(f.message, Qt::Key_Escape);
    QTest::keyClick(f.message, Qt::Key_Return);
    QCOMPARE(escaped.size(), 2);
    QVERIFY(f.window.keys.isEmpty());
}

void TestMessageWidget::otherKeysAreIgnored()
{
    Fixture f;
    f.showMessage();
    QSignalSpy escaped(f.message, &MessageWidget::escpressed);
    for (const Qt::Key key : {Qt::Key_Up, Qt::Key_Left, Qt::Key_F9})
        QTest::keyClick(f.message, key);
    QCOMPARE(escaped.size(), 0);
    QVERIFY(f.message->isVisible());
    QCOMPARE(f.window.keys.size(), 3);
}

void TestMessageWidget::goesBackToThePreviousWidget()
{
    Fixture f;
    f.message->setPrevWidget(&f.previous);
    QCOMPARE(f.message->getPrevWidget(), &f.previous);
    f.showMessage();
    f.message->goBack();
    QVERIFY(!f.message->isVisible());
    QVERIFY(f.previous.isVisible());
    QCOMPARE(WidgetChange::Instance()->getCurWidget(), &f.previous);
}

void TestMessageWidget::staysWithoutAPreviousWidget()
{
    Fixture f;
    auto* gone = new QWidget(&f.window);
    f.message->setPrevWidget(gone);
    delete gone;
    f.showMessage();
    f.message->goBack();
    QVERIFY(f.message->isVisible());
}

void TestMessageWidget::slotMayDeleteTheWidget()
{
    const Fixture f;
    MessageWidget* const message = f.message;
    const QPointer<MessageWidget> alive(message);
    connect(message, &MessageWidget::escpressed, message, [message] { delete message; });
    QKeyEvent event(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
    QCoreApplication::sendEvent(message, &event);
    QVERIFY(!alive);
}

void TestMessageWidget::isSpokenWhenShown()
{
    QStringList spoken;
    announcer::setSpeaker([&](const QString& text) { spoken.append(text); });
    Fixture f;
    QCOMPARE(spoken, QStringList());
    f.showMessage();
    QCOMPARE(spoken, QStringList{Text});
}

void TestMessageWidget::borderIsDrawnRoundTheComboBox()
{
    ComboBoxBorder box;
    box.setFixedSize(100, 22);
    const QImage image = box.grab().toImage();
    for (int x = 0; x < 100; ++x) {
        QCOMPARE(image.pixelColor(x, 0), QColor(Qt::white));
        QCOMPARE(image.pixelColor(x, 21), QColor(Qt::white));
    }
    for (int y = 0; y < 22; ++y) {
        QCOMPARE(image.pixelColor(0, y), QColor(Qt::white));
        QCOMPARE(image.pixelColor(99, y), QColor(Qt::white));
    }
}

void TestMessageWidget::comboBoxIgnoresMousePresses()
{
    ComboBoxBorder box;
    box.addItems({QStringLiteral("a"), QStringLiteral("b")});
    box.show();
    QMouseEvent press(QEvent::MouseButtonPress, QPointF(5, 5), QPointF(5, 5), Qt::LeftButton,
                      Qt::LeftButton, Qt::NoModifier);
    press.accept();
    QCoreApplication::sendEvent(&box, &press);
    QVERIFY(!press.isAccepted());
    QVERIFY(!QApplication::activePopupWidget());
}

QTEST_MAIN(TestMessageWidget)
#include "tst_messagewidget.moc"
