// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/chart_view/topography/head_map.h"

#include <algorithm>
#include <cmath>

namespace orvanta::chart {

namespace {

constexpr int kSmallestPicture = 8;
constexpr double kHeadShare = 0.36; ///< of the picture: about half the width of a head

/// The square in the middle of the room.
owl::TRect SquareIn(const owl::TRect& room) {
    const int side = std::max(0, std::min(room.Width(), room.Height()));
    const int left = (room.left + room.right - side) / 2;
    const int top = (room.top + room.bottom - side) / 2;
    return {left, top, left + side, top + side};
}

} // namespace

std::vector<ElectrodeMark> PaintHeadMap(owl::TDC& dc, const HeadMap& map) {
    const bool empty = map.field.empty();
    const MapFrame frame = BeginMap(dc, map.area, map.title, map.scale, empty, map.look);
    const owl::TRect square = SquareIn(frame.body);
    if (square.Width() < kSmallestPicture) {
        return {};
    }
    PaintScaleOf(dc, frame, square, map.colors, map.scale, map.look);
    const int size = static_cast<int>(std::lround(square.Width() * map.look.pixelRatio));
    dc.DrawImage(square, PictureOf({map.mesh, map.field, map.covers, map.beyond, map.colors, map.scale.low,
                                    map.scale.high, map.view, map.opacity / 100.0, size, map.turning ? 1 : 2,
                                    map.look.contours, map.look.pixelRatio}));
    if (empty) {
        PaintNotice(dc, square, map.notice, map.look);
        return {};
    }
    std::vector<ElectrodeMark> marks;
    for (std::size_t i = 0; i < map.electrodes.size(); ++i) {
        const SeenPoint seen = Seen(map.electrodes[i].position, map.view, square.Width());
        if (seen.front) {
            marks.push_back({{square.left + static_cast<int>(std::floor(seen.x)),
                              square.top + static_cast<int>(std::floor(seen.y))},
                             i});
        }
    }
    PaintMarks(dc, marks, map.electrodes, static_cast<int>(square.Width() * kHeadShare), frame.body,
               map.look);
    return marks;
}

} // namespace orvanta::chart
