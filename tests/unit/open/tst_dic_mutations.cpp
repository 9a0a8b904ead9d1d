/*
 * Thousands of pens with a damaged dictionary beside a good one, each used from beginning to end:
 * no crash, no hang, no finding of a sanitizer; the good one works; whatever is refused leaves a
 * line in the log. Processes of their own do it, a hundred pens each; one that dies names its seed.
 *
 * SWIPELINE_MUTATIONS: how many (1,500); SWIPELINE_MUTATION_SEED: the first (1).
 */
#include "tests/unit/open/damagedpen.h"
#include "tests/unit/open/dicfiles.h"

#include <QFileInfo>
#include <QTemporaryDir>
#include <QTest>
#include <algorithm>
#include <fcntl.h>
#include <filesystem>
#include <memory>
#include <spawn.h>
#include <sys/mman.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace fs = std::filesystem;

namespace {

constexpr std::uint64_t Batch = 100;
constexpr unsigned LongestSeconds = 30; // for one pen, on a busy machine with sanitizers

// In a file of the folder; stays until the process ends.
DamagedPenProgress* sharedProgress(const std::string& folder)
{
    const int file = open((folder + "/progress").c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600);
    void* const memory =
        ftruncate(file, sizeof(DamagedPenProgress)) == 0
            ? mmap(nullptr, sizeof(DamagedPenProgress), PROT_READ | PROT_WRITE, MAP_SHARED, file, 0)
            : MAP_FAILED;
    close(file);
    return memory == MAP_FAILED ? nullptr : static_cast<DamagedPenProgress*>(memory);
}

} // namespace

class TestDicMutations : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void wholeDictionariesAreOpened();
    void damageIsTheSameEachTime();
    void noDamageHarms_data();
    void noDamageHarms();
    void damageIsOfManyKinds();

private:
    bool runBatch(std::uint64_t first, std::uint64_t count);

    std::unique_ptr<QTemporaryDir> m_folder;
    DamagedPenProgress m_total;
    std::uint64_t m_pens = 0;
};

namespace {

std::uint64_t number(const char* name, std::uint64_t otherwise)
{
    bool isNumber = false;
    const std::uint64_t value = qEnvironmentVariable(name).toULongLong(&isNumber);
    return isNumber ? value : otherwise;
}

// In memory where that can be: the engine flushes what it writes, thousands of times here.
std::unique_ptr<QTemporaryDir> newFolder()
{
    const QString memory = QStringLiteral("/dev/shm");
    if (!QFileInfo(memory).isWritable())
        return std::make_unique<QTemporaryDir>();
    return std::make_unique<QTemporaryDir>(memory + QStringLiteral("/mutations-XXXXXX"));
}

} // namespace

void TestDicMutations::init()
{
    m_folder = newFolder();
}

void TestDicMutations::wholeDictionariesAreOpened()
{
    const fs::path root = m_folder->path().toStdString();
    DicMutator mutator((root / "whole").string());
    QCOMPARE(mutator.whole().size(), std::size_t(10));
    for (const DictionaryFiles& files : mutator.whole()) {
        DamagedPenProgress progress;
        DamagedPen pen(root / "pen", mutator, 1, progress);
        QVERIFY(pen.opens(files));
        QVERIFY(progress.found > 3);
        fs::remove_all(root / "pen");
    }
    qunsetenv("SWIPELINE_ROOT");
}

void TestDicMutations::damageIsTheSameEachTime()
{
    DicMutator mutator(m_folder->path().toStdString());
    std::vector<std::string> seen;
    for (std::uint64_t seed = 0; seed < 100; ++seed) {
        std::string texts[2];
        for (std::string& text : texts) {
            DictionaryFiles files = mutator.whole()[seed % mutator.whole().size()];
            mutator.mutate(files, seed, text);
            for (const auto& [suffix, file] : files)
                text += suffix + file.content;
        }
        QCOMPARE(texts[0], texts[1]);
        seen.push_back(texts[0]);
    }
    std::sort(seen.begin(), seen.end());
    QVERIFY(std::unique(seen.begin(), seen.end()) - seen.begin() > 95);
}

bool TestDicMutations::runBatch(std::uint64_t first, std::uint64_t count)
{
    const std::string folder = m_folder->path().toStdString();
    const std::string numbers[] = {std::to_string(first), std::to_string(count)};
    const char* const command[] = {"/proc/self/exe",   "--work",           folder.c_str(),
                                   numbers[0].c_str(), numbers[1].c_str(), nullptr};
    pid_t child = 0;
    int status = 0;
    if (posix_spawn(&child, command[0], nullptr, nullptr, const_cast<char* const*>(command),
                    environ)
            != 0
        || waitpid(child, &status, 0) != child)
        return false;
    const DamagedPenProgress* const progress = sharedProgress(folder);
    m_total.add(*progress);
    if (WIFEXITED(status) && WEXITSTATUS(status) == 0)
        return true;
    std::fprintf(stderr, "seed %llu, status %#x:%s\n%s\n",
                 static_cast<unsigned long long>(progress->seed), unsigned(status), progress->doing,
                 dicfiles::read(folder + "/log").c_str());
    return false;
}

void TestDicMutations::noDamageHarms_data()
{
    const std::uint64_t first = number("SWIPELINE_MUTATION_SEED", 1);
    const std::uint64_t count = number("SWIPELINE_MUTATIONS", 1500);
    QTest::addColumn<quint64>("first");
    QTest::addColumn<quint64>("count");
    for (std::uint64_t done = 0; done < count; done += Batch)
        QTest::addRow("from %s", std::to_string(first + done).c_str())
            << quint64(first + done) << quint64(std::min(Batch, count - done));
}

void TestDicMutations::noDamageHarms()
{
    QFETCH(quint64, first);
    QFETCH(quint64, count);
    QVERIFY(runBatch(first, count));
    m_pens += count;
}

// Damage that nobody notices, or that always ends at the door, would show little.
void TestDicMutations::damageIsOfManyKinds()
{
    qInfo("%s pens: %s damaged dictionaries refused, %s opened, %s entries read",
          std::to_string(m_pens).c_str(), std::to_string(m_total.refused).c_str(),
          std::to_string(m_total.opened).c_str(), std::to_string(m_total.found).c_str());
    QVERIFY(m_total.refused >= m_pens / 10);
    QVERIFY(m_total.opened >= m_pens / 10);
}

namespace {

// In a process of its own, its log in a file.
int work(const fs::path& root, std::uint64_t first, std::uint64_t count)
{
    const int log = open((root / "log").c_str(), O_RDWR | O_CREAT | O_TRUNC | O_APPEND, 0600);
    dup2(log, STDERR_FILENO);
    close(log);
    const rlimit files = {128, 128}; // what is not closed is missed soon
    setrlimit(RLIMIT_NOFILE, &files);
    DamagedPenProgress* const progress = sharedProgress(root.string());
    DicMutator mutator((root / "whole").string());
    for (std::uint64_t seed = first; seed < first + count; ++seed) {
        progress->seed = seed;
        alarm(LongestSeconds);
        const fs::path place = root / "pen";
        fs::create_directory(place);
        fs::create_hard_link(root / "log", place / "log");
        DamagedPen(place, mutator, seed, *progress).run(seed);
        fs::remove_all(place);
    }
    alarm(0);
    return EXIT_SUCCESS;
}

} // namespace

int main(int argc, char** argv)
{
    if (argc == 5 && std::string(argv[1]) == "--work")
        return work(argv[2], std::stoull(argv[3]), std::stoull(argv[4]));
    TestDicMutations test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_dic_mutations.moc"
