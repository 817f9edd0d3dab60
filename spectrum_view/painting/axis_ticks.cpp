// SPDX-License-Identifier: GPL-3.0-or-later
#include "spectrum_view/painting/axis_ticks.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace orvanta::spectrum_view {

namespace {

constexpr std::array<double, 3> kRoundSteps{1, 2, 5};

/// Ends within this share of a step count as on a tick.
constexpr double kTolerance = 1e-9;

/// Whole numbers beyond it have no next one.
constexpr double kMostExact = 9007199254740992.0; // 2^53

} // namespace

std::vector<double> RoundTicks(double min, double max, int most) {
    if (!(max - min > 0) || !std::isfinite(max - min) || most < 2) {
        return {};
    }
    const int start = static_cast<int>(std::floor(std::log10((max - min) / most)));
    for (int exponent = start; exponent <= start + 2; ++exponent) {
        for (const double mantissa : kRoundSteps) {
            const double step = mantissa * std::pow(10.0, exponent);
            const double first = std::ceil(min / step - kTolerance);
            const double last = std::floor(max / step + kTolerance);
            if (!(step > 0) || last - first + 1 > most) {
                continue;
            }
            if (std::max(std::abs(first), std::abs(last)) >= kMostExact) {
                return {};
            }
            std::vector<double> ticks;
            for (double i = first; i <= last; ++i) {
                ticks.push_back(i * step + 0.0); // never -0
            }
            return ticks.size() < 2 ? std::vector<double>() : ticks;
        }
    }
    return {};
}

std::vector<double> DividingTicks(double min, double max, int divisions) {
    std::vector<double> ticks;
    for (int i = 0; i <= divisions; ++i) {
        ticks.push_back(min + (max - min) * i / divisions);
    }
    return ticks;
}

} // namespace orvanta::spectrum_view
