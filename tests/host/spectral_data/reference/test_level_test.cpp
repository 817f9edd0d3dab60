// SPDX-License-Identifier: GPL-3.0-or-later
// The tests keep their level: where nothing differs, 5 % of the comparisons reject at p < 0.05. Noise goes
// through the engine as a recording would.
#include "host/spectral_data/engine/engine.h"
#include "host/spectral_data/settings/tapers.h"
#include "host/spectral_data/statistics/comparison.h"
#include "tests/support/memory_source.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <numbers>
#include <random>

namespace orvanta::spectral {
namespace {

constexpr std::uint32_t kWindow = 64;
/// Bins so far apart that a Hanning taper leaves them independent.
constexpr std::array<std::uint32_t, 8> kBins = {3, 6, 9, 12, 15, 18, 21, 24};
constexpr std::size_t kSensors = 250;
constexpr std::size_t kComparisons = kSensors * kBins.size();

enum class Noise { White, OneOverF };

/// Sum of first-order processes whose corner frequencies lie a factor of 2 apart: 1/f to within some percent
/// from 1/200 of the rate on, below the lowest bin that is compared.
std::vector<double> MakeNoise(Noise kind, std::size_t samples, std::mt19937_64& random) {
    std::normal_distribution<double> normal;
    std::vector<double> values(samples, 0.0);
    if (kind == Noise::White) {
        for (double& value : values) {
            value = normal(random);
        }
        return values;
    }
    for (double corner = 0.25; corner > 0.002; corner /= 2) {
        const double memory = std::exp(-2 * std::numbers::pi * corner);
        const double drive = std::sqrt(1 - memory * memory);
        double state = normal(random);
        for (double& value : values) {
            value += state;
            state = memory * state + drive * normal(random);
        }
    }
    return values;
}

/// One analysis of made-up signals at 64 Hz, one second an epoch.
struct Analysis {
    EngineRequest request;
    EngineResult result;

    Analysis(const std::vector<test::MadeSignal>& signals, std::vector<NodePair> pairs, unsigned overlap) {
        const auto samples = static_cast<std::int64_t>(signals[0].values.size());
        const std::int64_t step = kWindow * (100 - overlap) / 100;
        for (std::size_t s = 0; s < signals.size(); ++s) {
            request.sensors.push_back({s, 1.0, 0.0});
        }
        request.pairs = std::move(pairs);
        for (std::int64_t start = 0; start + kWindow <= samples; start += step) {
            request.epochs.push_back(start);
        }
        request.window = kWindow;
        request.padded = kWindow;
        request.taper = FindTaper("Hanning").Values(kWindow);
        request.rate_hz = kWindow;
        request.bins = kBins.back() + 1;
        request.log_power = true;
        const signal::RecordingData data = test::MakeData(signals);
        EXPECT_TRUE(Accumulate(*data.source, request, result, nullptr));
    }

    SampleMoments LogPower(std::size_t sensor, std::uint32_t bin, double effective) const {
        const std::size_t at = sensor * result.bins + bin;
        return {result.log_power.mean[at], result.log_power.m2[at], result.epochs, effective};
    }

