#include "tests/screens/album.h"
#include "tests/screens/screenset.h"
#include "widgets/comboboxborder.h"
#include "widgets/messagedialog.h"
#include "widgets/messagewidget.h"
#include "widgets/painting.h"
#include "widgets/talkinglist.h"
#include "widgets/yesnoselect.h"

#include <QApplication>
#include <QTimerEvent>

/* Messages and questions. */
class TestDialogScreens : public QObject
{
    Q_OBJECT

private slots:
    void messages_data();
    void messages();
    void questions_data();
    void questions();
    void longQuestionScrolled();
    void messagesThatStay_data();
    void messagesThatStay();
    void comboBoxWithABorder();
    void everyPictureIsUsed();

private:
    Album m_album{QStringLiteral("dialogs")};
};

void TestDialogScreens::messages_data()
{
    QTest::addColumn<QString>("text");
    const auto row = [](const char* name, const char16_t* text) {
        QTest::newRow(name) << QString::fromUtf16(text);
    };
    row("damaged", u"File system is damaged, please connect to PC and repair.");
    row("storage", u"No enough storage space. Please remove some files.");
    row("too-many-files", u"Max number of files exceeded. Please remove some files.");
    row("too-big-from-pc", u"The file is too big, do not edit the file in computer.");
    row("too-big", u"The file is too big. Please create new file.");
    row("no-files", u"No available files!");
    row("vertical", u"Vertical Text Scan Mode!");
    row("chinese", u"文件系统已损坏，请连接电脑并修复。存储空间不足，请删除一些文件。");
    row("russian", u"Файловая система повреждена, подключите устройство к компьютеру.");
    row("four-lines", u"A message of four lines has no room for a frame: it takes all of the "
                      u"screen, from the first pixel row to the last jgpqy.");
    row("too-long", u"A message that is longer than the four lines of the screen ends with an "
                    u"ellipsis, because there is nothing that could be done about it here; this "
                    u"one goes on and on.");
    row("mark-up", u"<b>Plain</b> text & nothing else: %1\tends.");
}

void TestDialogScreens::messages()
{
    QFETCH(QString, text);
    MessageDialog dialog(nullptr, text, 2000);
    QVERIFY2(m_album.shows(&dialog, QLatin1String("message-") + QTest::currentDataTag()),
             qPrintable(m_album.problem()));
}

void TestDialogScreens::questions_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("no");
    const auto row = [](const char* name, const char16_t* text, bool no) {
        QTest::newRow(name) << QString::fromUtf16(text) << no;
    };
    row("yes", u"Are you sure to delete it?", false);
    row("no", u"Are you sure to delete it?", true);
    row("rename", u"Rename [Scan_00012] to [Shopping 2]", false);
    row("rename-chinese", u"Rename [我的第一个扫描文件名] to [二零二六年新文件名]", true);
    row("rename-russian", u"Переименовать [Список_001] в [Магазин_12] окончательно?", false);
    row("rename-long",
        u"Rename [A name that came from a computer and is very long indeed, as "
        u"long as it liked] to [Short]",
        false);
}

void TestDialogScreens::questions()
{
    QFETCH(QString, text);
    QFETCH(bool, no);
    YesnoSelect dialog(text);
    if (no)
        QTest::keyClick(&dialog, Qt::Key_Right);
    QVERIFY2(m_album.shows(&dialog, QLatin1String("question-") + QTest::currentDataTag()),
             qPrintable(m_album.problem()));
}

void TestDialogScreens::longQuestionScrolled()
{
    YesnoSelect dialog(QStringLiteral("one of the lines\ntwo\nthree\nfour\nfive of them"));
    dialog.show();
    // Past the rest at the start and all of the way: the end of the text.
    for (int i = 0; i < 3 * (slowscroll::RestTicks + 20); ++i) {
        QTimerEvent tick(dialog.scrollTimerId());
        QCoreApplication::sendEvent(&dialog, &tick);
    }
    COMPARE_SCREEN(m_album, &dialog, "question-scrolled");
}

void TestDialogScreens::messagesThatStay_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("one-line") << QStringLiteral("Please wait");
    QTest::newRow("four-lines") << QStringLiteral(
        "A message of four lines takes all of the screen, from the first pixel row to the last "
        "jgpqy.");
    QTest::newRow("too-long") << QStringLiteral("More words than there is room for. ").repeated(9);
}

void TestDialogScreens::messagesThatStay()
{
    QFETCH(QString, text);
    MessageWidget message(text, nullptr);
    QVERIFY2(m_album.shows(&message, QLatin1String("stays-") + QTest::currentDataTag()),
             qPrintable(m_album.problem()));
}

void TestDialogScreens::comboBoxWithABorder()
{
    QWidget screen;
    screen.resize(256, 64);
    ComboBoxBorder box(&screen);
    box.setGeometry(8, 24, 240, 24);
    box.setFont(painting::screenFont());
    box.addItem(QStringLiteral("English - Chinese"));
    COMPARE_SCREEN(m_album, &screen, "combo-box");
}

void TestDialogScreens::everyPictureIsUsed()
{
    QCOMPARE(m_album.unused(), QStringList());
}

SCREEN_TEST_MAIN(TestDialogScreens)
#include "tst_dialogscreens.moc"
