// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/chart_view/topography/flat_map.h"

#include <algorithm>
#include <cmath>

namespace orvanta::chart {

namespace {

/// Of the head's radius, pixels: a smaller head has thinner lines.
constexpr int kThinLines = 40;

owl::TPoint PointOn(const FlatHead& head, const Place& place) {
    return {head.centre.x + static_cast<int>(std::lround(place.x * head.radius)),
            head.centre.y + static_cast<int>(std::lround(place.y * head.radius))};
}

/// A line of the head as curves from left to right.
std::vector<std::vector<owl::TPointF>> CurvesOf(const FlatHead& head, const std::vector<Place>& line) {
    std::vector<std::vector<owl::TPointF>> curves(1);
    for (const Place& place : line) {
        const owl::TPointF point{head.centre.x + place.x * head.radius,
                                 head.centre.y + place.y * head.radius};
        std::vector<owl::TPointF>& curve = curves.back();
        if (curve.size() > 1 && (curve[1].x > curve[0].x) != (point.x > curve.back().x)) {
            curves.push_back({curve.back()}); // an ear: out, and back
        }
        curves.back().push_back(point);
    }
    for (auto& curve : curves) {
        if (curve.size() > 1 && curve[1].x < curve[0].x) {
            std::reverse(curve.begin(), curve.end());
        }
    }
    return curves;
}

/// The lines of the head, on a wider one of the background: they are seen on every colour.
void PaintHead(owl::TDC& dc, const FlatHead& head, const MapLook& look) {
    const HeadLines& lines = LinesOfHead();
    const int width = head.radius < kThinLines ? 1 : 2;
    dc.SelectBrush({0, true});
    for (const owl::TPen& pen : {owl::TPen{look.backColor, width + 2}, owl::TPen{look.textColor, width}}) {
        dc.SelectPen(pen);
        for (const auto* line : {&lines.nose, &lines.rightEar, &lines.leftEar}) {
            for (const auto& curve : CurvesOf(head, *line)) {
                dc.Curve(curve, pen.width);
            }
        }
        const int reach = head.radius + pen.width / 2; // the pen lies inside
        dc.Ellipse(
            owl::TRect{head.centre.x, head.centre.y, head.centre.x, head.centre.y}.InflatedBy(reach, reach));
    }
}

} // namespace

FlatHead PlaceFlatHead(const owl::TRect& room, const MapReach& reach) {
    const double up = std::max(kNoseReach, reach.front);
    const double down = reach.back;
    const double aside = std::max(kEarReach, reach.aside);
    FlatHead head;
    head.radius =
        std::max(0, static_cast<int>(std::min(room.Width() / (2 * aside), room.Height() / (up + down))));
    const int height = static_cast<int>(head.radius * (up + down));
    head.centre = {(room.left + room.right) / 2,
                   room.top + (room.Height() - height) / 2 + static_cast<int>(head.radius * up)};
    const int besides = static_cast<int>(head.radius * aside);
    const int top = room.top + (room.Height() - height) / 2;
    head.bounds = {head.centre.x - besides, top, head.centre.x + besides, top + height};
    const int half = static_cast<int>(std::lround(head.radius * reach.farthest));
    head.disc = {head.centre.x - half, head.centre.y - half, head.centre.x + half, head.centre.y + half};
    return head;
}

std::vector<ElectrodeMark> PaintFlatMap(owl::TDC& dc, const FlatMap& map) {
    const bool empty = map.field.empty();
    const MapFrame frame = BeginMap(dc, map.area, map.title, map.scale, empty, map.look);
    const FlatHead head = PlaceFlatHead(frame.body, map.reach);
    if (head.radius <= 0) {
        return {};
    }
    PaintScaleOf(dc, frame, head.bounds, map.colors, map.scale, map.look);
    if (!empty) {
        const int side = std::max(1, static_cast<int>(std::lround(head.disc.Width() * map.look.pixelRatio)));
        dc.DrawImage(head.disc, DiscOf(map, side));
    }
    PaintHead(dc, head, map.look);
    if (empty) {
        PaintNotice(dc, head.disc, map.notice, map.look);
        return {};
    }
    std::vector<ElectrodeMark> marks;
    for (std::size_t i = 0; i < map.electrodes.size(); ++i) {
        marks.push_back({PointOn(head, Projected(map.electrodes[i].position)), i});
    }
    PaintMarks(dc, marks, map.electrodes, head.radius, frame.body, map.look);
    return marks;
}

} // namespace orvanta::chart
