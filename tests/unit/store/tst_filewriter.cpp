#include "store/filewriter.h"
#include "tests/unit/store/faultyoperations.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <cerrno>
#include <csignal>
#include <functional>
#include <optional>
#include <string>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

using Result = FileWriter::Result;
using Call = FaultyOperations::Call;

class TestFileWriter : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void createsWhatIsNotThere();
    void createNeverTouchesWhatExists_data();
    void createNeverTouchesWhatExists();
    void createInAMissingFolderFails();
    void overwrites_data();
    void overwrites();
    void overwriteKeepsTheFileItself();
    void overwriteRefusesWhatIsNoText();
    void appends();
    void replaces();
    void replaceIsNotDisturbedByAnOldRemainder();
    void removes();
    void renames();
    void renameNeverReplaces();
    void strangeThingsAreNotWritten_data();
    void strangeThingsAreNotWritten();
    void interruptedAndPartialCallsAreContinued();
    void fullStorageLosesNothing();
    void fileSizeLimitLosesNothing();
    void nameCannotBeTaken_data();
    void nameCannotBeTaken();
    void everyFault_data();
    void everyFault();

private:
    QString path(const char* name) const { return m_dir->filePath(QString::fromLatin1(name)); }
    void write(const QString& file, const QByteArray& bytes) const
    {
        QFile out(file);
        QVERIFY(out.open(QIODevice::WriteOnly));
        QCOMPARE(out.write(bytes), bytes.size());
    }
    std::optional<QByteArray> content(const QString& file) const
    {
        QFile in(file);
        if (!in.open(QIODevice::ReadOnly))
            return std::nullopt;
        return in.readAll();
    }
    QStringList files() const
    {
        return QDir(m_dir->path())
            .entryList(QDir::AllEntries | QDir::System | QDir::Hidden | QDir::NoDotAndDotDot);
    }

    std::optional<QTemporaryDir> m_dir;
};

void TestFileWriter::init()
{
    m_dir.emplace();
    QVERIFY(m_dir->isValid());
}

void TestFileWriter::createsWhatIsNotThere()
{
    QCOMPARE(FileWriter().create(path("a.txt"), "content"), Result::Done);
    QCOMPARE(content(path("a.txt")), QByteArray("content"));
    QCOMPARE(FileWriter().create(path("empty"), {}), Result::Done);
    QCOMPARE(content(path("empty")), QByteArray());
    QCOMPARE(files(), QStringList({QStringLiteral("a.txt"), QStringLiteral("empty")}));
}

void TestFileWriter::createNeverTouchesWhatExists_data()
{
    QTest::addColumn<QString>("kind");
    for (const char* kind : {"file", "folder", "fifo", "link", "dangling"})
        QTest::newRow(kind) << QString::fromLatin1(kind);
}

void TestFileWriter::createNeverTouchesWhatExists()
{
    QFETCH(const QString, kind);
    const QString thing = path("thing.txt");
    write(path("target"), "target");
    if (kind == u"file")
        write(thing, "old");
    else if (kind == u"folder")
        QVERIFY(QDir().mkpath(thing));
    else if (kind == u"fifo")
        QCOMPARE(::mkfifo(QFile::encodeName(thing).constData(), 0600), 0);
    else
        QVERIFY(QFile::link(path(kind == u"link" ? "target" : "nowhere"), thing));
    QCOMPARE(FileWriter().create(thing, "new"), Result::Exists);
    QCOMPARE(content(path("target")), QByteArray("target"));
    QVERIFY(!QFile::exists(path("nowhere")));
    if (kind == u"file")
        QCOMPARE(content(thing), QByteArray("old"));
}

void TestFileWriter::createInAMissingFolderFails()
{
    QCOMPARE(FileWriter().create(path("none/a.txt"), "x"), Result::Failed);
    write(path("file"), "x");
    QCOMPARE(FileWriter().create(path("file/a.txt"), "x"), Result::Failed);
    QCOMPARE(FileWriter().overwrite(path("file/a.txt"), "x"), Result::Failed);
    QCOMPARE(FileWriter().append(path("none/a.txt"), "x"), Result::Failed);
    QCOMPARE(FileWriter().replace(path("none/a.txt"), "x"), Result::Failed);
    QCOMPARE(files(), QStringList(QStringLiteral("file")));
}

