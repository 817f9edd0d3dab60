// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/spectral_data/engine/engine.h"

#include "tests/host/spectral_data/engine/engine_cases.h"
#include "tests/support/raw_source.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

namespace orvanta::spectral {
namespace {

using signal::SampleFormat;
using test::RawSource;

TEST(Engine, GivesASineHalfItsSquaredAmplitude) {
    // 8 whole cycles in each 256-sample window, amplitude 20 units of 0.5 µV: 10²/2 = 50 µV².
    std::vector<double> sine(1024);
    for (std::size_t i = 0; i < sine.size(); ++i) {
        sine[i] = 20 * std::sin(2 * std::numbers::pi * static_cast<double>(i) / 32);
    }
    const RawSource source(SampleFormat::Float32, {sine}, 100);
    EngineRequest request = RequestFor(1, 1024, 256, 50, 256.0, Hanning(256));
    request.sensors[0].gain = 0.5;
    request.bands = {{6, 11}};
    EngineResult result;
    ASSERT_TRUE(Accumulate(source, request, result, nullptr));
    EXPECT_EQ(result.epochs, 7U);
    EXPECT_NEAR(result.band_power.mean[0], 50, 5e-5);
}

TEST(Engine, GivesZeroAndConstantChannelsNoPowerAndNoLogarithm) {
    const RawSource source(SampleFormat::Int24,
                           {std::vector<double>(600, 0), std::vector<double>(600, -6400001)}, 64);
    EngineRequest request = RequestFor(2, 600, 100, 50, 100.0, Hanning(100));
    request.amplitude = request.log_power = true;
    EngineResult result;
    ASSERT_TRUE(Accumulate(source, request, result, nullptr));
    for (std::size_t i = 0; i < result.power.mean.size(); ++i) {
        EXPECT_EQ(result.power.mean[i], 0) << i;
        EXPECT_EQ(result.power.m2[i], 0) << i;
        EXPECT_EQ(result.amplitude.mean[i], 0) << i;
        EXPECT_TRUE(std::isnan(result.log_power.mean[i])) << i;
    }
}

TEST(Engine, GivesNaNForNoEpoch) {
    const RawSource source(SampleFormat::Int16, {std::vector<double>(10, 1)}, 10);
    EngineRequest request = RequestFor(1, 10, 64, 0, 64.0, Hanning(64));
    request.pairs = {{0, 0}};
    ASSERT_TRUE(request.epochs.empty());
    EngineResult result;
    ASSERT_TRUE(Accumulate(source, request, result, nullptr));
    EXPECT_EQ(result.epochs, 0U);
    EXPECT_EQ(result.rows, 1U);
    ASSERT_EQ(result.power.mean.size(), 33U);
    EXPECT_TRUE(std::isnan(result.power.mean[5]));
    EXPECT_TRUE(std::isnan(result.power.m2[5]));
    EXPECT_TRUE(std::isnan(result.cross[5].real()));
}

TEST(Engine, GivesOneEpochNoDeviation) {
    const RawSource source(SampleFormat::Int16, {Counts(64, 1, 1000)}, 10);
    EngineResult result;
    ASSERT_TRUE(Accumulate(source, RequestFor(1, 64, 64, 0, 64.0, Hanning(64)), result, nullptr));
    EXPECT_EQ(result.epochs, 1U);
    EXPECT_GT(result.power.mean[3], 0);
    EXPECT_EQ(result.power.m2[3], 0);
}

TEST(Engine, TransformsTheShortestWindows) {
    // Values 3 and 1 around their mean 2: X[0] = 0, X[1] = 2, P[1] = 4 / (rate · 2). The last is four values.
    const RawSource source(SampleFormat::Int16, {{3, 1, 3, 1, -3, -1}}, 2);
    EngineResult result;
    ASSERT_TRUE(Accumulate(source, RequestFor(1, 4, 1, 0, 1.0, {1}), result, nullptr));
    EXPECT_EQ(result.power.mean, std::vector<double>({0}));
    ASSERT_TRUE(Accumulate(source, RequestFor(1, 4, 2, 0, 1.0, {1, 1}), result, nullptr));
    EXPECT_EQ(result.power.mean[0], 0);
    EXPECT_NEAR(result.power.mean[1], 2, 1e-6);
    EXPECT_EQ(result.power.m2[1], 0);
    // Mean of 3, 1, 3: 7/3; deviations 2/3, −4/3, 2/3; X[1] = 2/3 − 2/3 + i·4/3; X[2] = 8/3.
    ASSERT_TRUE(Accumulate(source, RequestFor(1, 3, 3, 0, 1.0, {1, 1, 1}), result, nullptr));
    ASSERT_EQ(result.power.mean.size(), 3U);
    EXPECT_NEAR(result.power.mean[0], 0, 1e-6);
    EXPECT_NEAR(result.power.mean[1], 2 * 16.0 / 9 / 3, 1e-6);
    EXPECT_NEAR(result.power.mean[2], 64.0 / 9 / 3, 1e-6);
}

TEST(Engine, ReadsEveryFormatAndOrderAlike) {
    std::vector<std::vector<double>> stored;
    for (unsigned s = 0; s < 21; ++s) {
        stored.push_back(Counts(1500, s, 3000));
    }
    const EngineRequest request = RequestFor(21, 1500, 100, 50, 100.0, Hanning(100));
    EngineResult expected;
    ASSERT_TRUE(Accumulate(RawSource(SampleFormat::Int16, stored, 70), request, expected, nullptr));
    for (const SampleFormat format : {SampleFormat::Int16, SampleFormat::Int24, SampleFormat::Float32}) {
        for (const auto order : {RawSource::Order::BySignal, RawSource::Order::BySample}) {
            EngineResult result;
            ASSERT_TRUE(Accumulate(RawSource(format, stored, 111, order), request, result, nullptr));
            ASSERT_EQ(result.power.mean.size(), expected.power.mean.size());
            for (std::size_t i = 0; i < result.power.mean.size(); ++i) {
                EXPECT_NEAR(result.power.mean[i], expected.power.mean[i], 1e-6 * expected.power.mean[i]);
            }
        }
    }
}

TEST(Engine, ComputesTheSameOnEveryTarget) {
    std::vector<std::vector<double>> stored;
    for (unsigned s = 0; s < 18; ++s) {
        stored.push_back(Counts(700, s, 3000));
    }
    for (const Precision precision : {Precision::Float, Precision::Double}) {
        for (const SampleFormat format : {SampleFormat::Int16, SampleFormat::Int24, SampleFormat::Float32}) {
            const RawSource source(format, stored, 37);
            EngineRequest request = RequestFor(18, 700, 50, 50, 50.0, Hanning(50));
            request.derived = {{{{0, 1}, {17, -1}}, true}, {{{18, 0.5}, {3, 2}}, true}};
            request.pairs = {{2, 19}};
            request.amplitude = request.log_power = true;
            request.bands = {{2, 9}};
            request.store_bins = 30;
            request.precision = precision;
            EngineResult expected;
            ASSERT_TRUE(Accumulate(source, request, expected, nullptr));
            const double tolerance = precision == Precision::Float ? 2e-5 : 1e-10;
            const auto expectClose = [&](const std::vector<double>& values,
                                         const std::vector<double>& others) {
                ASSERT_EQ(values.size(), others.size());
                for (std::size_t i = 0; i < values.size(); ++i) {
                    EXPECT_NEAR(values[i], others[i], tolerance * (1 + std::abs(others[i]))) << i;
                }
            };
            OnEveryTarget([&] {
                EngineResult result;
                ASSERT_TRUE(Accumulate(source, request, result, nullptr));
                expectClose(result.power.mean, expected.power.mean);
                expectClose(result.power.m2, expected.power.m2);
                expectClose(result.amplitude.mean, expected.amplitude.mean);
                expectClose(result.band_power.mean, expected.band_power.mean);
                for (std::size_t i = 0; i < result.log_power.mean.size(); ++i) {
                    if (i % result.bins != 0) {
                        EXPECT_NEAR(result.log_power.mean[i], expected.log_power.mean[i], tolerance) << i;
                    }
                }
                for (std::size_t i = 0; i < result.cross.size(); ++i) {
                    EXPECT_LT(std::abs(result.cross[i] - expected.cross[i]),
                              tolerance * (1 + std::abs(expected.cross[i])))
                        << i;
                }
                for (std::size_t i = 0; i < result.stored.size(); ++i) {
                    EXPECT_NEAR(result.stored[i], expected.stored[i], 1e-4F * (1 + expected.stored[i])) << i;
                }
            });
        }
    }
}

TEST(Engine, TakesOneSensorAndFiveHundredAndTwelve) {
    std::vector<std::vector<double>> stored;
    for (unsigned s = 0; s < 512; ++s) {
        stored.push_back(Counts(300, s, 1000));
    }
    const RawSource source(SampleFormat::Int16, stored, 50);
    EngineResult all;
    ASSERT_TRUE(Accumulate(source, RequestFor(512, 300, 64, 50, 64.0, Hanning(64)), all, nullptr));
    ASSERT_EQ(all.rows, 512U);
    EngineRequest one = RequestFor(1, 300, 64, 50, 64.0, Hanning(64));
    for (const std::size_t signal : {std::size_t{0}, std::size_t{300}, std::size_t{511}}) {
        one.sensors[0].signal = signal;
        EngineResult result;
        ASSERT_TRUE(Accumulate(source, one, result, nullptr));
        for (std::size_t k = 0; k < 33; ++k) {
            EXPECT_EQ(result.power.mean[k], all.power.mean[signal * 33 + k]) << signal << " bin " << k;
        }
    }
}

TEST(Engine, LetsNotANumberStayInItsSensor) {
    std::vector<std::vector<double>> stored{Counts(256, 1, 100), Counts(256, 2, 100)};
    EngineResult clean;
    const EngineRequest request = RequestFor(2, 256, 60, 50, 60.0, Hanning(60));
    ASSERT_TRUE(Accumulate(RawSource(SampleFormat::Float32, stored, 64), request, clean, nullptr));
    stored[0][100] = std::nan("");
    EngineResult result;
    ASSERT_TRUE(Accumulate(RawSource(SampleFormat::Float32, stored, 64), request, result, nullptr));
    EXPECT_TRUE(std::isnan(result.power.mean[4]));
    for (std::size_t k = 0; k < result.bins; ++k) {
        EXPECT_EQ(result.power.mean[result.bins + k], clean.power.mean[result.bins + k]) << k;
    }
}

TEST(Engine, KeepsItsResultWhenTheEpochsLieFarApart) {
    const RawSource source(SampleFormat::Int16, {Counts(40000, 3, 500)}, 16);
    EngineRequest request = RequestFor(1, 40000, 128, 0, 128.0, Hanning(128));
    request.epochs = {0, 5, 20000, 39872};
    request.store_bins = 65;
    EngineResult together;
    ASSERT_TRUE(Accumulate(source, request, together, nullptr));
    for (std::size_t e = 0; e < 4; ++e) {
        EngineRequest single = request;
        single.epochs = {request.epochs[e]};
        EngineResult alone;
        ASSERT_TRUE(Accumulate(source, single, alone, nullptr));
        for (std::size_t k = 0; k < 65; ++k) {
            EXPECT_EQ(alone.stored[k], together.stored[e * 65 + k]) << e << " bin " << k;
        }
    }
}

} // namespace
} // namespace orvanta::spectral
