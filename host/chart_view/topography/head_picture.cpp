// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/chart_view/topography/head_picture.h"

#include "host/chart_view/topography/contours.h"
#include "host/chart_view/topography/map_colors.h"
#include "host/chart_view/topography/row_bands.h"

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
constexpr float kShine = 0.09F;
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

/// Of a triangle's area.
constexpr float kOnEdge = 1e-3F;

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
        const float facing4 = facing * facing * facing * facing;
        const float facing8 = facing4 * facing4;
        corner.shine = inside ? 0.0F : kShine * facing8 * facing8 * facing8; // sharpness 24
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
        constexpr int kLeastRows = 32;
        const std::vector<Corner> corners = CornersOf(scene, size, inside);
        const std::vector<Face> faces = FacesOf(scene.mesh, corners, inside);
        ForRowBands(size, kLeastRows, [&](int firstRow, int lastRow) {
            for (const Face& face : faces) {
                if (face.first < lastRow && face.last >= firstRow) {
                    Fill(face, firstRow, lastRow);
                }
            }
        });
    }

    const std::vector<std::uint32_t>& Pixels() const { return pixels_; }

private:
    static float Area(const Corner& a, const Corner& b, float x, float y) {
        return (b.x - a.x) * (y - a.y) - (b.y - a.y) * (x - a.x);
    }

    /// Changes of what a triangle's corners have, from pixel to pixel.
    struct Slope {
        float across, down;
    };

    /// A triangle on the side that is seen, and the rows with pixels that it may cover.
    struct Face {
        const Corner *a, *b, *c;
        float area;
        int first, last;
    };

    static std::vector<Face> FacesOf(const HeadMesh& mesh, const std::vector<Corner>& corners, bool inside) {
        std::vector<Face> faces;
        faces.reserve(mesh.triangles.size());
        for (const auto& [i, j, k] : mesh.triangles) {
            const Corner& a = corners[i];
            const Corner& b = corners[j];
            const Corner& c = corners[k];
            // Upwards is negative on the picture, so that counter-clockwise is so, too.
            const float area = Area(a, b, c.x, c.y);
            if (inside ? area > 0 : area < 0) {
                const auto [top, bottom] = std::minmax({a.y, b.y, c.y});
                faces.push_back({&a, &b, &c, area, static_cast<int>(std::ceil(top - 0.5F)),
                                 static_cast<int>(std::floor(bottom - 0.5F))});
            }
        }
        return faces;
    }

    /// \param firstRow to before \p lastRow: the rows that are painted
    void Fill(const Face& face, int firstRow, int lastRow) {
        const Corner& a = *face.a;
        const Corner& b = *face.b;
        const Corner& c = *face.c;
        const auto [left, right] = std::minmax({a.x, b.x, c.x});
        const int firstX = std::max(0, static_cast<int>(std::ceil(left - 0.5F)));
        const int lastX = std::min(size_ - 1, static_cast<int>(std::floor(right - 0.5F)));
        const int firstY = std::max(firstRow, face.first);
        const int lastY = std::min(lastRow - 1, face.last);
        if (firstX > lastX || firstY > lastY) {
            return;
        }
        const float perArea = 1 / face.area;
        const Slope shareB{(c.y - a.y) * perArea, (a.x - c.x) * perArea};
        const Slope shareC{(a.y - b.y) * perArea, (b.x - a.x) * perArea};
        const auto slopeOf = [&](float Corner::*part) {
            const float toB = b.*part - a.*part;
            const float toC = c.*part - a.*part;
            return Slope{toB * shareB.across + toC * shareC.across, toB * shareB.down + toC * shareC.down};
        };
        const Slope depth = slopeOf(&Corner::depth);
        const Slope light = slopeOf(&Corner::light);
        const Slope shine = slopeOf(&Corner::shine);
        const Slope value = slopeOf(&Corner::value);
        const Slope cover = slopeOf(&Corner::cover);
        const Slope beyond = slopeOf(&Corner::beyond);
        const float levels =
            contours_ > 0 ? std::sqrt(value.across * value.across + value.down * value.down) * levelsPerColor_
                          : 0.0F;
        for (int y = firstY; y <= lastY; ++y) {
            const float dy = static_cast<float>(y) + 0.5F - a.y;
            std::size_t at = static_cast<std::size_t>(y) * static_cast<std::size_t>(size_) +
                             static_cast<std::size_t>(firstX);
            for (int x = firstX; x <= lastX; ++x, ++at) {
                const float dx = static_cast<float>(x) + 0.5F - a.x;
                const auto along = [dx, dy](const Slope& slope) {
                    return slope.across * dx + slope.down * dy;
                };
                const float b1 = along(shareB);
                const float c1 = along(shareC);
                const float near = a.depth + along(depth);
                // What lies on an edge belongs to both triangles, so that none is left out by rounding.
                if (std::min({b1, c1, 1 - b1 - c1}) < -kOnEdge || near <= depths_[at]) {
                    continue;
                }
                depths_[at] = near;
                const float lit = a.light + along(light);
                const float shining = a.shine + along(shine);
                pixels_[at] =
                    a.cover + along(cover) > 0
                        ? Lit(Covered(a.value + along(value), levels, a.beyond + along(beyond), x + y),
                              1 + (lit - 1) * kLightOnValues, shining * kLightOnValues)
                        : Lit(kSkin, lit, shining);
            }
        }
    }

    /// \param diagonal row and column
    owl::TColor Covered(float value, float slope, float beyond, int diagonal) const {
        owl::TColor color = colors_[static_cast<std::size_t>(std::clamp(value, 0.0F, kPaletteColors - 0.5F))];
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

/// Sums of channels, 0 to 255, multiplied with alpha from 0 to 1.
struct Light {
    float alpha = 0, red = 0, green = 0, blue = 0;

    /// \param pixel opaque or nothing
    void Add(std::uint32_t pixel, float share) {
        if (pixel != 0) {
            alpha += share;
            red += share * static_cast<float>(pixel >> 16U & 0xFFU);
            green += share * static_cast<float>(pixel >> 8U & 0xFFU);
            blue += share * static_cast<float>(pixel & 0xFFU);
        }
    }
};

std::uint32_t PixelOf(const Light& light) {
    if (light.alpha <= 0) {
        return 0;
    }
    const auto channel = [&light](float value) {
        return static_cast<std::uint32_t>(std::min(255.0F, value / light.alpha + 0.5F));
    };
    const auto alpha = static_cast<std::uint32_t>(std::min(255.0F, light.alpha * 255 + 0.5F));
    return alpha << 24U | channel(light.red) << 16U | channel(light.green) << 8U | channel(light.blue);
}

} // namespace

