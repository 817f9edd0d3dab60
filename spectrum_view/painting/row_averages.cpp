// SPDX-License-Identifier: GPL-3.0-or-later
#include "spectrum_view/painting/row_averages.h"

#include "spectrum_view/painting/whole_pixels.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace orvanta::spectrum_view {

namespace {

/// So much of a pixel is lost to rounding at most.
constexpr double kRounding = 1e-6;

double MiddleOf(const SpectraOverTime::Span& row) {
    return (row.begin_s + row.end_s) / 2;
}

/// Joins the rows of which each lies less than a pitch after the first of its stretch.
std::vector<RowGroup> Stretches(const std::vector<RowGroup>& rows, int pitch) {
    std::vector<RowGroup> groups;
    for (const RowGroup& row : rows) {
        const int offset = row.offset / pitch * pitch;
        if (groups.empty() || groups.back().offset != offset) {
            groups.push_back({row.rows, offset});
        }
        groups.back().rows.end = row.rows.end;
    }
    return groups;
}

} // namespace

std::vector<RowGroup> GroupRows(std::span<const SpectraOverTime::Span> rows, double begin_s, double end_s,
                                int pixels, int pitch) {
    if (!(end_s > begin_s) || pixels <= 0) {
        return {};
    }
    std::vector<RowGroup> groups;
    bool isDense = false;
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const double place = (rows[i].begin_s - begin_s) / (end_s - begin_s) * pixels;
        const int offset = std::clamp(WholePixels(place + kRounding), 0, pixels - 1);
        isDense = isDense || (!groups.empty() && offset - groups.back().offset < pitch);
        groups.push_back({{i, i + 1}, offset});
    }
    return isDense ? Stretches(groups, pitch) : groups;
}

std::vector<RowRange> RowsOfColumns(std::span<const SpectraOverTime::Span> rows, double begin_s, double end_s,
                                    int columns) {
    std::vector<RowRange> result(static_cast<std::size_t>(std::max(columns, 0)));
    if (!(end_s > begin_s)) {
        return result;
    }
    const double width = (end_s - begin_s) / columns;
    std::size_t next = 0;
    for (std::size_t column = 0; column < result.size(); ++column) {
        const double left = begin_s + static_cast<double>(column) * width;
        const std::size_t first = next;
        while (next < rows.size() && MiddleOf(rows[next]) < left + width) {
            ++next;
        }
        const double middle = left + width / 2;
        if (next > first) {
            result[column] = {first, next};
        } else if (next < rows.size() && rows[next].begin_s <= middle) {
            result[column] = {next, next + 1};
        } else if (next > 0 && middle < rows[next - 1].end_s) {
            result[column] = {next - 1, next};
        }
    }
    return result;
}

void AverageRows(const SpectraOverTime& spectra, const RowRange& rows, std::size_t firstBin,
                 std::span<float> result) {
    std::fill(result.begin(), result.end(), std::numeric_limits<float>::quiet_NaN());
    const std::size_t bins =
        firstBin < spectra.bins ? std::min(result.size(), spectra.bins - firstBin) : std::size_t{0};
    if (rows.end - rows.first == 1) {
        std::copy_n(spectra.Row(rows.first).begin() + static_cast<std::ptrdiff_t>(firstBin), bins,
                    result.begin());
        return;
    }
    std::vector<float> sums(bins);
    std::vector<float> counts(bins);
    for (std::size_t row = rows.first; row < rows.end; ++row) {
        const std::span<const float> values = spectra.Row(row).subspan(firstBin, bins);
        for (std::size_t bin = 0; bin < bins; ++bin) {
            const bool isNumber = std::isfinite(values[bin]);
            sums[bin] += isNumber ? values[bin] : 0.0F;
            counts[bin] += isNumber ? 1.0F : 0.0F;
        }
    }
    for (std::size_t bin = 0; bin < bins; ++bin) {
        if (counts[bin] > 0) {
            result[bin] = sums[bin] / counts[bin];
        }
    }
}

} // namespace orvanta::spectrum_view
