#include "tests/contract/dichost.h"
#include "tests/unit/open/dicfiles.h"

#include <QDir>
#include <QTemporaryDir>

std::vector<std::string> dichost::installDictionaries()
{
    static const QTemporaryDir root;
    QDir(root.path()).mkpath(QStringLiteral("apps/data/dictindex"));
    qputenv("SWIPELINE_ROOT", QFile::encodeName(root.path()));

    const std::string folder = QFile::encodeName(root.path()).toStdString() + "/";
    dicfiles::writeDict(folder + "eng-deu", {{"house", "house /haus/\nHaus <neut>"}}, true);
    dicfiles::write(folder + "eng-deu.about",
                    "name=Clef \xf0\x9d\x84\x9e\nsource=Old prints\nlicence=Public domain\n");
    dicfiles::write(folder + "apps/data/dictindex/registry",
                    "eng-deu 0/eng-deu\nfra-eng 0/gone\nfra-eng 0/fra-eng\n");
    dicfiles::StarDict french;
    french.entries = {{"maison", "house"}};
    dicfiles::writeStarDict(folder + "fra-eng", french);
    return {folder, "/nowhere/two/"};
}
