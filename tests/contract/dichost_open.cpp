#include "tests/contract/dichost.h"
#include "tests/unit/open/dicfiles.h"

#include <QDir>
#include <QTemporaryDir>

std::vector<std::string> dichost::installDictionaries()
{
    static const QTemporaryDir root;
    QDir(root.path()).mkpath(QStringLiteral("apps/data"));
    qputenv("SWIPELINE_ROOT", QFile::encodeName(root.path()));

    const std::string folder = QFile::encodeName(root.path()).toStdString() + "/";
    dicfiles::writeDict(folder + "eng-deu", {{"house", "house /haus/\nHaus <neut>"}}, true);
    dicfiles::StarDict french;
    french.entries = {{"maison", "house"}};
    dicfiles::writeStarDict(folder + "fra-eng", french);
    return {folder, "/nowhere/two/"};
}
