#include "app/mainwindow.h"

#include "editor/myedit.h"
#include "engines/csoundthread.h"
#include "engines/cttsthread.h"
#include "engines/speechtext.h"
#include "tests/fakes/calls.h"
#include "tests/fakes/fakeiap.h"
#include "tests/fakes/fakeocr.h"
#include "tests/shared/windowfixture.h"
#include "widgets/sandglass.h"

namespace {

const QString Hint = QStringLiteral("Scan or press Menu for options.");
const QString Execute = QStringLiteral("execute(QString)");
const QString Usb = QStringLiteral("USB(QString)");

/* The editor with a file open and a text in it, silent. */
class EditorFixture : public WindowFixture
{
public:
    explicit EditorFixture(const QString& text = QStringLiteral("one two three"))
    {
        window->newFile();
        reachEditor();
        if (!text.isEmpty())
            window->editor()->appendText(text);
    }

    void reachEditor()
    {
        QTRY_COMPARE(current(), window->editor());
        settle();
    }

    void settle()
    {
        QTRY_VERIFY(!window->menuSpeech()->isRunning()
                    && !window->editor()->soundThread()->isRunning());
        QCoreApplication::processEvents();
    }

    using WindowFixture::press;
    void press(std::initializer_list<Qt::Key> keys)
    {
        for (const Qt::Key key : keys)
            WindowFixture::press(key);
    }

    /* Opens the quick menu and triggers the item at `index`. */
    void chooseQuick(int index)
    {
        WindowFixture::press(Qt::Key_F12);
        for (int i = 0; i < index; ++i)
            WindowFixture::press(Qt::Key_Down);
        WindowFixture::press(Qt::Key_Return);
    }

    QByteArray savedFile() const
    {
        const QString name = QDate::currentDate().toString(QStringLiteral("yyMMdd"));
        return state.root.read(QStringLiteral("/mnt/mmc/e_ScanFile/%1.txt").arg(name));
    }
};

enum Item { ReadAgain, GoToBeginning, ReadingSettings, Translate, SelectDictionary, Languages };

} // namespace

/* The menus that lie over the editor. */
class TestQuickMenu : public QObject
{
    Q_OBJECT

private slots:
    void opensOverTheEditor();
    void silencesWhatIsBeingRead();
    void doesNotOpenDuringASwipe();
    void escapeReturnsToTheEditor();
    void scansWaitUntilTheEditorIsBack();
    void scanRecognisedUnderAMenuIsNotReadOverIt();
    void readAgainReadsTheLastTextAgain();
    void readAgainWaitsForTheMenusVoice();
    void readAgainWithoutATextGivesTheHint();
    void goToBeginningSaysWhereThatIs();
    void goToBeginningWaitsForTheMenusVoice();
    void launcherClearsARequest_data();
    void launcherClearsARequest();
    void lateItemIsNotSpokenOverTheReading();
    void translateWithoutWordSaysSo();
    void translateWithoutEditorSaysSo();
    void nothingIsInstalled_data();
    void nothingIsInstalled();
    void enterOnALanguageLeadsIntoTheEditor();
    void escapeOnALanguageLeadsToTheQuickMenu();
    void languageReachesTheScanEngine();
    void languageDoesNotCutReadingOff();
    void directionTakesEffectAtOnce();
    void directionWithoutAChangeLeavesTheEngineAlone();
    void saveWorksUnderAMenu_data();
    void saveWorksUnderAMenu();
    void stopSavesUnderAMenu();
    void usbSavesAndReopensUnderAMenu();
    void powerKeyIsHarmless();
    void nestedMenusEnd();
};

void TestQuickMenu::opensOverTheEditor()
{
    EditorFixture f;
    f.press(Qt::Key_F12);
    QCOMPARE(f.menu()->title(), QStringLiteral("Scan quick settings"));
    QCOMPARE(f.entries(), (QStringList{"Read again.", "Go to beginning", "Reading settings",
                                       "Translate", "Select dictionary", "Scan languages"}));
    QCOMPARE(f.menu()->getCurIndex(), 0);
    QVERIFY(FakeIap::stopSignal());
    QVERIFY(!f.window->editor()->isVisible());
    QTRY_VERIFY(f.lastSpoken().startsWith(QStringLiteral("Read again.") + pauseTag(500)));
}

void TestQuickMenu::silencesWhatIsBeingRead()
{
    EditorFixture f;
    FakeTts::setPace(FakeTts::Pace::Held);
    f.press(Qt::Key_Return);
    QTRY_VERIFY(FakeTts::isSpeaking());
    f.press(Qt::Key_F12);
    QTRY_VERIFY(!f.window->editor()->soundThread()->isRunning());
    QTRY_VERIFY(f.lastSpoken().startsWith(QStringLiteral("Read again.")));
    QVERIFY(FakeTts::waitUntilSpeaking());
    QVERIFY(FakeTts::finish());
}

