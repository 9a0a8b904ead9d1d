#include "app/startup.h"

#include "app/messagelog.h"
#include "app/processglobals.h"
#include "app/storagecheck.h"
#include "tests/fakes/calls.h"
#include "tests/fakes/fakesystem.h"
#include "tests/shared/applicationstate.h"
#include "tests/shared/messagewatcher.h"

#include <QTest>

class TestStartup : public QObject
{
    Q_OBJECT

private slots:
    void init() { m_state = std::make_unique<ApplicationState>(); }
    void cleanup() { m_state.reset(); }

    void translationBelongsToTheLanguage_data();
    void translationBelongsToTheLanguage();
    void onlyChineseAndEnglishSetTheChineseFlag();
    void missingScanFolderIsMadeBetweenFlushes();
    void presentScanFolderIsLeftAlone();
    void scanFolderThatCannotBeMadeIsNoError();
    void storageWarningComesBelowOneMebibyte_data();
    void storageWarningComesBelowOneMebibyte();
    void logLineNamesTheKind_data();
    void logLineNamesTheKind();
    void logIsAppendedTo();
    void logThatCannotBeOpenedIsNoError();
    void malformedFileListFailsTheStore();
    void filesInTheFolderJoinTheListEvenThen();

private:
    std::unique_ptr<ApplicationState> m_state;
};

void TestStartup::translationBelongsToTheLanguage_data()
{
    QTest::addColumn<int>("code");
    QTest::addColumn<QString>("file");
    QTest::newRow("Chinese") << 1 << "/apps/res/Language_Chn_1.qm";
    QTest::newRow("English") << 101 << "/apps/res/Language_Eng_1.qm";
    QTest::newRow("German") << 104 << "/apps/res/Language_Ger_1.qm";
    QTest::newRow("French") << 103 << "/apps/res/Language_Fre_1.qm";
    QTest::newRow("Italian") << 106 << "/apps/res/Language_Ita_1.qm";
    QTest::newRow("Spanish") << 105 << "/apps/res/Language_Spa_1.qm";
    QTest::newRow("Russian") << 151 << "/apps/res/Language_Rus_1.qm";
    QTest::newRow("Traditional Chinese") << 2 << "/apps/res/Language_Tw_1.qm";
    QTest::newRow("Swedish") << 107 << QString();
    QTest::newRow("none") << 0 << QString();
}

void TestStartup::translationBelongsToTheLanguage()
{
    QFETCH(int, code);
    QFETCH(QString, file);
    QCOMPARE(QString::fromLatin1(translationFor(code)), file);
}

void TestStartup::onlyChineseAndEnglishSetTheChineseFlag()
{
    g_Lan = false;
    translationFor(1);
    QVERIFY(g_Lan);
    for (const int code : {104, 103, 106, 105, 151, 2, 0}) {
        translationFor(code);
        QVERIFY(g_Lan);
    }
    translationFor(101);
    QVERIFY(!g_Lan);
    translationFor(104);
    QVERIFY(!g_Lan);
}

void TestStartup::missingScanFolderIsMadeBetweenFlushes()
{
    const QString folder = m_state->root.path(QStringLiteral("/mnt/mmc/e_ScanFile"));
    QVERIFY(QDir().rmdir(folder));
    CallLog::clear();
    ensureScanFolder();
    QVERIFY(QDir(folder).exists());
    const QStringList flush = {"syncStorage()", "dropPageCache()", "sleepMicroseconds(50000)"};
    QCOMPARE(fakes::calls(), flush + QStringList{"makeDirectory(/mnt/mmc/e_ScanFile)"} + flush);
}

void TestStartup::presentScanFolderIsLeftAlone()
{
    CallLog::clear();
    ensureScanFolder();
    QCOMPARE(fakes::calls(), QStringList());
}

void TestStartup::scanFolderThatCannotBeMadeIsNoError()
{
    const QString folder = m_state->root.path(QStringLiteral("/mnt/mmc/e_ScanFile"));
    QVERIFY(QDir().rmdir(folder));
    FakeSystem::setMakeDirectoryFails(true);
    CallLog::clear();
    ensureScanFolder();
    QVERIFY(!QDir(folder).exists());
    QCOMPARE(fakes::calls("syncStorage").size(), 2); // it is not looked at
    QCOMPARE(Init(), 0);
}

void TestStartup::storageWarningComesBelowOneMebibyte_data()
{
    QTest::addColumn<qint64>("bytes");
    QTest::addColumn<bool>("low");
    QTest::newRow("exactly") << qint64(1'048'576) << false;
    QTest::newRow("one less") << qint64(1'048'575) << true;
    QTest::newRow("none") << qint64(0) << true;
    QTest::newRow("cannot be told") << qint64(-1) << true;
}

void TestStartup::storageWarningComesBelowOneMebibyte()
{
    QFETCH(qint64, bytes);
    QFETCH(bool, low);
    FakeSystem::setFreeBytes(bytes);
    MessageWatcher messages;
    QCOMPARE(isStorageLow(), low);
    warnWhenStorageLow();
    QStringList expected;
    if (low)
        expected.append(QStringLiteral("No enough storage space. Please remove some files."));
    QCOMPARE(messages.texts(), expected);
}

void TestStartup::logLineNamesTheKind_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<QByteArray>("line");
    QTest::newRow("debug") << int(QtDebugMsg) << QByteArray("Debug: text\n");
    QTest::newRow("warning") << int(QtWarningMsg) << QByteArray("Warning: text\n");
    QTest::newRow("critical") << int(QtCriticalMsg) << QByteArray("Critical: text\n");
    QTest::newRow("fatal") << int(QtFatalMsg) << QByteArray("Fatal: text\n");
    QTest::newRow("other") << 77 << QByteArray("\n");
}

void TestStartup::logLineNamesTheKind()
{
    QFETCH(int, type);
    QFETCH(QByteArray, line);
    customMessageHandler(static_cast<QtMsgType>(type), "text");
    QCOMPARE(m_state->root.read(QStringLiteral("/mnt/mmc/scandebuglog.txt")), line);
}

void TestStartup::logIsAppendedTo()
{
    customMessageHandler(QtDebugMsg, "one %1");
    customMessageHandler(QtWarningMsg, "two");
    QCOMPARE(m_state->root.read(QStringLiteral("/mnt/mmc/scandebuglog.txt")),
             QByteArray("Debug: one %1\nWarning: two\n"));
}

void TestStartup::logThatCannotBeOpenedIsNoError()
{
    QDir().mkpath(m_state->root.path(QStringLiteral("/mnt/mmc/scandebuglog.txt")));
    customMessageHandler(QtFatalMsg, "goes nowhere");
}

void TestStartup::malformedFileListFailsTheStore()
{
    m_state->root.write(QStringLiteral("/apps/config/filelist.cfg"), "0\nonly\tthree\tparts\n");
    QCOMPARE(Init(), -1);
}

void TestStartup::filesInTheFolderJoinTheListEvenThen()
{
    m_state->root.write(QStringLiteral("/apps/config/filelist.cfg"), "0\nonly\tthree\tparts\n");
    m_state->root.write(QStringLiteral("/mnt/mmc/e_ScanFile/found.txt"), "\xff\xfe");
    Init();
    QCOMPARE(FileManager::Instance()->getFileNum(), 1);
}

QTEST_MAIN(TestStartup)
#include "tst_startup.moc"
