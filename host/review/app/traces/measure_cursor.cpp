// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/app/traces/measure_cursor.h"

#include "host/review/app/traces/extremes.h"
#include "host/spectral_data/engine/aligned_array.h"
#include "host/spectral_data/engine/fft_plan.h"
#include "host/spectral_data/engine/kernel/transform.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <numbers>
#include <numeric>
#include <span>
#include <vector>

namespace orvanta::review {

namespace {

/// A millionth of a sample absorbs the rounding of times.
constexpr double kTolerance = 1e-6;
constexpr double kFewestPeriods = 1.5;
/// Of the largest sample: movements below it are what is left of rounding.
constexpr double kStill = 1e-6;

/// The samples of a run from \p begin to \p end.
std::span<const float> Between(const TraceRun& run, double begin, double end) {
    const auto count = static_cast<double>(run.values.size());
    const double first = std::ceil((begin - run.start) / run.step - kTolerance);
    const double last = std::floor((end - run.start) / run.step + kTolerance) + 1;
    if (!(first < last) || first >= count || last <= 0) {
        return {};
    }
    const auto from = static_cast<std::size_t>(std::max(first, 0.0));
    return std::span(run.values).subspan(from, static_cast<std::size_t>(std::min(last, count)) - from);
}

/// Squared amplitudes of the tapered samples; bin k is at k / (padded · step).
std::vector<double> SquaredAmplitudes(std::span<const float> values, std::uint32_t padded) {
    const std::size_t count = values.size();
    const std::size_t lanes = spectral::Lanes<double>();
    const std::size_t bins = padded / 2;
    const auto plan = spectral::PlanFor<double>(padded);
    spectral::AlignedArray<double> samples(count * lanes), mean(2 * lanes), taper(count), scale(lanes),
        work(padded * lanes), power(bins * lanes);
    double sum = 0;
    for (std::size_t i = 0; i < count; ++i) {
        samples[i * lanes] = static_cast<double>(values[i]);
        taper[i] =
            0.5 - 0.5 * std::cos(2 * std::numbers::pi * static_cast<double>(i) / static_cast<double>(count));
        sum += taper[i];
    }
    mean[0] = std::accumulate(values.begin(), values.end(), 0.0) / static_cast<double>(count);
    scale[0] = 1 / sum;
    spectral::Transform(spectral::TransformJob<double>{plan.get(), samples.data(), mean.data(), taper.data(),
                                                       count, bins, scale.data(), work.data(), power.data(),
                                                       nullptr});
    std::vector<double> squares(bins);
    for (std::size_t k = 0; k < bins; ++k) {
        squares[k] = power[k * lanes];
    }
    return squares;
}

} // namespace

std::optional<TraceReading> TraceValueAt(const TraceLine& line, double time) {
    for (const TraceRun& run : line.runs) {
        const double nearest = std::ceil((time - run.start) / run.step - 0.5 - kTolerance);
        if (nearest >= 0 && nearest < static_cast<double>(run.values.size())) {
            return TraceReading{run.start + nearest * run.step,
                                run.values[static_cast<std::size_t>(nearest)]};
        }
    }
    return std::nullopt;
}

TraceColumn TraceRangeBetween(const TraceLine& line, double begin, double end) {
    TraceColumn range;
    for (const TraceRun& run : line.runs) {
        for (const float value : Between(run, std::min(begin, end), std::max(begin, end))) {
            Widen(range, {value, value});
        }
    }
    return range;
}

std::optional<DominantWave> DominantWaveBetween(const TraceLine& line, double begin, double end) {
    if (end < begin) {
        std::swap(begin, end);
    }
    for (const TraceRun& run : line.runs) {
        const std::span<const float> values = Between(run, begin, end);
        const double lastTime = run.start + run.step * static_cast<double>(run.values.size() - 1);
        const double slack = run.step * (1 - kTolerance);
        const bool isWhole = begin > run.start - slack && end < lastTime + slack;
        if (!isWhole || values.size() < kFewestWaveSamples || values.size() > kMostWaveSamples) {
            continue;
        }
        const auto count = static_cast<double>(values.size());
        const std::uint32_t padded = std::bit_ceil(static_cast<std::uint32_t>(4 * values.size()));
        const std::vector<double> squares = SquaredAmplitudes(values, padded);
        const auto lowest = static_cast<std::ptrdiff_t>(std::ceil(kFewestPeriods * padded / count));
        const auto peak = std::max_element(squares.begin() + lowest, squares.end() - 1);
        const TraceColumn range = TraceRangeBetween(line, begin, end);
        const double largest =
            std::max(std::abs(static_cast<double>(range.low)), std::abs(static_cast<double>(range.high)));
        if (!(std::sqrt(*peak) > kStill * largest)) {
            return std::nullopt;
        }
        const double left = std::log(*(peak - 1)), top = std::log(*peak), right = std::log(*(peak + 1));
        const double bend = left - 2 * top + right;
        // At the lowest frequency the spectrum may still fall; the parabola's top would lie elsewhere.
        const double shift =
            bend < 0 && std::isfinite(bend) ? std::clamp((left - right) / (2 * bend), -0.5, 0.5) : 0;
        const double height = top - (left - right) * shift / 4;
        return DominantWave{(static_cast<double>(peak - squares.begin()) + shift) / (padded * run.step),
                            std::exp(height / 2)};
    }
    return std::nullopt;
}

} // namespace orvanta::review
