#include "tests/fakes/calls.h"
#include "tests/shared/swipes.h"
#include "tests/shared/testobjects.h"
#include "tests/unit/app/editorwindowfixture.h"
#include "widgets/sandglass.h"

/* The menus that lie over the editor: dictionaries, languages and direction, and what the launcher
 * wants meanwhile. */
class TestQuickMenuSettings : public QObject
{
    Q_OBJECT

private slots:
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
    void nestedMenusEnd();
};

void TestQuickMenuSettings::translateWithoutWordSaysSo()
{
    EditorWindowFixture f(QStringLiteral("one  "));
    f.window->editor()->moveCursor(QTextCursor::End);
    QVERIFY(f.window->editor()->getWordFromMyEdit().isEmpty());
    f.chooseQuick(EditorWindowFixture::Translate);
    QCOMPARE(f.messages.texts(), QStringList{"word is null"});
    QTRY_COMPARE(f.lastSpoken(), QStringLiteral("word is null"));
    QVERIFY(!g_InDict);
    QCOMPARE(f.current(), f.window->editor());
    QCOMPARE(f.window->focusWidget(), f.current());
}

void TestQuickMenuSettings::translateWithoutEditorSaysSo()
{
    WindowFixture f;
    f.window->transWordFun();
    QCOMPARE(f.messages.texts(), QStringList{"word is null"});
}

void TestQuickMenuSettings::nothingIsInstalled_data()
{
    QTest::addColumn<int>("item");
    QTest::newRow("translate") << int(EditorWindowFixture::Translate);
    QTest::newRow("select") << int(EditorWindowFixture::SelectDictionary);
}

void TestQuickMenuSettings::nothingIsInstalled()
{
    QFETCH(int, item);
    EditorWindowFixture f;
    f.window->editor()->gotoBeginEdit();
    f.chooseQuick(item);
    QCOMPARE(f.messages.texts(), QStringList{"No dictionary is installed."});
    QTRY_COMPARE(f.lastSpoken(), QStringLiteral("No dictionary is installed."));
    QCOMPARE(f.window->focusWidget(), f.current());
    QVERIFY(!g_InDict);
}

void TestQuickMenuSettings::enterOnALanguageLeadsIntoTheEditor()
{
    EditorWindowFixture f;
    f.press(Qt::Key_F12);
    const QPointer<MySubMenu> quick(f.menu());
    f.press(Qt::Key_Escape);
    f.settle();
    f.chooseQuick(EditorWindowFixture::Languages);
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

void TestQuickMenuSettings::escapeOnALanguageLeadsToTheQuickMenu()
{
    EditorWindowFixture f;
    f.chooseQuick(EditorWindowFixture::Languages);
    f.press({Qt::Key_Up, Qt::Key_Escape});
    QCOMPARE(f.menu()->title(), QStringLiteral("Scan quick settings"));
    QVERIFY(FakeIap::stopSignal());
    QTRY_COMPARE(ConfigReader::Instance()->getLanInfo(), 2);
    f.press(Qt::Key_Escape);
    QCOMPARE(f.current(), f.window->editor());
    QVERIFY(!FakeIap::stopSignal());
}

void TestQuickMenuSettings::languageReachesTheScanEngine()
{
    EditorWindowFixture f;
    QCOMPARE(FakeIap::script(), 1);
    f.chooseQuick(EditorWindowFixture::Languages);
    f.press({Qt::Key_Down, Qt::Key_Down, Qt::Key_Down, Qt::Key_Down, Qt::Key_Return});
    QTRY_COMPARE(FakeIap::script(), 0); // Chinese
    QVERIFY(FakeIap::isStarted());
}

void TestQuickMenuSettings::languageDoesNotCutReadingOff()
{
    EditorWindowFixture f;
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

void TestQuickMenuSettings::directionTakesEffectAtOnce()
{
    EditorWindowFixture f;
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
    swipeOver(u"scan");
    QTRY_VERIFY(f.window->editor()->documentText().contains(QStringLiteral("scan")));
}

void TestQuickMenuSettings::directionWithoutAChangeLeavesTheEngineAlone()
{
    EditorWindowFixture f;
    f.window->newDicQuick();
    CallLog::clear();
    f.press(Qt::Key_Return);
    QCOMPARE(f.current(), f.window->editor());
    QVERIFY(fakes::calls("ZEMBRA_IAP_Uninitialize").isEmpty());
    QVERIFY(fakes::calls("ZEMBRA_IAP_Initialize").isEmpty());
}

void TestQuickMenuSettings::saveWorksUnderAMenu_data()
{
    QTest::addColumn<QByteArray>("word");
    QTest::newRow("save") << QByteArray("save");
    QTest::newRow("save without tip") << QByteArray("savenochujiao");
}

void TestQuickMenuSettings::saveWorksUnderAMenu()
{
    QFETCH(QByteArray, word);
    EditorWindowFixture f(QStringLiteral("a"));
    f.chooseQuick(EditorWindowFixture::Languages);
    QWidget* opened = f.current();
    f.execute(word);
    QCOMPARE(f.newFileOnCard().size(), 6);
    QCOMPARE(f.current(), opened);
    QVERIFY(f.window->editor()->isBound());
}

void TestQuickMenuSettings::stopSavesUnderAMenu()
{
    EditorWindowFixture f(QStringLiteral("a"));
    f.chooseQuick(EditorWindowFixture::Languages);
    f.execute("stop");
    QCOMPARE(f.newFileOnCard().size(), 6);
    QVERIFY(!f.window->isVisible());
    QVERIFY(FakeIap::stopSignal());
}

void TestQuickMenuSettings::usbSavesAndReopensUnderAMenu()
{
    EditorWindowFixture f(QStringLiteral("a"));
    f.chooseQuick(EditorWindowFixture::Languages);
    f.usb("plug");
    QCOMPARE(f.newFileOnCard().size(), 6);
    QCOMPARE(f.menu()->title(), QStringLiteral("Scan to file"));
    QVERIFY(!f.current()->isEnabled());
    f.usb("delete");
    QTRY_COMPARE(f.current(), f.window->editor());
    QCOMPARE(f.window->editor()->documentText(), QStringLiteral("a "));
    QTRY_COMPARE(f.window->findChildren<MySubMenu*>().size(), 1);
}

void TestQuickMenuSettings::nestedMenusEnd()
{
    EditorWindowFixture f;
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

TEST_OBJECT(TestQuickMenuSettings)
#include "tst_quickmenu_settings.moc"
