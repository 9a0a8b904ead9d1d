#include "desk/deskoptions.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

namespace {

QString tr(const char* text)
{
    return QCoreApplication::translate("DeskOptions", text);
}

QString absolute(const QString& path)
{
    return path.isEmpty() ? path : QFileInfo(path).absoluteFilePath();
}

QString findPen(const QString& programDir)
{
    for (const char* place : {"/swipeline", "/../app/swipeline"}) {
        const QFileInfo candidate(programDir + QLatin1String(place));
        if (candidate.isFile() && candidate.isExecutable())
            return candidate.canonicalFilePath();
    }
    return QString();
}

void addOptions(QCommandLineParser& parser)
{
    parser.setApplicationDescription(
        tr("A desk with a reading pen and a printed page. Without --headless it opens a window."));
    const auto add = [&parser](const char* name, const char* what, const char* value) {
        parser.addOption({QLatin1String(name), tr(what), QLatin1String(value)});
    };
    parser.addOption({{QStringLiteral("h"), QStringLiteral("help")}, tr("Shows this help.")});
    add("root", "Folder that holds the pen's files (made by scripts/make-run-root).", "DIR");
    add("pen", "The pen's program (usually \"swipeline\" beside the desk or in ../app).", "PATH");
    add("fonts", "Font configuration for the pen (usually apps/res/fonts.conf of the root).",
        "FILE");
    add("language", "Language of the pen's interface, for instance German or Deutsch.", "NAME");
    add("page",
        "Page on the desk: english, german, french, spanish, italian, portuguese, dutch, "
        "swedish, danish, norwegian, russian, chinese, a picture or a PDF file.",
        "PAGE");
    add("text", "Page set in type from a text file; see --lang.", "FILE");
    add("lang", "Language of --text, two letters.", "xx");
    add("dpi", "Resolution of a picture given with --page (300).", "DPI");
    add("pdf-page", "Page of a PDF file, from 1.", "N");
    parser.addOption(
        {QStringLiteral("forget"),
         tr("Opens the desk as it is at first: does not recall page, hand and window of "
            "the last time, and does not remember them.")});
    add("wav", "Writes the pen's sound to a file instead of playing it.", "FILE");
    add("headless", "Carries out a script without a display.", "SCRIPT");
    add("out", "With --headless: folder for pictures and sound (desk-out).", "DIR");
    add("desk-shot", "Writes a picture of the desk at the end (a PNG file).", "FILE");
    add("record", "Writes what was done on the desk to a script for --headless, at the end.",
        "FILE");
    add("frames", "With --headless: writes a film of the desk, a PNG file a picture.", "DIR");
    add("frames-every", "Milliseconds between two pictures of the film (100).", "MS");
    add("frames-of", "What the film shows: desk, or pen (pen and caption only).", "PART");
}

QString readPage(const QCommandLineParser& parser, PageSource& page)
{
    page.name = QStringLiteral("english");
    const QString name = parser.value(QStringLiteral("page"));
    const QString text = parser.value(QStringLiteral("text"));
    if (!name.isEmpty() && !text.isEmpty())
        return tr("Only one of --page and --text can lie on the desk.");
    if (!name.isEmpty()) {
        page = PageLoader::named(name);
        if (page.kind == PageSource::Kind::File)
            page.name = absolute(name);
    } else if (!text.isEmpty()) {
        page.kind = PageSource::Kind::Text;
        page.name = absolute(text);
        page.language = parser.value(QStringLiteral("lang"));
        if (page.language.size() != 2)
            return tr("--text needs --lang with two letters, for instance --lang fr.");
    }
    if (parser.isSet(QStringLiteral("dpi"))) {
        page.pictureDpi = parser.value(QStringLiteral("dpi")).toDouble();
        if (page.pictureDpi < PageSource::LeastDpi || page.pictureDpi > PageSource::MostDpi)
            return tr("--dpi takes a number from 50 to 2400.");
    }
    if (parser.isSet(QStringLiteral("pdf-page"))) {
        page.pdfPage = parser.value(QStringLiteral("pdf-page")).toInt() - 1;
        if (page.pdfPage < 0)
            return tr("--pdf-page takes a number from 1.");
    }
    return QString();
}

QString readFrames(const QCommandLineParser& parser, DeskOptions& options)
{
    options.frames = absolute(parser.value(QStringLiteral("frames")));
    if (!options.frames.isEmpty() && !options.isHeadless())
        return tr("--frames needs --headless.");
    if (parser.isSet(QStringLiteral("frames-every"))) {
        options.framesMs = parser.value(QStringLiteral("frames-every")).toInt();
        if (options.framesMs < 20 || options.framesMs > 10'000)
            return tr("--frames-every takes a number from 20 to 10000.");
    }
    const QString part = parser.value(QStringLiteral("frames-of"));
    options.framesOfPen = part == QLatin1String("pen");
    if (!part.isEmpty() && part != QLatin1String("desk") && !options.framesOfPen)
        return tr("--frames-of takes desk or pen.");
    return QString();
}

QString checkFiles(const DeskOptions& options, const QString& givenPen)
{
    if (options.root.isEmpty())
        return tr("--root is missing: the folder with the pen's files. Make one with "
                  "scripts/make-run-root.");
    if (!QFileInfo(options.root).isDir())
        return tr("There is no folder %1 (--root). Make one with scripts/make-run-root.")
            .arg(options.root);
    if (!QFileInfo(options.root + QLatin1String("/apps")).isDir())
        return tr("There are no files of a pen in %1 (--root). Make some with "
                  "scripts/make-run-root.")
            .arg(options.root);
    if (options.pen.isEmpty())
        return tr("The pen's program \"swipeline\" was not found beside the desk; build it, or "
                  "name it with --pen.");
    const QFileInfo pen(options.pen);
    if (!pen.isFile() || !pen.isExecutable())
        return tr("%1 (--pen) is no program.").arg(givenPen);
    if (options.isHeadless() && !QFileInfo(options.script).isFile())
        return tr("There is no script %1.").arg(options.script);
    if (!options.fonts.isEmpty() && !QFileInfo(options.fonts).isFile())
        return tr("There is no file %1 (--fonts).").arg(options.fonts);
    return QString();
}

} // namespace

DeskOptions DeskOptions::parse(const QStringList& arguments, const QString& programDir)
{
    DeskOptions options;
    QCommandLineParser parser;
    addOptions(parser);
    const bool sound = parser.parse(arguments);
    options.help = parser.helpText();
    options.helpWanted = parser.isSet(QStringLiteral("help"));
    if (options.helpWanted)
        return options;
    if (!sound) {
        options.error = parser.errorText();
        return options;
    }
    if (!parser.positionalArguments().isEmpty()) {
        options.error = tr("\"%1\" is no option.").arg(parser.positionalArguments().constFirst());
        return options;
    }
    const auto path = [&parser](const char* name) {
        return absolute(parser.value(QLatin1String(name)));
    };
    options.root = path("root");
    options.pen = parser.isSet(QStringLiteral("pen")) ? path("pen") : findPen(programDir);
    options.script = path("headless");
    options.out =
        parser.isSet(QStringLiteral("out")) ? path("out") : absolute(QStringLiteral("desk-out"));
    options.wav = path("wav");
    options.language = parser.value(QStringLiteral("language"));
    if (options.wav.isEmpty() && options.isHeadless())
        options.wav = options.out + QLatin1String("/speech.wav");
    options.deskShot = path("desk-shot");
    options.record = path("record");
    options.fonts = path("fonts");
    const QString rootFonts = options.root + QLatin1String("/apps/res/fonts.conf");
    if (options.fonts.isEmpty() && QFileInfo(rootFonts).isFile())
        options.fonts = rootFonts;
    options.forget = parser.isSet(QStringLiteral("forget"));
    options.pageGiven =
        parser.isSet(QStringLiteral("page")) || parser.isSet(QStringLiteral("text"));
    options.error = readPage(parser, options.page);
    if (options.error.isEmpty())
        options.error = readFrames(parser, options);
    if (options.error.isEmpty())
        options.error = checkFiles(options, parser.value(QStringLiteral("pen")));
    return options;
}
