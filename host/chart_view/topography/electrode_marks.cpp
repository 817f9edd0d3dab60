// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/chart_view/topography/electrode_marks.h"

#include <algorithm>
#include <array>

namespace orvanta::chart {

namespace {

constexpr owl::TColor kBlack = owl::Rgb(0, 0, 0);
constexpr owl::TColor kWhite = owl::Rgb(255, 255, 255);
/// Of a head's radius, pixels: on a smaller one nothing is written, or not even dots are drawn.
constexpr int kRoomForText = 55;
constexpr int kRoomForDots = 16;
constexpr int kSmallestLabel = 9;
constexpr std::uint8_t kLabelGround = 170;

bool Inside(const owl::TRect& outer, const owl::TRect& inner) {
    return inner.left >= outer.left && inner.top >= outer.top && inner.right <= outer.right &&
           inner.bottom <= outer.bottom;
}

owl::TRect DotAt(const owl::TPoint& at, int reach) {
    return owl::TRect{at.x, at.y, at.x + 1, at.y + 1}.InflatedBy(reach, reach);
}

owl::TFont LabelFont(const owl::TFont& font) {
    owl::TFont smaller = font;
    smaller.height = std::max(std::min(kSmallestLabel, font.height), font.height * 4 / 5);
    smaller.bold = false;
    return smaller;
}

std::string LabelOf(const MapElectrode& electrode, const MapLook& look) {
    std::string text = look.names ? electrode.name : "";
    if (look.values) {
        text += (text.empty() ? "" : " ") + electrode.value;
    }
    return text;
}

} // namespace

int DotReach(int headRadius) {
    return headRadius < kRoomForDots ? 0 : std::clamp(headRadius / 28, 1, 3);
}

std::vector<owl::TRect> PlaceLabels(const std::vector<owl::TPoint>& dots,
                                    const std::vector<owl::TSize>& extents, int dot, const owl::TRect& area) {
    std::vector<owl::TRect> placed(dots.size());
    for (std::size_t i = 0; i < dots.size(); ++i) {
        const owl::TSize& extent = extents[i];
        if (extent.cx <= 0) {
            continue;
        }
        const auto boxAt = [&](int left, int top) {
            return owl::TRect{left, top, left + extent.cx, top + extent.cy};
        };
        const owl::TPoint& at = dots[i];
        const int below = at.y + dot + 1;
        const int middle = at.x - extent.cx / 2;
        const std::array boxes{boxAt(middle, below), boxAt(middle, at.y - dot - extent.cy),
                               boxAt(at.x + dot + 2, at.y - extent.cy / 2),
                               boxAt(at.x - dot - 1 - extent.cx, at.y - extent.cy / 2)};
        const auto isFree = [&](const owl::TRect& box) {
            return Inside(area, box) &&
                   std::none_of(placed.begin(), placed.end(),
                                [&box](const owl::TRect& other) { return other.Touches(box); }) &&
                   std::none_of(dots.begin(), dots.end(),
                                [&](const owl::TPoint& other) { return DotAt(other, dot).Touches(box); });
        };
        const auto* const box = std::find_if(boxes.begin(), boxes.end(), isFree);
        if (box != boxes.end()) {
            placed[i] = *box;
        }
    }
    return placed;
}

void PaintMarks(owl::TDC& dc, const std::vector<ElectrodeMark>& marks,
                const std::vector<MapElectrode>& electrodes, int headRadius, const owl::TRect& area,
                const MapLook& look) {
    const int reach = DotReach(headRadius);
    const bool text = (look.names || look.values) && headRadius >= kRoomForText;
    dc.SelectFont(LabelFont(look.font));
    std::vector<owl::TPoint> dots;
    std::vector<owl::TSize> extents;
    std::vector<std::string> labels;
    for (const ElectrodeMark& mark : marks) {
        const MapElectrode& electrode = electrodes[mark.electrode];
        if (look.electrodes && reach > 0) {
            // Black on light rings and the other way round: both are seen on every colour.
            dc.SelectPen({electrode.used ? kWhite : kBlack, 1});
            dc.SelectBrush({electrode.used ? kBlack : kWhite, false});
            dc.Ellipse(DotAt(mark.at, reach));
        }
        if (text) {
            dots.push_back(mark.at);
            labels.push_back(LabelOf(electrode, look));
            extents.push_back(dc.GetTextExtent(labels.back()));
            extents.back().cx += labels.back().empty() ? 0 : 2;
        }
    }
    const std::vector<owl::TRect> boxes = PlaceLabels(dots, extents, look.electrodes ? reach : 0, area);
    dc.SetTextColor(kBlack);
    dc.SetTextAlign(owl::TextAlign::Left);
    for (std::size_t i = 0; i < boxes.size(); ++i) {
        if (!boxes[i].IsEmpty()) {
            dc.BlendRect(boxes[i], kWhite, kLabelGround); // readable on every colour
            dc.TextOut({boxes[i].left + 1, boxes[i].top}, labels[i]);
        }
    }
}

} // namespace orvanta::chart
