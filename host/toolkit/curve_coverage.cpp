// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/toolkit/curve_coverage.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <vector>

namespace owl {

namespace {

/// Strips in a column of pixels. Odd, so that a line through the middle of a column lies in the middle of a
/// strip.
constexpr int kStrips = 3;
constexpr float kNone = std::numeric_limits<float>::infinity();

/// How far down and up the curve reaches in each of a row of strips.
struct Reaches {
    explicit Reaches(std::size_t count) : low(count, kNone), high(count, -kNone) {}

    void Extend(std::size_t strip, double at) {
        low[strip] = std::min(low[strip], static_cast<float>(at));
        high[strip] = std::max(high[strip], static_cast<float>(at));
    }

    std::vector<float> low, high;
};

/// The line between two points: its ends, and where it crosses the middle of a strip.
void Extend(Reaches& reaches, double left, const TPointF& from, const TPointF& to) {
    const auto count = static_cast<double>(reaches.low.size());
    const double begin = (from.x - left) * kStrips;
    const double end = (to.x - left) * kStrips;
    if (end < 0 || begin >= count || end < begin) {
        return;
    }
    if (begin >= 0) {
        reaches.Extend(static_cast<std::size_t>(begin), from.y);
    }
    if (end < count) {
        reaches.Extend(static_cast<std::size_t>(end), to.y);
    }
    if (begin == end) {
        return;
    }
    const double slope = (to.y - from.y) / (end - begin);
    // The middles from here to there are those of the strips from the one number to the other.
    const double here = std::max(0.0, begin + 0.5);
    const double there = std::min(count, end + 0.5);
    const auto last = static_cast<std::size_t>(there);
    for (auto strip = static_cast<std::size_t>(here); strip < last; ++strip) {
        reaches.Extend(strip, from.y + slope * (static_cast<double>(strip) + 0.5 - begin));
    }
}

/// The same drawn with a round pen: a strip is reached by the pen on its neighbours, too. \p around strips
/// are lost on either side.
Reaches Thickened(const Reaches& thin, double radius, std::size_t around) {
    const std::size_t count = thin.low.size() - 2 * around;
    Reaches thick(count);
    for (std::size_t shift = 0; shift <= 2 * around; ++shift) {
        const double aside = (static_cast<double>(shift) - static_cast<double>(around)) / kStrips;
        const auto reach = static_cast<float>(std::sqrt(std::max(0.0, radius * radius - aside * aside)));
        const float* low = thin.low.data() + shift;
        const float* high = thin.high.data() + shift;
        for (std::size_t strip = 0; strip < count; ++strip) {
            thick.low[strip] = std::min(thick.low[strip], low[strip] - reach);
            thick.high[strip] = std::max(thick.high[strip], high[strip] + reach);
        }
    }
    return thick;
}

/// Adds up the strips of one column.
class ColumnSum {
public:
    explicit ColumnSum(const TRect& clip)
        : top_(clip.top), height_(clip.Height()), steps_(static_cast<std::size_t>(height_) + 2),
          coverage_(static_cast<std::size_t>(height_)) {}

    void Add(float low, float high) {
        const float from = std::max(0.0F, low - static_cast<float>(top_));
        const float to = std::min(static_cast<float>(height_), high - static_cast<float>(top_));
        if (!(to > from)) {
            return;
        }
        Step(from, 1);
        Step(to, -1);
        first_ = std::min(first_, static_cast<std::size_t>(from));
        last_ = std::max(last_, static_cast<std::size_t>(to));
    }

    void Use(int x, const std::function<void(const CoveredColumn&)>& use) {
        if (first_ > last_) {
            return;
        }
        float sum = 0;
        std::size_t end = std::min(last_ + 1, coverage_.size());
        for (std::size_t row = first_; row < end; ++row) {
            sum += steps_[row];
            const float rounded = sum * (255.0F / kStrips) + 0.5F; // a call of lround takes longer
            coverage_[row] = static_cast<std::uint8_t>(rounded);
        }
        while (end > first_ && coverage_[end - 1] == 0) {
            --end;
        }
        use({x, top_ + static_cast<int>(first_), std::span(coverage_).subspan(first_, end - first_)});
        std::fill(steps_.begin() + static_cast<std::ptrdiff_t>(first_),
                  steps_.begin() + static_cast<std::ptrdiff_t>(std::min(last_ + 2, steps_.size())), 0.0F);
        first_ = std::numeric_limits<std::size_t>::max();
        last_ = 0;
    }

private:
    /// From this height on the rows below count so much more.
    void Step(float at, float change) {
        const auto row = static_cast<std::size_t>(at);
        const float below = at - static_cast<float>(row);
        steps_[row] += change * (1 - below);
        steps_[row + 1] += change * below;
    }

    int top_, height_;
    std::vector<float> steps_; ///< what the coverage changes by from row to row
    std::vector<std::uint8_t> coverage_;
    std::size_t first_ = std::numeric_limits<std::size_t>::max();
    std::size_t last_ = 0;
};

} // namespace

void CoverCurve(std::span<const TPointF> points, double width, const TRect& clip,
                const std::function<void(const CoveredColumn&)>& use) {
    if (points.empty() || clip.IsEmpty() || !(width > 0)) {
        return;
    }
    const double radius = width / 2;
    // The columns that are met, inside the clip.
    const double first = std::floor(points.front().x - radius);
    const double last = std::floor(points.back().x + radius);
    if (last < clip.left || first >= clip.right) {
        return;
    }
    const int left = static_cast<int>(std::max<double>(first, clip.left));
    const int right = static_cast<int>(std::min<double>(last + 1, clip.right));
    // Strips whose middle lies less than the radius away.
    const auto around = static_cast<std::size_t>(std::ceil(radius * kStrips) - 1);
    Reaches thin(static_cast<std::size_t>(right - left) * kStrips + 2 * around);
    const double begin = left - static_cast<double>(around) / kStrips;
    Extend(thin, begin, points.front(), points.front());
    for (std::size_t i = 1; i < points.size(); ++i) {
        Extend(thin, begin, points[i - 1], points[i]);
    }
    const Reaches thick = Thickened(thin, radius, around);
    ColumnSum sum(clip);
    std::size_t strip = 0;
    for (int x = left; x < right; ++x) {
        for (int i = 0; i < kStrips; ++i, ++strip) {
            sum.Add(thick.low[strip], thick.high[strip]);
        }
        sum.Use(x, use);
    }
}

} // namespace owl
