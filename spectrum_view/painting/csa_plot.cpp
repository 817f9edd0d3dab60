// SPDX-License-Identifier: GPL-3.0-or-later
#include "spectrum_view/painting/csa_plot.h"

#include "spectrum_view/painting/band_colors.h"
#include "spectrum_view/painting/hidden_lines.h"
#include "spectrum_view/painting/over_time_layout.h"
#include "spectrum_view/painting/row_averages.h"
#include "spectrum_view/painting/slot_frame.h"
#include "spectrum_view/painting/whole_pixels.h"

#include <algorithm>
#include <cmath>

namespace orvanta::spectrum_view {

namespace {

bool IsPainted(const OverTimeInput& input) {
    return input.frame.notice.empty() && !input.spectra.rows.empty() && input.axis.IsDrawable() &&
           input.axis.iTop >= input.axis.iBottom && input.frame.vertical.IsDrawable() &&
           input.end_s > input.begin_s;
}

void PaintBands(owl::TDC& dc, const OverTimeInput& input, const owl::TRect& plot) {
    for (const PlotBand& band : input.bands) {
        const owl::TRect tint = ShadingRect(SlotAround(plot), input.axis, band);
        const owl::TRect shown{std::max(plot.left, tint.left), plot.top, std::min(plot.right, tint.right),
                               plot.bottom};
        if (!shown.IsEmpty()) {
            dc.FillRect(shown, ShadingColor(band.color));
        }
    }
}

class RowPainter {
public:
    RowPainter(owl::TDC& dc, const OverTimeInput& input, const owl::TRect& plot)
        : dc_(dc), range_(input.frame.vertical), bottom_(plot.bottom),
          peak_(plot.Height() - RowsHeight(plot)), horizon_(plot.left, plot.right + 1) {
        const owl::TRect slot = SlotAround(plot);
        for (std::uint64_t bin = input.axis.iBottom; bin <= input.axis.iTop; ++bin) {
            columns_.push_back(CurveX(slot, input.axis, bin));
        }
    }
    std::size_t Bins() const { return columns_.size(); }

    /// A row \p offset pixels above the baseline; bins without a number part it.
    void Paint(std::span<const float> values, int offset) {
        points_.clear();
        for (std::size_t i = 0; i < values.size(); ++i) {
            if (!std::isfinite(values[i])) {
                PaintPoints();
                continue;
            }
            const double height = (static_cast<double>(values[i]) - range_.min) / range_.Span() * peak_;
            const int y = bottom_ - offset - WholePixels(height);
            if (!points_.empty() && points_.back().x == columns_[i]) {
                points_.back().y = std::min(points_.back().y, y);
            } else {
                points_.push_back({columns_[i], y});
            }
        }
        PaintPoints();
    }

private:
    void PaintPoints() {
        for (const auto& stretch : horizon_.Add(points_)) {
            dc_.Polyline(stretch);
        }
        points_.clear();
    }

    owl::TDC& dc_;
    VerticalRange range_;
    int bottom_;
    int peak_;
    Horizon horizon_;
    std::vector<int> columns_; ///< per shown bin
    std::vector<owl::TPoint> points_;
};

void PaintRows(owl::TDC& dc, const OverTimeInput& input, const owl::TRect& plot) {
    dc.SetClip({plot.left, plot.top, plot.right + 1, plot.bottom + 1});
    dc.SelectPen({input.color, 1, owl::PenStyle::Solid});
    RowPainter painter(dc, input, plot);
    std::vector<float> means(painter.Bins());
    for (const RowGroup& group :
         GroupRows(input.spectra.rows, input.begin_s, input.end_s, RowsHeight(plot), kRowPitch)) {
        AverageRows(input.spectra, group.rows, static_cast<std::size_t>(input.axis.iBottom), means);
        painter.Paint(means, group.offset);
    }
    dc.SetClip(input.frame.slot);
}

} // namespace

void PaintCompressedArray(owl::TDC& dc, const OverTimeInput& input) {
    PaintSlotFrame(dc, input.frame);
    if (IsPainted(input)) {
        const OverTimeLayout layout = CompressedArrayLayout(input, ExtentIn(dc));
        PaintBands(dc, input, layout.plot);
        PaintRows(dc, input, layout.plot);
        PaintOverTimeAxes(dc, layout);
    }
    dc.ClearClip();
}

} // namespace orvanta::spectrum_view
