// SPDX-License-Identifier: GPL-3.0-or-later
// How much a height among the traces is.
#pragma once

#include "host/review/app/traces/trace_picture.h"

#include <string>
#include <vector>

namespace orvanta::review {

struct ScaleBar {
    int x = 0;
    int top = 0;
    int bottom = 0;
    std::string text; ///< "100 µV"
    owl::TColor color = 0;

    bool operator==(const ScaleBar&) const = default;
};

/// One beside the first line of each group and unit, and beside the selected line, a round value high.
std::vector<ScaleBar> ScaleBarsOf(const PageInput& page);

void PaintScaleBars(owl::TDC& dc, const PageInput& page);

/// A value with its unit, no more than four digits: "1.25 µV", "-340 µV".
std::string ValueText(double value, const std::string& unit);

} // namespace orvanta::review
