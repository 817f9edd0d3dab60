// SPDX-License-Identifier: GPL-3.0-or-later
// Expected values: SciPy's ttest_ind(equal_var=False) on ln power of epochs that do not overlap, whose
// effective number is their number.
#include "host/spectral_data/results/comparison_of.h"

#include "tests/host/spectral_data/results/analysis_fixture.h"

#include <gtest/gtest.h>

#include <cmath>

namespace orvanta::spectral {
namespace {

using SPECT::Entity::Type;

class Comparing : public testing::Test {
protected:
    std::shared_ptr<const Analysis> Of(const std::string& label,
                                       const std::string& montage = "Fp1-F3 = +Fp1 -F3", unsigned overlap = 0,
                                       double seconds = 1) const {
        SpectraMacro macro = test::SmallMacro("Rectangular", overlap);
        macro.SetFFTSeconds(seconds);
        macro.SetTimeIntervalSelectMode(SpectraMacro::TimeIntervalSelectMode::ByStateEvents);
        macro.SetAcceptStateList({label});
        return Analysis::Compute(
            test::InputOf(*recording, macro, test::MontageOf(*recording, montage), test::InDouble()),
            nullptr);
    }
    const SensorType* Fp1() const { return test::SensorOf(*recording, "Fp1"); }

    test::GlobalsGuard guard;
    std::unique_ptr<EEGFileInfoType> recording =
        test::SmallRecording(10, {{0, 5.0, "open"}, {5, 5.0, "closed"}});
};

TEST_F(Comparing, PowerByWelchsTestOnItsLogarithm) {
    const auto comparison = CompareTrace(*Of("open"), *Of("closed"), Fp1(), Type::Power);
    ASSERT_TRUE(comparison);
    EXPECT_NEAR(comparison->t[1], 0.599498522375, 1e-9);
    EXPECT_NEAR(comparison->t[2], -0.164929802864, 1e-9);
    EXPECT_NEAR(comparison->df[1], 5.890559371836, 1e-8);
    EXPECT_NEAR(comparison->df[3], 7.372863740313, 1e-8);
    EXPECT_NEAR(comparison->p[1], 0.571162290706, 1e-9);
    EXPECT_NEAR(comparison->p[3], 0.568049423254, 1e-9);
    EXPECT_NEAR(comparison->ratio[1], 1.152796074136, 1e-9);
    EXPECT_NEAR(comparison->ratio[4], 0.654155495979, 1e-9);
}

TEST_F(Comparing, AmplitudeHasTheSameTestAndItsOwnRatio) {
    const auto comparison = CompareTrace(*Of("open"), *Of("closed"), Fp1(), Type::Amplitude);
    EXPECT_NEAR(comparison->p[1], 0.571162290706, 1e-9);
    EXPECT_NEAR(comparison->ratio[1], 1.103254757274, 1e-9);
}

TEST_F(Comparing, CoherenceByItsZTest) {
    const auto open = Of("open"), closed = Of("closed");
    const ChnType* channel = open->Channels()[0].channel.get();
    const auto comparison = CompareTrace(*open, *closed, channel, Type::Coherence);
    ASSERT_TRUE(comparison);
    // SciPy's coherence of five epochs a side, atanh with the variance 1/(2·(5 − 1)), and norm.sf.
    EXPECT_NEAR(comparison->t[1], 0.190043679258, 1e-9);
    EXPECT_NEAR(comparison->t[2], -0.088689224896, 1e-9);
    EXPECT_NEAR(comparison->p[1], 0.849274903084, 1e-9);
    EXPECT_NEAR(comparison->p[2], 0.929328896076, 1e-9);
    EXPECT_TRUE(std::isnan(comparison->df[2]));
    EXPECT_NEAR(comparison->ratio[2], 0.939984593627, 1e-9);
}

TEST_F(Comparing, PhaseHasNoTest) {
    const auto open = Of("open"), closed = Of("closed");
    const auto comparison = CompareTrace(*open, *closed, open->Channels()[0].channel.get(), Type::Phase);
    EXPECT_TRUE(std::isnan(comparison->p[1]));
    EXPECT_TRUE(std::isnan(comparison->t[1]));
    EXPECT_FALSE(std::isnan(comparison->ratio[1]));
}

TEST_F(Comparing, TheEffectiveNumberIsThatOfTheTest) {
    const auto overlapped = Of("open", "Fp1-F3 = +Fp1 -F3", 50);
    EXPECT_EQ(EffectiveCountOf(*overlapped, Type::Power), overlapped->EffectiveLogCount());
    EXPECT_EQ(EffectiveCountOf(*overlapped, Type::Amplitude), overlapped->EffectiveLogCount());
    EXPECT_EQ(EffectiveCountOf(*overlapped, Type::Coherence), overlapped->EffectiveCount());
    EXPECT_TRUE(std::isnan(EffectiveCountOf(*overlapped, Type::Phase)));
    EXPECT_DOUBLE_EQ(EffectiveCountOf(*Of("open"), Type::Power), 5);
}

TEST_F(Comparing, ATraceThatOneSideLacksIsNotCompared) {
    const auto other = test::SmallRecording();
    EXPECT_FALSE(CompareTrace(*Of("open"), *Of("closed"), test::SensorOf(*other, "Fp1"), Type::Power));
}

TEST_F(Comparing, EqualBinsAndMontageAreNeeded) {
    const auto open = Of("open");
    EXPECT_TRUE(AreComparable(*open, *Of("closed")));
    EXPECT_FALSE(AreComparable(*open, *Of("closed", "F3-Cz = +F3 -Cz")));
    EXPECT_FALSE(AreComparable(*open, *Of("closed", "Fp1-F3 = +Fp1 -F3", 0, 2)));
}

} // namespace
} // namespace orvanta::spectral
