// SPDX-License-Identifier: GPL-3.0-or-later
#include "spectrum_view/painting/time_frequency_plot.h"

#include "spectrum_view/painting/band_colors.h"
#include "spectrum_view/painting/color_map.h"
#include "spectrum_view/painting/over_time_layout.h"
#include "spectrum_view/painting/row_averages.h"
#include "spectrum_view/painting/slot_frame.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace orvanta::spectrum_view {

namespace {

constexpr std::uint32_t kBlank = PixelOf(kWhite);

bool IsPainted(const OverTimeInput& input) {
    return input.frame.notice.empty() && !input.spectra.rows.empty() && input.axis.IsDrawable() &&
           input.frame.vertical.IsDrawable() && input.end_s > input.begin_s;
}

/// Bins first … end − 1 of a row of pixels.
BinRange BinsOf(const FrequencyAxis& axis, int row, int height) {
    const double pitch = (axis.top - axis.bottom) / height;
    const double low = axis.top - (row + 1) * pitch;
    const auto first = static_cast<std::uint64_t>(std::max(0.0, std::ceil(low / axis.resolution)));
    const auto end = static_cast<std::uint64_t>(std::max(0.0, std::ceil((low + pitch) / axis.resolution)));
    if (end > first) {
        return {first, end};
    }
    const auto nearest =
        static_cast<std::uint64_t>(std::max(0.0, std::round((low + pitch / 2) / axis.resolution)));
    return {nearest, nearest + 1};
}

std::uint32_t PixelFor(const VerticalRange& range, std::span<const float> values) {
    double sum = 0;
    int count = 0;
    for (const float value : values) {
        if (std::isfinite(value)) {
            sum += value;
            ++count;
        }
    }
    return count == 0 ? kBlank : PixelOf(ColorMap()[MapIndex(range, sum / count)]);
}

/// Spectra of the columns one after the other; columns with the same rows share theirs.
class ColumnSpectra {
public:
    ColumnSpectra(const OverTimeInput& input, int width)
        : bins_(input.spectra.bins),
          of_(RowsOfColumns(input.spectra.rows, input.begin_s, input.end_s, width)) {
        for (std::size_t column = 0; column < of_.size(); ++column) {
            if (column == 0 || !(of_[column] == of_[column - 1])) {
                values_.resize(values_.size() + bins_);
                if (!of_[column].IsEmpty()) {
                    AverageRows(input.spectra, of_[column], 0, std::span(values_).last(bins_));
                }
            }
            at_.push_back(values_.size() - bins_);
        }
    }
    bool IsBlank(std::size_t column) const { return of_[column].IsEmpty(); }
    bool IsAsBefore(std::size_t column) const { return column > 0 && at_[column] == at_[column - 1]; }
    std::span<const float> Values(std::size_t column, const BinRange& bins) const {
        const std::size_t first = std::min(static_cast<std::size_t>(bins.first), bins_);
        const std::size_t end = std::min(static_cast<std::size_t>(bins.end), bins_);
        return std::span(values_).subspan(at_[column] + first, end - first);
    }

private:
    std::size_t bins_;
    std::vector<RowRange> of_;
    std::vector<float> values_;
    std::vector<std::size_t> at_;
};

void PaintColorBar(owl::TDC& dc, const owl::TRect& bar) {
    owl::TImage colors{1, bar.Height(), {}};
    for (int row = 0; row < bar.Height(); ++row) {
        const double share = 1 - static_cast<double>(row) / std::max(1, bar.Height() - 1);
        colors.pixels.push_back(PixelOf(ColorMap()[MapIndex({0, 1, 0}, share)]));
    }
    dc.DrawImage(bar, colors);
}

} // namespace

owl::TImage TimeFrequencyImage(const OverTimeInput& input, int width, int height) {
    owl::TImage image{std::max(0, width), std::max(0, height), {}};
    const auto columns = static_cast<std::size_t>(image.width);
    image.pixels.resize(columns * static_cast<std::size_t>(image.height), kBlank);
    const ColumnSpectra spectra(input, image.width);
    BinRange before;
    for (int row = 0; row < image.height; ++row) {
        const BinRange bins = BinsOf(input.axis, row, image.height);
        const auto pixels = image.pixels.begin() + row * static_cast<std::ptrdiff_t>(columns);
        if (row > 0 && bins == before) {
            std::copy_n(pixels - static_cast<std::ptrdiff_t>(columns), columns, pixels);
            continue;
        }
        before = bins;
        for (std::size_t column = 0; column < columns; ++column) {
            const auto pixel = pixels + static_cast<std::ptrdiff_t>(column);
            if (spectra.IsAsBefore(column)) {
                *pixel = *(pixel - 1);
            } else if (!spectra.IsBlank(column)) {
                *pixel = PixelFor(input.frame.vertical, spectra.Values(column, bins));
            }
        }
    }
    return image;
}

void PaintTimeFrequency(owl::TDC& dc, const OverTimeInput& input) {
    PaintSlotFrame(dc, input.frame);
    if (IsPainted(input)) {
        const OverTimeLayout layout = TimeFrequencyLayout(input, ExtentIn(dc));
        dc.DrawImage(layout.plot, TimeFrequencyImage(input, layout.plot.Width(), layout.plot.Height()));
        if (!layout.colorBar.IsEmpty()) {
            PaintColorBar(dc, layout.colorBar);
        }
        PaintOverTimeAxes(dc, layout);
    }
    dc.ClearClip();
}

} // namespace orvanta::spectrum_view
