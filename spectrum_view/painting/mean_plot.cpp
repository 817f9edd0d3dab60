// SPDX-License-Identifier: GPL-3.0-or-later
#include "spectrum_view/painting/mean_plot.h"

#include "spectrum_view/painting/axes.h"
#include "spectrum_view/painting/band_colors.h"
#include "spectrum_view/painting/mean_curve.h"
#include "spectrum_view/painting/plot_box.h"
#include "spectrum_view/painting/sd_band.h"
#include "spectrum_view/painting/significance.h"
#include "spectrum_view/painting/slot_frame.h"
#include "spectrum_view/painting/slot_texts.h"

#include <algorithm>
#include <array>

namespace orvanta::spectrum_view {

namespace {

constexpr int kCurveWidth = 2;
constexpr owl::TColor kMarkColor = owl::Rgb(40, 40, 40);
constexpr owl::TColor kRatioColor = owl::Rgb(70, 70, 70);
constexpr owl::TColor kUnityGrey = owl::Rgb(140, 140, 140);

bool IsPainted(const PlotInput& plot) {
    return !plot.curves.empty() && plot.curves.front().axis.IsDrawable() &&
           plot.frame.vertical.IsDrawable() && plot.frame.notice.empty();
}

/// The plot with its axes.
owl::TRect PlotPixels(const owl::TRect& slot) {
    const owl::TRect area = PlotArea(slot);
    return {area.left, area.top, area.right + 1, area.bottom + 1};
}

void PaintShading(owl::TDC& dc, const owl::TRect& slot, const PlotCurve& curve) {
    for (const PlotBand& band : curve.bands) {
        const owl::TColor color = ShadingColor(band.color);
        dc.SelectBrush({color});
        dc.SelectPen({color, 1, owl::PenStyle::Solid});
        dc.Rectangle(ShadingRect(slot, curve.axis, band));
    }
}

/// One spectrum of a slot with its points.
class CurvePainter {
public:
    CurvePainter(owl::TDC& dc, const PlotInput& plot, const PlotCurve& curve)
        : dc_(dc),
          curve_(curve), geometry_{plot.frame.slot, curve.axis, plot.frame.vertical, plot.normalisation},
          points_(CurveOf(geometry_, curve.values)) {}

    void PaintSd() const {
        const owl::TColor color = MergeColors(MergeColors(curve_.color, kWhite), kWhite);
        dc_.SelectBrush({color});
        dc_.SelectPen({color, 1, owl::PenStyle::None});
        for (const auto& outline : SdBand(geometry_, curve_.values, curve_.sd)) {
            dc_.Polygon(outline);
        }
    }

    void PaintCurve() const {
        dc_.SelectPen({curve_.color, kCurveWidth, owl::PenStyle::Solid});
        for (const auto& stretch : points_.Stretches()) {
            dc_.Polyline(stretch);
        }
    }

    void PaintPoints() const {
        dc_.SelectPen({curve_.color, kCurveWidth, owl::PenStyle::Solid});
        dc_.SelectBrush({curve_.color});
        PaintMarkers({curve_.axis.iBottom, curve_.axis.iTop + 1});
        dc_.SelectPen({curve_.color, 1, owl::PenStyle::Solid});
        for (const PlotBand& band : curve_.bands) {
            dc_.SelectBrush({band.color});
            PaintMarkers(ColoredBins(curve_.axis, band));
        }
    }

