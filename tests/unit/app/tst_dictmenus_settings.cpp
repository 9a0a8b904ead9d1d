#include "app/mainwindow.h"
#include "engines/flags.h"
#include "engines/speechtext.h"
#include "tests/shared/dictwindowfixture.h"
#include "tests/shared/testobjects.h"
#include "widgets/ttsconfig.h"

/* The menus of dictionary mode, and the keys that every screen has. */
class TestDictMenusSettings : public QObject
{
    Q_OBJECT

private slots:
    void readSettingsAreBuiltOnce_data();
    void readSettingsAreBuiltOnce();
    void readSettingsOpenWithTheMenuKey();
    void readSettingsAreSpoken();
    void voiceLeadsBackToTheTranslation();
    void otherSettingsLeadBackToTheTranslation();
    void translationCanBeReadOrNot();
    void dictionaryIsTold();
    void anotherDictionaryIsChosenFromThere();
    void withoutDictionariesThatIsTold();
    void placeOnTheTranslateScreen();
    void placeOnTheSelectionScreen();
    void translationIsReadAgain();
    void placeIsSaidAgain();
    void moreSettingsOverATranslation();
    void moreSettingsNotOverTheSelection();
};

void TestDictMenusSettings::readSettingsAreBuiltOnce_data()
{
    QTest::addColumn<bool>("argument");
    QTest::newRow("on") << true;
    QTest::newRow("off") << false;
}

void TestDictMenusSettings::readSettingsAreBuiltOnce()
{
    QFETCH(bool, argument);
    DictWindowFixture f;
    f.translate();
    emit f.screen()->signalQuickset(argument);
    QWidget* const menu = f.current();
    QCOMPARE(f.menu()->title(), QStringLiteral("Dictionary Read Settings"));
    QCOMPARE(f.entries(), (QStringList{"English voice", "Other settings"}));
    QCOMPARE(f.menu()->geometry(), QRect(0, 0, 256, 64));
    QCOMPARE(f.menu()->getPrevWidget(), static_cast<QWidget*>(f.screen()));
    f.press({Qt::Key_Down, Qt::Key_Escape});
    QCOMPARE(f.current(), static_cast<QWidget*>(f.screen()));
    emit f.screen()->signalQuickset(argument);
    QCOMPARE(f.current(), menu);
    QCOMPARE(f.menu()->getCurIndex(), 0);
    f.settle();
}

void TestDictMenusSettings::readSettingsOpenWithTheMenuKey()
{
    DictWindowFixture f;
    f.translate();
    f.press(Qt::Key_F12);
    QCOMPARE(f.menu()->title(), QStringLiteral("Dictionary Read Settings"));
    QVERIFY(FakeIap::stopSignal());
    f.press(Qt::Key_Escape);
    QCOMPARE(f.current(), static_cast<QWidget*>(f.screen()));
    QVERIFY(!FakeIap::stopSignal());
    QVERIFY(g_InDict);
    f.settle();
}

void TestDictMenusSettings::readSettingsAreSpoken()
{
    DictWindowFixture f;
    f.translate();
    f.hush();
    f.press(Qt::Key_F12);
    f.settle();
    QVERIFY(f.lastHeard().startsWith(QStringLiteral("English voice") + pauseTag(500)));
    f.press(Qt::Key_Down);
    f.settle();
    QVERIFY(f.lastHeard().startsWith(QStringLiteral("Other settings") + pauseTag(500)));
    f.press(Qt::Key_Up);
    f.settle();
    QVERIFY(f.lastHeard().startsWith(QStringLiteral("English voice")));
}

void TestDictMenusSettings::voiceLeadsBackToTheTranslation()
{
    DictWindowFixture f;
    f.translate();
    f.press({Qt::Key_F12, Qt::Key_Return});
    QCOMPARE(f.menu()->title(), QStringLiteral("TTS Setting"));
    f.press({Qt::Key_Down, Qt::Key_Return});
    QCOMPARE(f.current(), static_cast<QWidget*>(f.screen()));
    QCOMPARE(ConfigReader::Instance()->getTTSDict(), 1);
    QVERIFY(g_InDict);
    QTRY_COMPARE(f.lastSpoken(), QStringLiteral("American English")); // nothing speaks before it
    QVERIFY(!FakeIap::stopSignal());
    f.press({Qt::Key_F12, Qt::Key_Return, Qt::Key_Escape});
    QCOMPARE(f.menu()->title(), QStringLiteral("Dictionary Read Settings"));
    f.settle();
}

void TestDictMenusSettings::otherSettingsLeadBackToTheTranslation()
{
    DictWindowFixture f;
    f.translate();
    f.press({Qt::Key_F12, Qt::Key_Down, Qt::Key_Return});
    QVERIFY(qobject_cast<TTSConfig*>(f.current()));
    f.press(Qt::Key_Right); // "Read OK" is off
    QCOMPARE(ConfigReader::Instance()->getReadControlDict(), 1);
    f.press(Qt::Key_Return);
    QCOMPARE(f.current(), static_cast<QWidget*>(f.screen()));
    QVERIFY(!FakeIap::stopSignal());
    f.settle();
    f.hush();
    f.press(Qt::Key_Right);
    f.settle();
    QCOMPARE(f.screen()->selectedWord(), QStringLiteral("house")); // there is only one
    QVERIFY(!f.heard().contains(QStringLiteral("Haus")));
}

