#include "editor/myedit.h"
#include "engines/csoundthread.h"
#include "tests/fakes/fakeiap.h"
#include "tests/fakes/fakeocr.h"
#include "tests/fakes/faketts.h"
#include "tests/screens/album.h"
#include "tests/screens/screenset.h"
#include "tests/shared/applicationstate.h"

#include <QApplication>
#include <QSignalSpy>

/* The editor. */
class TestEditorScreens : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void empty();
    void scannedLine();
    void fourLinesFitExactly();
    void cursorAtTheBeginning();
    void positionMark();
    void positionMarkInTheMiddle();
    void hintInAnEmptyDocument();
    void hintOverText();
    void spokenWordInALine_data();
    void spokenWordInALine();
    void spokenWord_data();
    void spokenWord();
    void scripts_data();
    void scripts();
    void everyPictureIsUsed();

private:
    void append(const QString& text);

    Album m_album{QStringLiteral("editor")};
    std::unique_ptr<ApplicationState> m_state;
    std::unique_ptr<MyEdit> m_edit;
};

void TestEditorScreens::init()
{
    m_state = std::make_unique<ApplicationState>();
    m_state->load();
    FileManager::Instance()->saveFile(QString());
    FileInfo info;
    QVERIFY(FileManager::Instance()->getLatestFile(info));
    m_edit = std::make_unique<MyEdit>();
    m_edit->setFixedSize(256, 64);
    QCOMPARE(m_edit->setFileInfo(info), 0);
    TTSPlayer::Instance()->setEdit(m_edit.get());
    m_edit->show();
    m_edit->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_edit.get()));
}

void TestEditorScreens::cleanup()
{
    m_edit.reset();
    m_state.reset();
}

void TestEditorScreens::append(const QString& text)
{
    QVERIFY(m_edit->appendText(text));
}

void TestEditorScreens::empty()
{
    COMPARE_SCREEN(m_album, m_edit.get(), "empty");
}

void TestEditorScreens::scannedLine()
{
    append(QStringLiteral("The pen reads what it sees."));
    COMPARE_SCREEN(m_album, m_edit.get(), "line");
}

void TestEditorScreens::fourLinesFitExactly()
{
    append(QStringLiteral("abcdefghijklmnopqrstuvwxyz012345").repeated(4));
    COMPARE_SCREEN(m_album, m_edit.get(), "four-lines");
}

void TestEditorScreens::cursorAtTheBeginning()
{
    append(QStringLiteral("First line of a page,"));
    append(QStringLiteral("and its second line."));
    m_edit->gotoBeginEdit();
    COMPARE_SCREEN(m_album, m_edit.get(), "beginning");
}

void TestEditorScreens::positionMark()
{
    for (int i = 1; i <= 12; ++i)
        append(QStringLiteral("This is line number %1 of a long document.").arg(i));
    COMPARE_SCREEN(m_album, m_edit.get(), "mark-end");
    m_edit->gotoBeginEdit();
    COMPARE_SCREEN(m_album, m_edit.get(), "mark-begin");
}

void TestEditorScreens::positionMarkInTheMiddle()
{
    for (int i = 1; i <= 12; ++i)
        append(QStringLiteral("This is line number %1 of a long document.").arg(i));
    QTextCursor middle = m_edit->textCursor();
    middle.setPosition(static_cast<int>(m_edit->documentText().size() / 2));
    m_edit->setTextCursor(middle);
    COMPARE_SCREEN(m_album, m_edit.get(), "mark-middle");
}

void TestEditorScreens::hintInAnEmptyDocument()
{
    QTest::keyClick(m_edit.get(), Qt::Key_Return);
    COMPARE_SCREEN(m_album, m_edit.get(), "hint-empty");
}

void TestEditorScreens::hintOverText()
{
    for (int i = 1; i <= 6; ++i)
        append(QStringLiteral("This is line number %1 of a long document.").arg(i));
    m_edit->gotoBeginEdit();
    QTest::keyClick(m_edit.get(), Qt::Key_Left);
    COMPARE_SCREEN(m_album, m_edit.get(), "hint-text");
}

void TestEditorScreens::spokenWordInALine_data()
{
    QTest::addColumn<int>("words");
    QTest::newRow("line-first") << 2;
    QTest::newRow("line-middle") << 9;
    QTest::newRow("line-last") << 24;
}

// A page of four lines, in which words in the first, the second and the last one are heard.
void TestEditorScreens::spokenWordInALine()
{
    QFETCH(int, words);
    append(QStringLiteral("It was the best of times, it was the worst of times, it was the age "
                          "of wisdom, it was the age of foolishness."));
    FakeTts::setPace(FakeTts::Pace::Held);
    QSignalSpy reports(m_edit.get(), &MyEdit::signalTTShignlight);
    m_edit->gotoBeginEdit();
    QTest::keyClick(m_edit.get(), Qt::Key_Return);
    QTRY_VERIFY(FakeTts::isSpeaking());
    for (int i = 0; i < words; ++i)
        QVERIFY(FakeTts::speakWord());
    QTRY_COMPARE(reports.count(), words);
    QTRY_VERIFY(!m_edit->extraSelections().isEmpty());
    QVERIFY2(m_album.shows(m_edit.get(), QString::fromLatin1(QTest::currentDataTag())),
             qPrintable(m_album.problem()));
    QVERIFY(FakeTts::finish());
    QTRY_VERIFY(!m_edit->soundThread()->isRunning());
}

void TestEditorScreens::spokenWord_data()
{
    QTest::addColumn<int>("words");
    QTest::newRow("spoken-first") << 1;
    QTest::newRow("spoken-third") << 3;
}

void TestEditorScreens::spokenWord()
{
    QFETCH(int, words);
    FakeTts::setPace(FakeTts::Pace::Held);
    FakeOcr::setResult(u"Every good boy deserves favour.");
    QVERIFY(FakeIap::swipe(FakeIap::pattern(40, 10)).has_value());
    QTRY_VERIFY(FakeTts::isSpeaking());
    QSignalSpy reports(m_edit.get(), &MyEdit::signalTTShignlight);
    for (int i = 0; i < words; ++i)
        QVERIFY(FakeTts::speakWord());
    QTRY_COMPARE(reports.count(), words);
    QTRY_VERIFY(m_edit->getStartPosition() >= (words > 1 ? 6 : 0));
    QVERIFY2(m_album.shows(m_edit.get(), QString::fromLatin1(QTest::currentDataTag())),
             qPrintable(m_album.problem()));
    QVERIFY(FakeTts::finish());
    QTRY_VERIFY(!m_edit->soundThread()->isRunning());
}

void TestEditorScreens::scripts_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("chinese") << QStringLiteral("春眠不觉晓，处处闻啼鸟。夜来风雨声，花落知多少。");
    QTest::newRow("traditional") << QStringLiteral("春眠不覺曉，處處聞啼鳥。");
    QTest::newRow("russian") << QStringLiteral("Съешь ещё этих мягких французских булок.");
    QTest::newRow("accents") << QStringLiteral("Äpfel, Öl, ça, où, ¿qué?, Ångström, œuvre, ñandú");
}

void TestEditorScreens::scripts()
{
    QFETCH(QString, text);
    append(text);
    QVERIFY2(m_album.shows(m_edit.get(), QString::fromLatin1(QTest::currentDataTag())),
             qPrintable(m_album.problem()));
}

void TestEditorScreens::everyPictureIsUsed()
{
    QCOMPARE(m_album.unused(), QStringList());
}

SCREEN_TEST_MAIN(TestEditorScreens)
#include "tst_editorscreens.moc"
