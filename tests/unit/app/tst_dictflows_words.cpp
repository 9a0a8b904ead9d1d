#include "engines/flags.h"
#include "store/newwordmanager.h"
#include "tests/shared/dictwindowfixture.h"
#include "tests/shared/testobjects.h"

#include <QDateTime>

namespace {

const QString Hint = QStringLiteral("Scan or press Menu for options.");

} // namespace

/* From a word of the editor to its translation and back. */
class TestDictFlowsWords : public QObject
{
    Q_OBJECT

private slots:
    void wordAtTheCursorIsTranslated();
    void chineseWordAtTheCursorIsTheLongest();
    void quickMenuGivesWayToTheTranslation();
    void noWordLeavesTheEditor();
    void noWordIsNoTranslationAgain();
    void withoutAnEditorThereIsNoWord();
    void scanDuringThatMessageGoesIntoTheFile();
    void escapeComesBackToTheEditor();
    void screenIsReusedAndComesBackToWhereItWasLeft();
    void wordThatIsNotThereIsShownAllTheSame();
    void eachTranslationIsCountedOnce();
    void nothingIsCountedWhenSwitchedOff_data();
    void nothingIsCountedWhenSwitchedOff();
    void missingWordIsNotCounted();
    void wordsAreRemembered();
    void wordIsNotRememberedTwiceInARow();
    void editorIsSilentWhileATranslationIsRead();
    void readingUsesTheDictionarySettings();
};

void TestDictFlowsWords::wordAtTheCursorIsTranslated()
{
    DictWindowFixture f;
    QVERIFY(!f.screen());
    f.translate();
    QVERIFY(g_InDict);
    QCOMPARE(f.screen()->geometry(), QRect(0, 0, 256, 64));
    QCOMPARE(f.screen()->selectedWord(), QStringLiteral("house"));
    QVERIFY(f.screen()->shownTranslation().contains(QStringLiteral("Haus")));
    QCOMPARE(f.screen()->getPrevWidget(), static_cast<QWidget*>(f.window->editor()));
    QVERIFY(f.screen()->hasFocus() || f.screen()->isAncestorOf(f.window->focusWidget()));
    QVERIFY(!FakeIap::stopSignal());
    QVERIFY(f.spoken().contains(QStringLiteral("house")));
    QCOMPARE(f.lastSpoken(), QStringLiteral("Haus"));
}

void TestDictFlowsWords::chineseWordAtTheCursorIsTheLongest()
{
    DictWindowFixture f(QStringLiteral("\u6211\u7231\u4e2d\u56fd\u4eba\u6c11\u3002\u4eba"), [] {
        FakeDic::addPair(1, 101, u"Chinese - English",
                         {DictWindowFixture::dictionary(
                             u"Han", {{u"\u4e2d\u56fd\u4eba\u6c11", u"the Chinese people"}})});
    });
    f.putCursorOn(QStringLiteral("\u4e2d"));
    f.translate();
    QCOMPARE(f.current(), static_cast<QWidget*>(f.screen()));
    QCOMPARE(f.screen()->selectedWord(), QStringLiteral("\u4e2d"));
    QVERIFY(f.screen()->shownTranslation().endsWith(QStringLiteral("the Chinese people")));
    QCOMPARE(f.screen()->currentHeadword(), QStringLiteral("\u4e2d\u56fd\u4eba\u6c11"));
}

void TestDictFlowsWords::quickMenuGivesWayToTheTranslation()
{
    DictWindowFixture f;
    f.press({Qt::Key_F12, Qt::Key_Down, Qt::Key_Down, Qt::Key_Down});
    QVERIFY(f.menu());
    f.settle();
    f.hush();
    f.press(Qt::Key_Return);
    QCOMPARE(f.current(), static_cast<QWidget*>(f.screen()));
    QCOMPARE(f.screen()->getPrevWidget(), static_cast<QWidget*>(f.window->editor()));
    QVERIFY(!FakeIap::stopSignal()); // it may scan
    f.settle();
    QCOMPARE(f.heard(), (QStringList{QStringLiteral("house"), QStringLiteral("Haus")}));
    QTRY_COMPARE(f.window->findChildren<MySubMenu*>().size(), 1); // the main menu
}

