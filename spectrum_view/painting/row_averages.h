// SPDX-License-Identifier: GPL-3.0-or-later
// Neighbouring spectra averaged to as many as there are pixels for.
#pragma once

#include "spectrum_view/painting/plot_input.h"

#include <cstddef>
#include <span>
#include <vector>

namespace orvanta::spectrum_view {

/// Rows first … end − 1.
struct RowRange {
    std::size_t first = 0;
    std::size_t end = 0;

    bool IsEmpty() const { return first == end; }
    bool operator==(const RowRange&) const = default;
};

/// Rows drawn as one, so many pixels from the begin of the time axis.
struct RowGroup {
    RowRange rows;
    int offset = 0;

    bool operator==(const RowGroup&) const = default;
};

/// Rows at the pixels where they begin, at least \p pitch pixels apart. Where they lie closer, the axis is
/// divided in stretches of \p pitch pixels, and the rows that begin in one are drawn as one at its begin.
/// \param rows in time order \param pixels of the axis from \p begin_s to \p end_s
std::vector<RowGroup> GroupRows(std::span<const SpectraOverTime::Span> rows, double begin_s, double end_s,
                                int pixels, int pitch);

/// The rows that each of \p columns equal stretches of the time axis shows: those whose middle lies in it,
/// else the one that covers its middle, of two the later; none in a gap. \param rows in time order
std::vector<RowRange> RowsOfColumns(std::span<const SpectraOverTime::Span> rows, double begin_s, double end_s,
                                    int columns);

/// Mean over the rows of bins \p firstBin … \p firstBin + result.size() − 1. A bin without a number in a row
/// is left out of its mean; NaN where no row has one or the spectra end before.
void AverageRows(const SpectraOverTime& spectra, const RowRange& rows, std::size_t firstBin,
                 std::span<float> result);

} // namespace orvanta::spectrum_view
