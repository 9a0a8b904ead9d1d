// The power goes at any moment of a change: what does the next start find?
#include "tests/unit/store/crashmodel.h"
#include "tests/unit/store/storefixture.h"

#include <QDataStream>
#include <QFileInfo>
#include <QSet>
#include <QTest>

#include <fcntl.h>
#include <functional>
#include <optional>
#include <string>

using Kind = CrashModel::Kind;

Q_DECLARE_METATYPE(CrashModel::Kind)

namespace {

// Several sectors each.
QString longText(const char* word, int times)
{
    return QString::fromLatin1(word).repeated(times);
}
const QString OldText = longText("old text ", 150);
const QString OtherText = longText("another ", 40);

// What the user has: names and texts, and which file is current.
struct Pen
{
    QMap<QString, QString> texts;
    QString current;
    bool operator==(const Pen&) const = default;
};

FileInfo infoOf(const QString& name)
{
    FileManager* const files = FileManager::Instance();
    FileInfo info;
    for (int i = 0; i < files->getFileNum(); ++i)
        if (files->getInfoByID(i, info) && info.name == name)
            return info;
    return {};
}

bool save(const QString& text)
{
    return !FileManager::Instance()->saveFile(infoOf(QStringLiteral("a")), text).isEmpty();
}

bool scan(const QString& text)
{
    FileManager* const files = FileManager::Instance();
    const FileInfo info = infoOf(QStringLiteral("a"));
    const int length = int(files->readFile(info).size());
    return files->noteScan(info, length, text, length);
}

struct Operation
{
    const char* name;
    std::function<bool()> run;
    std::function<void(Pen&)> expect; // what it changes
    bool countsCurrent = false;
};

const Operation Operations[] = {
    {"save", [] { return save(longText("new text ", 150)); },
     [](Pen& pen) { pen.texts[QStringLiteral("a")] = longText("new text ", 150); }},
    {"save longer", [] { return save(longText("new and longer ", 200)); },
     [](Pen& pen) { pen.texts[QStringLiteral("a")] = longText("new and longer ", 200); }},
    {"save shorter", [] { return save(longText("new\n", 100)); },
     [](Pen& pen) { pen.texts[QStringLiteral("a")] = longText("new\n", 100); }},
    {"create", [] { return !FileManager::Instance()->saveFile(longText("fresh ", 200)).isEmpty(); },
     [](Pen& pen) { pen.texts[StoreFixture::today("yyMMdd")] = longText("fresh ", 200); }},
    {"rename",
     [] {
         FileManager* const files = FileManager::Instance();
         return files->renameFile(QStringLiteral("a"), QStringLiteral("c"))
                && files->saveCfg(1, QStringLiteral("c"));
     },
     [](Pen& pen) { pen.texts[QStringLiteral("c")] = pen.texts.take(QStringLiteral("a")); }},
    {"delete", [] { return FileManager::Instance()->removeAt(1) == 0; },
     [](Pen& pen) { pen.texts.remove(QStringLiteral("a")); }},
    {"list",
     [] {
         FileManager::Instance()->setCurFileIndex(1);
         return FileManager::Instance()->flush() == 0;
     },
     [](Pen& pen) { pen.current = QStringLiteral("b"); }, true},
    {"scan", [] { return scan(QStringLiteral("scanned ")); },
     [](Pen& pen) { pen.texts[QStringLiteral("a")] += QStringLiteral("scanned "); }},
};

// Flushing takes long and shows nothing here.
class Unflushed : public FileOperations
{
public:
    Unflushed() { setCurrent(this); }
    ~Unflushed() override { setCurrent(nullptr); }
    int flush(int) override { return 0; }
    int flushData(int) override { return 0; }
    int flushFolder(const QByteArray&) override { return 0; }
};

void prepare(const StoreFixture& fixture)
{
    fixture.root().write(fixture.scanPlace(QStringLiteral("a")), scantext::encode(OldText));
    fixture.root().write(fixture.scanPlace(QStringLiteral("b")), scantext::encode(OtherText));
    fixture.writeList(0, {QStringLiteral("a 0"), QStringLiteral("b 0")});
}

// A pen that is switched on with this storage; none when it does not start as it should.
std::optional<Pen> penWith(const StoreFixture& fixture)
{
    FileManager::quitFun();
    FileManager& files = fixture.manager();
    if (files.init() != 0 || files.getFileList() != 0)
        return std::nullopt;
    Pen pen;
    FileInfo current;
    if (files.getCurInfo(current))
        pen.current = current.name;
    for (const QString& name : fixture.names())
        pen.texts.insert(name, files.readFile(infoOf(name)));
    if (fixture.filesOnCard().size() != pen.texts.size())
        return std::nullopt;
    return pen;
}

QByteArray bytesOf(const CrashModel::State& state)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream << state;
    return bytes;
}

