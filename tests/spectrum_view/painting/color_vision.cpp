// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/spectrum_view/painting/color_vision.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

namespace orvanta::test {

namespace {

using Triple = std::array<double, 3>;
using Matrix = std::array<Triple, 3>;

constexpr double kDegree = std::numbers::pi / 180;

constexpr Matrix kIdentity{{{1, 0, 0}, {0, 1, 0}, {0, 0, 1}}};
constexpr Matrix kProtan{
    {{0.152286, 1.052583, -0.204868}, {0.114503, 0.786281, 0.099216}, {-0.003882, -0.048116, 1.051998}}};
constexpr Matrix kDeutan{
    {{0.367322, 0.860646, -0.227968}, {0.280085, 0.672501, 0.047413}, {-0.011820, 0.042940, 0.968881}}};
constexpr Matrix kTritan{
    {{1.255528, -0.076749, -0.178779}, {-0.078411, 0.930809, 0.147602}, {0.004733, 0.691367, 0.303900}}};
constexpr Matrix kToXyz{{{0.4124564, 0.3575761, 0.1804375},
                         {0.2126729, 0.7151522, 0.0721750},
                         {0.0193339, 0.1191920, 0.9503041}}};

Triple Times(const Matrix& matrix, const Triple& vector) {
    Triple product{};
    for (std::size_t i = 0; i < 3; ++i) {
        product[i] = matrix[i][0] * vector[0] + matrix[i][1] * vector[1] + matrix[i][2] * vector[2];
    }
    return product;
}

Triple Linear(owl::TColor color) {
    const auto linear = [](std::uint8_t byte) {
        const double c = byte / 255.0;
        return c <= 0.04045 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4);
    };
    return {linear(owl::Red(color)), linear(owl::Green(color)), linear(owl::Blue(color))};
}

const Matrix& MatrixOf(Vision vision) {
    switch (vision) {
    case Vision::Protan:
        return kProtan;
    case Vision::Deutan:
        return kDeutan;
    case Vision::Tritan:
        return kTritan;
    case Vision::Normal:
        break;
    }
    return kIdentity;
}

double Hue(double a, double b) {
    if (a == 0 && b == 0) {
        return 0;
    }
    const double degrees = std::atan2(b, a) / kDegree;
    return degrees < 0 ? degrees + 360 : degrees;
}

double Power7(double x) {
    return std::pow(x, 7);
}

} // namespace

double Luminance(owl::TColor color) {
    return Times(kToXyz, Linear(color))[1];
}

double Contrast(double a, double b) {
    return (std::max(a, b) + 0.05) / (std::min(a, b) + 0.05);
}

Lab LabOf(owl::TColor color, Vision vision) {
    Triple seen = Times(MatrixOf(vision), Linear(color));
    for (double& c : seen) {
        c = std::clamp(c, 0.0, 1.0);
    }
    const Triple xyz = Times(kToXyz, seen);
    const auto f = [](double t) { return t > 216.0 / 24389 ? std::cbrt(t) : (24389.0 / 27 * t + 16) / 116; };
    const double x = f(xyz[0] / 0.95047);
    const double y = f(xyz[1]);
    const double z = f(xyz[2] / 1.08883);
    return {116 * y - 16, 500 * (x - y), 200 * (y - z)};
}

double ColorDifference(const Lab& x, const Lab& y) {
    const double meanC = (std::hypot(x.a, x.b) + std::hypot(y.a, y.b)) / 2;
    const double g = 0.5 * (1 - std::sqrt(Power7(meanC) / (Power7(meanC) + Power7(25))));
    const double a1 = x.a * (1 + g), a2 = y.a * (1 + g);
    const double c1 = std::hypot(a1, x.b), c2 = std::hypot(a2, y.b);
    const double h1 = Hue(a1, x.b), h2 = Hue(a2, y.b);
    const bool grey = c1 * c2 == 0;

    double dh = grey ? 0 : h2 - h1;
    dh += dh > 180 ? -360 : dh < -180 ? 360 : 0;
    double meanH = h1 + h2;
    if (!grey) {
        const bool around = std::abs(h1 - h2) > 180;
        meanH = !around ? meanH / 2 : meanH < 360 ? (meanH + 360) / 2 : (meanH - 360) / 2;
    }
    const double dL = y.l - x.l;
    const double dC = c2 - c1;
    const double dH = 2 * std::sqrt(c1 * c2) * std::sin(dh / 2 * kDegree);
    const double meanL = (x.l + y.l) / 2;
    const double meanC2 = (c1 + c2) / 2;
    const double t = 1 - 0.17 * std::cos((meanH - 30) * kDegree) + 0.24 * std::cos(2 * meanH * kDegree) +
                     0.32 * std::cos((3 * meanH + 6) * kDegree) - 0.20 * std::cos((4 * meanH - 63) * kDegree);
    const double turn = 30 * std::exp(-std::pow((meanH - 275) / 25, 2));
    const double rc = 2 * std::sqrt(Power7(meanC2) / (Power7(meanC2) + Power7(25)));
    const double l50 = (meanL - 50) * (meanL - 50);
    const double sl = 1 + 0.015 * l50 / std::sqrt(20 + l50);
    const double sc = 1 + 0.045 * meanC2;
    const double sh = 1 + 0.015 * meanC2 * t;
    const double rt = -std::sin(2 * turn * kDegree) * rc;
    return std::sqrt(std::pow(dL / sl, 2) + std::pow(dC / sc, 2) + std::pow(dH / sh, 2) +
                     rt * (dC / sc) * (dH / sh));
}

} // namespace orvanta::test
