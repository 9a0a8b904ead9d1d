#include "desk/deskmemory.h"
#include "desk/framerecorder.h"
#include "desk/handmodel.h"
#include "desk/pencheck.h"
#include "desk/penstorage.h"
#include "platform/systemcalls.h"

#include <QDir>
#include <QFile>
#include <QLineF>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <algorithm>
#include <cmath>
#include <limits>

namespace {

bool write(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
}

QByteArray read(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

/* The hand, the pen's memory and the film: what the desk can be set to. */
class TestDeskModels : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_dir = std::make_unique<QTemporaryDir>();
        QVERIFY(QDir(m_dir->path()).mkpath("mnt/mmc/e_ScanFile"));
        QVERIFY(write(m_dir->filePath("mnt/mmc/e_ScanFile/a.txt"), "a"));
    }

    void aHandMakesMotionAndLight()
    {
        HandModel hand;
        QCOMPARE(hand.motion(7).wobbleDeg, HandSettings().wobbleDeg);
        QCOMPARE(hand.motion(7).speedMmPerS, HandSettings().speedMmPerS);
        const CameraSettings usual = hand.seenBy({});
        QCOMPARE(usual.lightGradient, CameraSettings().lightGradient);
        QCOMPARE(usual.noise, CameraSettings().noise);
        QCOMPARE(usual.blurPx, CameraSettings().blurPx);
        hand.left = true;
        hand.tiltDeg = -4.0;
        hand.shadePercent = 60.0;
        const CameraSettings odd = hand.seenBy({});
        QVERIFY(odd.mount.leftHand);
        QCOMPARE(odd.rotationDeg, -4.0);
        QCOMPARE(odd.lightGradient, 0.6);
        QCOMPARE(hand.motion(9).seed, 9U);
    }

    void aHandWobblesOnItsOwnWay()
    {
        std::vector<PathPoint> points;
        for (int i = 0; i <= 100; ++i)
            points.push_back({i * 0.008, QPointF(20.0 + i, 35.0)});
        HandModel hand;
        const auto wobbling = [&](double wobbleMm) {
            hand.wobbleMm = wobbleMm;
            return HandPath::through(points, hand.motion(3));
        };
        const HandPath exact = HandPath::through(points);
        const HandPath still = wobbling(0.0);
        const HandPath little = wobbling(0.2);
        const HandPath much = wobbling(0.6);
        double farthest = 0.0;
        for (double s = 0.0; s <= exact.duration(); s += 0.003) {
            const PenPose at = exact.poseAt(s);
            QCOMPARE(still.poseAt(s).mm, at.mm);
            QCOMPARE(still.poseAt(s).angleDeg, 0.0);
            const QPointF off = little.poseAt(s).mm - at.mm;
            farthest = std::max(farthest, std::hypot(off.x(), off.y()));
            QVERIFY(QLineF(much.poseAt(s).mm - at.mm, 3.0 * off).length() < 1e-9);
            QVERIFY(std::abs(much.poseAt(s).angleDeg - 3.0 * little.poseAt(s).angleDeg) < 1e-9);
        }
        QVERIFY2(farthest > 0.08 && farthest < 0.35, qPrintable(QString::number(farthest)));

        // Where the hand was does not change while it goes on; and another swipe sways otherwise.
        const PenPose later = much.poseAt(0.3);
        points.resize(50);
        QCOMPARE(wobbling(0.6).poseAt(0.3).mm, later.mm);
        QVERIFY(HandPath::through(points, hand.motion(4)).poseAt(0.3).mm != later.mm);
    }

    void valuesStayInTheirRange()
    {
        HandModel hand;
        for (const HandModel::Trait& trait : HandModel::traits()) {
            hand.set(trait, 1e9);
            QCOMPARE(hand.*trait.value, trait.most);
            hand.set(trait, -1e9);
            QCOMPARE(hand.*trait.value, trait.least);
            hand.set(trait, std::numeric_limits<double>::quiet_NaN());
            QCOMPARE(hand.*trait.value, HandModel().*trait.value);
            QCOMPARE(HandModel::trait(trait.name), &trait);
        }
        QVERIFY(hand == HandModel());
        QVERIFY(!HandModel::trait("steady"));
    }

    void aHandIsToldAsScript()
    {
        HandModel hand;
        hand.left = true;
        hand.speedMmPerS = 250.0;
        hand.wobbleMm = 0.05;
        QCOMPARE(hand.scriptLines({}),
                 QStringList({"hand left", "hand speed 250", "hand wobble 0.05"}));
        QCOMPARE(HandModel().scriptLines(hand),
                 QStringList({"hand right", "hand speed 150", "hand wobble 0.15"}));
        QCOMPARE(hand.scriptLines(hand), QStringList());
    }

