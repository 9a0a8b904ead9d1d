#include "tests/screens/album.h"
#include "tests/screens/screenset.h"
#include "widgets/messagedialog.h"

#include <QApplication>

/* Messages and the busy indicator. */
class TestDialogScreens : public QObject
{
    Q_OBJECT

private slots:
    void messages_data();
    void messages();
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

void TestDialogScreens::everyPictureIsUsed()
{
    QCOMPARE(m_album.unused(), QStringList());
}

SCREEN_TEST_MAIN(TestDialogScreens)
#include "tst_dialogscreens.moc"