void TestFileWriter::overwrites_data()
{
    QTest::addColumn<int>("before"); // -1: no file
    QTest::addColumn<int>("after");
    for (const int before : {-1, 0, 1, 5000})
        for (const int after : {0, 1, 4999, 5000, 5001, 70000})
            QTest::addRow("%d to %d", before, after) << before << after;
}

void TestFileWriter::overwrites()
{
    QFETCH(const int, before);
    QFETCH(const int, after);
    if (before >= 0)
        write(path("a"), QByteArray(before, 'o'));
    const QByteArray fresh(after, 'n');
    QCOMPARE(FileWriter().overwrite(path("a"), fresh), Result::Done);
    QCOMPARE(content(path("a")), fresh);
    QCOMPARE(files(), QStringList(QStringLiteral("a")));
}

void TestFileWriter::overwriteKeepsTheFileItself()
{
    write(path("a"), "old content");
    struct stat before = {};
    struct stat after = {};
    const QByteArray name = QFile::encodeName(path("a"));
    QCOMPARE(::stat(name.constData(), &before), 0);
    FaultyOperations operations;
    QCOMPARE(FileWriter().overwrite(path("a"), "new content, longer"), Result::Done);
    QCOMPARE(::stat(name.constData(), &after), 0);
    QCOMPARE(after.st_ino, before.st_ino);
    QCOMPARE(operations.calls(Call::Truncate), 0);
    QCOMPARE(operations.openFiles(), 0);
}

void TestFileWriter::overwriteRefusesWhatIsNoText()
{
    QFile large(path("large"));
    QVERIFY(large.open(QIODevice::WriteOnly));
    QVERIFY(large.resize(qint64(1) << 40));
    QCOMPARE(FileWriter().overwrite(path("large"), "x"), Result::Failed);
    QCOMPARE(large.size(), qint64(1) << 40);
}

void TestFileWriter::appends()
{
    QCOMPARE(FileWriter().append(path("a"), "one"), Result::Done);
    QCOMPARE(FileWriter().append(path("a"), ""), Result::Done);
    QCOMPARE(FileWriter().append(path("a"), "two"), Result::Done);
    QCOMPARE(content(path("a")), QByteArray("onetwo"));
}

void TestFileWriter::replaces()
{
    QCOMPARE(FileWriter().replace(path("a"), "one"), Result::Done);
    QCOMPARE(FileWriter().replace(path("a"), "second"), Result::Done);
    QCOMPARE(content(path("a")), QByteArray("second"));
    QCOMPARE(files(), QStringList(QStringLiteral("a")));
}

void TestFileWriter::replaceIsNotDisturbedByAnOldRemainder()
{
    write(path("a.new"), "half a ta");
    QCOMPARE(FileWriter().replace(path("a"), "table"), Result::Done);
    QCOMPARE(content(path("a")), QByteArray("table"));
    QCOMPARE(files(), QStringList(QStringLiteral("a")));
}

void TestFileWriter::removes()
{
    write(path("a"), "x");
    QCOMPARE(FileWriter().remove(path("a")), Result::Done);
    QCOMPARE(FileWriter().remove(path("a")), Result::Failed);
    QVERIFY(QDir().mkpath(path("folder")));
    QCOMPARE(FileWriter().remove(path("folder")), Result::Failed);
    write(path("target"), "x");
    QVERIFY(QFile::link(path("target"), path("link")));
    QCOMPARE(FileWriter().remove(path("link")), Result::Done);
    QCOMPARE(content(path("target")), QByteArray("x"));
}

void TestFileWriter::renames()
{
    write(path("a"), "x");
    QCOMPARE(FileWriter().rename(path("a"), path("b")), Result::Done);
    QCOMPARE(content(path("b")), QByteArray("x"));
    QCOMPARE(files(), QStringList(QStringLiteral("b")));
    QCOMPARE(FileWriter().rename(path("a"), path("c")), Result::Failed);
    QCOMPARE(FileWriter().rename(path("b"), path("none/c")), Result::Failed);
    QCOMPARE(FileWriter().rename(path("b"), m_dir->filePath(QString(300, u'n'))), Result::Failed);
    QCOMPARE(content(path("b")), QByteArray("x"));
}

