#include "store/newwordmanager.h"
#include "tests/fakes/calls.h"
#include "tests/fakes/testroot.h"
#include "tests/unit/store/crashmodel.h"
#include "tests/unit/store/faultyoperations.h"

#include <QDir>
#include <QFile>
#include <QTest>
#include <cerrno>
#include <memory>

class TestNewWordManager : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void aMissingFileIsMade();
    void aFolderThatIsMissingIsMinusOne();
    void theFileIsLoaded();
    void loadingAgainLoadsNothingTwice();
    void moreThanTheMaximumIsLoaded();
    void entriesOutsideTheListAreNotGot();
    void whatIsPutIsInTheFile();
    void aTranslationComesBackWithALineEndMore();
    void aWordMayBePutTwice();
    void theOldestGoesWhenTheBookIsFull();
    void oneGoesAtATime();
    void withRoomForNoneTheNewestStays();
    void puttingLoadsTheFileFirst();
    void aFileThatCannotBeReadIsNotWrittenOver_data();
    void aFileThatCannotBeReadIsNotWrittenOver();
    void aFailureLeavesFileAndEntries();
    void aCutOfPowerLeavesTheOldBookOrTheNewOne_data();
    void aCutOfPowerLeavesTheOldBookOrTheNewOne();
    void theStorageIsSynced();
    void quittingForgets();

private:
    static NewWordManager& book() { return *NewWordManager::Instance(); }
    static QByteArray block(const QByteArray& word, const QByteArray& translation);
    static QString bookPlace() { return QStringLiteral("/apps/config/newword.cfg"); }
    static WordItem entry(int index);
    QByteArray file() const { return m_root->read(bookPlace()); }

    std::unique_ptr<TestRoot> m_root;
};

QByteArray TestNewWordManager::block(const QByteArray& word, const QByteArray& translation)
{
    return "<WORD>\n" + word + "\n</WORD_END>\n<TRANS_BEGIN>\n" + translation + "\n</TRANS_END>\n";
}

WordItem TestNewWordManager::entry(int index)
{
    WordItem item;
    book().get(index, item);
    return item;
}

void TestNewWordManager::init()
{
    m_root = std::make_unique<TestRoot>();
    fakes::reset();
    NewWordManager::quitFun();
}

void TestNewWordManager::cleanup()
{
    NewWordManager::quitFun();
    m_root.reset();
}

void TestNewWordManager::aMissingFileIsMade()
{
    QVERIFY(!m_root->exists(bookPlace()));
    QCOMPARE(book().init(), 0);
    QVERIFY(m_root->exists(bookPlace()));
    QCOMPARE(file(), QByteArray());
    QCOMPARE(book().getSize(), 0);
    QCOMPARE(fakes::calls(), QStringList{"syncStorage()"});
}

void TestNewWordManager::aFolderThatIsMissingIsMinusOne()
{
    QVERIFY(QDir(m_root->path(QStringLiteral("/apps/config"))).removeRecursively());
    QCOMPARE(book().init(), -1);
    QCOMPARE(book().getSize(), 0);
    QCOMPARE(book().flush(), -1);
    QCOMPARE(fakes::calls(), QStringList());
}

void TestNewWordManager::theFileIsLoaded()
{
    m_root->write(bookPlace(), block("one", "eins\nzwei") + block("\xC4\xE3", "x"));
    QCOMPARE(book().init(), 0);
    QCOMPARE(book().getSize(), 2);
    QCOMPARE(entry(0).word, QStringLiteral("one"));
    QCOMPARE(entry(0).translation, QStringLiteral("eins\nzwei\n"));
    QCOMPARE(entry(1).word, QStringLiteral("你"));
}

void TestNewWordManager::loadingAgainLoadsNothingTwice()
{
    m_root->write(bookPlace(), block("one", "eins"));
    QCOMPARE(book().init(), 0);
    QCOMPARE(book().init(), 0);
    QCOMPARE(book().getSize(), 1);
}