void TestQuickMenu::doesNotOpenDuringASwipe()
{
    EditorFixture f;
    QVERIFY(FakeIap::press());
    f.press(Qt::Key_F12);
    f.press(Qt::Key_F9);
    QCOMPARE(f.current(), f.window->editor());
    QVERIFY(!FakeIap::stopSignal());
    FakeIap::liftWithoutLine();
    QVERIFY(FakeIap::waitUntilIdle());
    f.press(Qt::Key_F12);
    QVERIFY(f.menu());
}

void TestQuickMenu::escapeReturnsToTheEditor()
{
    EditorFixture f;
    f.press(Qt::Key_F12);
    const QPointer<MySubMenu> menu(f.menu());
    f.press(Qt::Key_Escape);
    QCOMPARE(f.current(), f.window->editor());
    QVERIFY(f.current()->isVisible() && f.current()->isEnabled() && f.current()->hasFocus());
    QVERIFY(!FakeIap::stopSignal());
    QTRY_COMPARE(f.lastSpoken(), Hint);
    QTRY_VERIFY(!menu);
}

void TestQuickMenu::scansWaitUntilTheEditorIsBack()
{
    EditorFixture f(QString{});
    FakeOcr::setResult(u"later");
    f.press(Qt::Key_F12);
    QVERIFY(!FakeIap::swipe(FakeIap::pattern(40, 10)));
    f.press(Qt::Key_Escape);
    QVERIFY(FakeIap::swipe(FakeIap::pattern(40, 10)));
    QTRY_COMPARE(f.window->editor()->documentText(), QStringLiteral("later "));
}

// It is in the text, and read when it is asked for.
void TestQuickMenu::scanRecognisedUnderAMenuIsNotReadOverIt()
{
    EditorFixture f;
    FakeOcr::setResult(u"late");
    FakeOcr::hold();
    QVERIFY(FakeIap::swipe(FakeIap::pattern(40, 10)));
    QTRY_VERIFY(FakeOcr::isRecognizing());
    FakeTts::setPace(FakeTts::Pace::Held);
    f.press(Qt::Key_F12);
    QTRY_VERIFY(FakeTts::isSpeaking() && f.lastSpoken().startsWith(QStringLiteral("Read again.")));
    FakeOcr::release();
    QTRY_VERIFY(f.window->editor()->documentText().endsWith(QStringLiteral("late ")));
    f.window->editor()->readDelaySlot(); // what the delay's end does
    QCoreApplication::processEvents();
    QVERIFY(FakeTts::isSpeaking());
    QVERIFY(f.lastSpoken().startsWith(QStringLiteral("Read again.")));
    QVERIFY(!f.window->editor()->soundThread()->isRunning());
    FakeTts::setPace(FakeTts::Pace::Automatic); // lets it run to its end
    f.settle();
    QVERIFY(!f.spoken().contains(QStringLiteral("late")));
    f.press(Qt::Key_Return); // "Read again."
    QCOMPARE(f.current(), f.window->editor());
    QTRY_COMPARE(f.lastSpoken(), QStringLiteral("late"));
}

void TestQuickMenu::readAgainReadsTheLastTextAgain()
{
    EditorFixture f;
    f.window->editor()->gotoBeginEdit();
    f.press(Qt::Key_Return);
    QTRY_VERIFY(f.lastSpoken().startsWith(QStringLiteral("one")));
    f.settle();
    f.press(Qt::Key_F12);
    QTRY_VERIFY(f.lastSpoken().startsWith(QStringLiteral("Read again.")));
    f.press(Qt::Key_Return);
    QCOMPARE(f.current(), f.window->editor());
    QTRY_VERIFY(f.lastSpoken().startsWith(QStringLiteral("one")));
    QVERIFY(!f.spoken().endsWith(Hint));
}

void TestQuickMenu::readAgainWaitsForTheMenusVoice()
{
    EditorFixture f;
    f.window->editor()->gotoBeginEdit();
    f.press(Qt::Key_Return);
    f.settle();
    FakeTts::setPace(FakeTts::Pace::Held);
    f.press(Qt::Key_F12);
    QVERIFY(FakeTts::waitUntilSpeaking());
    FakeTts::missStops(20); // the voice takes its time to end
    f.press(Qt::Key_Return);
    QCOMPARE(f.current(), f.window->editor());
    QVERIFY(!f.window->editor()->soundThread()->isRunning());
    FakeTts::missStops(0);
    QVERIFY(FakeTts::finish());
    QTRY_VERIFY(f.lastSpoken().startsWith(QStringLiteral("one")));
    QVERIFY(FakeTts::waitUntilSpeaking());
    QCoreApplication::processEvents();
    QVERIFY(FakeTts::isSpeaking());
    QVERIFY(FakeTts::finish());
}

