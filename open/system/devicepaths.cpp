#include "platform/devicepaths.h"

#include <QFile>

QString devicePath(const QString& path)
{
    QString root = QFile::decodeName(qgetenv("SWIPELINE_ROOT"));
    while (root.endsWith(u'/'))
        root.chop(1);
    return root + path;
}