void TestNewWordManager::moreThanTheMaximumIsLoaded()
{
    m_root->write(bookPlace(), block("one", "eins").repeated(150));
    QCOMPARE(book().init(), 0);
    QCOMPARE(book().getSize(), 150);
}

void TestNewWordManager::entriesOutsideTheListAreNotGot()
{
    m_root->write(bookPlace(), block("one", "eins"));
    book().init();
    WordItem item{QStringLiteral("kept"), QString()};
    QVERIFY(!book().get(-1, item));
    QVERIFY(!book().get(1, item));
    QCOMPARE(item.word, QStringLiteral("kept"));
    QVERIFY(book().get(0, item));
    QCOMPARE(item.word, QStringLiteral("one"));
}

void TestNewWordManager::whatIsPutIsInTheFile()
{
    QCOMPARE(book().put(QStringLiteral("one"), QStringLiteral("eins")), 0);
    QCOMPARE(file(), block("one", "eins"));
    QCOMPARE(book().put(QStringLiteral("two"), QStringLiteral("zwei\n2")), 0);
    QCOMPARE(file(), block("one", "eins") + block("two", "zwei\n2"));
    QCOMPARE(book().getSize(), 2);
}

void TestNewWordManager::aTranslationComesBackWithALineEndMore()
{
    QCOMPARE(book().put(QStringLiteral("one"), QStringLiteral("a\nb")), 0);
    QCOMPARE(entry(0).translation, QStringLiteral("a\nb"));
    QCOMPARE(book().init(), 0);
    QCOMPARE(entry(0).translation, QStringLiteral("a\nb\n"));
    QCOMPARE(book().flush(), 0);
    QCOMPARE(file(), block("one", "a\nb\n"));
}

void TestNewWordManager::aWordMayBePutTwice()
{
    book().put(QStringLiteral("one"), QStringLiteral("eins"));
    book().put(QStringLiteral("one"), QStringLiteral("eins"));
    QCOMPARE(book().getSize(), 2);
}

void TestNewWordManager::theOldestGoesWhenTheBookIsFull()
{
    QByteArray expected;
    for (int i = 0; i < 101; ++i) {
        QCOMPARE(book().put(QString::number(i), QStringLiteral("x")), 0);
        if (i > 0)
            expected += block(QByteArray::number(i), "x");
        QCOMPARE(book().getSize(), qMin(i + 1, 100));
    }
    QCOMPARE(file(), expected);
    QCOMPARE(file().count("<WORD>\n"), 100);
}

void TestNewWordManager::oneGoesAtATime()
{
    for (int i = 0; i < 5; ++i)
        book().put(QString::number(i), QString());
    book().setMaxNum(2);
    QCOMPARE(book().getSize(), 5);
    QCOMPARE(book().put(QStringLiteral("new"), QString()), 0);
    QCOMPARE(book().getSize(), 5);
    QCOMPARE(entry(0).word, QStringLiteral("1"));
    QCOMPARE(entry(4).word, QStringLiteral("new"));
}

void TestNewWordManager::withRoomForNoneTheNewestStays()
{
    for (const int number : {0, -5}) {
        book().setMaxNum(number);
        QCOMPARE(book().put(QString::number(number), QString()), 0);
        QCOMPARE(book().getSize(), 1);
        QCOMPARE(entry(0).word, QString::number(number));
    }
}

void TestNewWordManager::puttingLoadsTheFileFirst()
{
    m_root->write(bookPlace(), block("one", "eins"));
    QCOMPARE(book().put(QStringLiteral("two"), QStringLiteral("zwei")), 0);
    QCOMPARE(book().getSize(), 2);
    QVERIFY(file().startsWith(block("one", "eins\n")));
}

void TestNewWordManager::aFileThatCannotBeReadIsNotWrittenOver_data()
{
    QTest::addColumn<bool>("tooLarge");
    QTest::newRow("read error") << false;
    QTest::newRow("too large") << true;
}

