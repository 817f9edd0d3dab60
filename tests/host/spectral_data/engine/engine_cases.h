// SPDX-License-Identifier: GPL-3.0-or-later
// Requests and samples that the engine's tests share.
#pragma once

#include "host/spectral_data/engine/engine.h"

#include <cstdint>
#include <functional>
#include <vector>

namespace orvanta::spectral {

/// Periodic Hanning window.
std::vector<double> Hanning(std::size_t window);

/// Whole numbers that look like noise, uniform in ±\p range: a linear congruence, so that a script can make
/// the same (x → 1664525·x + 1013904223 mod 2³², started at seed + 1; the upper 16 bits are the sample).
std::vector<double> Counts(std::size_t count, unsigned seed, double range);

/// Sensors 0 … sensors − 1 with gain 1, epochs from sample 0 on with the given overlap, all bins.
EngineRequest RequestFor(std::size_t sensors, std::int64_t samples, std::uint32_t window,
                         double overlapPercent, double rate, std::vector<double> taper);

/// Runs a check with each instruction set that this machine has in turn.
void OnEveryTarget(const std::function<void()>& check);

} // namespace orvanta::spectral
