// SPDX-License-Identifier: GPL-3.0-or-later
#include "spectrum_view/painting/slot_frame.h"

#include "spectrum_view/painting/axes.h"
#include "spectrum_view/painting/band_colors.h"
#include "spectrum_view/painting/plot_box.h"

#include <algorithm>
#include <array>
#include <sstream>

namespace orvanta::spectrum_view {

namespace {

/// Of the white under texts over the plot.
constexpr std::uint8_t kVeil = 208;

/// Lines of at most \p width pixels, broken between words; nothing when a word is wider.
std::vector<std::string> Broken(const std::string& text, int width, const TextExtent& extent) {
    std::vector<std::string> lines;
    std::istringstream words(text);
    std::string word;
    while (words >> word) {
        if (extent(word).cx > width) {
            return {};
        }
        const std::string longer = lines.empty() ? word : lines.back() + " " + word;
        if (lines.empty() || extent(longer).cx > width) {
            lines.push_back(word);
        } else {
            lines.back() = longer;
        }
    }
    return lines;
}

std::string WithoutUnit(const SlotFrame& frame) {
    const std::string unit = " (" + frame.unit + ") ";
    return !frame.unit.empty() && frame.label.ends_with(unit)
               ? frame.label.substr(0, frame.label.size() - unit.size())
               : frame.label;
}

} // namespace

void PaintSlotFrame(owl::TDC& dc, const SlotFrame& frame) {
    dc.FillRect(frame.slot, kWhite);
    dc.SetClip(frame.slot);
    dc.FrameRect(frame.slot, kFrameGrey);
    dc.SelectFont(frame.font);
    dc.SetTextAlign(owl::TextAlign::Left);
    if (frame.notice.empty()) {
        return;
    }
    const TextExtent extent = ExtentIn(dc);
    PlacedTexts notice = NoticeOf(frame, extent);
    PlacedTexts label = LabelOf(frame, extent);
    KeepFitting({&notice, &label}, TextArea(frame.slot), 0, {});
    dc.SetTextColor(kTextGrey);
    PaintTexts(dc, label);
    dc.SetTextColor(kQuietGrey);
    PaintTexts(dc, notice);
}

TextExtent ExtentIn(const owl::TDC& dc) {
    return [&dc](std::string_view text) { return dc.GetTextExtent(text); };
}

int LabelTop(const owl::TRect& slot, int textHeight) {
    const int margin = SlotY(slot, kPlotTop) - slot.top;
    return slot.top + std::max(2, (margin - textHeight) / 2);
}

PlacedTexts LabelOf(const SlotFrame& frame, const TextExtent& extent) {
    if (!frame.flags.labels) {
        return {};
    }
    const owl::TRect area = TextArea(frame.slot);
    const std::array<owl::TRect, 1> box{frame.box};
    const std::array texts{frame.label, WithoutUnit(frame)};
    for (std::string text : texts) {
        text.erase(text.find_last_not_of(' ') + 1);
        if (text.empty()) {
            continue;
        }
        PlacedTexts label{Placed(std::move(text), SlotX(frame.slot, kPlotRight),
                                 LabelTop(frame.slot, extent("0").cy), owl::TextAlign::Right, area, extent)};
        if (Fits(label, area, 0, box)) {
            return label;
        }
    }
    return {};
}

PlacedTexts NoticeOf(const SlotFrame& frame, const TextExtent& extent) {
    const owl::TRect area = TextArea(frame.slot);
    const std::vector<std::string> lines = Broken(frame.notice, area.Width() - 2 * kTextGap, extent);
    const int height = extent("0").cy;
    int top = (area.top + area.bottom - height * static_cast<int>(lines.size())) / 2;
    PlacedTexts texts;
    for (const std::string& line : lines) {
        texts.push_back(
            Placed(line, (area.left + area.right) / 2, top, owl::TextAlign::Center, area, extent));
        top += height;
    }
    return texts;
}

void Veil(owl::TDC& dc, const owl::TRect& slot, const PlacedTexts& texts) {
    for (const PlacedText& text : texts) {
        if (text.rect.bottom > SlotY(slot, kPlotTop)) {
            dc.BlendRect(text.rect.InflatedBy(2, 0), kWhite, kVeil);
        }
    }
}

void PaintOverPlot(owl::TDC& dc, const owl::TRect& slot, const PlacedTexts& texts) {
    Veil(dc, slot, texts);
    PaintTexts(dc, texts);
}

} // namespace orvanta::spectrum_view