void restore(const StoreFixture& fixture, const CrashModel::State& state)
{
    for (auto file = state.cbegin(); file != state.cend(); ++file)
        fixture.root().write(QFile::decodeName(file.key()), file.value());
}

std::optional<Pen> penAfter(const CrashModel::State& state)
{
    const StoreFixture fixture;
    restore(fixture, state);
    return penWith(fixture);
}

// False when it was known already.
bool addTo(QSet<QByteArray>& known, const CrashModel::State& state)
{
    const qsizetype before = known.size();
    known.insert(bytesOf(state));
    return known.size() > before;
}

} // namespace

class TestCrashes : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void powerGoesDuring_data();
    void powerGoesDuring();
    void powerGoesDuringTheStartAfterwards_data();
    void powerGoesDuringTheStartAfterwards();
    void powerGoesWhileAWaitingTextReachesItsCard_data();
    void powerGoesWhileAWaitingTextReachesItsCard();
    void modelFindsWhatAPlainWriteLoses_data();
    void modelFindsWhatAPlainWriteLoses();
    void scansOfAWholeMorning();

private:
    static void everyKind();
    static void everyOperation();
};

// A thousand small pens: in memory where that is possible.
void TestCrashes::initTestCase()
{
    if (QFileInfo(QStringLiteral("/dev/shm")).isWritable())
        qputenv("TMPDIR", "/dev/shm");
}

void TestCrashes::everyKind()
{
    QTest::addColumn<Kind>("kind");
    QTest::newRow("killed") << Kind::Killed;
    QTest::newRow("ext4") << Kind::Ext4;
    QTest::newRow("FAT") << Kind::Fat;
}

void TestCrashes::everyOperation()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<Kind>("kind");
    for (size_t i = 0; i < std::size(Operations); ++i) {
        QTest::addRow("%s, killed", Operations[i].name) << int(i) << Kind::Killed;
        QTest::addRow("%s, ext4", Operations[i].name) << int(i) << Kind::Ext4;
        QTest::addRow("%s, FAT", Operations[i].name) << int(i) << Kind::Fat;
    }
}

void TestCrashes::powerGoesDuring_data()
{
    everyOperation();
}

// Before the change has been reported as made, the pen is as before or as after; then as after.
void TestCrashes::powerGoesDuring()
{
    QFETCH(const int, index);
    QFETCH(const Kind, kind);
    const Operation& operation = Operations[index];
    Pen before;
    std::optional<CrashModel> model;
    {
        StoreFixture fixture;
        prepare(fixture);
        before = penWith(fixture).value();
        model.emplace(fixture.root().path(QString()));
        QVERIFY(operation.run());
        FileOperations::setCurrent(nullptr);
    }
    Pen after = before;
    operation.expect(after);
    QSet<QByteArray> known;
    const Unflushed unflushed;
    for (int events = 0; events <= model->events(); ++events) {
        for (const CrashModel::State& state : model->statesAfter(events, kind)) {
            const bool reported = events == model->events();
            if (!addTo(known, state) && !reported)
                continue;
            std::optional<Pen> pen = penAfter(state);
            const std::string where = "after " + std::to_string(events) + " of "
                                      + std::to_string(model->events()) + " events";
            QVERIFY2(pen, where.c_str());
            if (!operation.countsCurrent)
                pen->current = after.current = before.current;
            QVERIFY2(pen == after || (!reported && pen == before), where.c_str());
        }
    }
    QVERIFY(known.size() > 3);
    qInfo("%lld distinct states", static_cast<long long>(known.size()));
}

void TestCrashes::powerGoesDuringTheStartAfterwards_data()
{
    everyKind();
}

// And once more while the start makes the change again.
void TestCrashes::powerGoesDuringTheStartAfterwards()
{
    QFETCH(const Kind, kind);
    const Operation& operation = Operations[2];
    QVector<CrashModel::State> states;
    {
        StoreFixture fixture;
        prepare(fixture);
        QVERIFY(penWith(fixture));
        CrashModel model(fixture.root().path(QString()));
        QVERIFY(operation.run());
        for (int events = 0; events <= model.events(); ++events)
            states += model.statesAfter(events, Kind::Killed);
    }
    QSet<QByteArray> known;
    for (const CrashModel::State& first : std::as_const(states)) {
        if (!addTo(known, first))
            continue;
        std::optional<CrashModel> second;
        Pen meanwhile;
        {
            StoreFixture fixture;
            restore(fixture, first);
            second.emplace(fixture.root().path(QString()));
            meanwhile = penWith(fixture).value();
            FileOperations::setCurrent(nullptr);
        }
        const Unflushed unflushed;
        for (int events = 0; events <= second->events(); ++events)
            for (const CrashModel::State& state : second->statesAfter(events, kind)) {
                if (!addTo(known, state))
                    continue;
                const std::optional<Pen> pen = penAfter(state);
                QVERIFY(pen);
                QVERIFY(pen->texts == meanwhile.texts);
            }
    }
    QVERIFY(known.size() > 10);
    qInfo("%lld distinct states", static_cast<long long>(known.size()));
}