void TestQuickMenu::readAgainWithoutATextGivesTheHint()
{
    EditorFixture f(QString{});
    f.chooseQuick(ReadAgain);
    QCOMPARE(f.current(), f.window->editor());
    QTRY_COMPARE(f.lastSpoken(), Hint);
}

void TestQuickMenu::goToBeginningSaysWhereThatIs()
{
    EditorFixture f;
    f.press({Qt::Key_Right, Qt::Key_Right});
    QVERIFY(f.window->editor()->getCurPosition() > 0);
    f.settle();
    f.chooseQuick(GoToBeginning);
    QCOMPARE(f.current(), f.window->editor());
    QTRY_COMPARE(f.window->editor()->getCurPosition(), 0);
    QTRY_VERIFY(f.lastSpoken().contains(QStringLiteral("one")));
}

void TestQuickMenu::goToBeginningWaitsForTheMenusVoice()
{
    EditorFixture f;
    f.press({Qt::Key_Right, Qt::Key_Right});
    f.settle();
    FakeTts::setPace(FakeTts::Pace::Held);
    f.press({Qt::Key_F12, Qt::Key_Down});
    QTRY_VERIFY(FakeTts::isSpeaking()
                && f.lastSpoken().startsWith(QStringLiteral("Go to beginning")));
    FakeTts::missStops(20);
    f.press(Qt::Key_Return);
    QVERIFY(f.window->editor()->getCurPosition() > 0);
    FakeTts::missStops(0);
    QVERIFY(FakeTts::finish());
    QTRY_COMPARE(f.window->editor()->getCurPosition(), 0);
    QTRY_VERIFY(f.lastSpoken().contains(QStringLiteral("one")));
    QVERIFY(FakeTts::waitUntilSpeaking());
    QVERIFY(FakeTts::finish());
}

void TestQuickMenu::launcherClearsARequest_data()
{
    QTest::addColumn<QByteArray>("word");
    QTest::newRow("power") << QByteArray("presspoweroff");
    QTest::newRow("USB") << QByteArray("plugusb");
}

void TestQuickMenu::launcherClearsARequest()
{
    QFETCH(QByteArray, word);
    EditorFixture f;
    f.press({Qt::Key_Right, Qt::Key_Right});
    f.settle();
    const int position = f.window->editor()->getCurPosition();
    FakeTts::setPace(FakeTts::Pace::Held);
    f.press({Qt::Key_F12, Qt::Key_Down});
    QTRY_VERIFY(FakeTts::isSpeaking()
                && f.lastSpoken().startsWith(QStringLiteral("Go to beginning")));
    FakeTts::missStops(20);
    f.press(Qt::Key_Return);
    const qsizetype before = f.spoken().size();
    f.window->handleReceived(Execute, word);
    FakeTts::missStops(0);
    QVERIFY(FakeTts::finish());
    f.settle();
    QCOMPARE(f.window->editor()->getCurPosition(), position);
    QCOMPARE(f.spoken().size(), before);
}

// Items that the user went over faster than the voice could follow.
void TestQuickMenu::lateItemIsNotSpokenOverTheReading()
{
    EditorFixture f;
    f.window->editor()->gotoBeginEdit();
    f.press(Qt::Key_Return);
    f.settle();
    FakeTts::setPace(FakeTts::Pace::Held);
    f.press(Qt::Key_F12);
    QVERIFY(FakeTts::waitUntilSpeaking());
    FakeTts::missStops(20);
    f.press({Qt::Key_Down, Qt::Key_Up, Qt::Key_Return});
    FakeTts::missStops(0);
    QVERIFY(FakeTts::finish());
    QTRY_VERIFY(FakeTts::isSpeaking());
    QVERIFY(f.lastSpoken().startsWith(QStringLiteral("one")));
    QVERIFY(FakeTts::finish());
    f.settle();
    QVERIFY(f.lastSpoken().startsWith(QStringLiteral("one")));
}

