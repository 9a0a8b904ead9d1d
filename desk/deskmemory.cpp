#include "desk/deskmemory.h"

#include "desk/pageloader.h"

#include <QFileInfo>
#include <QSettings>
#include <QStandardPaths>
#include <algorithm>

namespace {

constexpr qsizetype MaxText = 100'000;
constexpr int MaxSheet = 100'000;

struct KindName
{
    PageSource::Kind kind;
    const char* name;
};
constexpr KindName Kinds[] = {{PageSource::Kind::Sample, "sample"},
                              {PageSource::Kind::File, "file"},
                              {PageSource::Kind::Text, "text"},
                              {PageSource::Kind::Typed, "typed"}};

bool makesSense(const PageSource& page)
{
    switch (page.kind) {
    case PageSource::Kind::Sample:
        return PageLoader::samples().contains(page.name);
    case PageSource::Kind::Typed:
        return page.language.size() == 2 && !page.text.simplified().isEmpty()
               && page.text.size() <= MaxText;
    case PageSource::Kind::Text:
        return page.language.size() == 2 && QFileInfo(page.name).isFile();
    case PageSource::Kind::File:
        break;
    }
    return QFileInfo(page.name).isFile();
}

PageSource readPage(const QSettings& settings)
{
    PageSource first;
    first.name = PageLoader::samples().constFirst();
    PageSource page;
    const QString kind = settings.value(QStringLiteral("page/kind")).toString();
    const auto* const found = std::ranges::find_if(
        Kinds, [&kind](const KindName& each) { return kind == QLatin1String(each.name); });
    if (found == std::end(Kinds))
        return first;
    page.kind = found->kind;
    page.name = settings.value(QStringLiteral("page/name")).toString();
    page.language = settings.value(QStringLiteral("page/language")).toString();
    page.text = settings.value(QStringLiteral("page/text")).toString();
    page.family = settings.value(QStringLiteral("page/font")).toString();
    page.sizePt = settings.value(QStringLiteral("page/size"), page.sizePt).toDouble();
    if (!(page.sizePt >= PageSource::LeastPt && page.sizePt <= PageSource::MostPt))
        page.sizePt = PageSource().sizePt;
    page.pdfPage = std::clamp(settings.value(QStringLiteral("page/sheet")).toInt(), 0, MaxSheet);
    const double dpi = settings.value(QStringLiteral("page/dpi")).toDouble();
    if (dpi >= PageSource::LeastDpi && dpi <= PageSource::MostDpi)
        page.pictureDpi = dpi;
    return makesSense(page) ? page : first;
}

} // namespace

DeskMemory DeskMemory::read(const QString& path)
{
    const QSettings settings(path, QSettings::IniFormat);
    DeskMemory memory;
    memory.geometry = settings.value(QStringLiteral("window/geometry")).toByteArray();
    memory.tab = std::max(0, settings.value(QStringLiteral("window/tab")).toInt());
    if (settings.contains(QStringLiteral("window/dark")))
        memory.dark = settings.value(QStringLiteral("window/dark")).toBool();
    memory.ruler = settings.value(QStringLiteral("page/ruler"), true).toBool();
    memory.page = readPage(settings);
    memory.hand.left = settings.value(QStringLiteral("hand/left")).toBool();
    for (const HandModel::Trait& trait : HandModel::traits()) {
        bool ok = false;
        const double value =
            settings.value(QLatin1String("hand/") + QLatin1String(trait.name)).toDouble(&ok);
        if (ok)
            memory.hand.set(trait, value);
    }
    return memory;
}

bool DeskMemory::write(const QString& path) const
{
    QSettings settings(path, QSettings::IniFormat);
    settings.setValue(QStringLiteral("window/geometry"), geometry);
    settings.setValue(QStringLiteral("window/tab"), tab);
    if (dark)
        settings.setValue(QStringLiteral("window/dark"), *dark);
    settings.setValue(QStringLiteral("page/ruler"), ruler);
    for (const KindName& each : Kinds) {
        if (each.kind == page.kind)
            settings.setValue(QStringLiteral("page/kind"), QLatin1String(each.name));
    }
    settings.setValue(QStringLiteral("page/name"), page.name);
    settings.setValue(QStringLiteral("page/language"), page.language);
    settings.setValue(QStringLiteral("page/text"), page.text);
    settings.setValue(QStringLiteral("page/font"), page.family);
    settings.setValue(QStringLiteral("page/size"), page.sizePt);
    settings.setValue(QStringLiteral("page/sheet"), page.pdfPage);
    settings.setValue(QStringLiteral("page/dpi"), page.pictureDpi);
    settings.setValue(QStringLiteral("hand/left"), hand.left);
    for (const HandModel::Trait& trait : HandModel::traits())
        settings.setValue(QLatin1String("hand/") + QLatin1String(trait.name), hand.*trait.value);
    settings.sync();
    return settings.status() == QSettings::NoError;
}

QString DeskMemory::usualPath()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation)
           + QLatin1String("/swipeline/desk.ini");
}
