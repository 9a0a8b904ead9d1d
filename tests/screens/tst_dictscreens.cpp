#include "dict/dictscanedit.h"
#include "engines/csoundsrcthread.h"
#include "engines/csoundtransthread.h"
#include "engines/translater.h"
#include "tests/fakes/faketts.h"
#include "tests/screens/album.h"
#include "tests/screens/screenset.h"
#include "tests/shared/applicationstate.h"
#include "tests/shared/translatescreen.h"

#include <QApplication>
#include <QTextEdit>

/* The translate screen. */
class TestDictScreens : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void empty();
    void word();
    void wordInALine();
    void inflectedWord();
    void longEntry();
    void severalEntries();
    void noResult();
    void chineseTextIsAskedFor();
    void joinedWord();
    void longLine();
    void longWord();
    void wholeEntry();
    void wholeShortEntry();
    void storedWord();
    void spokenWord_data();
    void spokenWord();
    void hints();
    void scripts_data();
    void scripts();
    void everyPictureIsUsed();

private:
    using Entry = translatescreen::Entry;

    void open(int language, int endLanguage, const QList<Entry>& entries);
    void openEnglish();
    void press(Qt::Key key) { QTest::keyClick(m_edit.get(), key); }

    Album m_album{QStringLiteral("dict")};
    std::unique_ptr<ApplicationState> m_state;
    std::unique_ptr<DictScanEdit> m_edit;
};

void TestDictScreens::init()
{
    m_state = std::make_unique<ApplicationState>();
    // Silent, but where a test reads aloud.
    m_state->root.setSetting(QStringLiteral("DictTrans/ReadControl"), 1);
    QVERIFY(translatescreen::installMark(m_state->root));
}

void TestDictScreens::cleanup()
{
    m_edit.reset();
    Translater::quitFun();
    m_state.reset();
}

void TestDictScreens::open(int language, int endLanguage, const QList<Entry>& entries)
{
    translatescreen::addDictionary(language, endLanguage, entries);
    m_state->load();
    m_edit = std::make_unique<DictScanEdit>(nullptr, true);
    m_edit->setFixedSize(256, 64);
    m_edit->setTransLan(0, 0);
    g_InDict = true;
    m_edit->show();
    m_edit->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_edit.get()));
}

void TestDictScreens::openEnglish()
{
    open(101, 104,
         {{"house", "Haus [n], Heim [n]\n[haus]"},
          {"pen", "Stift [m], Feder [f]\n[pen]"},
          {"ran", "laufen, rennen", "run"},
          {"run", "1. laufen, rennen 2. fließen 3. leiten, führen 4. verkehren\n[ran] [v]\n"
                  "Synonyms: hurry, dash\n\"They ran home.\" - Sie rannten heim.\nNote: irregular"},
          {"run", "Lauf [m]\n[ran]"},
          {"run", "Laufmasche [f]"},
          {"international", "international, zwischenstaatlich"},
          {"green", "grün"}});
}

void TestDictScreens::empty()
{
    openEnglish();
    COMPARE_SCREEN(m_album, m_edit.get(), "empty");
}

void TestDictScreens::word()
{
    openEnglish();
    m_edit->setScanText(QStringLiteral("house"), true);
    COMPARE_SCREEN(m_album, m_edit.get(), "word");
}

void TestDictScreens::wordInALine()
{
    openEnglish();
    m_edit->takeScan(QStringLiteral("The pen reads what it sees."));
    COMPARE_SCREEN(m_album, m_edit.get(), "line");
}

void TestDictScreens::inflectedWord()
{
    openEnglish();
    m_edit->setScanText(QStringLiteral("they ran home"), true);
    press(Qt::Key_Right);
    COMPARE_SCREEN(m_album, m_edit.get(), "inflected");
}

void TestDictScreens::longEntry()
{
    openEnglish();
    m_edit->setScanText(QStringLiteral("run"), true);
    COMPARE_SCREEN(m_album, m_edit.get(), "long-entry");
}

void TestDictScreens::severalEntries()
{
    openEnglish();
    m_edit->setScanText(QStringLiteral("run"), true);
    press(Qt::Key_F8);
    COMPARE_SCREEN(m_album, m_edit.get(), "second-entry");
    press(Qt::Key_F8);
    COMPARE_SCREEN(m_album, m_edit.get(), "last-entry");
}

void TestDictScreens::noResult()
{
    openEnglish();
    m_edit->setScanText(QStringLiteral("xyzzy"), true);
    COMPARE_SCREEN(m_album, m_edit.get(), "no-result");
}

void TestDictScreens::chineseTextIsAskedFor()
{
    open(1, 101, {{QStringLiteral("中"), "middle"}});
    m_edit->takeScan(QStringLiteral("The pen reads."));
    COMPARE_SCREEN(m_album, m_edit.get(), "scan-chinese");
    press(Qt::Key_Down);
    COMPARE_SCREEN(m_album, m_edit.get(), "scan-chinese-end");
}

void TestDictScreens::joinedWord()
{
    openEnglish();
    m_edit->takeScan(QStringLiteral("The inter-"));
    m_edit->takeScan(QStringLiteral("national pen"));
    COMPARE_SCREEN(m_album, m_edit.get(), "joined");
}

void TestDictScreens::longLine()
{
    openEnglish();
    m_edit->setScanText(QStringLiteral("A line of more words than the pane is wide, pen and all"),
                        true);
    while (m_edit->selectedWord() != QStringLiteral("pen"))
        QCOMPARE(m_edit->MoveNext(), 1);
    m_edit->changeTras();
    COMPARE_SCREEN(m_album, m_edit.get(), "long-line");
}