void TestDictFlowsWords::noWordLeavesTheEditor()
{
    DictWindowFixture f(QStringLiteral("one  "));
    f.window->editor()->moveCursor(QTextCursor::End);
    f.window->transWordFun();
    QCOMPARE(f.messages.texts(), QStringList{"word is null"});
    QVERIFY(!g_InDict);
    QCOMPARE(f.current(), static_cast<QWidget*>(f.window->editor()));
    QCOMPARE(f.window->focusWidget(), f.current());
    QCOMPARE(f.window->font().family(), QStringLiteral("nits"));
    QCOMPARE(f.window->editor()->font().family(), QStringLiteral("nits"));
    QVERIFY(f.records().isEmpty());
}

void TestDictFlowsWords::noWordIsNoTranslationAgain()
{
    DictWindowFixture f;
    f.translate();
    f.press(Qt::Key_Escape);
    f.window->editor()->setPlainText(QString());
    f.window->transWordFun();
    QCOMPARE(f.messages.texts(), QStringList{"word is null"});
    QCOMPARE(f.current(), static_cast<QWidget*>(f.window->editor()));
    QCOMPARE(f.records().size(), 1);
}

void TestDictFlowsWords::withoutAnEditorThereIsNoWord()
{
    WindowFixture f({}, DictWindowFixture::install);
    QTRY_VERIFY(!f.window->isOpeningDictionary());
    QWidget* const before = f.current();
    QVERIFY(!f.window->editor());
    f.window->transWordFun();
    QCOMPARE(f.messages.texts(), QStringList{"word is null"});
    QCOMPARE(f.messages.milliseconds(), QList<int>{2000});
    QCOMPARE(f.current(), before);
    QVERIFY(!g_InDict);
    QTRY_VERIFY(!f.window->menuSpeech()->isRunning());
}

void TestDictFlowsWords::scanDuringThatMessageGoesIntoTheFile()
{
    DictWindowFixture f(QStringLiteral("one  "));
    f.window->editor()->moveCursor(QTextCursor::End);
    FakeOcr::setResult(u"keeper");
    f.messages.meanwhile([&f] {
        QVERIFY(FakeIap::swipe(FakeIap::pattern(40, 10)));
        QTRY_VERIFY(f.window->editor()->documentText().endsWith(QStringLiteral("keeper ")));
    });
    f.window->transWordFun();
    QCOMPARE(f.messages.texts(), QStringList{"word is null"});
    QVERIFY(f.window->editor()->documentText().endsWith(QStringLiteral("keeper ")));
    QVERIFY(DictWindowFixture::remembered().isEmpty());
    f.settle();
}

void TestDictFlowsWords::escapeComesBackToTheEditor()
{
    DictWindowFixture f;
    f.translate();
    f.window->setFont(QFont(QStringLiteral("other")));
    f.press(Qt::Key_Escape);
    QVERIFY(!g_InDict);
    QCOMPARE(f.current(), static_cast<QWidget*>(f.window->editor()));
    QVERIFY(f.current()->isVisible() && f.current()->hasFocus());
    QCOMPARE(f.window->font().family(), QStringLiteral("nits"));
    QVERIFY(!FakeIap::stopSignal());
    QTRY_COMPARE(f.lastSpoken(), Hint);
    QCOMPARE(f.window->editor()->getWordFromMyEdit(), QStringLiteral("house"));
}

void TestDictFlowsWords::screenIsReusedAndComesBackToWhereItWasLeft()
{
    DictWindowFixture f;
    f.translate();
    const DictScanEdit* first = f.screen();
    f.press(Qt::Key_Escape);
    f.putCursorOn(QStringLiteral("stands"));
    f.screen()->setPrevWidget(nullptr);
    f.translate();
    QCOMPARE(f.screen(), first);
    QCOMPARE(f.screen()->selectedWord(), QStringLiteral("stands"));
    QCOMPARE(f.screen()->getPrevWidget(), static_cast<QWidget*>(f.window->editor()));
    f.press(Qt::Key_Escape);
    QCOMPARE(f.current(), static_cast<QWidget*>(f.window->editor()));
}

void TestDictFlowsWords::wordThatIsNotThereIsShownAllTheSame()
{
    DictWindowFixture f(QStringLiteral("xyzzy"));
    f.translate();
    QVERIFY(g_InDict);
    QCOMPARE(f.screen()->shownTranslation(), QStringLiteral("No translation result."));
    QVERIFY(f.spoken().contains(QStringLiteral("No translation result.")));
    QVERIFY(DictWindowFixture::remembered().isEmpty());
}

