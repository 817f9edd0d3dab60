// SPDX-License-Identifier: GPL-3.0-or-later
// The coloured part of a flat map, pixel by pixel.
#include "host/chart_view/topography/contours.h"
#include "host/chart_view/topography/flat_map.h"
#include "host/chart_view/topography/map_colors.h"
#include "host/chart_view/topography/map_surface.h"
#include "host/chart_view/topography/row_bands.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <numbers>
#include <utility>

namespace orvanta::chart {

namespace {

/// Logical pixels.
constexpr double kContourWidth = 1;

using Pixels = std::array<std::uint32_t, kPaletteColors>;

Pixels PixelsOf(const Colors& colors, const auto& change) {
    Pixels pixels{};
    std::transform(colors.begin(), colors.end(), pixels.begin(),
                   [&](owl::TColor color) { return PixelOf(change(color), 1) & 0xFFFFFFU; });
    return pixels;
}

std::uint32_t Share(float share) {
    return static_cast<std::uint32_t>(std::clamp(share, 0.0F, 1.0F) * 256);
}

/// Paints the rows of the disc.
class Disc {
public:
    Disc(const FlatMap& map, int side)
        : map_(map), sampler_(side), image_{side, side, {}},
          plain_(PixelsOf(map.colors, [](owl::TColor color) { return color; })),
          lines_(PixelsOf(map.colors, LineOn)), striped_(PixelsOf(map.colors, [&map](owl::TColor color) {
              return Mixed(color, map.look.backColor, kStripeShare);
          })) {
        const double span = map.scale.high - map.scale.low;
        if (span > 0) {
            perValue_ = static_cast<float>((kPaletteColors - 1) / span);
            contours_ = map.look.contours;
            levelsPerColor_ = static_cast<float>(contours_ + 1) / (kPaletteColors - 1);
        }
        low_ = static_cast<float>(map.scale.low);
        lineWidth_ = static_cast<float>(kContourWidth * map.look.pixelRatio);
    }

    owl::TImage Paint() {
        constexpr int kLeastRows = 16;
        const int side = image_.width;
        image_.pixels.resize(static_cast<std::size_t>(side) * static_cast<std::size_t>(side));
        ForRowBands(side, kLeastRows, [this](int first, int last) { PaintRows(first, last); });
        return std::move(image_);
    }

private:
    /// At the middles of a row's pixels, and one beyond on each side.
    struct Row {
        std::vector<float> here, below; ///< of the field: in this row and in the next one
        std::vector<float> covers, beyond;
    };

    void PaintRows(int first, int last) {
        Row line;
        sampler_.Row(map_.field, first, line.here);
        for (int row = first; row < last; ++row) {
            sampler_.Row(map_.field, row + 1, line.below);
            sampler_.Row(map_.covers, row, line.covers);
            sampler_.Row(map_.beyond, row, line.beyond);
            PaintRow(row, line);
            line.here.swap(line.below);
        }
    }

    void PaintRow(int row, const Row& line) {
        const double radius = image_.width / 2.0;
        const double y = row + 0.5 - radius;
        const double half = std::sqrt(std::max(0.0, (radius + 0.5) * (radius + 0.5) - y * y));
        const int first = std::max(0, static_cast<int>(radius - half));
        const int last = std::min(image_.width, static_cast<int>(std::ceil(radius + half)));
        const auto perRadius = static_cast<float>(radius / map_.reach.farthest);
        auto* const pixels = image_.pixels.data() + static_cast<std::ptrdiff_t>(row) * image_.width;
        for (int column = first; column < last; ++column) {
            const auto at = static_cast<std::size_t>(column) + 1;
            const float color = ColorAt(line.here[at]);
            const float raised = std::clamp(color, 0.0F, kPaletteColors - 1.0F) + 0.5F;
            const auto index = static_cast<std::size_t>(raised);
            std::uint32_t pixel = plain_[index];
            const float outside = line.beyond[at] * perRadius + 0.5F; // pixels
            if (outside > 0) {
                pixel = Blend(pixel, striped_[index], Share(std::min(outside, 1.0F) * Stripe(row + column)));
            }
            if (contours_ > 0) {
                const float across = ColorAt(line.here[at + 1]) - color;
                const float down = ColorAt(line.below[at]) - color;
                const float slope = std::sqrt(across * across + down * down);
                const float contour =
                    ContourCoverage(color * levelsPerColor_, slope * levelsPerColor_, contours_, lineWidth_);
                pixel = contour > 0 ? Blend(pixel, lines_[index], Share(contour)) : pixel;
            }
            const float edge = std::clamp(line.covers[at] * perRadius + 0.5F, 0.0F, 1.0F); // half on the edge
            const auto alpha = static_cast<std::uint32_t>(edge * 255);
            pixels[column] = alpha << 24U | pixel;
        }
    }

    /// From 0 to 255 on the scale, and beyond; in the middle of a scale without width.
    float ColorAt(float value) const {
        return perValue_ > 0 ? (value - low_) * perValue_ : (kPaletteColors - 1) / 2.0F;
    }

    /// How much of a pixel a stripe covers. \param diagonal row and column
    float Stripe(int diagonal) const {
        return StripeCoverage(static_cast<float>(diagonal) / std::numbers::sqrt2_v<float>,
                              static_cast<float>(map_.look.pixelRatio));
    }

    const FlatMap& map_;
    GridSampler sampler_;
    owl::TImage image_;
    Pixels plain_, lines_, striped_;
    float perValue_ = 0, low_ = 0, levelsPerColor_ = 0, lineWidth_ = 1;
    int contours_ = 0;
};

} // namespace

owl::TImage DiscOf(const FlatMap& map, int side) {
    return Disc(map, std::max(1, side)).Paint();
}

} // namespace orvanta::chart
