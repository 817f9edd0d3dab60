// SPDX-License-Identifier: GPL-3.0-or-later
#include "spectrum_view/painting/hidden_lines.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace orvanta::spectrum_view {

namespace {

/// Joins a point to a curve; of points on one level only the ends are kept.
void Join(std::vector<owl::TPoint>& curve, const owl::TPoint& point) {
    const std::size_t size = curve.size();
    if (size >= 2 && curve[size - 1].y == point.y && curve[size - 2].y == point.y) {
        curve.back() = point;
    } else {
        curve.push_back(point);
    }
}

} // namespace

Horizon::Horizon(int left, int right)
    : left_(left),
      rows_(static_cast<std::size_t>(std::max(0, right - left)), std::numeric_limits<int>::max()) {}

std::span<const std::vector<owl::TPoint>> Horizon::Add(std::span<const owl::TPoint> points) {
    count_ = 0;
    isOpen_ = false;
    if (!points.empty()) {
        Visit(points.front().x, points.front().y, true);
    }
    for (std::size_t i = 1; i < points.size(); ++i) {
        const owl::TPoint& from = points[i - 1];
        const owl::TPoint& to = points[i];
        const double slope = to.x > from.x ? static_cast<double>(to.y - from.y) / (to.x - from.x) : 0;
        for (int x = from.x + 1; x < to.x; ++x) {
            Visit(x, from.y + static_cast<int>(std::floor((x - from.x) * slope + 0.5)), false);
        }
        Visit(to.x, to.y, true);
    }
    EndStretch();
    return std::span(stretches_).first(count_);
}

void Horizon::Visit(int x, int y, bool isVertex) {
    const auto column = static_cast<std::size_t>(x - left_);
    if (x < left_ || column >= rows_.size() || y >= rows_[column]) {
        EndStretch();
        return;
    }
    rows_[column] = y;
    last_ = {x, y};
    if (!isOpen_) {
        if (count_ == stretches_.size()) {
            stretches_.emplace_back();
        }
        stretches_[count_].assign(1, last_);
        isOpen_ = true;
    } else if (isVertex) {
        Join(stretches_[count_], last_);
    }
}

void Horizon::EndStretch() {
    if (!isOpen_) {
        return;
    }
    std::vector<owl::TPoint>& stretch = stretches_[count_];
    if (stretch.size() == 1 || !(stretch.back() == last_)) {
        Join(stretch, last_);
    }
    ++count_;
    isOpen_ = false;
}

} // namespace orvanta::spectrum_view
