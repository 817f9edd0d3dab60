// SPDX-License-Identifier: GPL-3.0-or-later
// Least and greatest values.
#pragma once

#include "host/review/app/traces/trace_page.h"

#include <span>

namespace orvanta::review {

/// Widens the column so that the other one lies in it.
inline void Widen(TraceColumn& column, const TraceColumn& other) {
    if (column.IsEmpty()) {
        column = other;
    } else if (!other.IsEmpty()) {
        column.low = other.low < column.low ? other.low : column.low;
        column.high = other.high > column.high ? other.high : column.high;
    }
}

/// Least and greatest of the values, as floats; what no float can hold as a finite number is left out.
TraceColumn ExtremesOf(std::span<const double> values);

} // namespace orvanta::review