void TestQuickMenu::translateWithoutWordSaysSo()
{
    EditorFixture f(QStringLiteral("one  "));
    f.window->editor()->moveCursor(QTextCursor::End);
    QVERIFY(f.window->editor()->getWordFromMyEdit().isEmpty());
    f.chooseQuick(Translate);
    QCOMPARE(f.messages.texts(), QStringList{"word is null"});
    QTRY_COMPARE(f.lastSpoken(), QStringLiteral("word is null"));
    QVERIFY(!g_InDict);
    QCOMPARE(f.current(), f.window->editor());
    QCOMPARE(f.window->focusWidget(), f.current());
}

void TestQuickMenu::translateWithoutEditorSaysSo()
{
    WindowFixture f;
    f.window->transWordFun();
    QCOMPARE(f.messages.texts(), QStringList{"word is null"});
}

void TestQuickMenu::nothingIsInstalled_data()
{
    QTest::addColumn<int>("item");
    QTest::newRow("translate") << int(Translate);
    QTest::newRow("select") << int(SelectDictionary);
}

void TestQuickMenu::nothingIsInstalled()
{
    QFETCH(int, item);
    EditorFixture f;
    f.window->editor()->gotoBeginEdit();
    f.chooseQuick(item);
    QCOMPARE(f.messages.texts(), QStringList{"No dictionary is installed."});
    QTRY_COMPARE(f.lastSpoken(), QStringLiteral("No dictionary is installed."));
    QCOMPARE(f.window->focusWidget(), f.current());
    QVERIFY(!g_InDict);
}

void TestQuickMenu::enterOnALanguageLeadsIntoTheEditor()
{
    EditorFixture f;
    f.press(Qt::Key_F12);
    const QPointer<MySubMenu> quick(f.menu());
    f.press(Qt::Key_Escape);
    f.settle();
    f.chooseQuick(Languages);
    const QPointer<MySubMenu> languages(f.menu());
    QCOMPARE(languages->title(), QStringLiteral("Scan languages"));
    f.press({Qt::Key_Down, Qt::Key_Down, Qt::Key_Return});
    QCOMPARE(f.current(), f.window->editor());
    QVERIFY(!FakeIap::stopSignal());
    QTRY_COMPARE(ConfigReader::Instance()->getLanInfo(), 1);
    QTRY_VERIFY(f.lastSpoken().contains(QStringLiteral("Français")));
    QTRY_VERIFY(!languages && !quick);
    QVERIFY(f.window->findChildren<MySubMenu*>().size() == 1); // the main menu
}

void TestQuickMenu::escapeOnALanguageLeadsToTheQuickMenu()
{
    EditorFixture f;
    f.chooseQuick(Languages);
    f.press({Qt::Key_Up, Qt::Key_Escape});
    QCOMPARE(f.menu()->title(), QStringLiteral("Scan quick settings"));
    QVERIFY(FakeIap::stopSignal());
    QTRY_COMPARE(ConfigReader::Instance()->getLanInfo(), 2);
    f.press(Qt::Key_Escape);
    QCOMPARE(f.current(), f.window->editor());
    QVERIFY(!FakeIap::stopSignal());
}

void TestQuickMenu::languageReachesTheScanEngine()
{
    EditorFixture f;
    QCOMPARE(FakeIap::script(), 1);
    f.chooseQuick(Languages);
    f.press({Qt::Key_Down, Qt::Key_Down, Qt::Key_Down, Qt::Key_Down, Qt::Key_Return});
    QTRY_COMPARE(FakeIap::script(), 0); // Chinese
    QVERIFY(FakeIap::isStarted());
}

void TestQuickMenu::languageDoesNotCutReadingOff()
{
    EditorFixture f;
    f.settle();
    FakeTts::setPace(FakeTts::Pace::Held);
    f.window->scanLanChange(2, QString());
    f.window->editor()->gotoBeginEdit();
    f.press(Qt::Key_Return);
    QTRY_VERIFY(f.lastSpoken().startsWith(QStringLiteral("one")));
    QTRY_VERIFY(!f.window->findChild<SandGlass*>());
    QVERIFY(FakeTts::isSpeaking());
    QVERIFY(f.lastSpoken().startsWith(QStringLiteral("one")));
    QVERIFY(FakeTts::finish());
}

