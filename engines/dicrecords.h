#ifndef DICRECORDS_H
#define DICRECORDS_H

#include "platform/zembra_dic.h"

#include <QString>
#include <algorithm>

/* Reading what the dictionary engine hands over; the results of Translater. */
namespace dicrecords {

/* What each means stands with Translater. */
enum Failure {
    NotFound = -1,
    NoDictionary = -2,
    NotOpened = -3,
    SearchFailed = -6,
    NotFreed = -7,
    NotClosed = -8,
    ListNotFreed = -9
};

/* UTF-16 units; empty without any. */
inline QString textOf(const std::uint16_t* units, int bytes)
{
    if (!units || bytes < 2)
        return {};
    return QString(reinterpret_cast<const QChar*>(units), bytes / 2);
}

/* The bytes that are used of a field of fixed size, whatever length is written beside it. */
inline int fieldBytes(int bytes)
{
    return std::clamp(bytes, 0, 2 * int(ZEMBRA_DIC_WORD_UNITS));
}

} // namespace dicrecords

#endif