void TestNewWordManager::aFileThatCannotBeReadIsNotWrittenOver()
{
    QFETCH(bool, tooLarge);
    const QByteArray content =
        block("one", "eins") + QByteArray(tooLarge ? 17 * 1024 * 1024 : 0, 'x');
    m_root->write(bookPlace(), content);
    {
        FaultyOperations faulty;
        if (!tooLarge)
            faulty.failAt(FaultyOperations::Call::Read, 1, EIO);
        QCOMPARE(book().init(), -1);
    }
    QCOMPARE(book().put(QStringLiteral("two"), QStringLiteral("zwei")), -1);
    QCOMPARE(book().flush(), -1);
    QVERIFY(file() == content);
    QCOMPARE(book().getSize(), 1);
    if (tooLarge)
        return;
    // Once it can be read, everything goes on.
    QCOMPARE(book().init(), 0);
    QCOMPARE(book().put(QStringLiteral("two"), QStringLiteral("zwei")), 0);
    QCOMPARE(book().getSize(), 2);
}

void TestNewWordManager::aFailureLeavesFileAndEntries()
{
    book().put(QStringLiteral("one"), QStringLiteral("eins"));
    const QByteArray before = file();
    CallLog::clear();
    int failures = 0;
    for (int nth = 1;; ++nth) {
        FaultyOperations faulty;
        faulty.failAtAny(nth, ENOSPC, true);
        const int result = book().flush();
        if (!faulty.hasFailed()) {
            QCOMPARE(result, 0);
            break;
        }
        if (result == -1)
            ++failures;
        QCOMPARE(file(), before);
        QCOMPARE(book().getSize(), 1);
    }
    QVERIFY(failures >= 4);
    QVERIFY(!m_root->exists(bookPlace() + QStringLiteral(".new")));
}

// As the internal flash behaves.
void TestNewWordManager::aCutOfPowerLeavesTheOldBookOrTheNewOne_data()
{
    QTest::addColumn<int>("kind");
    QTest::newRow("killed") << int(CrashModel::Kind::Killed);
    QTest::newRow("ext4") << int(CrashModel::Kind::Ext4);
}

void TestNewWordManager::aCutOfPowerLeavesTheOldBookOrTheNewOne()
{
    QFETCH(int, kind);
    // Several sectors each.
    book().put(QStringLiteral("old"), QStringLiteral("translation ").repeated(100));
    const QByteArray before = file();
    CrashModel model(m_root->path(QString()));
    QCOMPARE(book().put(QStringLiteral("new"), QStringLiteral("another ").repeated(100)), 0);
    FileOperations::setCurrent(nullptr);
    const QByteArray after = file();
    QVERIFY(before != after);
    int oldOnes = 0;
    int newOnes = 0;
    for (int events = 0; events <= model.events(); ++events) {
        for (const CrashModel::State& state : model.statesAfter(events, CrashModel::Kind(kind))) {
            const QByteArray found = state.value(bookPlace().toLatin1());
            QVERIFY2(found == after || (found == before && events < model.events()),
                     qPrintable(QString::number(events)));
            ++(found == after ? newOnes : oldOnes);
        }
    }
    QVERIFY(oldOnes > 2);
    QVERIFY(newOnes > 0);
}

void TestNewWordManager::theStorageIsSynced()
{
    book().init();
    CallLog::clear();
    QCOMPARE(book().flush(), 0);
    QCOMPARE(fakes::calls(), QStringList{"syncStorage()"});
}

void TestNewWordManager::quittingForgets()
{
    book().put(QStringLiteral("one"), QString());
    book().setMaxNum(1);
    NewWordManager::quitFun();
    QVERIFY(!NewWordManager::manager);
    QCOMPARE(book().getSize(), 0);
    QCOMPARE(book().init(), 0);
    QCOMPARE(book().getSize(), 1);
    book().put(QStringLiteral("two"), QString());
    QCOMPARE(book().getSize(), 2);
}

QTEST_GUILESS_MAIN(TestNewWordManager)
#include "tst_newwordmanager.moc"