void TestDictScreens::longWord()
{
    open(104, 101, {{"Donaudampfschifffahrtsgesellschaft", "Danube steamboat company"}});
    m_edit->setScanText(QStringLiteral("Die Donaudampfschifffahrtsgesellschaft ruht."), true);
    press(Qt::Key_Right);
    COMPARE_SCREEN(m_album, m_edit.get(), "long-word");
}

void TestDictScreens::wholeEntry()
{
    openEnglish();
    m_edit->setScanText(QStringLiteral("run"), true);
    press(Qt::Key_Down);
    COMPARE_SCREEN(m_album, m_edit.get(), "whole");
    press(Qt::Key_Down);
    COMPARE_SCREEN(m_album, m_edit.get(), "whole-scrolled");
    press(Qt::Key_Escape);
    COMPARE_SCREEN(m_album, m_edit.get(), "long-entry");
}

void TestDictScreens::wholeShortEntry()
{
    openEnglish();
    m_edit->setScanText(QStringLiteral("green"), true);
    press(Qt::Key_Down);
    COMPARE_SCREEN(m_album, m_edit.get(), "whole-short");
    press(Qt::Key_Down);
    COMPARE_SCREEN(m_album, m_edit.get(), "whole-hint");
}

void TestDictScreens::storedWord()
{
    openEnglish();
    m_edit->showStored(QStringLiteral("in front of"), QStringLiteral("vor, gegenüber\n"));
    COMPARE_SCREEN(m_album, m_edit.get(), "stored");
}

void TestDictScreens::spokenWord_data()
{
    QTest::addColumn<int>("entry");
    QTest::addColumn<int>("words");
    QTest::addColumn<QString>("marked");
    QTest::newRow("spoken-first") << 0 << 2 << "laufen,";
    QTest::newRow("spoken-second-line") << 0 << 8 << QStringLiteral("führen");
    QTest::newRow("spoken-second-entry") << 1 << 1 << "Lauf";
}

// The word that is heard is marked, and in view; the selected word stays so.
void TestDictScreens::spokenWord()
{
    QFETCH(int, entry);
    QFETCH(int, words);
    QFETCH(QString, marked);
    openEnglish();
    m_edit->setScanText(QStringLiteral("run"), true);
    m_edit->setCurIndex(entry);
    FakeTts::setPace(FakeTts::Pace::Held);
    m_edit->soundWordByTypeTrans();
    QTRY_VERIFY(FakeTts::isSpeaking());
    for (int i = 0; i < words; ++i)
        QVERIFY(FakeTts::speakWord());
    const auto* pane = m_edit->findChild<QTextEdit*>(QStringLiteral("editTrans"));
    QTRY_VERIFY(!pane->extraSelections().isEmpty()
                && pane->extraSelections().first().cursor.selectedText() == marked);
    QVERIFY2(m_album.shows(m_edit.get(), QString::fromLatin1(QTest::currentDataTag())),
             qPrintable(m_album.problem()));
    QVERIFY(FakeTts::finish());
    QTRY_VERIFY(!m_edit->transThread()->isRunning());
}

void TestDictScreens::hints()
{
    openEnglish();
    m_edit->setScanText(QStringLiteral("house"), true);
    press(Qt::Key_Right);
    COMPARE_SCREEN(m_album, m_edit.get(), "hint");
}

void TestDictScreens::scripts_data()
{
    QTest::addColumn<int>("from");
    QTest::addColumn<int>("to");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("word");
    QTest::addColumn<QString>("headword");
    QTest::addColumn<QString>("translation");
    QTest::newRow("chinese") << 1 << 101 << QStringLiteral("我们去中国人民大学。")
                             << QStringLiteral("我们去中国人民大") << QStringLiteral("我们")
                             << QStringLiteral("we, us, ourselves\n[wo3 men5]");
    QTest::newRow("to-chinese") << 101 << 1 << "pen and paper"
                                << "pen"
                                << "pen"
                                << QStringLiteral("笔，钢笔 [bǐ, gāngbǐ]；围栏，圈\n[pen]");
    QTest::newRow("russian") << 151 << 104 << QStringLiteral("Съешь ещё этих мягких булок.")
                             << QStringLiteral("Съешь") << QStringLiteral("съесть")
                             << QStringLiteral("aufessen, verspeisen");
    QTest::newRow("to-russian") << 104 << 151 << QStringLiteral("Größe") << QStringLiteral("Größe")
                                << QStringLiteral("Größe")
                                << QStringLiteral("размер [m], величина [f]");
    QTest::newRow("accents") << 103 << 101 << QStringLiteral("l'œuvre à côté") << "l"
                             << "le" << QStringLiteral("the");
}

void TestDictScreens::scripts()
{
    QFETCH(int, from);
    QFETCH(int, to);
    QFETCH(QString, text);
    QFETCH(QString, word);
    QFETCH(QString, headword);
    QFETCH(QString, translation);
    open(from, to, {{word, translation, headword}});
    m_edit->setScanText(text, true);
    QVERIFY2(m_album.shows(m_edit.get(), QString::fromLatin1(QTest::currentDataTag())),
             qPrintable(m_album.problem()));
}

void TestDictScreens::everyPictureIsUsed()
{
    QCOMPARE(m_album.unused(), QStringList());
}

SCREEN_TEST_MAIN(TestDictScreens)
#include "tst_dictscreens.moc"
