// SPDX-License-Identifier: GPL-3.0-or-later
// Values of a line as curves on the screen.
#pragma once

#include "host/review/app/traces/trace_layout.h"
#include "host/review/app/traces/trace_store.h"

#include <optional>
#include <vector>

namespace orvanta::review {

/// How the values of a line become heights.
struct TraceScaling {
    double unitsPerPixel = 1; ///< above 0; below 0 draws what is negative upwards
    double center = 0;        ///< the value on the line's middle
    double middle = 0;        ///< pixels

    double YOf(double value) const { return middle - (value - center) / unitsPerPixel; }
};

using TraceCurve = std::vector<owl::TPointF>;

/// One curve for each stretch without a gap. Columns become a curve that runs up and down once in each.
std::vector<TraceCurve> CurvesOf(const TraceLine& line, const TraceLayout& layout,
                                 const TraceScaling& scaling);

/// Least and greatest value on the page; nothing when there is none.
std::optional<TraceColumn> RangeOf(const TraceLine& line);
/// A line as columns of the stretch that it was read for; runs are sorted into them.
std::vector<TraceColumn> ColumnsOf(const TraceLine& line, const PageRequest& request);
/// Mean of the values, or of the middles of columns; 0 when there are none.
double MeanOf(const TraceLine& line);
/// The value at a time: of the nearest sample, or the middle of the column; nothing in a gap.
/// \param page what the line was read for
std::optional<double> ValueAt(const TraceLine& line, const TraceLayout& page, double time);

} // namespace orvanta::review
