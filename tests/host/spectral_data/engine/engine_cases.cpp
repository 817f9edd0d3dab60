// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/host/spectral_data/engine/engine_cases.h"

#include <gtest/gtest.h>
#include <hwy/targets.h>

#include <algorithm>
#include <bit>
#include <cmath>
#include <numbers>

namespace orvanta::spectral {

std::vector<double> Hanning(std::size_t window) {
    std::vector<double> taper(window);
    for (std::size_t i = 0; i < window; ++i) {
        const double turn = 2 * std::numbers::pi * static_cast<double>(i) / static_cast<double>(window);
        taper[i] = 0.5 - 0.5 * std::cos(turn);
    }
    return taper;
}

std::vector<double> Counts(std::size_t count, unsigned seed, double range) {
    std::uint32_t state = seed + 1;
    std::vector<double> values(count);
    for (double& value : values) {
        state = 1664525U * state + 1013904223U;
        value = std::floor((static_cast<double>(state >> 16) / 65536 * 2 - 1) * range);
    }
    return values;
}

EngineRequest RequestFor(std::size_t sensors, std::int64_t samples, std::uint32_t window,
                         double overlapPercent, double rate, std::vector<double> taper) {
    EngineRequest request;
    for (std::size_t s = 0; s < sensors; ++s) {
        request.sensors.push_back({s, 1, 0});
    }
    const auto step = std::max<std::int64_t>(
        1, static_cast<std::int64_t>(static_cast<double>(window) * (1 - overlapPercent / 100) + 0.5));
    for (std::int64_t begin = 0; begin + window <= samples; begin += step) {
        request.epochs.push_back(begin);
    }
    request.window = window;
    request.padded = std::bit_ceil(window);
    request.taper = std::move(taper);
    request.rate_hz = rate;
    request.bins = request.padded / 2 + 1;
    request.threads = 1;
    return request;
}

void OnEveryTarget(const std::function<void()>& check) {
    for (std::int64_t left = hwy::SupportedTargets(); left != 0; left &= left - 1) {
        const std::int64_t target = left & -left;
        hwy::SetSupportedTargetsForTest(target);
        hwy::GetChosenTarget().Update(target);
        SCOPED_TRACE(hwy::TargetName(target));
        check();
    }
    hwy::SetSupportedTargetsForTest(0);
    hwy::GetChosenTarget().Update(hwy::SupportedTargets());
}

} // namespace orvanta::spectral