    double Coherence(std::size_t pair, std::uint32_t bin) const {
        const auto power = [&](std::uint32_t node) { return result.power.mean[node * result.bins + bin]; };
        const NodePair nodes = request.pairs[pair];
        return std::abs(result.cross[pair * result.bins + bin]) / std::sqrt(power(nodes.a) * power(nodes.b));
    }
};

void ExpectLevel(std::size_t rejections, std::size_t comparisons) {
    const double percent = 100.0 * static_cast<double>(rejections) / static_cast<double>(comparisons);
    testing::Test::RecordProperty("rejected_percent", std::to_string(percent));
    EXPECT_GE(percent, 3.5);
    EXPECT_LE(percent, 6.5);
}

struct Setting {
    Noise noise;
    unsigned overlap;
    std::size_t seconds_a;
    std::size_t seconds_b;
};

class TTestLevel : public testing::TestWithParam<Setting> {};

TEST_P(TTestLevel, RejectsFivePercentOfTwoThousandComparisonsOfTheSame) {
    const Setting setting = GetParam();
    std::mt19937_64 random(1946);
    const auto analyse = [&](std::size_t seconds) {
        std::vector<test::MadeSignal> signals;
        for (std::size_t s = 0; s < kSensors; ++s) {
            signals.push_back(
                {"S" + std::to_string(s), kWindow, MakeNoise(setting.noise, seconds * kWindow, random)});
        }
        return Analysis(signals, {}, setting.overlap);
    };
    const Analysis a = analyse(setting.seconds_a);
    const Analysis b = analyse(setting.seconds_b);
    const double effectiveA = EffectiveLogEpochs(a.request.epochs, a.request.taper);
    const double effectiveB = EffectiveLogEpochs(b.request.epochs, b.request.taper);
    std::size_t rejections = 0;
    for (std::size_t s = 0; s < kSensors; ++s) {
        for (const std::uint32_t bin : kBins) {
            const TestResult test = WelchTest(a.LogPower(s, bin, effectiveA), b.LogPower(s, bin, effectiveB));
            rejections += test.p < 0.05 ? 1 : 0;
        }
    }
    ExpectLevel(rejections, kComparisons);
}

std::string NameOf(const testing::TestParamInfo<Setting>& instance) {
    const Setting& setting = instance.param;
    return std::string(setting.noise == Noise::White ? "White" : "OneOverF") + "Overlap" +
           std::to_string(setting.overlap) + "Seconds" + std::to_string(setting.seconds_a) + "And" +
           std::to_string(setting.seconds_b);
}

INSTANTIATE_TEST_SUITE_P(Noise, TTestLevel,
                         testing::Values(Setting{Noise::White, 0, 30, 30}, Setting{Noise::White, 50, 30, 30},
                                         Setting{Noise::White, 75, 30, 30}, Setting{Noise::White, 75, 45, 15},
                                         Setting{Noise::OneOverF, 0, 30, 30},
                                         Setting{Noise::OneOverF, 50, 30, 30},
                                         Setting{Noise::OneOverF, 75, 30, 30},
                                         Setting{Noise::OneOverF, 75, 45, 15}),
                         NameOf);

class CoherenceLevel : public testing::TestWithParam<unsigned> {};

TEST_P(CoherenceLevel, RejectsFivePercentWhereBothCoherencesAreTheSame) {
    constexpr double kTrue = 0.8;
    constexpr std::size_t kPairs = kSensors;
    std::mt19937_64 random(1965);
    const auto analyse = [&](std::size_t seconds) {
        std::vector<test::MadeSignal> signals;
        std::vector<NodePair> pairs;
        for (std::uint32_t pair = 0; pair < kPairs; ++pair) {
            std::vector<double> first = MakeNoise(Noise::White, seconds * kWindow, random);
            std::vector<double> second = MakeNoise(Noise::White, seconds * kWindow, random);
            for (std::size_t i = 0; i < first.size(); ++i) {
                second[i] = kTrue * first[i] + std::sqrt(1 - kTrue * kTrue) * second[i];
            }
            signals.push_back({"A" + std::to_string(pair), kWindow, std::move(first)});
            signals.push_back({"B" + std::to_string(pair), kWindow, std::move(second)});
            pairs.push_back({2 * pair, 2 * pair + 1});
        }
        return Analysis(signals, pairs, GetParam());
    };
    const Analysis a = analyse(20);
    const Analysis b = analyse(15);
    const double effectiveA = EffectiveEpochs(a.request.epochs, a.request.taper);
    const double effectiveB = EffectiveEpochs(b.request.epochs, b.request.taper);
    std::size_t rejections = 0;
    for (std::size_t pair = 0; pair < kPairs; ++pair) {
        for (const std::uint32_t bin : kBins) {
            const TestResult test =
                CoherenceTest(a.Coherence(pair, bin), effectiveA, b.Coherence(pair, bin), effectiveB);
            rejections += test.p < 0.05 ? 1 : 0;
        }
    }
    ExpectLevel(rejections, kPairs * kBins.size());
}

INSTANTIATE_TEST_SUITE_P(Overlap, CoherenceLevel, testing::Values(0u, 50u, 75u),
                         [](const auto& instance) { return std::to_string(instance.param); });

} // namespace
} // namespace orvanta::spectral
