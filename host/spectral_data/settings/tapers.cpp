// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/spectral_data/settings/tapers.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <numbers>

namespace orvanta::spectral {

namespace {

std::vector<double> Cosines(const std::vector<double>& coefficients, std::uint32_t n) {
    std::vector<double> values(n);
    for (std::uint32_t i = 0; i < n; ++i) {
        double sign = 1;
        for (std::size_t k = 0; k < coefficients.size(); ++k) {
            // The angle is brought into half a turn in whole numbers: symmetric samples are then equal.
            const std::uint64_t part = k * i % n;
            const double turn = static_cast<double>(std::min<std::uint64_t>(part, n - part)) / n;
            values[i] += sign * coefficients[k] * std::cos(2 * std::numbers::pi * turn);
            sign = -sign;
        }
    }
    return values;
}

std::vector<double> Triangle(std::uint32_t n) {
    std::vector<double> values(n);
    const double base = n % 2 == 0 ? n + 2.0 : n + 1.0;
    for (std::uint32_t i = 0; i < n; ++i) {
        values[i] = 1 - std::abs(2.0 * i - n) / base;
    }
    return values;
}

std::vector<double> Interpolated(const std::vector<double>& table, std::uint32_t n) {
    std::vector<double> values(n);
    for (std::uint32_t i = 0; i < n; ++i) {
        const std::uint64_t scaled = std::uint64_t{i} * table.size();
        const auto index = static_cast<std::size_t>(scaled / n);
        const double between = static_cast<double>(scaled % n) / n;
        values[i] = table[index] + between * (table[(index + 1) % table.size()] - table[index]);
    }
    return values;
}

} // namespace

std::vector<double> Taper::Values(std::uint32_t n) const {
    if (n == 1) {
        return {1};
    }
    switch (kind_) {
    case Kind::Triangle:
        return Triangle(n);
    case Kind::Table:
        return Interpolated(numbers_, n);
    case Kind::Cosine:
        break;
    }
    return Cosines(numbers_, n);
}

} // namespace orvanta::spectral
