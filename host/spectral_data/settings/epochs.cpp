// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/spectral_data/settings/epochs.h"

#include "host/spectral_data/settings/macro_limits.h"

#include <algorithm>
#include <bit>
#include <cmath>

namespace orvanta::spectral {

namespace {

/// SplitMix64 (Steele, Lea, Flood 2014): small, and the same on every platform.
class Random {
public:
    /// A number from 0 to \p bound − 1, each equally likely. \p bound is at least 1.
    std::uint64_t Below(std::uint64_t bound) {
        const std::uint64_t uneven = (0 - bound) % bound; // 2^64 mod bound numbers are one too many
        std::uint64_t number = Next();
        while (number < uneven) {
            number = Next();
        }
        return number % bound;
    }

private:
    std::uint64_t Next() {
        state_ += 0x9E3779B97F4A7C15u;
        std::uint64_t z = state_;
        z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9u;
        z = (z ^ (z >> 27)) * 0x94D049BB133111EBu;
        return z ^ (z >> 31);
    }

    std::uint64_t state_ = 0; // the seed
};

/// Keeps \p wanted of the starts, every choice equally likely, in their order (selection sampling; Knuth, The
/// Art of Computer Programming, vol. 2, 3.4.2, algorithm S).
void KeepAtRandom(std::vector<std::int64_t>& starts, std::uint64_t wanted) {
    Random random;
    std::uint64_t left = starts.size();
    std::erase_if(starts, [&](std::int64_t) {
        const bool kept = random.Below(left) < wanted;
        wanted -= kept ? 1 : 0;
        --left;
        return !kept;
    });
}

} // namespace

WindowGeometry GetWindowGeometry(const SpectraMacro& macro, double rate_hz) {
    const double samples = std::trunc(macro.GetFFTSeconds() * rate_hz + 0.5);
    if (!(samples >= 1) || samples > kMaxPaddedSamples) {
        return {};
    }
    const auto window = static_cast<std::uint32_t>(samples);
    // In whole numbers, so that a percentage without an exact binary form does not lose a sample.
    const std::uint64_t step = (std::uint64_t{window} * (100 - macro.GetOverlapPerc()) + 50) / 100;
    return {window, std::bit_ceil(window), std::max(1u, static_cast<std::uint32_t>(step))};
}

std::vector<std::int64_t> GetEpochStarts(const SpectraMacro& macro, const signal::Timeline& timeline,
                                         const std::vector<TimeSpan>& spans, const WindowGeometry& geometry) {
    std::vector<std::int64_t> starts;
    if (geometry.window == 0) {
        return starts;
    }
    for (const TimeSpan& span : spans) {
        for (const signal::SampleRange& range : timeline.Ranges(span.begin_s, span.end_s, span.limit_s)) {
            for (std::int64_t first = range.first; first + geometry.window <= range.last;
                 first += geometry.step) {
                starts.push_back(first);
            }
        }
    }
    std::sort(starts.begin(), starts.end());
    starts.erase(std::unique(starts.begin(), starts.end()), starts.end());

    const std::uint64_t wanted = macro.GetNumEpochsToUse();
    if (starts.size() <= wanted) {
        return starts;
    }
    switch (macro.GetEpochsSelMode()) {
    case SpectraMacro::EpochsSelectionMode::FirstN:
        starts.resize(wanted);
        break;
    case SpectraMacro::EpochsSelectionMode::RandomN:
        KeepAtRandom(starts, wanted);
        break;
    case SpectraMacro::EpochsSelectionMode::All:
        break;
    }
    return starts;
}

} // namespace orvanta::spectral
