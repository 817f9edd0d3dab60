// SPDX-License-Identifier: GPL-3.0-or-later
#include "spectrum_view/painting/color_map.h"

#include <algorithm>
#include <cmath>

namespace orvanta::spectrum_view {

namespace {

struct OkLab {
    double l = 0;
    double a = 0;
    double b = 0;
};

/// Dark violet, towards saturated blue, towards green, light yellow: lightness grows from each to the next,
/// and the whole curve can be shown in sRGB.
constexpr std::array<OkLab, 4> kControls{{
    {0.22, 0.031, -0.085},
    {0.45, 0.036, -0.257},
    {0.66, -0.159, 0.014},
    {0.93, -0.052, 0.183},
}};

/// Points in which the curve's length is measured.
constexpr int kPieces = 4096;

OkLab CurveAt(double t) {
    const double u = 1 - t;
    const std::array weights{u * u * u, 3 * t * u * u, 3 * t * t * u, t * t * t};
    OkLab at;
    for (std::size_t i = 0; i < kControls.size(); ++i) {
        at.l += weights[i] * kControls[i].l;
        at.a += weights[i] * kControls[i].a;
        at.b += weights[i] * kControls[i].b;
    }
    return at;
}

std::uint8_t Encoded(double linear) {
    const double light = std::clamp(linear, 0.0, 1.0);
    const double encoded = light <= 0.0031308 ? 12.92 * light : 1.055 * std::pow(light, 1 / 2.4) - 0.055;
    return static_cast<std::uint8_t>(std::lround(encoded * 255));
}

owl::TColor ToSrgb(const OkLab& lab) {
    const double l = std::pow(lab.l + 0.3963377774 * lab.a + 0.2158037573 * lab.b, 3);
    const double m = std::pow(lab.l - 0.1055613458 * lab.a - 0.0638541728 * lab.b, 3);
    const double s = std::pow(lab.l - 0.0894841775 * lab.a - 1.2914855480 * lab.b, 3);
    return owl::Rgb(Encoded(4.0767416621 * l - 3.3077115913 * m + 0.2309699292 * s),
                    Encoded(-1.2684380046 * l + 2.6097574011 * m - 0.3413193965 * s),
                    Encoded(-0.0041960863 * l - 0.7034186147 * m + 1.7076147010 * s));
}

std::array<owl::TColor, kMapColors> Derived() {
    std::array<double, kPieces + 1> length{};
    OkLab before = CurveAt(0);
    for (std::size_t i = 1; i < length.size(); ++i) {
        const OkLab at = CurveAt(static_cast<double>(i) / kPieces);
        length[i] = length[i - 1] + std::hypot(at.l - before.l, at.a - before.a, at.b - before.b);
        before = at;
    }
    std::array<owl::TColor, kMapColors> colors{};
    for (std::size_t i = 0; i < kMapColors; ++i) {
        const double wanted = length.back() * static_cast<double>(i) / (kMapColors - 1);
        const auto piece = std::lower_bound(length.begin(), length.end(), wanted) - length.begin();
        colors[i] = ToSrgb(CurveAt(static_cast<double>(piece) / kPieces));
    }
    return colors;
}

} // namespace

const std::array<owl::TColor, kMapColors>& ColorMap() {
    static const std::array<owl::TColor, kMapColors> map = Derived();
    return map;
}

std::size_t MapIndex(const VerticalRange& range, double value) {
    const double share = std::clamp((value - range.min) / range.Span(), 0.0, 1.0);
    return static_cast<std::size_t>(std::lround(share * (kMapColors - 1)));
}

} // namespace orvanta::spectrum_view