void TestCrashes::powerGoesWhileAWaitingTextReachesItsCard_data()
{
    everyKind();
}

// The card was out when the text was saved: its file is known to be as it was, but not after this.
void TestCrashes::powerGoesWhileAWaitingTextReachesItsCard()
{
    QFETCH(const Kind, kind);
    journalformat::Record record;
    record.number = 1;
    record.kind = journalformat::Kind::Write;
    record.path = StoreFixture::scanPlace(QStringLiteral("a"));
    record.content = scantext::encode(longText("fresh ", 250));
    record.before = journalformat::printOf(scantext::encode(OldText));
    record.untouched = true;
    std::optional<CrashModel> model;
    {
        StoreFixture fixture;
        prepare(fixture);
        fixture.root().write(QStringLiteral("/apps/config/store.jnl"),
                             journalformat::encode(record));
        model.emplace(fixture.root().path(QString()));
        QVERIFY(penWith(fixture));
        FileOperations::setCurrent(nullptr);
    }
    QSet<QByteArray> known;
    const Unflushed unflushed;
    for (int events = 0; events <= model->events(); ++events)
        for (const CrashModel::State& state : model->statesAfter(events, kind)) {
            if (!addTo(known, state))
                continue;
            const std::optional<Pen> pen = penAfter(state);
            QVERIFY(pen);
            QCOMPARE(pen->texts.value(QStringLiteral("a")), longText("fresh ", 250));
            QCOMPARE(pen->texts.value(QStringLiteral("b")), OtherText);
            QCOMPARE(pen->texts.size(), 2);
        }
    QVERIFY(known.size() > 5);
}

void TestCrashes::modelFindsWhatAPlainWriteLoses_data()
{
    everyKind();
}

// That the model can find faults at all: truncating first and writing then loses texts in each.
void TestCrashes::modelFindsWhatAPlainWriteLoses()
{
    QFETCH(const Kind, kind);
    const StoreFixture fixture;
    prepare(fixture);
    const QByteArray path =
        QFile::encodeName(fixture.root().path(fixture.scanPlace(QStringLiteral("a"))));
    const QByteArray fresh = scantext::encode(longText("new text ", 150));
    const QByteArray place = QFile::encodeName(fixture.scanPlace(QStringLiteral("a")));
    CrashModel model(fixture.root().path(QString()));
    const int file = model.open(path, O_RDWR);
    QCOMPARE(model.truncate(file, 0), 0);
    QCOMPARE(model.write(file, fresh.constData(), fresh.size(), 0), fresh.size());
    QCOMPARE(model.flush(file), 0);
    QCOMPARE(model.close(file), 0);
    int lost = 0;
    for (int events = 0; events <= model.events(); ++events)
        for (const CrashModel::State& state : model.statesAfter(events, kind))
            if (state.value(place) != fresh && state.value(place) != scantext::encode(OldText))
                ++lost;
    QVERIFY(lost > 0);
    for (const CrashModel::State& state : model.statesAfter(model.events(), kind))
        QCOMPARE(state.value(place), fresh); // flushed
}

// Scan after scan without a save: each is there after the one moment from which it counts.
void TestCrashes::scansOfAWholeMorning()
{
    QString text = OldText;
    std::optional<CrashModel> model;
    QVector<std::pair<int, QString>> reported;
    {
        StoreFixture fixture;
        prepare(fixture);
        QVERIFY(penWith(fixture));
        model.emplace(fixture.root().path(QString()));
        const FileInfo info = infoOf(QStringLiteral("a"));
        for (int i = 0; i < 12; ++i) {
            const QString addition = QStringLiteral("scan %1 ").arg(i);
            QVERIFY(fixture.manager().noteScan(info, int(text.size()), addition, int(text.size())));
            text += addition;
            reported.append({model->events(), text});
        }
        FileOperations::setCurrent(nullptr);
    }
    const Unflushed unflushed;
    for (const auto& [events, expected] : std::as_const(reported))
        for (const CrashModel::State& state : model->statesAfter(events, Kind::Fat)) {
            const std::optional<Pen> pen = penAfter(state);
            QVERIFY(pen);
            QCOMPARE(pen->texts.value(QStringLiteral("a")), expected);
        }
}

QTEST_GUILESS_MAIN(TestCrashes)
#include "tst_crashes.moc"