    void PaintDropLines() const {
        dc_.SelectPen({curve_.color, 1, owl::PenStyle::Dotted});
        // The dots of a band's lines cover those in the trace's colour one by one: only what is outside the
        // bands is drawn in it.
        for (const BinRange& bins : Uncolored()) {
            PaintLines(bins);
        }
        for (const PlotBand& band : curve_.bands) {
            dc_.SelectPen({band.color, 1, owl::PenStyle::Dotted});
            PaintLines(ColoredBins(curve_.axis, band));
        }
    }

private:
    /// The shown bins of no band.
    std::vector<BinRange> Uncolored() const {
        std::vector<BinRange> colored;
        for (const PlotBand& band : curve_.bands) {
            colored.push_back(ColoredBins(curve_.axis, band));
        }
        std::sort(colored.begin(), colored.end(),
                  [](const BinRange& a, const BinRange& b) { return a.first < b.first; });
        std::vector<BinRange> uncolored;
        std::uint64_t next = curve_.axis.iBottom;
        for (const BinRange& bins : colored) {
            uncolored.push_back({next, std::max(next, std::min(bins.first, curve_.axis.iTop + 1))});
            next = std::max(next, bins.end);
        }
        uncolored.push_back({next, std::max(next, curve_.axis.iTop + 1)});
        return uncolored;
    }

    void PaintMarkers(const BinRange& bins) const {
        for (std::uint64_t bin = bins.first; bin < bins.end; ++bin) {
            if (const auto rect = MarkerRect(points_, curve_.axis, bin)) {
                dc_.Ellipse(*rect);
            }
        }
    }

    void PaintLines(const BinRange& bins) const {
        for (std::uint64_t bin = bins.first; bin < bins.end; ++bin) {
            if (const auto line = DropLineOf(geometry_, points_, bin)) {
                dc_.Line(line->from, line->to);
            }
        }
    }

