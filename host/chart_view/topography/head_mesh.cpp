// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/chart_view/topography/head_mesh.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace orvanta::chart {

namespace {

HeadPosition Scaled(const HeadPosition& p, double factor) {
    return {p.x * factor, p.y * factor, p.z * factor};
}

HeadPosition Minus(const HeadPosition& a, const HeadPosition& b) {
    return {a.x - b.x, a.y - b.y, a.z - b.z};
}

HeadPosition Cross(const HeadPosition& a, const HeadPosition& b) {
    return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}

HeadPosition Unit(const HeadPosition& p) {
    const double length = std::hypot(p.x, p.y, p.z);
    return length > 0 ? Scaled(p, 1 / length) : HeadPosition{0, 0, 1};
}

double Squared(double value) {
    return value * value;
}

/// The larger of the two, rounded where they meet within the reach.
double SmoothMax(double a, double b, double reach) {
    const double share = std::clamp(0.5 + 0.5 * (a - b) / reach, 0.0, 1.0);
    return std::lerp(b, a, share) + reach * share * (1 - share);
}

double Ellipsoid(const HeadPosition& d, double x, double y, double z) {
    return 1 / std::sqrt(Squared(d.x / x) + Squared(d.y / y) + Squared(d.z / z));
}

/// A feature that rises above the skull, or sinks into it, around its middle. Both sides of the face alike.
struct Feature {
    HeadPosition middle; ///< of length 1, on the right side or in the middle
    double height;
    double wide; ///< standard deviations: along the surface level with the ground,
    double high; ///< and up
};

const std::array<Feature, 8>& Features() {
    static const std::array<Feature, 8> features = {{
        {Unit({0, 0.90, -0.30}), 0.17, 0.080, 0.085},      // tip of the nose
        {Unit({0, 0.96, -0.13}), 0.05, 0.060, 0.110},      // bridge of the nose
        {Unit({0.27, 0.92, -0.10}), -0.055, 0.110, 0.075}, // eyes
        {Unit({0.24, 0.95, 0.05}), 0.020, 0.170, 0.050},   // brows
        {Unit({0.42, 0.85, -0.30}), 0.020, 0.120, 0.100},  // cheeks
        {Unit({0, 0.80, -0.52}), 0.045, 0.130, 0.045},     // lips
        {Unit({0, 0.70, -0.72}), 0.120, 0.170, 0.110},     // chin
        {Unit({1, -0.12, -0.18}), 0.085, 0.085, 0.150},    // ears
    }};
    return features;
}

double HeightOf(const Feature& feature, const HeadPosition& d) {
    const HeadPosition folded{feature.middle.x == 0 ? d.x : std::abs(d.x), d.y, d.z};
    const HeadPosition away = Minus(folded, feature.middle);
    // Level with the ground, around the head.
    const HeadPosition level = Unit({-feature.middle.y, feature.middle.x, 0});
    const double along = away.x * level.x + away.y * level.y;
    const double rest = Squared(away.x) + Squared(away.y) + Squared(away.z) - Squared(along);
    return feature.height *
           std::exp(-0.5 * (Squared(along / feature.wide) + std::max(0.0, rest) / Squared(feature.high)));
}

/// A cylinder down from the centre, leaning back, cut level.
double Neck(const HeadPosition& d) {
    constexpr double kRadius = 0.44;
    constexpr double kLength = 1.14;
    constexpr double kLean = 0.16;
    constexpr double kRounded = 0.25;
    if (d.z >= 0) {
        return 0;
    }
    const double across = std::hypot(d.x, d.y - kLean * d.z);
    const double side = across > 0 ? std::min(kLength * 2, kRadius / across) : kLength * 2;
    return -SmoothMax(-side, kLength / d.z, kRounded);
}

} // namespace

double HeadRadius(const HeadPosition& direction) {
    const HeadPosition& d = direction;
    const double width = d.z < 0 ? 0.80 + 0.10 * d.z : 0.80; // narrower towards the jaw
    double radius = Ellipsoid(d, width, d.y > 0 ? 0.94 : 1.0, d.z > 0 ? 0.90 : 0.95);
    for (const Feature& feature : Features()) {
        radius += HeightOf(feature, d);
    }
    return SmoothMax(radius, Neck(d), 0.12);
}

HeadPosition OnSurface(const HeadPosition& direction) {
    const HeadPosition d = Unit(direction);
    return Scaled(d, HeadRadius(d));
}

HeadMesh MakeHeadMesh(int rings, int sectors) {
    rings = std::max(3, rings);
    sectors = std::max(3, sectors);
    HeadMesh mesh;
    const auto add = [&mesh](const HeadPosition& direction) {
        mesh.directions.push_back(direction);
        mesh.points.push_back(OnSurface(direction));
    };
    add({0, 0, 1});
    for (int ring = 1; ring < rings; ++ring) {
        const double angle = std::numbers::pi * ring / rings;
        for (int sector = 0; sector < sectors; ++sector) {
            const double around = 2 * std::numbers::pi * sector / sectors;
            add({std::sin(angle) * std::sin(around), std::sin(angle) * std::cos(around), std::cos(angle)});
        }
    }
    add({0, 0, -1});

    const auto at = [sectors](int ring, int sector) {
        return static_cast<std::uint32_t>(1 + (ring - 1) * sectors + sector % sectors);
    };
    const auto last = static_cast<std::uint32_t>(mesh.points.size() - 1);
    for (int sector = 0; sector < sectors; ++sector) {
        mesh.triangles.push_back({0, at(1, sector + 1), at(1, sector)});
        for (int ring = 1; ring + 1 < rings; ++ring) {
            mesh.triangles.push_back({at(ring, sector), at(ring, sector + 1), at(ring + 1, sector + 1)});
            mesh.triangles.push_back({at(ring, sector), at(ring + 1, sector + 1), at(ring + 1, sector)});
        }
        mesh.triangles.push_back({at(rings - 1, sector), at(rings - 1, sector + 1), last});
    }

    mesh.normals.resize(mesh.points.size(), {0, 0, 0});
    for (const auto& [a, b, c] : mesh.triangles) {
        const HeadPosition normal =
            Cross(Minus(mesh.points[b], mesh.points[a]), Minus(mesh.points[c], mesh.points[a]));
        for (const std::uint32_t corner : {a, b, c}) {
            HeadPosition& sum = mesh.normals[corner];
            sum = {sum.x + normal.x, sum.y + normal.y, sum.z + normal.z};
        }
    }
    std::transform(mesh.normals.begin(), mesh.normals.end(), mesh.normals.begin(), Unit);
    return mesh;
}

} // namespace orvanta::chart
