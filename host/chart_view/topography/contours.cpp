// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/chart_view/topography/contours.h"

#include <array>
#include <cmath>
#include <cstdint>
#include <optional>
#include <unordered_map>

namespace orvanta::chart {

namespace {

/// A way between two neighbouring pixels that the line crosses: the pixel at its left or upper end, times
/// two, plus one when it leads down.
using Way = std::uint32_t;

/// The ways that the line leads on to from a way: one at its end, else two.
struct Neighbours {
    std::array<Way, 2> ways{};
    int count = 0;
};

class Tracer {
public:
    Tracer(std::span<const float> field, int side, double level) : field_(field), side_(side), level_(level) {
        for (int row = 0; row + 1 < side_; ++row) {
            for (int column = 0; column + 1 < side_; ++column) {
                Cross(row, column);
            }
        }
    }

    std::vector<std::vector<GridPoint>> Lines() {
        std::vector<std::vector<GridPoint>> lines;
        // Those that end somewhere first: what is left then are rings.
        for (const bool open : {true, false}) {
            for (const Way way : order_) {
                const Neighbours& neighbours = crossed_.at(way);
                if (neighbours.count > 0 && (!open || neighbours.count == 1)) {
                    lines.push_back(Follow(way));
                }
            }
        }
        return lines;
    }

private:
    double At(int row, int column) const {
        return field_[static_cast<std::size_t>(row) * static_cast<std::size_t>(side_) +
                      static_cast<std::size_t>(column)];
    }
    Way WayRight(int row, int column) const { return static_cast<Way>(row * side_ + column) * 2; }
    Way WayDown(int row, int column) const { return WayRight(row, column) + 1; }

    /// Joins the ways around the four pixels whose upper left one is given.
    void Cross(int row, int column) {
        const std::array corners{At(row, column), At(row, column + 1), At(row + 1, column + 1),
                                 At(row + 1, column)};
        unsigned above = 0;
        double sum = 0;
        for (std::size_t i = 0; i < corners.size(); ++i) {
            above |= corners[i] >= level_ ? 1U << i : 0U;
            sum += corners[i];
        }
        if (above == 0 || above == 15 || !std::isfinite(sum)) {
            return;
        }
        const Way top = WayRight(row, column);
        const Way right = WayDown(row, column + 1);
        const Way bottom = WayRight(row + 1, column);
        const Way left = WayDown(row, column);
        const bool middleAbove = sum / 4 >= level_;
        switch (above) {
        case 1:
        case 14:
            Join(left, top);
            break;
        case 2:
        case 13:
            Join(top, right);
            break;
        case 4:
        case 11:
            Join(right, bottom);
            break;
        case 8:
        case 7:
            Join(bottom, left);
            break;
        case 3:
        case 12:
            Join(left, right);
            break;
        case 6:
        case 9:
            Join(top, bottom);
            break;
        default: // two opposite corners: they are joined when the middle is as they are
            if ((above == 5) == middleAbove) {
                Join(top, right);
                Join(bottom, left);
            } else {
                Join(left, top);
                Join(right, bottom);
            }
            break;
        }
    }

    void Join(Way a, Way b) {
        Add(a, b);
        Add(b, a);
    }

    void Add(Way from, Way to) {
        const auto [place, isNew] = crossed_.try_emplace(from);
        if (isNew) {
            order_.push_back(from);
        }
        Neighbours& neighbours = place->second;
        neighbours.ways[static_cast<std::size_t>(neighbours.count++)] = to;
    }

    GridPoint PointOn(Way way) const {
        const int pixel = static_cast<int>(way / 2);
        const int row = pixel / side_;
        const int column = pixel % side_;
        const bool down = way % 2 != 0;
        const double from = At(row, column);
        const double to = down ? At(row + 1, column) : At(row, column + 1);
        const double share = (level_ - from) / (to - from);
        return {column + (down ? 0 : share), row + (down ? share : 0)};
    }

    /// The next way, taken out of the net together with the way back.
    std::optional<Way> Leave(Way way) {
        Neighbours& here = crossed_.at(way);
        if (here.count == 0) {
            return std::nullopt;
        }
        const Way next = here.ways[static_cast<std::size_t>(--here.count)];
        Neighbours& there = crossed_.at(next);
        if (there.ways[0] == way) {
            there.ways[0] = there.ways[1];
        }
        --there.count;
        return next;
    }

    std::vector<GridPoint> Follow(Way first) {
        std::vector<GridPoint> line = {PointOn(first)};
        for (std::optional<Way> way = Leave(first); way; way = Leave(*way)) {
            line.push_back(PointOn(*way));
        }
        return line;
    }

    std::span<const float> field_;
    int side_;
    double level_;
    std::unordered_map<Way, Neighbours> crossed_;
    std::vector<Way> order_; ///< as the ways were met, so that lines come in the same order each time
};

} // namespace

std::vector<std::vector<GridPoint>> ContourLines(std::span<const float> field, int side, double level) {
    return Tracer(field, side, level).Lines();
}

std::vector<double> ContourLevels(double low, double high, int count) {
    std::vector<double> levels;
    for (int i = 1; i <= count && high > low; ++i) {
        levels.push_back(low + (high - low) * i / (count + 1));
    }
    return levels;
}

} // namespace orvanta::chart
