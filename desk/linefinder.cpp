#include "desk/linefinder.h"

namespace {

constexpr uchar InkBelow = 140;

/* First and last dark pixel of a row between two columns; {-1, -1} without any. */
QPair<int, int> inkInRow(const QImage& page, int y, int left, int right)
{
    const uchar* row = page.constScanLine(y);
    int first = left;
    while (first <= right && row[first] >= InkBelow)
        ++first;
    if (first > right)
        return {-1, -1};
    int last = right;
    while (row[last] >= InkBelow)
        --last;
    return {first, last};
}

} // namespace

namespace linefinder {

QRect inkBox(const QImage& page, const QRect& area)
{
    const QRect inside = area & page.rect();
    QRect box;
    for (int y = inside.top(); y <= inside.bottom(); ++y) {
        const auto [first, last] = inkInRow(page, y, inside.left(), inside.right());
        if (first >= 0)
            box |= QRect(first, y, last - first + 1, 1);
    }
    return box;
}

QVector<QRect> lines(const QImage& page, int minHeight)
{
    QVector<QRect> result;
    QRect current;
    const auto finish = [&] {
        if (current.height() >= minHeight)
            result.append(current);
        current = QRect();
    };
    for (int y = 0; y < page.height(); ++y) {
        const auto [first, last] = inkInRow(page, y, 0, page.width() - 1);
        if (first >= 0)
            current |= QRect(first, y, last - first + 1, 1);
        else
            finish();
    }
    finish();
    return result;
}

} // namespace linefinder