    owl::TDC& dc_;
    const PlotCurve& curve_;
    CurveGeometry geometry_;
    MeanCurve points_;
};

void PaintCurves(owl::TDC& dc, const PlotInput& plot) {
    std::vector<CurvePainter> painters;
    // The last first: the first curve stays on top.
    for (auto curve = plot.curves.rbegin(); curve != plot.curves.rend(); ++curve) {
        if (curve->axis.IsDrawable()) {
            painters.emplace_back(dc, plot, *curve);
        }
    }
    for (const CurvePainter& painter : painters) {
        if (plot.frame.flags.sd) {
            painter.PaintSd();
        }
    }
    dc.SetClip(plot.frame.slot);
    for (const CurvePainter& painter : painters) {
        painter.PaintCurve();
        if (plot.frame.flags.points) {
            painter.PaintPoints();
        }
        if (plot.frame.flags.lines) {
            painter.PaintDropLines();
        }
    }
}

void PaintMarks(owl::TDC& dc, const std::vector<Triangle>& marks) {
    if (marks.empty()) {
        return;
    }
    dc.SelectBrush({kMarkColor});
    dc.SelectPen({kMarkColor, 1, owl::PenStyle::None});
    for (const Triangle& mark : marks) {
        dc.Polygon(mark);
    }
}

void PaintRatio(owl::TDC& dc, const PlotInput& plot) {
    if (plot.ratio.empty()) {
        return;
    }
    const owl::TRect area = PlotArea(plot.frame.slot);
    const int one = RatioY(plot.frame.slot, 1);
    dc.SelectPen({kUnityGrey, 1, owl::PenStyle::Solid});
    dc.Line({area.left, one}, {area.right, one});
    dc.SelectPen({kRatioColor, 1, owl::PenStyle::Solid});
    for (const auto& steps : RatioSteps(plot.frame.slot, plot.curves.front().axis, plot.ratio)) {
        dc.Polyline(steps);
    }
}

bool IsUnderMark(int x, const std::vector<Triangle>& marks) {
    return std::any_of(marks.begin(), marks.end(),
                       [x](const Triangle& mark) { return x >= mark[2].x - 1 && x <= mark[1].x + 1; });
}

void PaintAxes(owl::TDC& dc, const owl::TRect& slot, const SlotTexts& texts,
               const std::vector<Triangle>& marks) {
    const owl::TRect area = PlotArea(slot);
    const int tick = TickLengthIn(slot);
    dc.SelectPen({kAxisGrey, 1, owl::PenStyle::Solid});
    dc.Line({area.left, area.bottom}, {area.right, area.bottom});
    dc.Line({area.left, area.top}, {area.left, area.bottom});
    for (const int x : texts.frequency.ticks) {
        if (!IsUnderMark(x, marks)) {
            dc.Line({x, area.bottom + 1}, {x, area.bottom + tick});
        }
    }
    for (const int y : texts.vertical.ticks) {
        dc.Line({area.left - tick, y}, {area.left - 1, y});
    }
    dc.SetTextColor(kTextGrey);
    PaintTexts(dc, texts.frequency.numbers);
    PaintTexts(dc, texts.vertical.numbers);
}

owl::TFont NumbersFontIn(owl::TDC& dc, const PlotInput& plot) {
    const auto extentIn = [&dc](const owl::TFont& font, std::string_view text) {
        dc.SelectFont(font);
        return dc.GetTextExtent(text);
    };
    return NumbersFont(plot.frame.slot, plot.frame.font, MarksRows(plot), extentIn);
}

/// The texts of the plot in the fonts they are drawn in; the slot's is selected afterwards.
SlotTexts MeasuredTexts(owl::TDC& dc, const PlotInput& plot, const owl::TFont& numbersFont) {
    dc.SelectFont(plot.frame.font);
    const auto inNumbersFont = [&](std::string_view text) {
        dc.SelectFont(numbersFont);
        const owl::TSize size = dc.GetTextExtent(text);
        dc.SelectFont(plot.frame.font);
        return size;
    };
    return TextsOf(plot, ExtentIn(dc), inNumbersFont);
}

/// The sign in the middle of the columns left of a legend's text.
void PaintSign(owl::TDC& dc, LegendSign sign, const owl::TRect& entry) {
    const int y = (entry.top + entry.bottom) / 2;
    const int x = entry.left + kSignWidth / 2 - kTextGap / 2;
    if (sign == LegendSign::Mark) {
        PaintMarks(dc, {Triangle{{{x, y - 2}, {x + 3, y + 3}, {x - 3, y + 3}}}});
    } else if (sign == LegendSign::RatioLine) {
        dc.SelectPen({kRatioColor, 1, owl::PenStyle::Solid});
        dc.Polyline(std::array<owl::TPoint, 4>{{{x - 6, y + 2}, {x, y + 2}, {x, y - 2}, {x + 6, y - 2}}});
    }
}

void PaintLegend(owl::TDC& dc, const owl::TRect& slot, const SlotTexts& texts) {
    Veil(dc, slot, texts.legend);
    PlacedTexts names = texts.legend;
    for (std::size_t i = 0; i < names.size(); ++i) {
        if (texts.signs[i] != LegendSign::None) {
            names[i].rect.left += kSignWidth;
        }
    }
    PaintTexts(dc, names);
    for (std::size_t i = 0; i < texts.legend.size(); ++i) {
        PaintSign(dc, texts.signs[i], texts.legend[i].rect);
    }
}

} // namespace

void PaintMeanPlot(owl::TDC& dc, const PlotInput& plot) {
    const owl::TRect& slot = plot.frame.slot;
    PaintSlotFrame(dc, plot.frame);
    if (IsPainted(plot)) {
        const PlotCurve& main = plot.curves.front();
        const owl::TFont numbersFont = NumbersFontIn(dc, plot);
        const SlotTexts texts = MeasuredTexts(dc, plot, numbersFont);
        const std::vector<Triangle> marks = SignificanceMarks(slot, main.axis, plot.p, plot.pThreshold);
        // Areas end with the plot, whatever the bins.
        dc.SetClip(PlotPixels(slot));
        PaintShading(dc, slot, main);
        PaintCurves(dc, plot);
        PaintMarks(dc, marks);
        PaintRatio(dc, plot);
        dc.SelectFont(numbersFont);
        PaintAxes(dc, slot, texts, marks);
        PaintOverPlot(dc, slot, texts.unity);
        dc.SelectFont(plot.frame.font);
        PaintOverPlot(dc, slot, texts.label);
        PaintOverPlot(dc, slot, texts.caption);
        PaintLegend(dc, slot, texts);
    }
    dc.ClearClip();
}

} // namespace orvanta::spectrum_view
