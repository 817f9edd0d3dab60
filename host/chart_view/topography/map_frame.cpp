// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/chart_view/topography/map_frame.h"

#include "host/chart_view/topography/text_fit.h"

#include <algorithm>
#include <vector>

namespace orvanta::chart {

namespace {

constexpr int kGap = 4;
constexpr int kShortestBar = 90;
constexpr int kLongestBar = 260;
/// A scale leaves so much for the head on each side, or is left out.
constexpr int kSmallestBody = 72;
constexpr std::uint8_t kNoticeGround = 190;

/// About the head's size.
int Least(const owl::TRect& body) {
    return std::min(body.Width(), body.Height());
}

MapFrame WithScaleBeside(MapFrame frame, const owl::TSize& scale) {
    const int left = frame.body.right - scale.cx;
    frame.scale = {left, frame.body.top, frame.body.right, frame.body.bottom};
    frame.body.right = left - 2 * kGap;
    return frame.body.Height() < scale.cy ? MapFrame{} : frame;
}

MapFrame WithScaleBelow(MapFrame frame, const owl::TSize& scale) {
    const int top = frame.body.bottom - scale.cy;
    frame.scale = {frame.body.left, top, frame.body.right, frame.body.bottom};
    frame.below = true;
    frame.body.bottom = top - kGap;
    return frame.body.Width() < scale.cx ? MapFrame{} : frame;
}

} // namespace

MapFrame LayOutMap(const owl::TRect& area, int titleHeight, const ScaleRoom& scale) {
    MapFrame frame;
    frame.body = area.InflatedBy(-kGap, -kGap);
    if (titleHeight > 0) {
        frame.title = {frame.body.left, frame.body.top, frame.body.right, frame.body.top + titleHeight};
        frame.body.top = frame.title.bottom + kGap;
    }
    if (scale.beside.cx <= 0) {
        return frame;
    }
    const MapFrame beside = WithScaleBeside(frame, scale.beside);
    const MapFrame below = WithScaleBelow(frame, scale.below);
    const MapFrame& better = Least(below.body) > Least(beside.body) ? below : beside;
    return Least(better.body) >= kSmallestBody ? better : frame;
}

owl::TSize TitleRoom(const owl::TSize& map) {
    return {map.cx - 2 * kGap, map.cy - 2 * kGap};
}

MapFrame BeginMap(owl::TDC& dc, const owl::TRect& area, const std::string& title, const ColorScale& scale,
                  bool empty, const MapLook& look) {
    const int titleHeight = title.empty() ? 0
                                          : TitleHeight(dc, look.font, look.fit.titles,
                                                        TitleRoom({area.Width(), area.Height()}).cy);
    dc.SelectFont(look.font);
    const MapFrame frame =
        LayOutMap(area, titleHeight,
                  look.scale && !empty ? RoomForBoth(RoomOfScale(dc, scale), look.fit.scale) : ScaleRoom());
    if (!frame.title.IsEmpty()) {
        PaintTitle(dc, frame.title, title, look.font, look.fit.titles, look.textColor);
        dc.SelectFont(look.font);
    }
    return frame;
}

void PaintScaleOf(owl::TDC& dc, const MapFrame& frame, const owl::TRect& head, const Colors& colors,
                  const ColorScale& scale, const MapLook& look) {
    const owl::TRect& room = frame.scale;
    if (room.IsEmpty()) {
        return;
    }
    if (frame.below) {
        const int middle = (head.left + head.right) / 2;
        const int half = std::min(std::max(head.Width(), kShortestBar), kLongestBar) / 2;
        const int top = std::min(room.top, head.bottom + kGap);
        PaintLyingScale(dc,
                        {std::max(room.left, middle - half), top, std::min(room.right, middle + half),
                         top + room.Height()},
                        colors, scale, look);
    } else {
        const int middle = (head.top + head.bottom) / 2;
        const int half = std::max(head.Height(), kShortestBar) / 2;
        PaintUprightScale(
            dc,
            {room.left, std::max(room.top, middle - half), room.right, std::min(room.bottom, middle + half)},
            colors, scale, look);
    }
}

void PaintNotice(owl::TDC& dc, const owl::TRect& area, const std::string& text, const MapLook& look) {
    const int line = dc.GetTextExtent("0").cy;
    const std::vector<std::string> lines = Wrapped(dc, text, area.Width());
    const auto height = static_cast<int>(lines.size()) * line;
    if (height > area.Height()) {
        return;
    }
    int width = 0;
    for (const std::string& part : lines) {
        width = std::max(width, dc.GetTextExtent(part).cx);
    }
    const int middle = (area.left + area.right) / 2;
    int top = (area.top + area.bottom - height) / 2;
    dc.BlendRect(owl::TRect{middle, top, middle, top + height}.InflatedBy(width / 2 + kGap, kGap / 2),
                 look.backColor, kNoticeGround);
    dc.SetTextColor(look.textColor);
    dc.SetTextAlign(owl::TextAlign::Center);
    for (const std::string& part : lines) {
        dc.TextOut({middle, top}, part);
        top += line;
    }
}

} // namespace orvanta::chart
