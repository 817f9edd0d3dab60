// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/app/traces/trace_scales.h"

#include <algorithm>
#include <cmath>

namespace orvanta::review {

double NextStep(std::span<const double> steps, double value, bool up) {
    // A value that was stored as text may miss its step by a rounding.
    const double tolerance = 1e-6 * std::abs(value);
    if (up) {
        const auto next = std::upper_bound(steps.begin(), steps.end(), value + tolerance);
        return next == steps.end() ? steps.back() : *next;
    }
    const auto next = std::lower_bound(steps.begin(), steps.end(), value - tolerance);
    return next == steps.begin() ? steps.front() : *(next - 1);
}

double RoundValueBelow(double most) {
    const double power = std::pow(10.0, std::floor(std::log10(most)));
    const double digit = most / power * (1 + 1e-9);
    return power * (digit >= 5 ? 5 : digit >= 2 ? 2 : 1);
}

} // namespace orvanta::review
