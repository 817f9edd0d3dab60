// SPDX-License-Identifier: GPL-3.0-or-later
#include "spectrum_view/painting/vertical_range.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

using namespace orvanta::spectrum_view;
using SPECT::Data::Mode;
using SPECT::Entity::Type;

/// Found in bins 1 to 3.
ValueSearch Found(const std::vector<double>& values) {
    ValueSearch search;
    search.Include(values, {1, 3, 1, 1, 3});
    return search;
}

RangeRules Rules(Type entity, Mode mode = Mode::Mean) {
    RangeRules rules;
    rules.entity = entity;
    rules.mode = mode;
    return rules;
}

TEST(VerticalRange, RunsFromTheSmallestToTheLargestShownValue) {
    EXPECT_EQ(RangeOf(Rules(Type::Power), Found({-9, 2, 7, 3, 99})), (VerticalRange{2, 7, 0}));
}

TEST(VerticalRange, IncludesTheSecondarySpectrumAndOtherTraces) {
    ValueSearch search = Found({0, 2, 7, 3});
    search.Include(std::vector<double>{0, 1, 12}, {1, 3, 1, 1, 3});
    EXPECT_EQ(RangeOf(Rules(Type::Amplitude), search), (VerticalRange{1, 12, 0}));
}

TEST(VerticalRange, OfEqualValuesIsNoneAndNotDrawn) {
    const VerticalRange range = RangeOf(Rules(Type::Power), Found({0, 5, 5, 5}));
    EXPECT_EQ(range.Span(), 0);
    EXPECT_FALSE(range.IsDrawable());
}

TEST(VerticalRange, OfZerosIsTinyAndDrawn) {
    const VerticalRange range = RangeOf(Rules(Type::Power), Found({0, 0, 0, 0}));
    EXPECT_EQ(range, (VerticalRange{0, 2.2250738585072014e-308, 0}));
    EXPECT_TRUE(range.IsDrawable());
}

TEST(VerticalRange, OfNegativeValuesEndsAboveZero) {
    EXPECT_EQ(RangeOf(Rules(Type::Power), Found({0, -4, -2, -3})),
              (VerticalRange{-4, 2.2250738585072014e-308, 0}));
}

TEST(VerticalRange, OfNothingIsNone) {
    constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
    EXPECT_FALSE(RangeOf(Rules(Type::Power), Found({1, kNaN, kNaN, kNaN})).IsDrawable());
    EXPECT_FALSE(RangeOf(Rules(Type::Power), ValueSearch()).IsDrawable());
}

TEST(VerticalRange, PassesOverWhatIsNoNumber) {
    constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
    constexpr double kInfinity = std::numeric_limits<double>::infinity();
    EXPECT_EQ(RangeOf(Rules(Type::Power), Found({0, kNaN, 2, kInfinity, 3})).max, 2);
}

TEST(VerticalRange, TheGainRaisesTheMaximumOnly) {
    RangeRules rules = Rules(Type::Power);
    rules.gain = 1.5;
    EXPECT_EQ(RangeOf(rules, Found({0, 2, 8, 3})), (VerticalRange{2, 12, 0}));
}

TEST(VerticalRange, TheCompressedArrayHasFiveTimesTheMaximum) {
    RangeRules rules = Rules(Type::Power, Mode::CSA);
    rules.gain = 0.5;
    EXPECT_EQ(RangeOf(rules, Found({0, 2, 8, 3})), (VerticalRange{2, 20, 0}));
}

TEST(VerticalRange, WithoutAutoScaleIsTheRecordsWhateverTheGain) {
    RangeRules rules = Rules(Type::Amplitude, Mode::CSA);
    rules.scale = {1.5, 40, 0, 32, false};
    rules.gain = 3;
    EXPECT_EQ(RangeOf(rules, Found({0, 2, 8, 3})), (VerticalRange{1.5, 40, 0}));
}

TEST(VerticalRange, OfCoherenceIsZeroToOneWhateverTheGain) {
    RangeRules rules = Rules(Type::Coherence);
    rules.scale.AutoScale = false;
    rules.gain = 3;
    EXPECT_EQ(RangeOf(rules, ValueSearch()), (VerticalRange{0, 1, 0}));
}

TEST(VerticalRange, OfPhaseIsHalfATurnEachWayInFourDivisions) {
    RangeRules rules = Rules(Type::Phase);
    rules.gain = 3;
    EXPECT_EQ(RangeOf(rules, ValueSearch()), (VerticalRange{-180, 180, 4}));
    rules.degrees = false;
    EXPECT_EQ(RangeOf(rules, ValueSearch()), (VerticalRange{-3.141592653589793, 3.141592653589793, 4}));
}

TEST(VerticalRange, IsSearchedForAutoScaledAmplitudeAndPowerOnly) {
    EXPECT_TRUE(IsSearched(Rules(Type::Amplitude)));
    EXPECT_TRUE(IsSearched(Rules(Type::Power)));
    EXPECT_FALSE(IsSearched(Rules(Type::Coherence)));
    EXPECT_FALSE(IsSearched(Rules(Type::Phase)));
    RangeRules fixed = Rules(Type::Power);
    fixed.scale.AutoScale = false;
    EXPECT_FALSE(IsSearched(fixed));
}

} // namespace
