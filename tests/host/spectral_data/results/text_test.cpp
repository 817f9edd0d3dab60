// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/spectral_data/results/text.h"

#include "host/spectral_data/results/names.h"

#include <gtest/gtest.h>

namespace orvanta::spectral {
namespace {

TEST(FixedText, HasAPointAndTheDecimalsAskedFor) {
    EXPECT_EQ(FixedText(236, 1), "236.0");
    EXPECT_EQ(FixedText(0.126, 2), "0.13");
}

TEST(EpochsText, OneEpochIsSingular) {
    EXPECT_EQ(EpochsText(0), "0 epochs");
    EXPECT_EQ(EpochsText(1), "1 epoch");
    EXPECT_EQ(EpochsText(118), "118 epochs");
}

using SPECT::Entity::Type;
using Measure = SPECT::Meas::Type;

TEST(Names, OfEntitiesAndTheirUnits) {
    EXPECT_EQ(EntityName(Type::Amplitude), "Amplitude");
    EXPECT_EQ(EntityName(Type::Power), "Power");
    EXPECT_EQ(EntityName(Type::Coherence), "Coherence");
    EXPECT_EQ(EntityName(Type::Phase), "Phase");
    EXPECT_EQ(EntityUnit(Type::Amplitude), "µV/√Hz");
    EXPECT_EQ(EntityUnit(Type::Power), "µV²/Hz");
    EXPECT_EQ(EntityUnit(Type::Coherence), "");
    EXPECT_EQ(EntityUnit(Type::Phase), "rad");
}

TEST(Names, BeyondTheLastAreEmpty) {
    EXPECT_EQ(EntityName(static_cast<Type>(4)), "");
    EXPECT_EQ(EntityUnit(static_cast<Type>(-1)), "");
    EXPECT_EQ(MeasureName(static_cast<Measure>(8)), "");
    EXPECT_EQ(MeasureUnit(static_cast<Measure>(8), Type::Power), "");
}

struct UnitCase {
    Measure measure;
    const char* name;
    const char* amplitude;
    const char* power;
    const char* coherence;
    const char* phase;

    friend void PrintTo(const UnitCase& unit, std::ostream* out) { *out << unit.name; }
};

class MeasureUnits : public testing::TestWithParam<UnitCase> {};

TEST_P(MeasureUnits, FollowTheEntity) {
    const UnitCase& expected = GetParam();
    EXPECT_EQ(MeasureName(expected.measure), expected.name);
    EXPECT_EQ(MeasureUnit(expected.measure, Type::Amplitude), expected.amplitude);
    EXPECT_EQ(MeasureUnit(expected.measure, Type::Power), expected.power);
    EXPECT_EQ(MeasureUnit(expected.measure, Type::Coherence), expected.coherence);
    EXPECT_EQ(MeasureUnit(expected.measure, Type::Phase), expected.phase);
}

INSTANTIATE_TEST_SUITE_P(Names, MeasureUnits,
                         testing::Values(UnitCase{Measure::Abs, "Abs", "µV", "µV²", "", "rad"},
                                         UnitCase{Measure::Mean, "Mean", "µV/√Hz", "µV²/Hz", "", "rad"},
                                         UnitCase{Measure::Rel, "Rel", "%", "%", "%", "%"},
                                         UnitCase{Measure::PeakF, "Peak F", "Hz", "Hz", "Hz", "Hz"},
                                         UnitCase{Measure::MeanF, "Mean F", "Hz", "Hz", "Hz", "Hz"},
                                         UnitCase{Measure::Peak, "Peak", "µV/√Hz", "µV²/Hz", "", "rad"},
                                         UnitCase{Measure::SEF95, "SEF95", "Hz", "Hz", "Hz", "Hz"},
                                         UnitCase{Measure::CV, "CV", "%", "%", "%", "%"}));

} // namespace
} // namespace orvanta::spectral
