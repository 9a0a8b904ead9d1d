/* Dictionaries reach a new pen with their indices: the program that makes those, and the script. */
#include "tests/unit/open/dicengine.h"
#include "tests/unit/open/dicfiles.h"

#include <QDir>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>
#include <memory>
#include <sys/stat.h>

class TestDicInstall : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void indicesAreMadeAheadOfTime();
    void whatCannotBeUsedIsCounted();
    void withoutFoldersThereIsNothingToDo();
    void dictionariesAreLinkedIntoEachPen();
    void aPenAddsToItsOwnListOnly();

private:
    std::string path(const std::string& name) const
    {
        return m_root->path().toStdString() + "/" + name;
    }
    QStringList indices(const std::string& pen) const
    {
        return QDir(QString::fromStdString(path(pen + "/apps/data/dictindex")))
            .entryList({QStringLiteral("*.rows")}, QDir::Files, QDir::Name);
    }
    struct stat statOf(const std::string& name) const
    {
        struct stat info = {};
        stat(path(name).c_str(), &info);
        return info;
    }
    QString run(const QString& program, const QStringList& arguments);
    QString makeIndices();
    QString install(const std::string& pen);

    std::unique_ptr<QTemporaryDir> m_root;
    QString m_dicIndex;
};

void TestDicInstall::init()
{
    m_root = std::make_unique<QTemporaryDir>();
    m_dicIndex = qEnvironmentVariable("DICINDEX");
    QVERIFY(QFile::exists(m_dicIndex));
    QVERIFY(QDir(m_root->path()).mkpath(QStringLiteral("pen/apps/data")));
    QVERIFY(QDir(m_root->path()).mkpath(QStringLiteral("pen/dict")));
    dicfiles::writeDict(path("pen/dict/eng-deu"), {{"house", "house\nHaus"}}, true);
    dicfiles::writeDict(path("pen/dict/fra-eng"), {{"maison", "maison\nhouse"}});
}

void TestDicInstall::cleanup()
{
    qunsetenv("SWIPELINE_ROOT");
    m_root.reset();
}

// What it prints, with the outcome where that is a failure.
QString TestDicInstall::run(const QString& program, const QStringList& arguments)
{
    QProcess process;
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start(program, arguments);
    if (!process.waitForFinished(200000))
        return QStringLiteral("did not end");
    const QString output = QString::fromUtf8(process.readAll());
    return process.exitCode() == 0 ? output : QStringLiteral("failed: ") + output;
}

QString TestDicInstall::makeIndices()
{
    qputenv("SWIPELINE_ROOT", QByteArray::fromStdString(path("pen")));
    return run(m_dicIndex, {QString::fromStdString(path("pen/dict/"))});
}

void TestDicInstall::indicesAreMadeAheadOfTime()
{
    QCOMPARE(makeIndices(), QStringLiteral("dictionaries: 2 with an index\n"));
    const QStringList made = indices("pen");
    QCOMPARE(made.size(), 2);
    const std::string file = "pen/apps/data/dictindex/" + made.front().toStdString();
    const struct stat before = statOf(file);
    DicEngine engine({path("pen/dict/")});
    QVERIFY(engine.open(0));
    QCOMPARE(engine.search(u"house").size(), std::size_t(1));
    QCOMPARE(statOf(file).st_ino, before.st_ino); // was not made again
}

void TestDicInstall::whatCannotBeUsedIsCounted()
{
    dicfiles::write(path("pen/dict/fra-eng.dict"), "");
    const QString told = makeIndices();
    QVERIFY2(told.contains(QStringLiteral("1 with an index, 1 that cannot be used\n")),
             qPrintable(told));
    QVERIFY2(told.contains(QStringLiteral("fra-eng")), qPrintable(told));
    QCOMPARE(indices("pen").size(), 1);
}

void TestDicInstall::withoutFoldersThereIsNothingToDo()
{
    QCOMPARE(run(m_dicIndex, {}), QString());
}

// With scripts of the tree, a table of our own, and a pen of the same name.
QString TestDicInstall::install(const std::string& pen)
{
    const QString scripts = QString::fromStdString(path("tree/scripts"));
    const QString own = QStringLiteral(SWIPELINE_SOURCE_DIR "/scripts/");
    QDir().mkpath(scripts);
    QDir().mkpath(QString::fromStdString(path("tree/build/open/dic")));
    QDir().mkpath(QString::fromStdString(path(pen + "/apps/data")));
    for (const char* name : {"install-dictionaries", "make-dictionaries", "dictfiles.py"})
        QFile::copy(own + QLatin1String(name), scripts + u'/' + QLatin1String(name));
    QFile::link(m_dicIndex, QString::fromStdString(path("tree/build/open/dic/swipeline-dicindex")));
    dicfiles::write(path("tree/scripts/dictionaries.txt"),
                    "fra-eng | " + path("pen/dict/fra-eng") + " | p | A Book | GPL | there\n"
                        + "eng-deu | " + path("pen/dict/eng-deu")
                        + " | p | Another | GPL | there\n");
    return run(scripts + QStringLiteral("/install-dictionaries"),
               {QString::fromStdString(path(pen)), QString::fromStdString(path("tree/build"))});
}

void TestDicInstall::dictionariesAreLinkedIntoEachPen()
{
    const QString told = install("one");
    QVERIFY2(told.contains(QStringLiteral("dictionaries: 2 with an index")), qPrintable(told));
    const std::string index = "/apps/data/dictindex/" + indices("one").value(0).toStdString();
    const std::string book = "/mnt/hidmmc/sysdict/defaultdict/01-fra-eng.dict";
    const struct stat before = statOf("one" + index);
    install("two");
    QCOMPARE(indices("one").size(), 2);
    QCOMPARE(indices("one"), indices("two"));
    QCOMPARE(statOf("two" + index).st_ino, before.st_ino);
    QVERIFY(statOf("one" + book).st_size > 0);
    QCOMPARE(statOf("two" + book).st_ino, statOf("one" + book).st_ino);
}

void TestDicInstall::aPenAddsToItsOwnListOnly()
{
    install("one");
    install("two");
    const std::string list = "/apps/data/dictindex/registry";
    QCOMPARE(dicfiles::read(path("one" + list)),
             std::string("fra-eng 0/01-fra-eng\neng-deu 0/02-eng-deu\n"));
    QVERIFY(statOf("one" + list).st_ino != statOf("two" + list).st_ino);
    QCOMPARE(statOf("one" + list).st_nlink, nlink_t(1));

    qputenv("SWIPELINE_ROOT", QByteArray::fromStdString(path("one")));
    DicEngine engine({path("one/mnt/hidmmc/sysdict/defaultdict/"), path("pen/dict/")});
    const std::vector<std::string> expected = {"French-English 2", "English-German 2"};
    QCOMPARE(engine.pairs(), expected);
    QCOMPARE(dicfiles::read(path("two" + list)),
             std::string("fra-eng 0/01-fra-eng\neng-deu 0/02-eng-deu\n"));
}

QTEST_GUILESS_MAIN(TestDicInstall)
#include "tst_dic_install.moc"
