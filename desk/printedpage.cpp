#include "desk/printedpage.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

constexpr double RunUpMm = 6.0; // half a camera picture, less a little
constexpr double ReachMm = 3.0; // how far from a line a point still belongs to it

} // namespace

QLineF PrintedPage::wayOver(int line) const
{
    const QRectF& box = lines.at(line).mm;
    const double y = box.center().y();
    return {box.left() - RunUpMm, y, box.right() + RunUpMm, y};
}

int PrintedPage::lineAt(QPointF mm) const
{
    int best = -1;
    double bestDistance = std::numeric_limits<double>::max();
    for (int i = 0; i < lines.size(); ++i) {
        const QRectF& box = lines.at(i).mm;
        const double distance = std::abs(mm.y() - box.center().y());
        const QRectF reach = box.adjusted(-RunUpMm, -ReachMm, RunUpMm, ReachMm);
        if (reach.contains(mm) && distance < bestDistance) {
            best = i;
            bestDistance = distance;
        }
    }
    return best;
}
