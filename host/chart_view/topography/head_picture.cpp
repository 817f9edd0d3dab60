// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/chart_view/topography/head_picture.h"

#include "host/chart_view/topography/contours.h"
#include "host/chart_view/topography/map_colors.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>

namespace orvanta::chart {

namespace {

/// The head's farthest point, from the centre of the picture, in half its side: chin and neck reach lowest.
constexpr double kFill = 0.84;
/// The centre of the picture lies below the centre of the head, so that head and neck stand in the middle.
constexpr double kLowered = 0.11;

constexpr owl::TColor kSkin = owl::Rgb(226, 205, 188);
constexpr double kAmbient = 0.60;
constexpr double kDiffuse = 0.44;
constexpr double kShine = 0.09;
constexpr double kSharpness = 24;
/// Of light and shade, where values are shown: their colours are to be compared with those of the scale.
constexpr float kLightOnValues = 0.5F;

struct Vector {
    float x = 0, y = 0, z = 0;
};

Vector ToVector(const HeadPosition& p) {
    return {static_cast<float>(p.x), static_cast<float>(p.y), static_cast<float>(p.z)};
}

float Dot(const Vector& a, const Vector& b) {
    return a.x * b.x + a.y * b.y + a.z * b.z;
}

Vector Cross(const Vector& a, const Vector& b) {
    return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}

/// To the right and up on the picture, and towards the viewer.
struct Axes {
    Vector right, up, viewer;
};

Axes AxesOf(const HeadView& view) {
    const double a = view.azimuth * std::numbers::pi / 180;
    const double e = view.elevation * std::numbers::pi / 180;
    Axes axes;
    axes.viewer = ToVector({std::cos(e) * std::sin(a), std::cos(e) * std::cos(a), std::sin(e)});
    axes.up = ToVector({-std::sin(e) * std::sin(a), -std::sin(e) * std::cos(a), std::cos(e)});
    axes.right = Cross(axes.up, axes.viewer);
    return axes;
}

/// Pixels to the head's unit, and where its centre lies on the picture.
struct Placing {
    float unit, x, y;
};

Placing PlacingOf(const Axes& axes, int size) {
    const auto side = static_cast<float>(size);
    const float unit = side / 2 * static_cast<float>(kFill);
    return {unit, side / 2, side / 2 - unit * static_cast<float>(kLowered) * axes.up.z};
}

/// A corner of the mesh as the picture has it.
struct Corner {
    float x, y;
    float depth; ///< larger is nearer
    float light, shine;
    float value;  ///< on a scale from 0.5 to 255.5, so that its whole part is the number of a colour
    float cover;  ///< above 0 where values are shown
    float beyond; ///< above 0 where they are extrapolated
};

std::vector<Corner> CornersOf(const HeadScene& scene, int size, bool inside) {
    const Axes axes = AxesOf(scene.view);
    const Placing placing = PlacingOf(axes, size);
    const Vector toLight = [&axes] {
        constexpr float kLeft = -0.35F, kUp = 0.45F, kNear = 0.82F;
        const auto part = [&](float Vector::*member) {
            return kLeft * axes.right.*member + kUp * axes.up.*member + kNear * axes.viewer.*member;
        };
        return Vector{part(&Vector::x), part(&Vector::y), part(&Vector::z)};
    }();
    const double span = scene.high > scene.low ? scene.high - scene.low : 0;
    std::vector<Corner> corners(scene.mesh.points.size());
    for (std::size_t i = 0; i < corners.size(); ++i) {
        const Vector point = ToVector(scene.mesh.points[i]);
        Vector normal = ToVector(scene.mesh.normals[i]);
        if (inside) {
            normal = {-normal.x, -normal.y, -normal.z};
        }
        Corner& corner = corners[i];
        corner.x = placing.x + placing.unit * Dot(point, axes.right);
        corner.y = placing.y - placing.unit * Dot(point, axes.up);
        corner.depth = Dot(point, axes.viewer);
        const float facing = std::max(0.0F, Dot(normal, toLight));
        corner.light = static_cast<float>(kAmbient + kDiffuse * facing);
        corner.shine = inside ? 0.0F : static_cast<float>(kShine * std::pow(facing, kSharpness));
        const bool known = i < scene.values.size() && i < scene.covers.size();
        const double share = span > 0 && known ? (scene.values[i] - scene.low) / span : 0.5;
        corner.value = static_cast<float>(std::clamp(share, 0.0, 1.0) * (kPaletteColors - 1) + 0.5);
        corner.cover = known ? scene.covers[i] : 0.0F;
        corner.beyond = i < scene.beyond.size() ? scene.beyond[i] : -1.0F;
    }
    return corners;
}

/// One side of the head: the nearest of the triangles that show it.
class Layer {
public:
    Layer(const HeadScene& scene, int size, bool inside)
        : colors_(scene.colors), size_(size),
          contours_(scene.high > scene.low && !scene.values.empty() ? scene.contours : 0),
          levelsPerColor_(static_cast<float>(contours_ + 1) / (kPaletteColors - 1)),
          pixelRatio_(static_cast<float>(scene.pixelRatio * scene.samples)),
          depths_(static_cast<std::size_t>(size) * static_cast<std::size_t>(size),
                  -std::numeric_limits<float>::infinity()),
          pixels_(depths_.size(), 0) {
        const std::vector<Corner> corners = CornersOf(scene, size, inside);
        for (const auto& [a, b, c] : scene.mesh.triangles) {
            // Upwards is negative on the picture, so that counter-clockwise is so, too.
            const float area = Area(corners[a], corners[b], corners[c].x, corners[c].y);
            if (inside ? area > 0 : area < 0) {
                Fill(corners[a], corners[b], corners[c], area);
            }
        }
    }

