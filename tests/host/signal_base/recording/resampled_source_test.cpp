// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/signal_base/recording/resampled_source.h"
#include "host/signal_base/recording/sample_values.h"
#include "tests/support/memory_source.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <cstring>
#include <numbers>
#include <stdexcept>
#include <thread>

namespace orvanta::signal {
namespace {

constexpr std::size_t kSlow = 0;
constexpr std::size_t kFast = 1;

std::vector<double> Sine(double rate, double hertz, double seconds, double amplitude = 100,
                         double offset = 0) {
    std::vector<double> values(static_cast<std::size_t>(rate * seconds));
    for (std::size_t i = 0; i < values.size(); ++i) {
        values[i] =
            offset + amplitude * std::sin(2 * std::numbers::pi * hertz * static_cast<double>(i) / rate + 0.3);
    }
    return values;
}

/// Signal 0 at 100 Hz is shown at 256 Hz; signal 1 runs at 256 Hz.
std::unique_ptr<ResampledSource> Make(const std::vector<double>& slow,
                                      const std::vector<test::Gap>& gaps = {}) {
    std::vector<double> fast;
    for (std::size_t i = 0; i < slow.size() * 256 / 100; ++i) {
        fast.push_back(static_cast<double>(i));
    }
    const RecordingData data = test::MakeData({{"slow", 100, slow}, {"fast", 256, fast}}, {}, gaps);
    return std::make_unique<ResampledSource>(data.source, data.segments, std::vector<std::size_t>{kSlow},
                                             256);
}

std::vector<float> ReadAll(const BlockSource& source, std::size_t signal, std::uint64_t first,
                           std::uint64_t count) {
    std::vector<std::byte> bytes(count * source.BlockBytes());
    source.Read(first, count, bytes.data());
    const SignalLayout& layout = source.Layout(signal);
    std::vector<float> values;
    for (std::uint64_t block = 0; block < count; ++block) {
        for (std::uint32_t s = 0; s < layout.samples; ++s) {
            const std::byte* at =
                bytes.data() + block * source.BlockBytes() + layout.offset + s * layout.stride;
            values.push_back(static_cast<float>(StoredValue(layout.format, at)));
        }
    }
    return values;
}

double WorstError(const std::vector<float>& values, const std::vector<double>& expected, std::size_t margin) {
    double worst = 0;
    for (std::size_t i = margin; i + margin < expected.size(); ++i) {
        worst = std::max(worst, std::abs(values.at(i) - expected[i]));
    }
    return worst;
}

TEST(ResampledSource, ShowsTheSineOfTheNewRate) {
    const auto source = Make(Sine(100, 10, 120));
    // Away from the ends only the rounding to 32-bit floats is left: 2^-18 at 100.
    EXPECT_LT(WorstError(ReadAll(*source, kSlow, 0, 120), Sine(256, 10, 120), 512), 1e-5);
}

// The slow signal's Nyquist frequency is 50 Hz; the amplitude is 100.
TEST(ResampledSource, PassesWhatLiesBelowNineTenthsOfNyquist) {
    struct Case {
        double hertz, error;
    };
    for (const Case& item : {Case{20, 1e-5}, Case{40, 0.02}, Case{46, 0.1}}) {
        const auto source = Make(Sine(100, item.hertz, 120));
        EXPECT_LT(WorstError(ReadAll(*source, kSlow, 0, 120), Sine(256, item.hertz, 120), 1024), item.error)
            << item.hertz;
    }
}

// A sine of 49 Hz would come back at 51 Hz too, were its image not removed.
TEST(ResampledSource, HasNothingAboveTheSlowNyquist) {
    const auto source = Make(Sine(100, 49, 120));
    const std::vector<float> values = ReadAll(*source, kSlow, 0, 120);
    const std::size_t margin = 1024;
    for (const double hertz : {51.0, 55.0, 64.0, 100.0}) {
        double cosine = 0, sine = 0;
        // A whole number of seconds, so that whole frequencies do not leak into each other.
        const std::size_t count = 256 * 100;
        for (std::size_t i = 0; i < count; ++i) {
            const double angle = 2 * std::numbers::pi * hertz * static_cast<double>(i) / 256;
            cosine += values.at(margin + i) * std::cos(angle);
            sine += values.at(margin + i) * std::sin(angle);
        }
        EXPECT_LT(2 * std::hypot(cosine, sine) / static_cast<double>(count), 1e-4) << hertz;
    }
}

TEST(ResampledSource, KeepsALargeOffset) {
    const auto source = Make(Sine(100, 10, 60, 100, 200'000));
    // One step of a 32-bit float at 200,000: half of it is in the samples given.
    EXPECT_LT(WorstError(ReadAll(*source, kSlow, 0, 60), Sine(256, 10, 60, 100, 200'000), 512), 1.0 / 64);
}

TEST(ResampledSource, HasNoStepAtTheEnds) {
    const auto source = Make(Sine(100, 2, 10, 100, 1000));
    EXPECT_LT(WorstError(ReadAll(*source, kSlow, 0, 10), Sine(256, 2, 10, 100, 1000), 0), 20);
}

TEST(ResampledSource, LeavesOtherSignalsAsTheyAre) {
    const auto source = Make(Sine(100, 10, 10));
    const std::vector<float> values = ReadAll(*source, kFast, 3, 4);
    EXPECT_EQ(values.front(), 768);
    EXPECT_EQ(values.back(), 1791);
}

TEST(ResampledSource, ShowsTheSameWhereverReadingStarts) {
    const auto whole = Make(Sine(100, 10, 200));
    const std::vector<float> expected = ReadAll(*whole, kSlow, 0, 200);
    for (const std::uint64_t first : {199U, 100U, 31U, 32U, 0U}) {
        const auto fresh = Make(Sine(100, 10, 200));
        const std::vector<float> values = ReadAll(*fresh, kSlow, first, 1);
        EXPECT_TRUE(std::equal(values.begin(), values.end(),
                               expected.begin() + static_cast<std::ptrdiff_t>(first) * 256))
            << first;
    }
}

TEST(ResampledSource, ShowsTheSameToEveryThread) {
    const auto source = Make(Sine(100, 10, 400));
    const std::vector<float> expected = ReadAll(*Make(Sine(100, 10, 400)), kSlow, 0, 400);
    std::array<std::vector<float>, 4> values;
    std::vector<std::thread> threads;
    for (std::size_t t = 0; t < values.size(); ++t) {
        threads.emplace_back([&, t] { values[t] = ReadAll(*source, kSlow, 0, 400); });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    EXPECT_THAT(values, testing::Each(expected));
}

TEST(ResampledSource, MixesNothingAcrossAGap) {
    std::vector<double> steps(20 * 100, 0.0);
    std::fill(steps.begin() + 10 * 100, steps.end(), 1000.0);
    const auto source = Make(steps, {{.block = 10, .gap_s = 60}});
    const std::vector<float> values = ReadAll(*source, kSlow, 0, 20);
    EXPECT_NEAR(values[10 * 256 - 1], 0, 1e-3);
    EXPECT_NEAR(values[10 * 256], 1000, 1e-3);
}

TEST(ResampledSource, CountsThePartOfALastBlock) {
    const auto source = Make(std::vector<double>(150, 7.0));
    EXPECT_EQ(source->SampleCount(kSlow), 384U);
    EXPECT_EQ(source->SampleCount(kFast), 384U);
    const std::vector<float> values = ReadAll(*source, kSlow, 0, 2);
    EXPECT_NEAR(values[383], 7, 1e-5);
}

TEST(ResampledSource, OfOneSampleIsConstant) {
    const auto source = Make({5.0});
    EXPECT_NEAR(ReadAll(*source, kSlow, 0, 1)[1], 5, 1e-5);
}

TEST(ResampledSource, RefusesBlocksOfAbsurdSize) {
    const RecordingData data = test::MakeData({{"slow", 1, {1}}});
    EXPECT_THROW(ResampledSource(data.source, data.segments, {0}, 1U << 30), std::length_error);
}

TEST(StoredValue, ReadsEveryFormat) {
    const auto bytes = [](std::initializer_list<int> values) {
        std::vector<std::byte> made;
        for (const int value : values) {
            made.push_back(static_cast<std::byte>(value));
        }
        return made;
    };
    EXPECT_EQ(StoredValue(SampleFormat::Int16, bytes({0x00, 0x80}).data()), -32768);
    EXPECT_EQ(StoredValue(SampleFormat::Int16, bytes({0x39, 0x30}).data()), 12345);
    EXPECT_EQ(StoredValue(SampleFormat::Int24, bytes({0x00, 0x00, 0x80}).data()), -8388608);
    EXPECT_EQ(StoredValue(SampleFormat::Int24, bytes({0xFF, 0xFF, 0xFF}).data()), -1);
    EXPECT_EQ(StoredValue(SampleFormat::Float32, bytes({0x00, 0x00, 0xC0, 0xBF}).data()), -1.5);
}

} // namespace
} // namespace orvanta::signal
