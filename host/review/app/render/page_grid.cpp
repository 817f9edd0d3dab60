// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/app/render/page_grid.h"

#include <cmath>

namespace orvanta::review {

namespace {

int CeilOf(int count, int divisor) {
    return (count + divisor - 1) / divisor;
}

} // namespace

void FillGrid(int count, int& rows, int& columns) {
    if (rows == 0 && columns == 0) {
        columns = static_cast<int>(std::ceil(std::sqrt(count)));
    }
    if (rows == 0) {
        rows = CeilOf(count, columns);
    } else if (columns == 0) {
        columns = CeilOf(count, rows);
    }
}

} // namespace orvanta::review
