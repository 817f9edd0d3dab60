// SPDX-License-Identifier: GPL-3.0-or-later
// The coloured part of a flat map, pixel by pixel.
#include "host/chart_view/topography/flat_map.h"
#include "host/chart_view/topography/map_colors.h"
#include "host/chart_view/topography/map_surface.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>

namespace orvanta::chart {

namespace {

// Logical pixels: of the stripes where values are extrapolated, and the width of contours.
constexpr double kStripePeriod = 6;
constexpr double kStripeWidth = 2;
constexpr double kStripeShare = 0.6;
constexpr float kContourWidth = 1;

using Pixels = std::array<std::uint32_t, kPaletteColors>;

Pixels PixelsOf(const Colors& colors, const auto& change) {
    Pixels pixels{};
    std::transform(colors.begin(), colors.end(), pixels.begin(),
                   [&](owl::TColor color) { return PixelOf(change(color), 1) & 0xFFFFFFU; });
    return pixels;
}

/// Mixes two colours without alpha. \param share of the other one, 0 to 256
std::uint32_t Blend(std::uint32_t color, std::uint32_t other, std::uint32_t share) {
    constexpr std::uint32_t kRedBlue = 0xFF00FFU;
    constexpr std::uint32_t kGreen = 0x00FF00U;
    const std::uint32_t rest = 256 - share;
    return (((color & kRedBlue) * rest + (other & kRedBlue) * share) >> 8U & kRedBlue) |
           (((color & kGreen) * rest + (other & kGreen) * share) >> 8U & kGreen);
}

std::uint32_t Share(float share) {
    return static_cast<std::uint32_t>(std::clamp(share, 0.0F, 1.0F) * 256);
}

/// Paints rows of the disc from top to bottom.
class Disc {
public:
    Disc(const FlatMap& map, int side)
        : map_(map), sampler_(side), image_{side, side, {}},
          plain_(PixelsOf(ShownColors(map.colors, map.look), [](owl::TColor color) { return color; })),
          lines_(PixelsOf(ShownColors(map.colors, map.look), LineOn)),
          striped_(PixelsOf(ShownColors(map.colors, map.look), [&map](owl::TColor color) {
              return Mixed(color, map.look.backColor, kStripeShare);
          })) {
        const double span = map.scale.high - map.scale.low;
        if (span > 0) {
            perValue_ = static_cast<float>((kPaletteColors - 1) / span);
            contours_ = map.look.contours;
            levelsPerColor_ = static_cast<float>(contours_ + 1) / (kPaletteColors - 1);
        }
        low_ = static_cast<float>(map.scale.low);
    }

    owl::TImage Paint() {
        const int side = image_.width;
        image_.pixels.resize(static_cast<std::size_t>(side) * static_cast<std::size_t>(side));
        std::vector<float> here;
        std::vector<float> below;
        sampler_.Row(map_.field, 0, here);
        for (int row = 0; row < side; ++row) {
            sampler_.Row(map_.field, row + 1, below);
            sampler_.Row(map_.beyond, row, beyond_);
            PaintRow(row, here, below);
            here.swap(below);
        }
        return std::move(image_);
    }

private:
    void PaintRow(int row, const std::vector<float>& here, const std::vector<float>& below) {
        const double radius = image_.width / 2.0;
        const double y = row + 0.5 - radius;
        const double half = std::sqrt(std::max(0.0, (radius + 0.5) * (radius + 0.5) - y * y));
        const int first = std::max(0, static_cast<int>(radius - half));
        const int last = std::min(image_.width, static_cast<int>(std::ceil(radius + half)));
        const auto perRadius = static_cast<float>(radius / map_.reach);
        auto* const pixels = image_.pixels.data() + static_cast<std::ptrdiff_t>(row) * image_.width;
        for (int column = first; column < last; ++column) {
            const auto at = static_cast<std::size_t>(column) + 1;
            const float color = ColorAt(here[at]);
            const auto index = static_cast<std::size_t>(std::clamp(color, 0.0F, 255.0F) + 0.5F);
            std::uint32_t pixel = plain_[index];
            const float outside = beyond_[at] * perRadius + 0.5F; // pixels
            if (outside > 0) {
                pixel = Blend(pixel, striped_[index], Share(std::min(outside, 1.0F) * Stripe(row + column)));
            }
            if (contours_ > 0) {
                const float line = Line(color, ColorAt(here[at + 1]) - color, ColorAt(below[at]) - color);
                if (line > 0) {
                    pixel = Blend(pixel, lines_[index], Share(line));
                }
            }
            const double x = column + 0.5 - radius;
            const auto edge = static_cast<float>(radius + 0.5 - std::sqrt(x * x + y * y));
            const auto alpha = static_cast<std::uint32_t>(std::clamp(edge, 0.0F, 1.0F) * 255);
            pixels[column] = alpha << 24U | pixel;
        }
    }

    /// From 0 to 255 on the scale, and beyond; in the middle of a scale without width.
    float ColorAt(float value) const {
        return perValue_ > 0 ? (value - low_) * perValue_ : (kPaletteColors - 1) / 2.0F;
    }

    /// How much of a pixel a contour covers, 0 to 1: by its distance, which the slope tells.
    float Line(float color, float across, float down) const {
        const float level = color * levelsPerColor_;
        const float nearest = std::round(level);
        if (nearest < 1 || nearest > static_cast<float>(contours_)) {
            return 0;
        }
        const float slope = std::sqrt(across * across + down * down) * levelsPerColor_;
        const auto width = kContourWidth * static_cast<float>(map_.look.pixelRatio);
        const float distance = std::abs(level - nearest);
        return distance < slope * (width + 1) ? width / 2 + 0.5F - distance / slope : 0.0F;
    }

    /// How much of a pixel a stripe covers. \param diagonal row and column
    float Stripe(int diagonal) const {
        const double scale = map_.look.pixelRatio * std::sqrt(2.0); // measured across the stripes
        const double period = kStripePeriod * scale;
        const double from = std::fmod(diagonal, period) - period / 2;
        return static_cast<float>(
            std::clamp((kStripeWidth * scale / 2 - std::abs(from)) / std::sqrt(2.0) + 0.5, 0.0, 1.0));
    }

    const FlatMap& map_;
    GridSampler sampler_;
    owl::TImage image_;
    Pixels plain_, lines_, striped_;
    float perValue_ = 0, low_ = 0, levelsPerColor_ = 0;
    int contours_ = 0;
    std::vector<float> beyond_;
};

} // namespace

owl::TImage DiscOf(const FlatMap& map, int side) {
    return Disc(map, std::max(1, side)).Paint();
}

} // namespace orvanta::chart
