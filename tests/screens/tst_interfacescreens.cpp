#include "dict/dictswitch.h"
#include "platform/devicepaths.h"
#include "tests/screens/album.h"
#include "tests/screens/interfacelanguage.h"
#include "tests/screens/screenset.h"
#include "tests/shared/dictwindowfixture.h"
#include "tests/shared/questionwatcher.h"

#include <QApplication>
#include <QDir>
#include <QRegularExpression>
#include <QSettings>
#include <map>
#include <memory>

/*
 * Every screen that has texts of the interface, in each language of it: album interface/LANGUAGE.
 * Screens are reached by the keys of the pen wherever keys lead there.
 */
class TestInterfaceScreens : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase_data();
    void init();
    void cleanup();

    void mainMenus();
    void continueItem();
    void fileLists();
    void deleteQuestion();
    void renaming();
    void moreSettings();
    void editorMenus();
    void editorHints();
    void textThatIsNotSaved();
    void translateScreen();
    void wordThatIsNotFound();
    void chineseTextIsAskedFor();
    void nothingRecognisedForTranslation();
    void dictionaryMenus();
    void dictionarySelection();
    void messages();
    void everyTextIsShown();
    void everyPictureIsUsed();
    void everyAlbumHasALanguage();

private:
    /* What belongs to a language from the first test function to the last. */
    struct Shown
    {
        Shown(int code, const QString& albumName) : language(code), album(albumName) {}
        InterfaceLanguage language;
        Album album;
    };

    /* Presses keys and looks: "Down OK =scan-settings" compares with that picture, "." waits until
     * nothing is spoken. Whatever differs is noted, and fails the test at its end. */
    void walk(WindowFixture& f, const QString& script);
    void look(QWidget* screen, const QString& picture);
    /* Asks by the key and looks at the question with Yes, then with No. */
    void lookAtQuestion(WindowFixture& f, const QString& picture);
    std::function<void()> prepared(const std::function<void()>& more = nullptr) const;

    std::map<int, Shown> m_shown; // by the language's code
    Shown* m_current = nullptr;
    QStringList m_problems;
};

namespace {

const QString Pictures = QStringLiteral(SWIPELINE_SOURCE_DIR "/tests/screens/pictures/interface");
const QStringList Files = {QStringLiteral("chapter 1"), QStringLiteral("letter"),
                           QStringLiteral("shopping 2")};

struct Language
{
    const char* name;
    int code;
};

constexpr Language Languages[] = {
    {"english", 101}, {"french", 103},  {"german", 104},           {"spanish", 105},
    {"italian", 106}, {"russian", 151}, {"simplified-chinese", 1}, {"traditional-chinese", 2}};

const QMap<QString, Qt::Key> Keys = {
    {QStringLiteral("Up"), Qt::Key_Up},     {QStringLiteral("Down"), Qt::Key_Down},
    {QStringLiteral("Left"), Qt::Key_Left}, {QStringLiteral("Right"), Qt::Key_Right},
    {QStringLiteral("OK"), Qt::Key_Return}, {QStringLiteral("Esc"), Qt::Key_Escape},
    {QStringLiteral("F7"), Qt::Key_F7},     {QStringLiteral("F8"), Qt::Key_F8},
    {QStringLiteral("F9"), Qt::Key_F9},     {QStringLiteral("F11"), Qt::Key_F11},
    {QStringLiteral("F12"), Qt::Key_F12}};

// "No available files!" is the picture "message-no-available-files".
QString pictureOf(const QString& text)
{
    constexpr int Words = 6; // enough to tell them apart
    static const QRegularExpression others(QStringLiteral("[^a-z0-9]+"));
    return QStringLiteral("message-")
           + text.toLower().split(others, Qt::SkipEmptyParts).mid(0, Words).join(u'-');
}

FakeDic::Dictionary named(const std::u16string& name)
{
    return DictWindowFixture::dictionary(name, {});
}

// The names of the pairs are those of the engine; each language that it has is in two of them, as
// the first and as the second. The
// screen to translate is silent, so that no picture waits for a voice.
void installDictionaries()
{
    FakeDic::Dictionary words = named(u"FreeDict");
    words.entries[u"run"] = {{u"run", u"laufen, rennen"}, {u"run", u"Lauf [m]"}};
    words.origin = u"Source: freedict.org\nLicence: GPL";
    FakeDic::addPair(101, 104, u"English-German", {words, named(u"Small")});
    FakeDic::addPair(1, 103, u"Chinese-French", {named(u"CC-CEDICT")});
    FakeDic::addPair(105, 106, u"Spanish-Italian", {});
    FakeDic::addPair(107, 108, u"Swedish-Danish", {named(u"Ord")});
    FakeDic::addPair(109, 110, u"Norwegian-Dutch", {named(u"Ord")});
    FakeDic::addPair(111, 151, u"Portuguese-Russian", {named(u"Palavras")});
    FakeDic::addPair(152, 109, u"Arabic-Norwegian", {named(u"A")});
    FakeDic::addPair(103, 105, u"French-Spanish", {named(u"Mots")});
    FakeDic::addPair(104, 107, u"German-Swedish", {named(u"Ord")});
    FakeDic::addPair(106, 101, u"Italian-English", {named(u"Parole")});
    FakeDic::addPair(108, 152, u"Danish-Arabic", {named(u"A")});
    FakeDic::addPair(110, 111, u"Dutch-Portuguese", {named(u"Palavras")});
    FakeDic::addPair(151, 1, u"Russian-Chinese", {named(u"A")});
    QSettings settings(devicePath(QStringLiteral("/apps/config/config.ini")), QSettings::IniFormat);
    settings.setValue(QStringLiteral("DictTrans/ReadControl"), 1);
}

} // namespace

