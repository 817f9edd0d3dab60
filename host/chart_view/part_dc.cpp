// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/chart_view/part_dc.h"

#include <algorithm>

namespace orvanta::chart {

PartDC::PartDC(owl::TDC& whole, const owl::TRect& part) : whole_(whole), part_(part) {
    whole_.SelectPen({});
    whole_.SelectBrush({owl::Rgb(255, 255, 255)});
    whole_.SelectFont({});
    whole_.SetTextColor(0);
    whole_.SetTextAlign(owl::TextAlign::Left);
    whole_.SetClip(part_);
}

PartDC::~PartDC() {
    whole_.ClearClip();
}

void PartDC::Curve(std::span<const owl::TPointF> points, double width) {
    std::vector<owl::TPointF> moved(points.begin(), points.end());
    for (owl::TPointF& point : moved) {
        point.x += part_.left;
        point.y += part_.top;
    }
    whole_.Curve(moved, width);
}

void PartDC::SetClip(const owl::TRect& rect) {
    const owl::TRect moved = Moved(rect);
    whole_.SetClip({std::max(moved.left, part_.left), std::max(moved.top, part_.top),
                    std::min(moved.right, part_.right), std::min(moved.bottom, part_.bottom)});
}

owl::TPoint PartDC::Moved(const owl::TPoint& point) const {
    return {point.x + part_.left, point.y + part_.top};
}

owl::TRect PartDC::Moved(const owl::TRect& rect) const {
    return {rect.left + part_.left, rect.top + part_.top, rect.right + part_.left, rect.bottom + part_.top};
}

std::vector<owl::TPoint> PartDC::Moved(std::span<const owl::TPoint> points) const {
    std::vector<owl::TPoint> moved(points.begin(), points.end());
    for (owl::TPoint& point : moved) {
        point = Moved(point);
    }
    return moved;
}

} // namespace orvanta::chart
