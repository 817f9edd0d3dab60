// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/spectral_data/settings/epochs.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>

namespace orvanta::spectral {
namespace {

using Mode = SpectraMacro::TimeIntervalSelectMode;
using EpochsMode = SpectraMacro::EpochsSelectionMode;
using Starts = std::vector<std::int64_t>;

SpectraMacro Window(double seconds, unsigned overlap) {
    SpectraMacro macro;
    macro.SetFFTSeconds(seconds);
    macro.SetOverlapPerc(overlap);
    return macro;
}

/// 10 Hz without a gap.
signal::Timeline Samples(std::int64_t count) {
    return {10, {{0, count, 0}}};
}

// 10 Hz: samples 0–99 from 0 s, a gap of 5 s, samples 100–149 from 15 s.
const signal::Timeline kGapped(10, {{0, 100, 0}, {100, 50, 15}});

TEST(WindowGeometry, FollowsTheRules) {
    struct Case {
        double seconds;
        unsigned overlap;
        double rate;
        WindowGeometry geometry;
    };
    const Case cases[] = {
        {1, 50, 500, {500, 512, 250}},        {2, 50, 256, {512, 512, 256}},
        {1, 0, 256, {256, 256, 256}},         {1, 75, 256, {256, 256, 64}},
        {0.5, 50, 333, {167, 256, 84}},                                     // 166.5 + 0.5; 83.5 + 0.5
        {1, 50, 1000.0 / 3, {333, 512, 167}}, {1, 90, 125, {125, 128, 13}}, // 12.5 + 0.5
        {0.01, 99, 100, {1, 1, 1}},           {0.1, 99, 100, {10, 16, 1}},  // 0.1 + 0.5
        {16, 95, 2048, {32768, 32768, 1638}}, {3600, 0, 4660, {16776000, 16777216, 16776000}},
    };
    for (const Case& item : cases) {
        EXPECT_EQ(GetWindowGeometry(Window(item.seconds, item.overlap), item.rate), item.geometry)
            << item.seconds << " s at " << item.rate << " Hz";
    }
}

TEST(WindowGeometry, HasNoWindowBelowHalfASample) {
    EXPECT_EQ(GetWindowGeometry(Window(0.0049, 50), 100), WindowGeometry({0, 1, 1}));
    EXPECT_EQ(GetWindowGeometry(Window(0.005, 50), 100).window, 1u);
}

TEST(WindowGeometry, HasNoWindowAboveTheLongestTransform) {
    EXPECT_EQ(GetWindowGeometry(Window(3600, 50), 5000), WindowGeometry({0, 1, 1}));
}

TEST(WindowGeometry, HasNoWindowWithoutARate) {
    for (const double rate : {0.0, -256.0, std::nan(""), std::numeric_limits<double>::infinity()}) {
        EXPECT_EQ(GetWindowGeometry(Window(1, 50), rate), WindowGeometry({0, 1, 1})) << rate;
    }
}

TEST(EpochStarts, LieEveryStepAsLongAsTheyFit) {
    const SpectraMacro macro = Window(2, 50);
    const WindowGeometry geometry = GetWindowGeometry(macro, 10);
    EXPECT_EQ(GetEpochStarts(macro, Samples(59), {{0, 5.9}}, geometry), Starts({0, 10, 20, 30}));
    EXPECT_EQ(GetEpochStarts(macro, Samples(60), {{0, 6}}, geometry), Starts({0, 10, 20, 30, 40}));
}

TEST(EpochStarts, OneWindowThatJustFitsIsAnEpoch) {
    const SpectraMacro macro = Window(2, 50);
    const WindowGeometry geometry = GetWindowGeometry(macro, 10);
    EXPECT_EQ(GetEpochStarts(macro, Samples(20), {{0, 2}}, geometry), Starts({0}));
    EXPECT_EQ(GetEpochStarts(macro, Samples(19), {{0, 1.9}}, geometry), Starts());
}

TEST(EpochStarts, CrossNoGap) {
    const SpectraMacro macro = Window(3, 0);
    EXPECT_EQ(GetEpochStarts(macro, kGapped, {{0, 20}}, GetWindowGeometry(macro, 10)),
              Starts({0, 30, 60, 100}));
}

TEST(EpochStarts, BeginAnewInEverySpan) {
    const SpectraMacro macro = Window(1, 0);
    EXPECT_EQ(
        GetEpochStarts(macro, Samples(100), {{0.5, 2.7}, {4, 5}, {6, 6.9}}, GetWindowGeometry(macro, 10)),
        Starts({5, 15, 40}));
}

TEST(EpochStarts, OfOverlappingSpansAscendAndAreUnique) {
    const SpectraMacro macro = Window(1, 0);
    EXPECT_EQ(GetEpochStarts(macro, Samples(100), {{1, 4}, {1.5, 3.5}, {2, 4}}, GetWindowGeometry(macro, 10)),
              Starts({10, 15, 20, 25, 30}));
}

TEST(EpochStarts, AreNoneWithoutAWindowOrASpan) {
    const SpectraMacro macro = Window(1, 0);
    EXPECT_TRUE(GetEpochStarts(macro, Samples(100), {{0, 10}}, {}).empty());
    EXPECT_TRUE(GetEpochStarts(macro, Samples(100), {}, GetWindowGeometry(macro, 10)).empty());
    EXPECT_TRUE(GetEpochStarts(macro, {}, {{0, 10}}, GetWindowGeometry(macro, 10)).empty());
}

class EpochSelection : public testing::Test {
protected:
    Starts Select(EpochsMode mode, std::uint64_t count) {
        SpectraMacro macro = Window(1, 0);
        macro.SetEpochsSelMode(mode);
        macro.SetNumEpochsToUse(count);
        return GetEpochStarts(macro, Samples(100), {{0, 10}}, GetWindowGeometry(macro, 10));
    }
    const Starts all_ = {0, 10, 20, 30, 40, 50, 60, 70, 80, 90};
};

TEST_F(EpochSelection, AllIgnoresTheCount) {
    EXPECT_EQ(Select(EpochsMode::All, 3), all_);
}

TEST_F(EpochSelection, FirstTakesTheFirst) {
    EXPECT_EQ(Select(EpochsMode::FirstN, 3), Starts({0, 10, 20}));
}

TEST_F(EpochSelection, MoreThanThereAreIsAll) {
    EXPECT_EQ(Select(EpochsMode::FirstN, 11), all_);
    EXPECT_EQ(Select(EpochsMode::RandomN, 11), all_);
    EXPECT_EQ(Select(EpochsMode::RandomN, 10), all_);
}

// Chosen by the same generator and algorithm in another language.
TEST_F(EpochSelection, RandomIsTheSameEveryTimeAndInTimeOrder) {
    EXPECT_EQ(Select(EpochsMode::RandomN, 4), Starts({10, 40, 50, 90}));
    EXPECT_EQ(Select(EpochsMode::RandomN, 4), Starts({10, 40, 50, 90}));
}

TEST_F(EpochSelection, RandomPrefersNoPartOfTheRecording) {
    SpectraMacro macro = Window(1, 0);
    macro.SetEpochsSelMode(EpochsMode::RandomN);
    macro.SetNumEpochsToUse(2000);
    const Starts starts = GetEpochStarts(macro, Samples(100000), {{0, 10000}}, GetWindowGeometry(macro, 10));
    ASSERT_EQ(starts.size(), 2000u);
    const auto firstHalf = std::count_if(starts.begin(), starts.end(), [](auto s) { return s < 50000; });
    EXPECT_NEAR(static_cast<double>(firstHalf), 1000, 80); // 4 standard deviations of 20
}

} // namespace
} // namespace orvanta::spectral
