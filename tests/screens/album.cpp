#include "tests/screens/album.h"

#include <QDir>
#include <QFile>
#include <QPixmap>
#include <QWidget>

namespace {

constexpr int Width = 256;
constexpr int Height = 64;
constexpr int LitFrom = 128;

QImage toOneBit(const QImage& image)
{
    QImage bits(image.size(), QImage::Format_Mono);
    bits.setColorTable({qRgb(0, 0, 0), qRgb(255, 255, 255)});
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            bits.setPixel(x, y, qGray(image.pixel(x, y)) >= LitFrom ? 1 : 0);
    }
    return bits;
}

// Lit in both: grey; lit in one only: red when it should not be, blue when it should.
QImage difference(const QImage& got, const QImage& expected, int& count)
{
    QImage image(Width, Height, QImage::Format_RGB32);
    count = 0;
    for (int y = 0; y < Height; ++y) {
        for (int x = 0; x < Width; ++x) {
            const bool lit = got.pixelIndex(x, y) != 0;
            const bool wanted = expected.pixelIndex(x, y) != 0;
            count += lit != wanted ? 1 : 0;
            const QRgb same = lit ? qRgb(128, 128, 128) : qRgb(0, 0, 0);
            const QRgb other = lit ? qRgb(255, 0, 0) : qRgb(64, 64, 255);
            image.setPixel(x, y, lit == wanted ? same : other);
        }
    }
    return image;
}

QString dumpFolder(const QString& name)
{
    const QString base = qEnvironmentVariable("SWIPELINE_SCREEN_DUMPS");
    return (base.isEmpty() ? QStringLiteral(SWIPELINE_BINARY_DIR "/screens") : base) + '/' + name;
}

} // namespace

Album::Album(const QString& name)
    : Album(QStringLiteral(SWIPELINE_SOURCE_DIR "/tests/screens/pictures/") + name,
            dumpFolder(name))
{
}

Album::Album(const QString& pictures, const QString& dumps) : m_pictures(pictures), m_dumps(dumps)
{
}

QImage Album::screenOf(QWidget* widget)
{
    const QImage image = widget->grab().toImage();
    return image.size() == QSize(Width, Height) ? toOneBit(image) : QImage();
}

bool Album::shows(QWidget* widget, const QString& name)
{
    return matches(screenOf(widget), name);
}

bool Album::matches(const QImage& screen, const QString& name)
{
    m_used.insert(name);
    forgetDumps(name);
    if (screen.isNull())
        return fail(name + QStringLiteral(": the widget does not fill 256 x 64 pixels"));
    const QImage stored(picture(name));
    if (stored.isNull()) {
        dump(name, QStringLiteral("got"), screen);
        return fail(
            QStringLiteral("no picture %1; what is shown lies in %2").arg(picture(name), m_dumps));
    }
    if (stored.size() != screen.size()) {
        dump(name, QStringLiteral("got"), screen);
        return fail(picture(name) + QStringLiteral(" is not 256 x 64 pixels"));
    }
    int count = 0;
    const QImage expected = toOneBit(stored);
    const QImage diff = difference(screen, expected, count);
    if (count == 0)
        return true;
    dump(name, QStringLiteral("got"), screen);
    dump(name, QStringLiteral("expected"), expected);
    dump(name, QStringLiteral("diff"), diff);
    return fail(
        QStringLiteral("%1: %2 pixels differ; see %3").arg(name, QString::number(count), m_dumps));
}

QString Album::problem() const
{
    return m_problem;
}

QStringList Album::unused() const
{
    QStringList names;
    const QStringList files = QDir(m_pictures).entryList({QStringLiteral("*.png")}, QDir::Files);
    for (const QString& file : files) {
        const QString name = file.chopped(4);
        if (!m_used.contains(name))
            names.append(name);
    }
    return names;
}

QString Album::picture(const QString& name) const
{
    return m_pictures + '/' + name + QStringLiteral(".png");
}

void Album::dump(const QString& name, const QString& what, const QImage& image) const
{
    QDir().mkpath(m_dumps);
    const QString file = QStringLiteral("%1/%2-%3.png").arg(m_dumps, name, what);
    if (!image.save(file))
        qWarning("cannot write %s", qPrintable(file));
}

void Album::forgetDumps(const QString& name) const
{
    for (const char* what : {"got", "expected", "diff"})
        QFile::remove(QStringLiteral("%1/%2-%3.png").arg(m_dumps, name, QLatin1String(what)));
}

bool Album::fail(const QString& problem)
{
    m_problem = problem;
    return false;
}