void TestInterfaceScreens::initTestCase_data()
{
    QTest::addColumn<QString>("folder");
    QTest::addColumn<int>("code");
    for (const Language& language : Languages)
        QTest::newRow(language.name) << QString::fromLatin1(language.name) << language.code;
}

void TestInterfaceScreens::init()
{
    QFETCH_GLOBAL(QString, folder);
    QFETCH_GLOBAL(int, code);
    auto found = m_shown.find(code);
    if (found == m_shown.end()) {
        const QString album = QStringLiteral("interface/") + folder;
        found = m_shown.try_emplace(code, code, album).first;
    }
    m_current = &found->second;
    m_problems.clear();
    QVERIFY2(m_current->language.isLoaded(), "build the target translations");
    QVERIFY(QCoreApplication::installTranslator(&m_current->language));
}

void TestInterfaceScreens::cleanup()
{
    QCoreApplication::removeTranslator(&m_current->language);
    QVERIFY2(m_problems.isEmpty(), qPrintable(m_problems.join(u'\n')));
}

std::function<void()> TestInterfaceScreens::prepared(const std::function<void()>& more) const
{
    return [this, more] {
        m_current->language.chooseOnPen();
        if (more)
            more();
    };
}

void TestInterfaceScreens::look(QWidget* screen, const QString& picture)
{
    if (auto* const menu = qobject_cast<MySubMenu*>(screen))
        menu->setAnimated(false);
    if (!m_current->album.shows(screen, picture))
        m_problems.append(m_current->album.problem());
}

void TestInterfaceScreens::walk(WindowFixture& f, const QString& script)
{
    const QStringList words = script.simplified().split(u' ');
    for (const QString& word : words) {
        if (word.startsWith(u'=')) {
            look(f.current(), word.mid(1));
            continue;
        }
        if (word == QLatin1String(".")) {
            f.hush();
            continue;
        }
        QVERIFY2(Keys.contains(word), qPrintable(word));
        QTest::keyClick(f.current(), Keys.value(word));
    }
}

void TestInterfaceScreens::lookAtQuestion(WindowFixture& f, const QString& picture)
{
    QuestionWatcher questions;
    questions.act([&](YesnoSelect* dialog) {
        dialog->setAnimated(false);
        look(dialog, picture + QStringLiteral("-yes"));
        QTest::keyClick(dialog, Qt::Key_Right);
        look(dialog, picture + QStringLiteral("-no"));
        dialog->reject();
    });
    f.press(Qt::Key_Return);
    QCOMPARE(questions.count(), 1);
}

