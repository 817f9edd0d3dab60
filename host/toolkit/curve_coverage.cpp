// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/toolkit/curve_coverage.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>
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

    void Extend(std::ptrdiff_t strip, double at) {
        const auto place = static_cast<std::size_t>(strip);
        low[place] = std::min(low[place], static_cast<float>(at));
        high[place] = std::max(high[place], static_cast<float>(at));
    }

    std::vector<float> low, high;
};

/// The points, and where the lines between them cross the middle of a strip. \param left of the first strip
void Extend(Reaches& reaches, double left, std::span<const TPointF> points) {
    const auto count = static_cast<double>(reaches.low.size());
    double begin = 0;
    for (std::size_t i = 0; i < points.size(); ++i) {
        const TPointF& to = points[i];
        const double end = (to.x - left) * kStrips;
        if (end >= 0 && end < count) {
            reaches.Extend(static_cast<std::ptrdiff_t>(end), to.y);
        }
        if (i > 0 && end >= 0 && begin < count) {
            // The middles from here to there are those of the strips from the one number to the other.
            auto strip = static_cast<std::ptrdiff_t>(std::max(0.0, begin + 0.5));
            const auto last = static_cast<std::ptrdiff_t>(std::min(count, end + 0.5));
            if (strip < last) {
                const TPointF& from = points[i - 1];
                const double slope = (to.y - from.y) / (end - begin);
                for (; strip < last; ++strip) {
                    reaches.Extend(strip, from.y + slope * (static_cast<double>(strip) + 0.5 - begin));
                }
            }
        }
        begin = end;
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

/// Adds up the strips of one column, in 256ths of a pixel: whole numbers add up in a quarter of the time.
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
        first_ = std::min(first_, Step(from, 1));
        last_ = std::max(last_, Step(to, -1));
    }

    void Use(int x, const std::function<void(const CoveredColumn&)>& use) {
        if (first_ > last_) {
            return;
        }
        const auto first = static_cast<std::size_t>(first_);
        std::size_t end = std::min(static_cast<std::size_t>(last_) + 1, coverage_.size());
        int sum = 0;
        for (std::size_t row = first; row < end; ++row) {
            sum += std::exchange(steps_[row], 0);
            coverage_[row] =
                static_cast<std::uint8_t>((static_cast<unsigned>(sum) * (255 / kStrips) + kPart / 2) / kPart);
        }
        std::fill_n(steps_.begin() + last_, 2, 0);
        while (end > first && coverage_[end - 1] == 0) {
            --end;
        }
        use({x, top_ + first_, std::span(coverage_).subspan(first, end - first)});
        first_ = std::numeric_limits<int>::max();
        last_ = 0;
    }

private:
    static constexpr int kPart = 256;

    /// From this height on the rows below count so much more. \return the row
    int Step(float at, int change) {
        const auto parts = static_cast<unsigned>(static_cast<int>(at * kPart));
        const auto row = static_cast<int>(parts / kPart);
        const auto below = static_cast<int>(parts % kPart);
        steps_[static_cast<std::size_t>(row)] += change * (kPart - below);
        steps_[static_cast<std::size_t>(row) + 1] += change * below;
        return row;
    }

    int top_, height_;
    std::vector<int> steps_; ///< what the coverage changes by from row to row; all 0 between two columns
    std::vector<std::uint8_t> coverage_;
    int first_ = std::numeric_limits<int>::max();
    int last_ = 0;
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
    Extend(thin, begin, points);
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
