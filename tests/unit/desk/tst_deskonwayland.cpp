#include "deskprogram.h"

#include <QColor>
#include <QDir>
#include <QImage>
#include <QTest>
#include <memory>
#include <optional>

namespace {

constexpr QRgb Desk = qRgb(0xe9, 0xeb, 0xee);
constexpr int LeastWidth = 700; // of a row of the window in the desk's colour
constexpr int Margin = 16;      // rows of the desk above the pen
constexpr int ShotMs = 3000;

/* The uppermost row of the window, and where it begins and ends. */
std::optional<QRect> topOf(const QImage& screen)
{
    for (int y = 0; y < screen.height(); ++y) {
        int begin = 0;
        for (int x = 0; x < screen.width(); ++x) {
            if (screen.pixel(x, y) == Desk)
                continue;
            if (x - begin >= LeastWidth)
                return QRect(begin, y, x - begin, 1);
            begin = x + 1;
        }
    }
    return std::nullopt;
}

/* Whether anything is darker than the desk; the title of a window without the keys is grey. */
bool hasInk(const QImage& screen, const QRect& area)
{
    for (int y = area.top(); y <= area.bottom(); ++y) {
        for (int x = area.left(); x <= area.right(); ++x) {
            if (qGray(screen.pixel(x, y)) < 200)
                return true;
        }
    }
    return false;
}

} // namespace

/* The desk's program as a client of a Wayland compositor that draws no title bars (Weston). */
class TestDeskOnWayland : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_desk = std::make_unique<DeskProgram>();
        m_desk->setVariable("QT_QPA_PLATFORM"); // as the desk chooses
    }

    void itsWindowHasATitleBarAndThePenAWindow()
    {
        QProcess desk;
        m_desk->start(desk, m_desk->options() + QStringList("--forget"));
        QByteArray output;
        QTRY_VERIFY_WITH_TIMEOUT((output += desk.readAll()).contains("the test pen is up"), 30000);
        QImage screen;
        std::optional<QRect> top;
        QTRY_VERIFY_WITH_TIMEOUT((top = topOf(screen = screenshot())), 60000);
        // What stands above the pen is the title bar with its buttons.
        QVERIFY(hasInk(screen, top->adjusted(0, 0, 0, Margin)));
        desk.terminate();
        QVERIFY(desk.waitForFinished());
        output += desk.readAll();
        QCOMPARE(desk.exitStatus(), QProcess::NormalExit);
        QCOMPARE(desk.exitCode(), 0);
        QVERIFY2(!output.contains("qt."), output.constData());
    }

private:
    QImage screenshot() const
    {
        QDir dir(m_desk->path(QString()));
        const QStringList pictures(QStringLiteral("*-screenshot-*.png"));
        for (const QString& old : dir.entryList(pictures))
            dir.remove(old);
        QProcess shooter;
        shooter.setWorkingDirectory(dir.path());
        shooter.start("weston-screenshooter", {});
        if (!shooter.waitForFinished(ShotMs) || dir.entryList(pictures).isEmpty())
            return {}; // Weston now and then forgets one; another is asked for
        return QImage(dir.filePath(dir.entryList(pictures).constFirst()));
    }

    std::unique_ptr<DeskProgram> m_desk;
};

QTEST_GUILESS_MAIN(TestDeskOnWayland)
#include "tst_deskonwayland.moc"
