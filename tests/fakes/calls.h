#ifndef CALLS_H
#define CALLS_H

#include "tests/fakes/calllog.h"

#include <QStringList>

namespace fakes {

/* The calls so far whose text begins with `prefix`, as Qt tests compare them. */
inline QStringList calls(std::string_view prefix = {})
{
    QStringList list;
    for (const std::string& text : CallLog::texts(prefix))
        list.append(QString::fromStdString(text));
    return list;
}

} // namespace fakes

#endif