    const std::vector<std::uint32_t>& Pixels() const { return pixels_; }

private:
    static float Area(const Corner& a, const Corner& b, float x, float y) {
        return (b.x - a.x) * (y - a.y) - (b.y - a.y) * (x - a.x);
    }

    void Fill(const Corner& a, const Corner& b, const Corner& c, float area) {
        const auto [left, right] = std::minmax({a.x, b.x, c.x});
        const auto [top, bottom] = std::minmax({a.y, b.y, c.y});
        const int firstX = std::max(0, static_cast<int>(std::ceil(left - 0.5F)));
        const int lastX = std::min(size_ - 1, static_cast<int>(std::floor(right - 0.5F)));
        const int firstY = std::max(0, static_cast<int>(std::ceil(top - 0.5F)));
        const int lastY = std::min(size_ - 1, static_cast<int>(std::floor(bottom - 0.5F)));
        const float slope = contours_ > 0 ? Slope(a, b, c, area) * levelsPerColor_ : 0.0F;
        for (int y = firstY; y <= lastY; ++y) {
            for (int x = firstX; x <= lastX; ++x) {
                const float px = static_cast<float>(x) + 0.5F;
                const float py = static_cast<float>(y) + 0.5F;
                const float shareA = Area(b, c, px, py) / area;
                const float shareB = Area(c, a, px, py) / area;
                const float shareC = 1 - shareA - shareB;
                if (shareA < 0 || shareB < 0 || shareC < 0) {
                    continue;
                }
                const auto mixed = [&](float Corner::*part) {
                    return shareA * a.*part + shareB * b.*part + shareC * c.*part;
                };
                const float depth = mixed(&Corner::depth);
                const std::size_t at = static_cast<std::size_t>(y) * static_cast<std::size_t>(size_) +
                                       static_cast<std::size_t>(x);
                if (depth > depths_[at]) {
                    depths_[at] = depth;
                    const float light = mixed(&Corner::light);
                    const float shine = mixed(&Corner::shine);
                    pixels_[at] =
                        mixed(&Corner::cover) > 0
                            ? Lit(Covered(mixed(&Corner::value), slope, mixed(&Corner::beyond), x + y),
                                  1 + (light - 1) * kLightOnValues, shine * kLightOnValues)
                            : Lit(kSkin, light, shine);
                }
            }
        }
    }

    /// Of the values over the picture, in colours per pixel.
    static float Slope(const Corner& a, const Corner& b, const Corner& c, float area) {
        const float across = (b.value - a.value) * (c.y - a.y) - (c.value - a.value) * (b.y - a.y);
        const float down = (c.value - a.value) * (b.x - a.x) - (b.value - a.value) * (c.x - a.x);
        return std::hypot(across, down) / std::abs(area);
    }