void TestInterfaceScreens::mainMenus()
{
    WindowFixture f({}, prepared());
    walk(f, QStringLiteral("=main-first Down Down Down =main-last OK =scan-settings"));
    walk(f,
         QStringLiteral("OK =languages-stored Up Up Up Up Up Up Up Up Up Up Up =languages-first"));
    walk(f, QStringLiteral("Down Down Down Down Down Down Down Down Down Down Down "
                           "=languages-last Esc"));
    walk(f, QStringLiteral("Down OK =reading Right =reading-off Left Down =reading-speed "
                           "Down =word-pause Down =punctuation-pause Down =volume"));
}

void TestInterfaceScreens::continueItem()
{
    WindowFixture f({QStringLiteral("shopping 2")}, prepared());
    walk(f, QStringLiteral("=main-continue Down =main-continue-below"));
}

void TestInterfaceScreens::fileLists()
{
    WindowFixture f(Files, prepared());
    walk(f, QStringLiteral("Down Down OK =open-list Esc Down OK =delete-list"));
}

void TestInterfaceScreens::deleteQuestion()
{
    WindowFixture f(Files, prepared());
    f.window->deleteFileMenu();
    lookAtQuestion(f, QStringLiteral("delete"));
}

void TestInterfaceScreens::renaming()
{
    WindowFixture f({QStringLiteral("shopping 2")}, prepared());
    walk(f, QStringLiteral("Down Down OK F11 =rename-hint Esc"));
    f.window->Recognize(QStringLiteral("kitchen 12"));
    look(f.current(), QStringLiteral("rename-input"));
    lookAtQuestion(f, QStringLiteral("rename"));
}

void TestInterfaceScreens::moreSettings()
{
    WindowFixture f({}, prepared());
    walk(f, QStringLiteral("F9 =more-first OK =delay Down Down Down =delay-last Esc"));
    walk(f, QStringLiteral("Down OK =voice Esc Down OK =direction Down =direction-vertical Esc"));
    walk(f, QStringLiteral("Down OK =read-translation Esc Down Down =more-last"));
}

void TestInterfaceScreens::editorMenus()
{
    WindowFixture f({}, prepared());
    f.window->newFile();
    QTRY_COMPARE(f.current(), static_cast<QWidget*>(f.window->editor()));
    walk(f, QStringLiteral("F12 =quick-first Down Down Down =quick-middle Down Down =quick-last"));
}

void TestInterfaceScreens::editorHints()
{
    WindowFixture f({}, prepared());
    f.window->newFile();
    QTRY_COMPARE(f.current(), static_cast<QWidget*>(f.window->editor()));
    walk(f, QStringLiteral("OK =hint-no-text"));
    QVERIFY(f.window->editor()->appendText(QStringLiteral("It was the best of times.")));
    f.window->editor()->moveCursor(QTextCursor::End);
    walk(f, QStringLiteral("Right =hint-end-of-text"));
    f.window->editor()->gotoBeginEdit();
    walk(f, QStringLiteral("Left =hint-start-of-text"));
    f.hush();
    swipeOver(u"");
    QTRY_COMPARE(f.lastHeard(), MyEdit::tr("Nothing recognised."));
    look(f.current(), QStringLiteral("hint-nothing-recognised"));
    f.hush();
}

void TestInterfaceScreens::textThatIsNotSaved()
{
    const QString name = QStringLiteral("letter");
    WindowFixture f({name}, prepared());
    f.window->continueFile();
    QTRY_COMPARE(f.current(), static_cast<QWidget*>(f.window->editor()));
    const QString journal = f.state.root.path(QStringLiteral("/apps/config/store.jnl"));
    QFile::remove(journal);
    QVERIFY(QDir().mkpath(journal)); // nowhere else to keep it
    QVERIFY(f.window->editor()->appendText(QStringLiteral("Dear reader,")));
    const QString path = f.state.root.path(QStringLiteral("/mnt/mmc/e_ScanFile/letter.txt"));
    QVERIFY(QFile::remove(path));
    QVERIFY(QDir().mkpath(path + QStringLiteral("/in the way")));
    walk(f, QStringLiteral("Esc =hint-not-saved"));
    f.hush();
    QVERIFY(QDir(path).removeRecursively());
    f.press(Qt::Key_Escape);
}

