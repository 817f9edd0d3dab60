// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/spectral_data/statistics/measures.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <numbers>
#include <vector>

namespace orvanta::spectral {
namespace {

using SPECT::Entity::Type;
using Measure = SPECT::Meas::Type;

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr Measure kAll[] = {Measure::Abs,   Measure::Mean, Measure::Rel,   Measure::PeakF,
                            Measure::MeanF, Measure::Peak, Measure::SEF95, Measure::CV};

// 0, 0.5, … 4 Hz.
const std::vector<double> kPower = {9, 1, 2, 4, 2, 1, 0, 0, 6};

MeasureInput Input(Type entity, const std::vector<double>& values) {
    MeasureInput input;
    input.entity = entity;
    input.resolution_hz = 0.5;
    input.values = values;
    input.power = kPower;
    input.total_lo = 0.5;
    input.total_hi = 4.5;
    input.abs_mean = 5;
    input.abs_sd = 2;
    return input;
}

// The input looks at the values, so they must live on.
MeasureInput Input(Type entity, std::vector<double>&& values) = delete;

double OfPower(double lo, double hi, Measure measure) {
    return BandMeasure(Input(Type::Power, kPower), lo, hi, measure);
}

void ExpectNone(const MeasureInput& input, double lo, double hi) {
    for (const Measure measure : kAll) {
        EXPECT_TRUE(std::isnan(BandMeasure(input, lo, hi, measure))) << static_cast<int>(measure);
    }
}

void ExpectBins(BinRange range, std::uint32_t first, std::uint32_t last) {
    EXPECT_EQ(range.first, first);
    EXPECT_EQ(range.last, last);
}

TEST(BandBins, LowBelongsToTheBandHighDoesNot) {
    ExpectBins(BandBins(0.5, 4, 0.5, 9), 1, 8);
}

TEST(BandBins, NeighbouringBandsShareNoBin) {
    ExpectBins(BandBins(4, 8, 0.3, 100), 14, 27);
    ExpectBins(BandBins(8, 13, 0.3, 100), 27, 44);
}

// 3 · 0.1 is a little above 0.3, so that bin lies outside a band that ends at 0.3 and inside one that starts
// there.
TEST(BandBins, TheProductDecidesNotTheQuotient) {
    ExpectBins(BandBins(0.0, 0.3, 0.1, 10), 0, 3);
    ExpectBins(BandBins(0.3, 0.5, 0.1, 10), 3, 5);
}

TEST(BandBins, PartlyBeyondTheLastBinIsCut) {
    ExpectBins(BandBins(3.5, 100, 0.5, 9), 7, 9);
    ExpectBins(BandBins(3.5, std::numeric_limits<double>::infinity(), 0.5, 9), 7, 9);
}

TEST(BandBins, BelowZeroStartsAtZero) {
    ExpectBins(BandBins(-3, 1, 0.5, 9), 0, 2);
}

TEST(BandBins, NoneWhereThereIsNoBand) {
    ExpectBins(BandBins(5, 9, 0.5, 9), 0, 0);     // beyond the last bin
    ExpectBins(BandBins(2, 1, 0.5, 9), 0, 0);     // reversed
    ExpectBins(BandBins(1, 1, 0.5, 9), 0, 0);     // no width
    ExpectBins(BandBins(1, 1.009, 0.5, 9), 0, 0); // not wider than 0.01 Hz
    ExpectBins(BandBins(1.1, 1.4, 0.5, 9), 0, 0); // between two bins
    ExpectBins(BandBins(kNaN, 4, 0.5, 9), 0, 0);
    ExpectBins(BandBins(1, 4, 0, 9), 0, 0);
    ExpectBins(BandBins(1, 4, 0.5, 0), 0, 0);
    ExpectBins(BandBins(-9, -1, 0.5, 9), 0, 0);
}

// Bins 1 … 5: 1, 2, 4, 2, 1.
TEST(BandMeasure, AbsIsTheAreaUnderTheDensity) {
    EXPECT_DOUBLE_EQ(OfPower(0.5, 3, Measure::Abs), 5.0);
}

TEST(BandMeasure, MeanIsTheMeanOfTheBins) {
    EXPECT_DOUBLE_EQ(OfPower(0.5, 3, Measure::Mean), 2.0);
}

// The total band holds 10 + 6.
TEST(BandMeasure, RelIsTheShareOfTheTotalBand) {
    EXPECT_DOUBLE_EQ(OfPower(0.5, 3, Measure::Rel), 62.5);
}

TEST(BandMeasure, RelOfTheTotalBandIsAHundred) {
    EXPECT_DOUBLE_EQ(OfPower(0.5, 4.5, Measure::Rel), 100.0);
}

TEST(BandMeasure, RelOfABandOutsideTheTotalBandMayExceedAHundred) {
    EXPECT_DOUBLE_EQ(OfPower(0, 4.5, Measure::Rel), 156.25);
}

TEST(BandMeasure, RelWithoutATotalBandIsNotComputable) {
    MeasureInput input = Input(Type::Power, kPower);
    input.total_hi = input.total_lo;
    EXPECT_TRUE(std::isnan(BandMeasure(input, 0.5, 3, Measure::Rel)));
}

TEST(BandMeasure, RelOfAnEmptyTotalBandIsNotComputable) {
    MeasureInput input = Input(Type::Power, kPower);
    input.total_lo = 3;
    input.total_hi = 4;
    EXPECT_TRUE(std::isnan(BandMeasure(input, 0.5, 3, Measure::Rel)));
}

TEST(BandMeasure, PeakAndItsFrequency) {
    EXPECT_DOUBLE_EQ(OfPower(0.5, 3, Measure::Peak), 4.0);
    EXPECT_DOUBLE_EQ(OfPower(0.5, 3, Measure::PeakF), 1.5);
}

TEST(BandMeasure, TheLowestOfEqualPeaksCounts) {
    const std::vector<double> values = {0, 3, 1, 3, 0, 0, 0, 0, 0};
    EXPECT_DOUBLE_EQ(BandMeasure(Input(Type::Power, values), 0.5, 3, Measure::PeakF), 0.5);
}

TEST(BandMeasure, MeanFrequencyIsTheCentreOfGravity) {
    EXPECT_DOUBLE_EQ(OfPower(0.5, 3, Measure::MeanF), 1.5);
    EXPECT_DOUBLE_EQ(OfPower(0.5, 2, Measure::MeanF), (0.5 * 1 + 1 * 2 + 1.5 * 4) / 7);
}

// Running sum 1, 3, 7, 9, 10 at 0.5 … 2.5 Hz: 9.5 lies half way between 2 and 2.5 Hz.
TEST(BandMeasure, SpectralEdgeIsInterpolated) {
    EXPECT_DOUBLE_EQ(OfPower(0.5, 3, Measure::SEF95), 2.25);
}

TEST(BandMeasure, SpectralEdgeOfOneBinIsItsFrequency) {
    EXPECT_DOUBLE_EQ(OfPower(4, 4.5, Measure::SEF95), 4.0);
}

TEST(BandMeasure, CoefficientOfVariation) {
    EXPECT_DOUBLE_EQ(OfPower(0.5, 3, Measure::CV), 40.0);
}

TEST(BandMeasure, CoefficientOfVariationNeedsItsMoments) {
    MeasureInput input = Input(Type::Power, kPower);
    input.abs_sd = kNaN;
    EXPECT_TRUE(std::isnan(BandMeasure(input, 0.5, 3, Measure::CV)));
    input.abs_sd = 0;
    input.abs_mean = 0;
    EXPECT_TRUE(std::isnan(BandMeasure(input, 0.5, 3, Measure::CV)));
}

TEST(BandMeasure, AmplitudeTakesItsAreaFromThePower) {
    const std::vector<double> values = {3, 1, 1.4, 1.9, 1.5, 1, 0, 0, 2.4};
    const MeasureInput input = Input(Type::Amplitude, values);
    EXPECT_DOUBLE_EQ(BandMeasure(input, 0.5, 3, Measure::Abs), std::sqrt(5.0));
    EXPECT_DOUBLE_EQ(BandMeasure(input, 0.5, 3, Measure::Mean), 1.36);
    EXPECT_DOUBLE_EQ(BandMeasure(input, 0.5, 3, Measure::Rel), 62.5);
    EXPECT_DOUBLE_EQ(BandMeasure(input, 0.5, 3, Measure::Peak), 1.9);
}

TEST(BandMeasure, Coherence) {
    const std::vector<double> values = {0, 0.2, 0.5, 0.8, 0.5, 0, 0, 0, 0};
    const MeasureInput input = Input(Type::Coherence, values);
    EXPECT_DOUBLE_EQ(BandMeasure(input, 0.5, 2.5, Measure::Abs), 0.5);
    EXPECT_DOUBLE_EQ(BandMeasure(input, 0.5, 2.5, Measure::Mean), 0.5);
    EXPECT_DOUBLE_EQ(BandMeasure(input, 0.5, 2.5, Measure::Rel), 50.0);
    EXPECT_DOUBLE_EQ(BandMeasure(input, 0.5, 2.5, Measure::PeakF), 1.5);
    EXPECT_DOUBLE_EQ(BandMeasure(input, 0.5, 2.5, Measure::MeanF), (0.1 + 0.5 + 1.2 + 1.0) / 2);
    EXPECT_DOUBLE_EQ(BandMeasure(input, 0.5, 2.5, Measure::Peak), 0.8);
    EXPECT_TRUE(std::isnan(BandMeasure(input, 0.5, 2.5, Measure::SEF95)));
    EXPECT_TRUE(std::isnan(BandMeasure(input, 0.5, 2.5, Measure::CV)));
}

// Either side of ±π: the plain mean would be 0.
TEST(BandMeasure, PhaseIsAveragedOnTheCircle) {
    const double pi = std::numbers::pi;
    const std::vector<double> values = {0, pi - 0.1, -pi + 0.3, 0, 0, 0, 0, 0, 0};
    const MeasureInput input = Input(Type::Phase, values);
    EXPECT_NEAR(BandMeasure(input, 0.5, 1.5, Measure::Abs), -pi + 0.1, 1e-14);
    EXPECT_NEAR(BandMeasure(input, 0.5, 1.5, Measure::Mean), -pi + 0.1, 1e-14);
    for (const Measure measure :
         {Measure::Rel, Measure::PeakF, Measure::MeanF, Measure::Peak, Measure::SEF95, Measure::CV}) {
        EXPECT_TRUE(std::isnan(BandMeasure(input, 0.5, 1.5, measure)));
    }
}

TEST(BandMeasure, OppositePhasesHaveNoMean) {
    const std::vector<double> values = {0, 0, std::numbers::pi, 0, 0, 0, 0, 0, 0};
    const MeasureInput input = Input(Type::Phase, values);
    EXPECT_TRUE(std::isnan(BandMeasure(input, 0.5, 1.5, Measure::Mean)));
}

TEST(BandMeasure, ABandWithoutBinsHasNoMeasure) {
    for (const Type entity : {Type::Amplitude, Type::Power, Type::Coherence, Type::Phase}) {
        const MeasureInput input = Input(entity, kPower);
        ExpectNone(input, 50, 60);
        ExpectNone(input, 3, 0.5);
        ExpectNone(input, 1, 1);
        ExpectNone(input, 1.1, 1.4);
    }
}

TEST(BandMeasure, ZeroPowerHasAnAreaButNoFrequencies) {
    const std::vector<double> zero(9, 0.0);
    MeasureInput input = Input(Type::Power, zero);
    input.power = zero;
    EXPECT_EQ(BandMeasure(input, 0.5, 3, Measure::Abs), 0.0);
    EXPECT_EQ(BandMeasure(input, 0.5, 3, Measure::Mean), 0.0);
    EXPECT_EQ(BandMeasure(input, 0.5, 3, Measure::Peak), 0.0);
    for (const Measure measure : {Measure::Rel, Measure::PeakF, Measure::MeanF, Measure::SEF95}) {
        EXPECT_TRUE(std::isnan(BandMeasure(input, 0.5, 3, measure))) << static_cast<int>(measure);
    }
}

TEST(BandMeasure, AValueThatIsNotFiniteSpoilsItsBandOnly) {
    std::vector<double> values = kPower;
    values[2] = kNaN;
    MeasureInput input = Input(Type::Power, values);
    input.power = values;
    for (const Measure measure : {Measure::Abs, Measure::Mean, Measure::Rel, Measure::PeakF, Measure::MeanF,
                                  Measure::Peak, Measure::SEF95}) {
        EXPECT_TRUE(std::isnan(BandMeasure(input, 0.5, 3, measure))) << static_cast<int>(measure);
    }
    EXPECT_DOUBLE_EQ(BandMeasure(input, 1.5, 3, Measure::Peak), 4.0);
}

TEST(BandMeasure, WithoutPowerAPowerMeasureIsNotComputable) {
    MeasureInput input = Input(Type::Power, kPower);
    input.power = {};
    EXPECT_TRUE(std::isnan(BandMeasure(input, 0.5, 3, Measure::Abs)));
}

} // namespace
} // namespace orvanta::spectral
