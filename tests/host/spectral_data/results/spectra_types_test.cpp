// SPDX-License-Identifier: GPL-3.0-or-later
// Values and layouts that files, settings and other libraries count on.
#include "spectra_contract/spectra_types.h"

#include "spectra_contract/spectra_macro.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>

namespace {

template <typename Enumeration>
int Value(Enumeration value) {
    return static_cast<int>(value);
}

TEST(Enumerations, HaveTheirNumbers) {
    using Interval = SpectraMacro::TimeIntervalSelectMode;
    using Epochs = SpectraMacro::EpochsSelectionMode;
    const struct {
        int actual, expected;
    } table[] = {
        {Value(Layout::Mode::Scalp), 1},
        {Value(Layout::Mode::Grid), 2},
        {Value(SPECT::Data::Mode::Mean), 1},
        {Value(SPECT::Data::Mode::TimeFrequency), 2},
        {Value(SPECT::Data::Mode::CSA), 3},
        {Value(SPECT::Entity::Type::Amplitude), 0},
        {Value(SPECT::Entity::Type::Power), 1},
        {Value(SPECT::Entity::Type::Coherence), 2},
        {Value(SPECT::Entity::Type::Phase), 3},
        {Value(SPECT::Meas::Type::Abs), 0},
        {Value(SPECT::Meas::Type::Mean), 1},
        {Value(SPECT::Meas::Type::Rel), 2},
        {Value(SPECT::Meas::Type::PeakF), 3},
        {Value(SPECT::Meas::Type::MeanF), 4},
        {Value(SPECT::Meas::Type::Peak), 5},
        {Value(SPECT::Meas::Type::SEF95), 6},
        {Value(SPECT::Meas::Type::CV), 7},
        {Value(SPECT::Normalisation::None), 0},
        {Value(SPECT::Normalisation::ByF), 1},
        {Value(SPECT::Normalisation::BySqrtF), 2},
        {Value(SPECT::Normalisation::ByLnF), 3},
        {Value(SPECT::Normalisation::ByLog10F), 4},
        {Value(SPECT::Normalisation::Db), 5},
        {Value(Interval::AllRecording), 0},
        {Value(Interval::ByDuration), 1},
        {Value(Interval::ByStateEvents), 2},
        {Value(Interval::BySpotEvents), 3},
        {Value(Epochs::All), 0},
        {Value(Epochs::FirstN), 1},
        {Value(Epochs::RandomN), 2},
    };
    for (std::size_t row = 0; row < std::size(table); ++row) {
        EXPECT_EQ(table[row].actual, table[row].expected) << "row " << row;
    }
}

TEST(Band, StartsWithItsEdgesThenItsName) {
    EXPECT_EQ(offsetof(SPECT::Band, lo), 0u);
    EXPECT_EQ(offsetof(SPECT::Band, hi), 8u);
    EXPECT_EQ(offsetof(SPECT::Band, name), 16u);
    EXPECT_EQ(offsetof(SPECT::Band, selected), 80u);
}

TEST(Scale, DefaultsToTenByThirtyTwoOnAutomatic) {
    const SPECT::Scale scale;
    EXPECT_EQ(scale.MinY, 0);
    EXPECT_EQ(scale.MaxY, 10);
    EXPECT_EQ(scale.MinX, 0);
    EXPECT_EQ(scale.MaxX, 32);
    EXPECT_TRUE(scale.AutoScale);
}

TEST(PlotSet, HasItsOrderAndDefaults) {
    const auto& [measure, band, lo, hi, automatic, zero] = SPECT::PlotSet();
    EXPECT_EQ(measure, 0);
    EXPECT_EQ(band, 0);
    EXPECT_EQ(lo, 0.0);
    EXPECT_EQ(hi, 50.0);
    EXPECT_TRUE(automatic);
    EXPECT_FALSE(zero);
    EXPECT_EQ(offsetof(SPECT::PlotSet, SpectralMeas), 0u);
    EXPECT_EQ(offsetof(SPECT::PlotSet, SpectralBand), 4u);
    EXPECT_EQ(offsetof(SPECT::PlotSet, LoScale), 8u);
    EXPECT_EQ(offsetof(SPECT::PlotSet, HiScale), 16u);
    EXPECT_EQ(offsetof(SPECT::PlotSet, bAutoScale), 24u);
    EXPECT_EQ(offsetof(SPECT::PlotSet, bZeroMin), 25u);
}

TEST(SpectSample, OfNothingIsNotComputable) {
    EXPECT_TRUE(std::isnan(SpectSample().GetCohM()));
    EXPECT_TRUE(std::isnan(SpectSample().GetCohP()));
    EXPECT_EQ(SpectSample(0.5, -1).GetCohM(), 0.5);
    EXPECT_EQ(SpectSample(0.5, -1).GetCohP(), -1);
}

TEST(FrequencyRange, IsClampedToTheDataAndToItself) {
    const struct {
        double bottom, top, rate;
        SPECT::FrequencyRange expected;
    } table[] = {
        {0, 32, 256, {0, 32}},       // fits
        {0, 200, 256, {0, 128}},     // above half the rate
        {0, 200, 255, {0, 127.5}},   // of an odd rate
        {150, 200, 256, {128, 128}}, // a bottom above the clamped top becomes the top
        {40, 32, 256, {32, 32}},     // and above a top that fits
        {-3, 32, 256, {0, 32}},      // a negative bottom becomes 0
        {1, 30, 0, {0, 0}},          // no data
    };
    for (const auto& row : table) {
        EXPECT_EQ(SPECT::ClampFrequencyRange(row.bottom, row.top, row.rate), row.expected)
            << row.bottom << " " << row.top << " " << row.rate;
    }
}

} // namespace