HeadView Dragged(const HeadView& view, int dx, int dy, int size) {
    const double perPixel = 180.0 / std::max(1, size);
    const double azimuth = std::fmod(view.azimuth + dx * perPixel + 720, 360);
    return {azimuth, std::clamp(view.elevation + dy * perPixel, -90.0, 90.0)};
}

/// What lies on the rim is seen, on the left as well as on the right: rounding has no say.
constexpr double kRim = 1e-6;

SeenPoint Seen(const HeadPosition& direction, const HeadView& view, int size) {
    const Axes axes = AxesOf(view);
    const Placing placing = PlacingOf(axes, size);
    const Vector point = ToVector(OnSurface(direction));
    return {placing.x + placing.unit * Dot(point, axes.right), placing.y - placing.unit * Dot(point, axes.up),
            Dot(point, axes.viewer) > -kRim};
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
    if (samples == 1 && !inside) {
        return {size, size, outside.Pixels()};
    }
    owl::TImage image{
        size, size,
        std::vector<std::uint32_t>(static_cast<std::size_t>(size) * static_cast<std::size_t>(size))};
    const float share = 1.0F / static_cast<float>(samples * samples);
    constexpr int kLeastRows = 32;
    ForRowBands(size, kLeastRows, [&](int firstRow, int lastRow) {
        for (int y = firstRow; y < lastRow; ++y) {
            for (int x = 0; x < size; ++x) {
                Light sum;
                for (int i = 0; i < samples * samples; ++i) {
                    const auto at =
                        static_cast<std::size_t>(y * samples + i / samples) * static_cast<std::size_t>(fine) +
                        static_cast<std::size_t>(x * samples + i % samples);
                    // Both sides let through what is behind them alike.
                    const std::uint32_t near = outside.Pixels()[at];
                    sum.Add(near, share * opacity);
                    if (inside) {
                        sum.Add(inside->Pixels()[at], share * opacity * (near != 0 ? 1 - opacity : 1));
                    }
                }
                image.pixels[static_cast<std::size_t>(y) * static_cast<std::size_t>(size) +
                             static_cast<std::size_t>(x)] = PixelOf(sum);
            }
        }
    });
    return image;
}

} // namespace orvanta::chart
