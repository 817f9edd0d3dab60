// SPDX-License-Identifier: GPL-3.0-or-later
#include "spectrum_view/painting/slot_texts.h"

#include "spectrum_view/painting/plot_box.h"
#include "spectrum_view/painting/significance.h"
#include "spectrum_view/painting/slot_frame.h"

#include <algorithm>
#include <array>
#include <cstdio>

namespace orvanta::spectrum_view {

namespace {

constexpr int kLegendGap = 12;

bool ShowsUnit(const PlacedTexts& label, const std::string& unit) {
    return unit.empty() || (!label.empty() && label.front().text.ends_with("(" + unit + ")"));
}

std::string CaptionText(const SlotTexts& texts, const std::string& unit) {
    const std::string shown = ShowsUnit(texts.label, unit) ? "" : unit;
    const std::string& multiplier = texts.vertical.multiplier;
    return multiplier + (multiplier.empty() || shown.empty() ? "" : " ") + shown;
}

struct LegendEntry {
    LegendSign sign = LegendSign::None;
    std::string text;
};

std::string ThresholdText(double threshold) {
    std::array<char, 32> text{};
    std::snprintf(text.data(), text.size(), "p < %g", threshold);
    return text.data();
}

std::vector<LegendEntry> LegendEntries(const PlotInput& plot) {
    std::vector<LegendEntry> entries;
    if (plot.normalisation == SPECT::Normalisation::ByF) {
        entries.push_back({LegendSign::None, "× f"});
    } else if (plot.normalisation == SPECT::Normalisation::BySqrtF) {
        entries.push_back({LegendSign::None, "× √f"});
    }
    if (!plot.p.empty()) {
        entries.push_back({LegendSign::Mark, ThresholdText(plot.pThreshold)});
    }
    if (!plot.ratio.empty()) {
        entries.push_back({LegendSign::RatioLine, plot.ratioName});
    }
    return entries;
}

/// From \p left on in the row of the label.
void PlaceLegend(SlotTexts& texts, const PlotInput& plot, int left, int top, const TextExtent& extent) {
    for (LegendEntry& entry : LegendEntries(plot)) {
        const owl::TSize size = extent(entry.text);
        const int right = left + (entry.sign == LegendSign::None ? 0 : kSignWidth) + size.cx;
        texts.legend.push_back({{left, top, right, top + size.cy}, std::move(entry.text)});
        texts.signs.push_back(entry.sign);
        left = right + kLegendGap;
    }
}

} // namespace

int MarksRows(const PlotInput& plot) {
    return plot.p.empty() ? 0 : MarksHeight(plot.frame.slot);
}

SlotTexts TextsOf(const PlotInput& plot, const TextExtent& extent, const TextExtent& numbersExtent) {
    const SlotFrame& frame = plot.frame;
    const owl::TRect area = TextArea(frame.slot);
    const int height = extent("0").cy;
    const int top = LabelTop(frame.slot, height);
    const owl::TPoint origin = AxisOrigin(frame.slot);
    const int numbersTop = NumbersTop(frame.slot, DigitRowsOf(numbersExtent("0").cy).height, MarksRows(plot));

    SlotTexts texts;
    texts.label = LabelOf(frame, extent);
    texts.frequency = FrequencyAxisLayout(frame.slot, plot.curves.front().axis, numbersTop, numbersExtent);
    texts.vertical = VerticalAxisLayout(frame.slot, frame.vertical, numbersExtent);
    const bool crowded = frame.flags.labels && !frame.label.empty() && texts.label.empty();
    if (!frame.flags.axesText || crowded) {
        texts.frequency.numbers.clear();
        texts.vertical.numbers.clear();
    }
    int legendLeft = origin.x + kTextGap;
    const std::string caption = texts.vertical.numbers.empty() ? "" : CaptionText(texts, frame.unit);
    if (!caption.empty()) {
        texts.caption.push_back(Placed(caption, legendLeft, top, owl::TextAlign::Left, area, extent));
        legendLeft = texts.caption.front().rect.right + kLegendGap;
    }
    PlaceLegend(texts, plot, legendLeft, top, extent);
    if (!plot.ratio.empty()) {
        texts.unity.push_back(Placed("1", SlotX(frame.slot, kPlotRight),
                                     RatioY(frame.slot, 1) - numbersExtent("1").cy, owl::TextAlign::Right,
                                     area, numbersExtent));
    }

    // A number without the power of ten it is multiplied by would be wrong: they stay or go together.
    PlacedTexts vertical = texts.vertical.numbers;
    vertical.insert(vertical.end(), texts.caption.begin(), texts.caption.end());
    KeepFitting({&texts.label, &texts.frequency.numbers, &vertical, &texts.legend, &texts.unity}, area,
                kTextGap / 2, {frame.box});
    if (vertical.empty()) {
        texts.vertical.numbers.clear();
        texts.caption.clear();
    }
    if (texts.legend.empty()) { // which would say of what it is the 1
        texts.signs.clear();
        texts.unity.clear();
    }
    return texts;
}

} // namespace orvanta::spectrum_view