    /// \param diagonal row and column
    owl::TColor Covered(float value, float slope, float beyond, int diagonal) const {
        owl::TColor color = colors_[static_cast<std::size_t>(value)];
        if (beyond > 0) {
            const float across = static_cast<float>(diagonal) / std::numbers::sqrt2_v<float>;
            color = Mixed(color, kSkin, kStripeShare * StripeCoverage(across, pixelRatio_));
        }
        if (contours_ > 0) {
            const float line =
                ContourCoverage((value - 0.5F) * levelsPerColor_, slope, contours_, pixelRatio_);
            color = line > 0 ? Mixed(color, LineOn(color), line) : color;
        }
        return color;
    }

    static std::uint32_t Lit(owl::TColor color, float light, float shine) {
        const auto channel = [&](std::uint8_t value) {
            const float lit = static_cast<float>(value) * light + 255 * shine;
            return static_cast<std::uint32_t>(std::min(255.0F, lit));
        };
        return 0xFF000000U | channel(owl::Red(color)) << 16U | channel(owl::Green(color)) << 8U |
               channel(owl::Blue(color));
    }

    const Colors& colors_;
    int size_;
    int contours_;
    float levelsPerColor_, pixelRatio_;
    std::vector<float> depths_;
    std::vector<std::uint32_t> pixels_;
};

/// Channels from 0 to 1, multiplied with alpha.
struct Light {
    float alpha = 0, red = 0, green = 0, blue = 0;

    void Add(const Light& other, float share) {
        alpha += other.alpha * share;
        red += other.red * share;
        green += other.green * share;
        blue += other.blue * share;
    }
};

Light LightOf(std::uint32_t pixel) {
    const auto channel = [pixel](unsigned shift) { return static_cast<float>(pixel >> shift & 0xFFU) / 255; };
    return {channel(24), channel(16), channel(8), channel(0)};
}

std::uint32_t PixelOf(const Light& light) {
    const auto channel = [&light](float value) {
        const float plain = light.alpha > 0 ? value / light.alpha : 0;
        return static_cast<std::uint32_t>(std::clamp(plain * 255 + 0.5F, 0.0F, 255.0F));
    };
    const auto alpha = static_cast<std::uint32_t>(std::clamp(light.alpha * 255 + 0.5F, 0.0F, 255.0F));
    return alpha << 24U | channel(light.red) << 16U | channel(light.green) << 8U | channel(light.blue);
}

} // namespace

HeadView Dragged(const HeadView& view, int dx, int dy, int size) {
    const double perPixel = 180.0 / std::max(1, size);
    const double azimuth = std::fmod(view.azimuth + dx * perPixel + 720, 360);
    return {azimuth, std::clamp(view.elevation + dy * perPixel, -90.0, 90.0)};
}

SeenPoint Seen(const HeadPosition& direction, const HeadView& view, int size) {
    const Axes axes = AxesOf(view);
    const Placing placing = PlacingOf(axes, size);
    const Vector point = ToVector(OnSurface(direction));
    return {placing.x + placing.unit * Dot(point, axes.right), placing.y - placing.unit * Dot(point, axes.up),
            Dot(point, axes.viewer) > 0};
}

owl::TImage PictureOf(const HeadScene& scene) {
    const int samples = std::max(1, scene.samples);
    const int size = std::max(1, scene.size);
    const int fine = size * samples;
    const auto opacity = static_cast<float>(std::clamp(scene.opacity, 0.0, 1.0));
    const Layer outside(scene, fine, false);
    std::optional<Layer> inside;
    if (opacity < 1) {
        inside.emplace(scene, fine, true);
    }
    owl::TImage image{
        size, size,
        std::vector<std::uint32_t>(static_cast<std::size_t>(size) * static_cast<std::size_t>(size))};
    const float share = 1.0F / static_cast<float>(samples * samples);
    for (int y = 0; y < size; ++y) {
        for (int x = 0; x < size; ++x) {
            Light sum;
            for (int i = 0; i < samples * samples; ++i) {
                const auto at =
                    static_cast<std::size_t>(y * samples + i / samples) * static_cast<std::size_t>(fine) +
                    static_cast<std::size_t>(x * samples + i % samples);
                // Both sides let through what is behind them alike.
                const Light near = LightOf(outside.Pixels()[at]);
                sum.Add(near, share * opacity);
                if (inside) {
                    sum.Add(LightOf(inside->Pixels()[at]), share * opacity * (1 - near.alpha * opacity));
                }
            }
            image.pixels[static_cast<std::size_t>(y) * static_cast<std::size_t>(size) +
                         static_cast<std::size_t>(x)] = PixelOf(sum);
        }
    }
    return image;
}

} // namespace orvanta::chart