    void theCardGoesOutAndIn()
    {
        PenStorage storage(m_dir->path());
        QSignalSpy changed(&storage, &PenStorage::cardChanged);
        QVERIFY(storage.setCardOut(true));
        QVERIFY(storage.isCardOut());
        QVERIFY(!QDir(m_dir->filePath("mnt/mmc")).exists());
        QVERIFY(storage.setCardOut(true));
        QVERIFY(storage.setCardOut(false));
        QVERIFY(!storage.isCardOut());
        QCOMPARE(read(m_dir->filePath("mnt/mmc/e_ScanFile/a.txt")), "a");
        QCOMPARE(changed.size(), 2);
    }

    void theCardIsPutBackAtTheEnd()
    {
        {
            PenStorage storage(m_dir->path());
            QVERIFY(storage.setCardOut(true));
            QVERIFY(storage.setFull(true));
        }
        QCOMPARE(read(m_dir->filePath("mnt/mmc/e_ScanFile/a.txt")), "a");
        QVERIFY(!PenStorage(m_dir->path()).isFull());
    }

    void aCardLeftOutIsPutBack()
    {
        QVERIFY(QFile::rename(m_dir->filePath("mnt/mmc"), m_dir->filePath("mnt/mmc.out")));
        QVERIFY(QDir(m_dir->path()).mkpath("mnt/mmc")); // an empty folder is no card
        const PenStorage storage(m_dir->path());
        QVERIFY(!storage.isCardOut());
        QCOMPARE(read(m_dir->filePath("mnt/mmc/e_ScanFile/a.txt")), "a");
    }

    void nothingIsLostWhenTheSlotIsTaken()
    {
        PenStorage storage(m_dir->path());
        QVERIFY(storage.setCardOut(true));
        QVERIFY(QDir(m_dir->path()).mkpath("mnt/mmc/e_ScanFile"));
        QVERIFY(write(m_dir->filePath("mnt/mmc/e_ScanFile/b.txt"), "b"));
        QVERIFY(!storage.setCardOut(false));
        QVERIFY2(storage.errorString().contains("mnt/mmc"), qPrintable(storage.errorString()));
        QVERIFY(storage.isCardOut());
        QCOMPARE(read(m_dir->filePath("mnt/mmc/e_ScanFile/b.txt")), "b");
        QCOMPARE(read(m_dir->filePath("mnt/mmc.out/e_ScanFile/a.txt")), "a");
    }

    void aFullMemoryIsToldToThePen()
    {
        qputenv("SWIPELINE_ROOT", QFile::encodeName(m_dir->path()));
        PenStorage storage(m_dir->path());
        quint64 bytes = 0;
        QVERIFY(systemcalls::freeBytes(m_dir->path(), bytes));
        QVERIFY(bytes > 0);
        QVERIFY(storage.setFull(true));
        QVERIFY(storage.isFull());
        QVERIFY(systemcalls::freeBytes(m_dir->path(), bytes));
        QCOMPARE(bytes, quint64(0));
        QVERIFY(storage.setFull(false));
        QVERIFY(systemcalls::freeBytes(m_dir->path(), bytes));
        QVERIFY(bytes > 0);
        qunsetenv("SWIPELINE_ROOT");
    }

    void tellsWhatThePenLacks()
    {
        const QString voices = m_dir->filePath("voices");
        QStringList missing = pencheck::missing(m_dir->path(), {voices});
        QCOMPARE(missing.size(), 7);
        QVERIFY2(missing[0].contains("Latin.traineddata"), qPrintable(missing[0]));
        QVERIFY(missing[1].contains("tesseract-ocr-rus"));
        QVERIFY(missing[4].contains("espeak-ng-data"));
        QVERIFY(missing[5].contains("no dictionary"));
        QVERIFY(missing[6].contains("fonts-unifont"));

        QVERIFY(QDir(m_dir->path()).mkpath("apps/data/ocrrec"));
        QVERIFY(QDir(m_dir->path()).mkpath("mnt/mmc/usrdict"));
        QVERIFY(QDir().mkpath(voices));
        for (const char* name : {"Latin", "rus", "eng", "chi_sim"})
            QVERIFY(
                write(m_dir->filePath(QString("apps/data/ocrrec/%1.traineddata").arg(name)), "m"));
        QVERIFY(write(voices + "/phontab", "v"));
        QVERIFY(QDir(m_dir->path()).mkpath("apps/res/fonts"));
        QVERIFY(write(m_dir->filePath("apps/res/fonts/unifont.otf"), "f"));
        QVERIFY(write(m_dir->filePath("mnt/mmc/usrdict/a.index"), "d"));
        QCOMPARE(pencheck::missing(m_dir->path(), {"/nowhere", voices}), QStringList());
        QVERIFY(QFile::remove(m_dir->filePath("apps/data/ocrrec/rus.traineddata")));
        QCOMPARE(pencheck::missing(m_dir->path(), {voices}).size(), 1);
    }