void TestFileWriter::renameNeverReplaces()
{
    write(path("a"), "a");
    write(path("b"), "b");
    QVERIFY(QFile::link(path("nowhere"), path("dangling")));
    QCOMPARE(FileWriter().rename(path("a"), path("b")), Result::Exists);
    QCOMPARE(FileWriter().rename(path("a"), path("a")), Result::Exists);
    QCOMPARE(FileWriter().rename(path("a"), path("dangling")), Result::Exists);
    QCOMPARE(FileWriter().rename(path("dangling"), path("c")), Result::Failed);
    QCOMPARE(content(path("a")), QByteArray("a"));
    QCOMPARE(content(path("b")), QByteArray("b"));
}

void TestFileWriter::strangeThingsAreNotWritten_data()
{
    QTest::addColumn<QString>("kind");
    for (const char* kind : {"folder", "fifo", "link", "device", "dangling"})
        QTest::newRow(kind) << QString::fromLatin1(kind);
}

void TestFileWriter::strangeThingsAreNotWritten()
{
    QFETCH(const QString, kind);
    QString thing = path("thing.txt");
    write(path("target"), "target");
    if (kind == u"folder")
        QVERIFY(QDir().mkpath(thing));
    else if (kind == u"fifo")
        QCOMPARE(::mkfifo(QFile::encodeName(thing).constData(), 0600), 0);
    else if (kind == u"device")
        thing = QStringLiteral("/dev/null");
    else
        QVERIFY(QFile::link(path(kind == u"link" ? "target" : "nowhere"), thing));
    QCOMPARE(FileWriter().overwrite(thing, "new"), Result::Failed);
    QCOMPARE(FileWriter().append(thing, "new"), Result::Failed);
    QCOMPARE(content(path("target")), QByteArray("target"));
    QVERIFY(!QFile::exists(path("nowhere")));
}

void TestFileWriter::interruptedAndPartialCallsAreContinued()
{
    write(path("a"), "the old content");
    FaultyOperations operations;
    operations.setLargestTransfer(3);
    for (const Call call : {Call::Read, Call::Write}) {
        operations.interruptAt(call, operations.calls(call) + 2);
        QCOMPARE(FileWriter().overwrite(path("a"), "the new and longer content"), Result::Done);
        QCOMPARE(content(path("a")), QByteArray("the new and longer content"));
        QCOMPARE(FileWriter().overwrite(path("a"), "short"), Result::Done);
        QCOMPARE(content(path("a")), QByteArray("short"));
    }
    QVERIFY(operations.hasFailed());
}

void TestFileWriter::fullStorageLosesNothing()
{
    const QByteArray old(5000, 'o');
    write(path("a"), old);
    FaultyOperations operations;
    operations.setStorageEnd(6000);
    QCOMPARE(FileWriter().overwrite(path("a"), QByteArray(8000, 'n')), Result::Failed);
    QCOMPARE(content(path("a")), old);
    QCOMPARE(FileWriter().append(path("a"), QByteArray(3000, 'n')), Result::Failed);
    QCOMPARE(content(path("a")), old);
    QCOMPARE(FileWriter().create(path("b"), QByteArray(8000, 'n')), Result::Failed);
    QCOMPARE(FileWriter().replace(path("a"), QByteArray(8000, 'n')), Result::Failed);
    QCOMPARE(content(path("a")), old);
    QCOMPARE(files(), QStringList(QStringLiteral("a")));
    QCOMPARE(FileWriter().overwrite(path("a"), QByteArray(5500, 'n')), Result::Done);
    QCOMPARE(content(path("a")), QByteArray(5500, 'n'));
}

// The same with the real calls: the system refuses to let the file grow.
void TestFileWriter::fileSizeLimitLosesNothing()
{
    const QByteArray old(5000, 'o');
    write(path("a"), old);
    rlimit before = {};
    QCOMPARE(::getrlimit(RLIMIT_FSIZE, &before), 0);
    std::signal(SIGXFSZ, SIG_IGN);
    const rlimit small = {6000, before.rlim_max};
    QCOMPARE(::setrlimit(RLIMIT_FSIZE, &small), 0);
    const Result overwritten = FileWriter().overwrite(path("a"), QByteArray(8000, 'n'));
    const Result created = FileWriter().create(path("b"), QByteArray(8000, 'n'));
    QCOMPARE(::setrlimit(RLIMIT_FSIZE, &before), 0);
    QCOMPARE(overwritten, Result::Failed);
    QCOMPARE(created, Result::Failed);
    QCOMPARE(content(path("a")), old);
    QCOMPARE(files(), QStringList(QStringLiteral("a")));
}