void TestInterfaceScreens::translateScreen()
{
    DictWindowFixture f(QStringLiteral("run"), prepared(installDictionaries));
    f.translate();
    walk(f, QStringLiteral(
                "F7 =hint-first-entry . F8 F8 =hint-last-entry . Left =hint-start-of-line"));
    walk(f, QStringLiteral(". Right =hint-end-of-line . Down Down =hint-end-of-entry"));
    f.settle();
}

void TestInterfaceScreens::wordThatIsNotFound()
{
    DictWindowFixture f(QStringLiteral("xyzzy"), prepared(installDictionaries));
    f.translate();
    look(f.current(), QStringLiteral("no-result"));
    f.settle();
}

void TestInterfaceScreens::chineseTextIsAskedFor()
{
    DictWindowFixture f(QStringLiteral("run"), prepared(installDictionaries));
    f.window->changeDict(1, 0, 1);
    f.settle();
    f.translate();
    look(f.current(), QStringLiteral("scan-chinese"));
    f.settle();
}

void TestInterfaceScreens::nothingRecognisedForTranslation()
{
    DictWindowFixture f(QStringLiteral("run"), prepared(installDictionaries));
    f.translate();
    swipeOver(u"");
    QTRY_COMPARE(f.lastSpoken(), MainWindow::tr("Nothing recognised."));
    look(f.current(), QStringLiteral("hint-nothing-recognised-here"));
    f.settle();
}

void TestInterfaceScreens::dictionaryMenus()
{
    DictWindowFixture f(QStringLiteral("run"), prepared(installDictionaries));
    f.translate();
    walk(f, QStringLiteral("F12 =dict-menu Down OK =dict-page Down Down =dict-page-last Esc Esc"));
    f.window->newWords(); // the one that was just looked up
    walk(f, QStringLiteral("=new-words Esc"));
    f.window->aboutDictionaries();
    walk(f, QStringLiteral("=dictionaries Down Down Down =dictionaries-last Esc"));
    f.settle();
}

void TestInterfaceScreens::dictionarySelection()
{
    DictWindowFixture f(QStringLiteral("run"), prepared(installDictionaries));
    f.window->selectDicFun();
    const auto* const selection = qobject_cast<DictSwitch*>(f.current());
    QVERIFY(selection);
    for (int pair = 1; pair <= selection->GetDictCount(); ++pair)
        walk(f, QStringLiteral("=pair-%1 Right").arg(pair));
    f.settle();
}

void TestInterfaceScreens::messages()
{
    const QList<InterfaceLanguage::Text> texts =
        textsAt(QStringLiteral("message")) + textsAt(QStringLiteral("full"));
    QVERIFY(!texts.isEmpty());
    for (const auto& [context, text] : texts) {
        MessageDialog dialog(nullptr, QCoreApplication::translate(context.toLatin1().constData(),
                                                                  text.toUtf8().constData()));
        look(&dialog, pictureOf(text));
    }
}

// Whoever adds a text adds the place where it is shown.
void TestInterfaceScreens::everyTextIsShown()
{
    const QList<InterfaceLanguage::Text> heard = textsAt(QStringLiteral("spoken"));
    const QList<InterfaceLanguage::Text> asked = m_current->language.neverAsked();
    for (const InterfaceLanguage::Text& text : asked) {
        if (!heard.contains(text))
            m_problems.append(QStringLiteral("never shown: %1: %2").arg(text.first, text.second));
    }
}

void TestInterfaceScreens::everyPictureIsUsed()
{
    QCOMPARE(m_current->album.unused(), QStringList());
}

void TestInterfaceScreens::everyAlbumHasALanguage()
{
    QStringList names;
    for (const Language& language : Languages)
        names.append(QString::fromLatin1(language.name));
    const QStringList folders = QDir(Pictures).entryList(QDir::AllEntries | QDir::NoDotAndDotDot);
    QCOMPARE(QSet<QString>(folders.begin(), folders.end()),
             QSet<QString>(names.begin(), names.end()));
}

SCREEN_TEST_MAIN(TestInterfaceScreens)
#include "tst_interfacescreens.moc"
