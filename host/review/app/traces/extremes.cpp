// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/app/traces/extremes.h"

#include <cmath>
#include <limits>

namespace orvanta::review {

namespace {

TraceColumn WithoutInfinity(std::span<const double> values) {
    TraceColumn column;
    for (const double value : values) {
        const auto rounded = static_cast<float>(value);
        if (std::isfinite(rounded)) {
            Widen(column, {rounded, rounded});
        }
    }
    return column;
}

} // namespace

TraceColumn ExtremesOf(std::span<const double> values) {
    double low = std::numeric_limits<double>::infinity();
    double high = -low;
    for (const double value : values) {
        low = value < low ? value : low; // a NaN compares as false and stays out
        high = value > high ? value : high;
    }
    const TraceColumn column{static_cast<float>(low), static_cast<float>(high)};
    return std::isfinite(column.low) && std::isfinite(column.high) ? column : WithoutInfinity(values);
}

} // namespace orvanta::review