void TestDictFlowsWords::eachTranslationIsCountedOnce()
{
    DictWindowFixture f;
    const qint64 before = QDateTime::currentMSecsSinceEpoch();
    f.translate();
    const qint64 after = QDateTime::currentMSecsSinceEpoch();
    QCOMPARE(f.records().size(), 1);
    const QStringList fields = f.records().first().split(u'\t');
    QCOMPARE(fields.size(), 5);
    QCOMPARE(fields[0], QStringLiteral("house"));
    QVERIFY(fields[1].toLongLong() >= before && fields[1].toLongLong() <= after);
    QCOMPARE(fields.mid(2), (QStringList{"1", "en", "null"}));
    f.press(Qt::Key_Right); // on the screen, words are looked up and not counted
    f.settle();
    f.press(Qt::Key_Escape);
    f.translate();
    QCOMPARE(f.records().size(), 2);
}

void TestDictFlowsWords::nothingIsCountedWhenSwitchedOff_data()
{
    QTest::addColumn<int>("setting");
    QTest::newRow("off") << 1;
    QTest::newRow("damaged") << -1;
}

void TestDictFlowsWords::nothingIsCountedWhenSwitchedOff()
{
    QFETCH(int, setting);
    DictWindowFixture f;
    ConfigReader::Instance()->setStatisInfo(setting);
    f.translate();
    QVERIFY(!f.state.root.exists(QStringLiteral("/mnt/mmc/Stastistic_File.txt")));
}

void TestDictFlowsWords::missingWordIsNotCounted()
{
    DictWindowFixture f(QStringLiteral("xyzzy"));
    f.translate();
    QVERIFY(!f.state.root.exists(QStringLiteral("/mnt/mmc/Stastistic_File.txt")));
}

void TestDictFlowsWords::wordsAreRemembered()
{
    DictWindowFixture f;
    f.translate();
    QCOMPARE(DictWindowFixture::remembered(), QStringList{QStringLiteral("house")});
    WordItem item;
    QVERIFY(NewWordManager::Instance()->get(0, item));
    QCOMPARE(item.translation, QStringLiteral("Haus"));
    f.press(Qt::Key_Escape);
    f.putCursorOn(QStringLiteral("stands"));
    f.translate();
    QCOMPARE(DictWindowFixture::remembered(),
             (QStringList{QStringLiteral("house"), QStringLiteral("stands")}));
    QVERIFY(f.state.root.read(QStringLiteral("/apps/config/newword.cfg")).contains("stands"));
}

void TestDictFlowsWords::wordIsNotRememberedTwiceInARow()
{
    DictWindowFixture f;
    f.translate();
    f.press(Qt::Key_Escape);
    f.translate();
    QCOMPARE(DictWindowFixture::remembered(), QStringList{QStringLiteral("house")});
    f.press(Qt::Key_Escape);
    f.putCursorOn(QStringLiteral("stands"));
    f.translate();
    f.press(Qt::Key_Escape);
    f.putCursorOn(QStringLiteral("house"));
    f.translate();
    QCOMPARE(DictWindowFixture::remembered(), (QStringList{"house", "stands", "house"}));
}

void TestDictFlowsWords::editorIsSilentWhileATranslationIsRead()
{
    DictWindowFixture f;
    f.press(Qt::Key_Return); // there is something to read again
    f.settle();
    f.translate();
    emit f.screen()->signalOKInTrans();
    f.hush();
    f.window->editor()->soundAgain();
    QVERIFY(!f.window->editor()->soundThread()->isRunning());
    QVERIFY(f.window->editor()->getFlagForTalk());
    emit f.screen()->signalTTSendInTrans();
    QTRY_VERIFY(f.lastHeard().startsWith(QStringLiteral("house stands")));
    f.settle();
}

void TestDictFlowsWords::readingUsesTheDictionarySettings()
{
    DictWindowFixture f;
    ConfigReader::Instance()->setVolumDict(2);
    ConfigReader::Instance()->setReadSpeedInfoForDict(9);
    f.translate();
    QCOMPARE(f.lastSpoken(), QStringLiteral("Haus"));
    QCOMPARE(FakeTts::volume(), 40);
    QCOMPARE(FakeTts::speed(), 72);
    QCOMPARE(FakeTts::language(), 104);
}

TEST_OBJECT(TestDictFlowsWords)
#include "tst_dictflows_words.moc"