void TestQuickMenu::directionTakesEffectAtOnce()
{
    EditorFixture f;
    QCOMPARE(FakeIap::direction(), 0);
    f.press({Qt::Key_F9, Qt::Key_Down, Qt::Key_Down, Qt::Key_Return});
    QCOMPARE(f.menu()->title(), QStringLiteral("Scan Direction"));
    CallLog::clear();
    f.press({Qt::Key_Down, Qt::Key_Escape});
    QCOMPARE(fakes::calls("ZEMBRA_IAP_Uninitialize").size(), 1);
    QVERIFY(FakeIap::isStarted());
    QCOMPARE(FakeIap::direction(), 1);
    QVERIFY(FakeIap::stopSignal()); // a menu is still open
    f.press(Qt::Key_Return);        // and again, up to the editor
    f.press({Qt::Key_Up, Qt::Key_Return});
    QCOMPARE(f.current(), f.window->editor());
    QCOMPARE(FakeIap::direction(), 0);
    QVERIFY(!FakeIap::stopSignal());
    QTRY_VERIFY(f.lastSpoken().startsWith(QStringLiteral("Horizontal Text Scan")));
    FakeOcr::setResult(u"scan");
    QVERIFY(FakeIap::swipe(FakeIap::pattern(40, 10)));
    QTRY_VERIFY(f.window->editor()->documentText().contains(QStringLiteral("scan")));
}

void TestQuickMenu::directionWithoutAChangeLeavesTheEngineAlone()
{
    EditorFixture f;
    f.window->newDicQuick();
    CallLog::clear();
    f.press(Qt::Key_Return);
    QCOMPARE(f.current(), f.window->editor());
    QVERIFY(fakes::calls("ZEMBRA_IAP_Uninitialize").isEmpty());
    QVERIFY(fakes::calls("ZEMBRA_IAP_Initialize").isEmpty());
}

void TestQuickMenu::saveWorksUnderAMenu_data()
{
    QTest::addColumn<QByteArray>("word");
    QTest::newRow("save") << QByteArray("save");
    QTest::newRow("save without tip") << QByteArray("savenochujiao");
}

void TestQuickMenu::saveWorksUnderAMenu()
{
    QFETCH(QByteArray, word);
    EditorFixture f(QStringLiteral("a"));
    f.chooseQuick(Languages);
    QWidget* opened = f.current();
    f.window->handleReceived(Execute, word);
    QCOMPARE(f.savedFile().size(), 6);
    QCOMPARE(f.current(), opened);
    QVERIFY(f.window->editor()->isBound());
}

void TestQuickMenu::stopSavesUnderAMenu()
{
    EditorFixture f(QStringLiteral("a"));
    f.chooseQuick(Languages);
    f.window->handleReceived(Execute, "stop");
    QCOMPARE(f.savedFile().size(), 6);
    QVERIFY(!f.window->isVisible());
    QVERIFY(FakeIap::stopSignal());
}

void TestQuickMenu::usbSavesAndReopensUnderAMenu()
{
    EditorFixture f(QStringLiteral("a"));
    f.chooseQuick(Languages);
    f.window->handleReceived(Usb, "plug");
    QCOMPARE(f.savedFile().size(), 6);
    QCOMPARE(f.menu()->title(), QStringLiteral("Scan to file"));
    QVERIFY(!f.current()->isEnabled());
    f.window->handleReceived(Usb, "delete");
    QTRY_COMPARE(f.current(), f.window->editor());
    QCOMPARE(f.window->editor()->documentText(), QStringLiteral("a "));
    QTRY_COMPARE(f.window->findChildren<MySubMenu*>().size(), 1);
}

void TestQuickMenu::powerKeyIsHarmless()
{
    EditorFixture f;
    f.press(Qt::Key_F12);
    FakeTts::setPace(FakeTts::Pace::Held);
    f.press(Qt::Key_Down);
    QTRY_VERIFY(FakeTts::isSpeaking());
    f.window->handleReceived(Execute, "presspoweroff");
    QVERIFY(FakeTts::waitUntilSilent());
    FakeTts::setPace(FakeTts::Pace::Automatic);
    QCOMPARE(f.menu()->getCurIndex(), 1);
    f.press(Qt::Key_Escape);
    QCOMPARE(f.current(), f.window->editor());
}

void TestQuickMenu::nestedMenusEnd()
{
    EditorFixture f;
    f.press({Qt::Key_F12, Qt::Key_F9, Qt::Key_Return});
    QCOMPARE(f.menu()->title(), QStringLiteral("Read delay"));
    QCOMPARE(f.window->findChildren<MySubMenu*>().size(), 4);
    f.press(Qt::Key_Escape);
    QCOMPARE(f.menu()->title(), QStringLiteral("More settings"));
    f.press(Qt::Key_Escape);
    QCOMPARE(f.menu()->title(), QStringLiteral("Scan quick settings"));
    f.press(Qt::Key_Escape);
    QCOMPARE(f.current(), f.window->editor());
    QTRY_COMPARE(f.window->findChildren<MySubMenu*>().size(), 1);
}

QTEST_MAIN(TestQuickMenu)
#include "tst_quickmenu.moc"