void TestFileWriter::nameCannotBeTaken_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("too long") << QString(300, u'n');
    QTest::newRow("below a file") << QStringLiteral("file/x");
}

void TestFileWriter::nameCannotBeTaken()
{
    QFETCH(const QString, name);
    write(path("file"), "x");
    const QString to = m_dir->filePath(name);
    QCOMPARE(FileWriter().create(to, "x"), Result::Failed);
    QCOMPARE(FileWriter().overwrite(to, "x"), Result::Failed);
    QCOMPARE(FileWriter().append(to, "x"), Result::Failed);
    QCOMPARE(FileWriter().replace(to, "x"), Result::Failed);
    QCOMPARE(FileWriter().remove(to), Result::Failed);
}

namespace {

struct Operation
{
    const char* name;
    std::function<Result(const QString&, const QByteArray&)> run;
    bool fileExists;
    int newSize;
};

const QByteArray Old(9000, 'o');

QByteArray expectedContent(const Operation& operation)
{
    const QByteArray fresh(operation.newSize, 'n');
    return operation.name == QByteArray("append") && operation.fileExists ? Old + fresh : fresh;
}

const Operation Operations[] = {
    {"create", [](auto& p, auto& c) { return FileWriter().create(p, c); }, false, 5000},
    {"grow", [](auto& p, auto& c) { return FileWriter().overwrite(p, c); }, true, 12000},
    {"shrink", [](auto& p, auto& c) { return FileWriter().overwrite(p, c); }, true, 5000},
    {"same size", [](auto& p, auto& c) { return FileWriter().overwrite(p, c); }, true, 9000},
    {"overwrite nothing", [](auto& p, auto& c) { return FileWriter().overwrite(p, c); }, false,
     5000},
    {"append", [](auto& p, auto& c) { return FileWriter().append(p, c); }, true, 5000},
    {"append to nothing", [](auto& p, auto& c) { return FileWriter().append(p, c); }, false, 5000},
    {"replace", [](auto& p, auto& c) { return FileWriter().replace(p, c); }, true, 5000},
    {"replace nothing", [](auto& p, auto& c) { return FileWriter().replace(p, c); }, false, 5000},
};

} // namespace

void TestFileWriter::everyFault_data()
{
    QTest::addColumn<int>("index");
    for (size_t i = 0; i < std::size(Operations); ++i)
        QTest::newRow(Operations[i].name) << int(i);
}

// Lets each call fail in turn. What is reported must be what is there: success means the new
// content, failure the old one (the new one when only the last steps failed); nothing is left open,
// and nothing lies about.
void TestFileWriter::everyFault()
{
    QFETCH(const int, index);
    const Operation& operation = Operations[index];
    const QByteArray fresh(operation.newSize, 'n');
    bool faulted = true;
    int nth = 0;
    while (faulted) {
        ++nth;
        m_dir.emplace();
        if (operation.fileExists)
            write(path("a"), Old);
        FaultyOperations operations;
        operations.setLargestTransfer(4000);
        operations.failAtAny(nth, EIO, false);
        const Result result = operation.run(path("a"), fresh);
        faulted = operations.hasFailed();
        const std::string where = "call " + std::to_string(nth);
        const auto now = content(path("a"));
        const bool isNew = now == expectedContent(operation);
        const bool isOld = operation.fileExists ? now == Old : (!now.has_value() || now->isEmpty());
        const bool isComplete =
            operations.hasFailed(Call::Close) || operations.hasFailed(Call::FlushFolder);
        QVERIFY2(result == Result::Done ? isNew : isOld || (isNew && isComplete), where.c_str());
        QVERIFY2(faulted || result == Result::Done, where.c_str());
        QCOMPARE(operations.openFiles(), 0);
        for (const QString& file : files())
            QVERIFY2(file == u"a" || (file == u"a.new" && result != Result::Done), where.c_str());
    }
    QVERIFY(nth > 4);
}

QTEST_GUILESS_MAIN(TestFileWriter)
#include "tst_filewriter.moc"
