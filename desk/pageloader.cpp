#include "desk/pageloader.h"

#include "desk/linefinder.h"
#include "desk/typesetter.h"

#include <QFile>
#include <QFileInfo>
#include <QImageReader>
#include <QtConcurrentRun>
#include <algorithm>
#include <array>
#include <memory>
#include <poppler-qt6.h>

/* Resources of a static library have to be asked for by name, outside of any namespace. */
static void bindSamplePages()
{
    Q_INIT_RESOURCE(desk);
}

namespace {

constexpr double PdfDpi = 600.0;
constexpr double UsualDpi = 300.0;
constexpr double MinLineMm = 1.0;
constexpr qint64 MaxTextBytes = 1024 * 1024;
constexpr int MaxPictureMegabytes = 512;

struct Sample
{
    const char* name;
    const char* title;
    const char* language;
};
constexpr auto Samples = std::to_array<Sample>({
    {"english", "English", "en"},
    {"german", "German", "de"},
    {"french", "French", "fr"},
    {"spanish", "Spanish", "es"},
    {"italian", "Italian", "it"},
    {"portuguese", "Portuguese", "pt"},
    {"dutch", "Dutch", "nl"},
    {"swedish", "Swedish", "sv"},
    {"danish", "Danish", "da"},
    {"norwegian", "Norwegian", "no"},
    {"russian", "Russian", "ru"},
    {"chinese", "Chinese", "zh"},
});

PageLoader::Result failure(const QString& error)
{
    return {PrintedPage(), error};
}

void findLines(PrintedPage& page)
{
    const double mmPerPixel = PrintedPage::MmPerInch / page.dpi;
    for (const QRect& box : linefinder::lines(page.image, int(MinLineMm / mmPerPixel)))
        page.lines.append(
            {QRectF(QPointF(box.topLeft()) * mmPerPixel, QSizeF(box.size()) * mmPerPixel),
             QString()});
}

PageLoader::Result loadSample(const QString& name)
{
    bindSamplePages();
    for (const Sample& sample : Samples) {
        if (name != QLatin1String(sample.name))
            continue;
        QFile file(QStringLiteral(":/desk/pages/%1.html").arg(name));
        if (!file.open(QIODevice::ReadOnly))
            return failure(PageLoader::tr("The sample page \"%1\" is missing.").arg(name));
        typesetter::Style style;
        style.language = QLatin1String(sample.language);
        return {typesetter::setHtml(QString::fromUtf8(sample.title),
                                    QString::fromUtf8(file.readAll()), style),
                QString()};
    }
    return failure(PageLoader::tr("There is no sample page \"%1\"; there are %2.")
                       .arg(name, PageLoader::samples().join(QLatin1String(", "))));
}

PageLoader::Result loadText(const PageSource& source)
{
    QFile file(source.name);
    if (!file.open(QIODevice::ReadOnly))
        return failure(
            PageLoader::tr("The text %1 cannot be read: %2").arg(source.name, file.errorString()));
    if (file.size() > MaxTextBytes)
        return failure(PageLoader::tr("The text %1 is too long for a page.").arg(source.name));
    typesetter::Style style;
    style.language = source.language;
    return {typesetter::setPlain(QFileInfo(source.name).fileName(),
                                 QString::fromUtf8(file.readAll()), style),
            QString()};
}

PageLoader::Result loadTyped(const PageSource& source)
{
    if (source.text.simplified().isEmpty())
        return failure(PageLoader::tr("There is no text to set."));
    typesetter::Style style;
    style.language = source.language;
    style.family = source.family;
    style.sizePt = std::clamp(source.sizePt, PageSource::LeastPt, PageSource::MostPt);
    return {typesetter::setPlain(PageLoader::tr("My text"), source.text, style), QString()};
}

bool isPdf(const QString& path)
{
    return path.endsWith(QLatin1String(".pdf"), Qt::CaseInsensitive);
}

PageLoader::Result loadPdf(const PageSource& source)
{
    const std::unique_ptr<Poppler::Document> document = Poppler::Document::load(source.name);
    if (!document)
        return failure(PageLoader::tr("%1 is no PDF file that can be read.").arg(source.name));
    if (document->isLocked())
        return failure(PageLoader::tr("The PDF file %1 asks for a password.").arg(source.name));
    const std::unique_ptr<Poppler::Page> sheet = document->page(source.pdfPage);
    if (!sheet)
        return failure(PageLoader::tr("The PDF file %1 has no page %2.")
                           .arg(source.name)
                           .arg(source.pdfPage + 1));
    document->setRenderHint(Poppler::Document::Antialiasing);
    document->setRenderHint(Poppler::Document::TextAntialiasing);
    PrintedPage page;
    page.name = QFileInfo(source.name).fileName();
    page.dpi = PdfDpi;
    page.sheet = source.pdfPage;
    page.sheets = document->numPages();
    page.image = sheet->renderToImage(PdfDpi, PdfDpi).convertToFormat(QImage::Format_Grayscale8);
    if (page.isEmpty())
        return failure(PageLoader::tr("The PDF file %1 cannot be drawn.").arg(source.name));
    findLines(page);
    return {page, QString()};
}

PageLoader::Result loadPicture(const PageSource& source)
{
    QImageReader reader(source.name);
    reader.setAutoTransform(true);
    const QImage picture = reader.read();
    if (picture.isNull())
        return failure(PageLoader::tr("The picture %1 cannot be read: %2")
                           .arg(source.name, reader.errorString()));
    PrintedPage page;
    page.name = QFileInfo(source.name).fileName();
    page.image = picture.convertToFormat(QImage::Format_Grayscale8);
    page.dpi = source.pictureDpi > 0.0 ? source.pictureDpi : UsualDpi;
    findLines(page);
    return {page, QString()};
}

} // namespace