    void voicesAreSoughtAsTheSpeechLibraryDoes()
    {
        const QString own = m_dir->filePath("own");
        qputenv("ESPEAK_DATA_PATH", own.toLocal8Bit());
        QVERIFY(pencheck::voiceFolders().contains("/usr/share/espeak-ng-data"));
        QVERIFY(QDir().mkpath(own)); // it is taken now, though nothing is in it
        QCOMPARE(pencheck::voiceFolders(), QStringList(own));
        QVERIFY(QDir().mkpath(own + "/espeak-ng-data"));
        QCOMPARE(pencheck::voiceFolders(), QStringList(own + "/espeak-ng-data"));
        qunsetenv("ESPEAK_DATA_PATH");
    }

    void theDeskRemembers()
    {
        const QString path = m_dir->filePath("config/desk.ini");
        DeskMemory first = DeskMemory::read(path); // there is none yet
        QCOMPARE(first.page.name, "english");
        QVERIFY(first.hand == HandModel());
        QVERIFY(!first.dark.has_value());
        DeskMemory memory;
        memory.page.kind = PageSource::Kind::Typed;
        memory.page.text = "One, two\n\"three\"; #4";
        memory.page.language = "en";
        memory.page.family = "DejaVu Sans";
        memory.page.sizePt = 9.5;
        memory.hand.left = true;
        memory.hand.tiltDeg = -3.0;
        memory.ruler = false;
        memory.dark = true;
        memory.tab = 2;
        memory.geometry = QByteArray("\x01\x00\xff;=\n", 6);
        QVERIFY(memory.write(path));
        const DeskMemory read = DeskMemory::read(path);
        QVERIFY(read.page == memory.page);
        QVERIFY(read.hand == memory.hand);
        QCOMPARE(read.ruler, false);
        QCOMPARE(read.dark, std::optional<bool>(true));
        QCOMPARE(read.tab, 2);
        QCOMPARE(read.geometry, memory.geometry);
    }

    void oddMemoriesDoNoHarm()
    {
        const QString path = m_dir->filePath("desk.ini");
        QVERIFY(write(path, "[page]\nkind=file\nname=/nowhere/gone.png\nsize=nan\nsheet=-7\n"
                            "dpi=1e9\n[hand]\nspeed=1e99\ntilt=words\n[window]\ntab=-4\n"));
        const DeskMemory memory = DeskMemory::read(path);
        QCOMPARE(memory.page.name, "english"); // the file has gone
        QCOMPARE(memory.hand.speedMmPerS, 800.0);
        QCOMPARE(memory.hand.tiltDeg, 0.0);
        QCOMPARE(memory.tab, 0);
        QVERIFY(!DeskMemory().write("/proc/nowhere/desk.ini"));
    }

    void aFilmHoldsWhatChanges()
    {
        QImage picture(4, 4, QImage::Format_RGB32);
        picture.fill(Qt::white);
        int drawn = 0;
        FrameRecorder film(m_dir->path(), 20, [&] {
            ++drawn;
            return picture;
        });
        film.setOn(true);
        QTRY_VERIFY(drawn >= 3);
        QCOMPARE(film.count(), 1);
        picture.fill(Qt::black);
        QTRY_COMPARE(film.count(), 2);
        film.setOn(false);
        const int before = drawn;
        picture.fill(Qt::red); // while it is off nothing is taken
        QTest::qWait(0);
        QCOMPARE(drawn, before);
        QVERIFY(film.finish());
        QCOMPARE(QImage(m_dir->filePath("frame-0001.png")).pixelColor(0, 0), QColor(Qt::white));
        QCOMPARE(QImage(m_dir->filePath("frame-0002.png")).pixelColor(0, 0), QColor(Qt::black));
        const QList<QByteArray> lines = read(m_dir->filePath("frames.txt")).trimmed().split('\n');
        QCOMPARE(lines.size(), 2);
        QCOMPARE(lines[0].split(' ').first(), "frame-0001.png");
        QVERIFY(lines[0].split(' ').last().toInt() >= 40);
    }

    void aFilmThatCannotBeWrittenSaysSo()
    {
        FrameRecorder film(m_dir->filePath("nowhere"), 20,
                           [] { return QImage(4, 4, QImage::Format_RGB32); });
        film.setOn(true);
        QVERIFY(!film.finish());
    }

private:
    std::unique_ptr<QTemporaryDir> m_dir;
};

QTEST_GUILESS_MAIN(TestDeskModels)
#include "tst_deskmodels.moc"
