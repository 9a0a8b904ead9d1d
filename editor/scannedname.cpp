#include "editor/scannedname.h"

QString nameFromScan(const QString& scan)
{
    QString name = scan;
    for (QChar& c : name)
        if (c.category() == QChar::Other_Control)
            c = u' ';
    return name.simplified();
}
