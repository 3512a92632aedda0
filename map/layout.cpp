#include "map/layout.h"

#include "map/force_layout.h"
#include "map/pivot_layout.h"
#include "map/stress_layout.h"

namespace pelk {

Points layOutConnected(const Rows& rows, const LinkLengths& lengths) {
    if (rows.size() < 2)
        return Points(rows.size());
    Points points = pivotLayout(rows, lengths);
    if (rows.size() <= kMostByStress)
        reduceStress(points, rows, lengths);
    else
        balanceForces(points, rows, lengths);
    return points;
}

}  // namespace pelk