PageLoader::PageLoader(QObject* parent) : QObject(parent)
{
    QImageReader::setAllocationLimit(MaxPictureMegabytes);
    // What is wrong with a file is told in a sentence; the details are of no use on the desk.
    Poppler::setDebugErrorFunction([](const QString&, const QVariant&) {}, QVariant());
    connect(&m_watcher, &QFutureWatcher<Result>::finished, this, [this] {
        const Result result = m_watcher.result();
        if (result.error.isEmpty())
            emit loaded(result.page);
        else
            emit failed(result.error);
    });
}

PageLoader::~PageLoader() = default;

void PageLoader::load(const PageSource& source)
{
    m_source = source;
    m_watcher.setFuture(QtConcurrent::run(&PageLoader::loadNow, source));
}

QStringList PageLoader::samples()
{
    QStringList names;
    for (const Sample& sample : Samples)
        names.append(QLatin1String(sample.name));
    return names;
}

QVector<PageLoader::Language> PageLoader::languages()
{
    QVector<Language> result;
    for (const Sample& sample : Samples)
        result.append({QLatin1String(sample.language), QLatin1String(sample.title)});
    return result;
}

bool PageLoader::canBePage(const QString& path)
{
    const QByteArray suffix = QFileInfo(path).suffix().toLower().toLatin1();
    return isPdf(path) || QImageReader::supportedImageFormats().contains(suffix);
}

PageSource PageLoader::named(const QString& name)
{
    PageSource source;
    source.name = name;
    if (!samples().contains(name))
        source.kind = PageSource::Kind::File;
    return source;
}

PageLoader::Result PageLoader::loadNow(const PageSource& source)
{
    switch (source.kind) {
    case PageSource::Kind::Sample:
        return loadSample(source.name);
    case PageSource::Kind::Text:
        return loadText(source);
    case PageSource::Kind::Typed:
        return loadTyped(source);
    case PageSource::Kind::File:
        break;
    }
    if (!QFileInfo(source.name).isFile())
        return failure(tr("There is no file %1.").arg(source.name));
    if (isPdf(source.name))
        return loadPdf(source);
    return loadPicture(source);
}