void TestDictMenusSettings::translationCanBeReadOrNot()
{
    DictWindowFixture f;
    f.translate();
    f.chooseMore(QStringLiteral("Read translation"));
    QCOMPARE(f.entries(), (QStringList{"On", "Off"}));
    QCOMPARE(f.menu()->getCurIndex(), 0);
    f.press({Qt::Key_Down, Qt::Key_Return});
    QCOMPARE(f.current(), static_cast<QWidget*>(f.screen()));
    QCOMPARE(ConfigReader::Instance()->getReadTransDict(), 1);
    f.settle();
    f.hush();
    f.press(Qt::Key_Return);
    f.settle();
    QCOMPARE(f.heard(), QStringList{QStringLiteral("house")});
}

void TestDictMenusSettings::dictionaryIsTold()
{
    DictWindowFixture f;
    f.chooseMore(QStringLiteral("Dictionaries"));
    QCOMPARE(f.menu()->title(), QStringLiteral("Dictionaries"));
    QCOMPARE(f.entries(),
             (QStringList{"Small", "Source: old prints", "Licence: CC0", "Select dictionary"}));
    f.settle();
    QCOMPARE(f.lastSpoken().section(QStringLiteral("<"), 0, 0), QStringLiteral("Small"));
    f.press(Qt::Key_Down);
    f.settle();
    QVERIFY(f.lastSpoken().startsWith(QStringLiteral("Source: old prints")));
    f.press(Qt::Key_Escape);
    QCOMPARE(f.menu()->title(), QStringLiteral("More settings"));
    f.settle();
}

void TestDictMenusSettings::anotherDictionaryIsChosenFromThere()
{
    DictWindowFixture f;
    f.translate();
    f.chooseMore(QStringLiteral("Dictionaries"));
    f.press({Qt::Key_Down, Qt::Key_Down, Qt::Key_Down, Qt::Key_Return});
    QCOMPARE(f.current(), static_cast<QWidget*>(f.window->dictionarySwitch()));
    f.press({Qt::Key_Down, Qt::Key_Return});
    QCOMPARE(f.menu()->title(), QStringLiteral("More settings"));
    f.settle();
    QVERIFY(Translater::Instance()->isOpen(0, 1));
    f.press(Qt::Key_Escape);
    QCOMPARE(f.current(), static_cast<QWidget*>(f.screen()));
    QTRY_VERIFY(f.screen()->shownTranslation().contains(QStringLiteral("Geb\u00e4ude")));
    f.settle();
}

void TestDictMenusSettings::withoutDictionariesThatIsTold()
{
    DictWindowFixture f(QStringLiteral("house"), [] {});
    f.chooseMore(QStringLiteral("Dictionaries"));
    QCOMPARE(f.messages.texts(), QStringList{"No dictionary is installed."});
    QCOMPARE(f.menu()->title(), QStringLiteral("More settings"));
    f.settle();
}

void TestDictMenusSettings::placeOnTheTranslateScreen()
{
    DictWindowFixture f;
    f.translate();
    f.press(Qt::Key_F10);
    f.settle();
    QVERIFY2(f.lastSpoken().startsWith(f.screen()->placeText()), qPrintable(f.lastSpoken()));
    QVERIFY(f.lastSpoken().contains(QStringLiteral("house")));
    QVERIFY(f.lastSpoken().endsWith(QStringLiteral("Small")));
}

void TestDictMenusSettings::placeOnTheSelectionScreen()
{
    DictWindowFixture f;
    f.window->selectDicFun();
    f.settle();
    f.press(Qt::Key_F10);
    f.settle();
    QCOMPARE(f.lastSpoken(), QStringLiteral("Select dictionary. English - German. Small"));
    f.press(Qt::Key_Down);
    f.settle();
    QCOMPARE(f.lastSpoken(), QStringLiteral("Large"));
    f.press(Qt::Key_Right);
    f.settle();
    QCOMPARE(f.lastSpoken(), QStringLiteral("German - English. Deutsch"));
}

void TestDictMenusSettings::translationIsReadAgain()
{
    DictWindowFixture f;
    f.translate();
    f.hush();
    f.press(Qt::Key_Space);
    f.settle();
    QCOMPARE(f.heard(), (QStringList{"house", "Haus"}));
}

void TestDictMenusSettings::placeIsSaidAgain()
{
    DictWindowFixture f;
    f.translate();
    f.press(Qt::Key_F10);
    f.settle();
    const QString place = f.lastSpoken();
    f.hush();
    f.press(Qt::Key_Space);
    f.settle();
    QCOMPARE(f.heard(), QStringList{place});
}

void TestDictMenusSettings::moreSettingsOverATranslation()
{
    DictWindowFixture f;
    f.translate();
    f.press(Qt::Key_F9);
    QCOMPARE(f.menu()->title(), QStringLiteral("More settings"));
    f.press(Qt::Key_Return); // "Read delay"
    f.press(Qt::Key_Return); // the one that is chosen
    QCOMPARE(f.current(), static_cast<QWidget*>(f.screen()));
    QVERIFY(g_InDict);
    f.settle();
    f.press(Qt::Key_F9);
    f.press(Qt::Key_Escape);
    QCOMPARE(f.current(), static_cast<QWidget*>(f.screen()));
    QCOMPARE(f.screen()->selectedWord(), QStringLiteral("house"));
    f.settle();
}

void TestDictMenusSettings::moreSettingsNotOverTheSelection()
{
    DictWindowFixture f;
    f.window->selectDicFun();
    f.press(Qt::Key_F9);
    QCOMPARE(f.current(), static_cast<QWidget*>(f.window->dictionarySwitch()));
    f.settle();
}

TEST_OBJECT(TestDictMenusSettings)
#include "tst_dictmenus_settings.moc"
