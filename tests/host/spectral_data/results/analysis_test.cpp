// SPDX-License-Identifier: GPL-3.0-or-later
// Expected values: SciPy 1.10 in double, welch, csd and coherence with the same windows, and NumPy's mean and
// standard deviation over the same epochs.
#include "host/spectral_data/results/analysis.h"

#include "host/spectral_data/results/errors.h"
#include "tests/host/spectral_data/results/analysis_fixture.h"
#include "tests/support/recording_progress.h"

#include <gtest/gtest.h>

#include <cmath>

namespace orvanta::spectral {
namespace {

using SPECT::Entity::Type;
using Values = std::vector<double>;

void ExpectNear(const Values& actual, const Values& expected, double relative) {
    ASSERT_EQ(actual.size(), expected.size());
    for (std::size_t i = 0; i < expected.size(); ++i) {
        EXPECT_NEAR(actual[i], expected[i], relative * std::abs(expected[i]) + 1e-300) << "bin " << i;
    }
}

class SmallAnalysis : public testing::Test {
protected:
    void Compute(const std::string& montage, const ComputeOptions& options = test::InDouble(),
                 const SpectraMacro& macro = test::SmallMacro()) {
        analysis = Analysis::Compute(
            test::InputOf(*recording, macro, test::MontageOf(*recording, montage), options), nullptr);
    }
    TraceRow Sensor(const char* name) const { return *analysis->Row(test::SensorOf(*recording, name)); }
    TraceRow Channel(std::size_t index) const { return *analysis->Channels().at(index).trace; }

    test::GlobalsGuard guard;
    std::unique_ptr<EEGFileInfoType> recording = test::SmallRecording();
    std::shared_ptr<const Analysis> analysis;
};

const Values kFp1Power = {2.422810946603, 7.105665785957, 8.524250108005, 9.117284619253, 2.143944906157};

TEST_F(SmallAnalysis, MeanPowerOfASensor) {
    Compute("Cz = +Cz");
    EXPECT_EQ(analysis->EpochCount(), 9u);
    EXPECT_EQ(analysis->Resolution(), 1.0);
    ExpectNear(analysis->MeanOf(Type::Power, Sensor("Fp1")), kFp1Power, 1e-11);
}

TEST_F(SmallAnalysis, MeanPowerInSinglePrecision) {
    Compute("Cz = +Cz", {});
    ExpectNear(analysis->MeanOf(Type::Power, Sensor("Fp1")), kFp1Power, 1e-6);
}

TEST_F(SmallAnalysis, DeviationOfPowerOverTheEpochs) {
    Compute("Cz = +Cz");
    ExpectNear(analysis->SdOf(Type::Power, Sensor("Fp1")),
               {2.350404244715, 3.878020194618, 8.103131168548, 8.875626076889, 2.007056635639}, 1e-11);
}

TEST_F(SmallAnalysis, AmplitudeIsAveragedItself) {
    Compute("Cz = +Cz");
    ExpectNear(analysis->MeanOf(Type::Amplitude, Sensor("Fp1")),
               {1.360298259387, 2.577720334393, 2.652175128399, 2.816603733339, 1.26910431692}, 1e-11);
    ExpectNear(analysis->SdOf(Type::Amplitude, Sensor("Fp1")),
               {0.802464666591, 0.720174716001, 1.294795098016, 1.15413670428, 0.774586361421}, 1e-11);
}

TEST_F(SmallAnalysis, AChannelIsTheDifferenceOfTheSamples) {
    Compute("Fp1-F3 = +Fp1 -F3");
    ExpectNear(analysis->MeanOf(Type::Power, Channel(0)),
               {4.450363423842, 19.507623025523, 15.101010939936, 22.781569332272, 5.854716142165}, 1e-11);
}

TEST_F(SmallAnalysis, AnAverageReferenceTakesTheMeanOfTheSamplesAway) {
    for (const auto& montage : *recording->GetMontageList()) {
        if (montage->GetKind() == MontageType::Kind::AverageReference) {
            analysis = Analysis::Compute(
                test::InputOf(*recording, test::SmallMacro(), *montage, test::InDouble()), nullptr);
        }
    }
    ASSERT_TRUE(analysis);
    ExpectNear(analysis->MeanOf(Type::Power, Channel(0)),
               {1.239826376194, 4.883879396391, 5.797639684785, 6.382111013255, 1.822981653194}, 1e-11);
}

TEST_F(SmallAnalysis, CoherenceOfTheTwoElectrodes) {
    Compute("Fp1-F3 = +Fp1 -F3");
    ExpectNear(analysis->MeanOf(Type::Coherence, Channel(0)),
               {0.167698391697, 0.206583901656, 0.134722842307, 0.385663390518, 0.134462180726}, 1e-10);
}

TEST_F(SmallAnalysis, PhaseIsThatOfTheFirstElectrodeConjugatedTimesTheSecond) {
    Compute("Fp1-F3 = +Fp1 -F3");
    const Values phase = analysis->MeanOf(Type::Phase, Channel(0));
    EXPECT_NEAR(std::abs(phase[0]), 3.14159265359, 1e-9); // real and negative: either end of the circle
    EXPECT_NEAR(phase[1], 2.44369058646, 1e-9);
    EXPECT_NEAR(phase[2], 2.934243796477, 1e-9);
    EXPECT_NEAR(phase[3], 1.719825024337, 1e-9);
    EXPECT_NEAR(phase[4], 0.0, 1e-9);
}

TEST_F(SmallAnalysis, TheReversedChannelHasTheOppositePhase) {
    Compute("a = +Fp1 -F3\nb = +F3 -Fp1");
    EXPECT_NEAR(analysis->MeanAt(Type::Phase, Channel(1), 3), -1.719825024337, 1e-9);
    EXPECT_EQ(analysis->MeanAt(Type::Coherence, Channel(0), 3),
              analysis->MeanAt(Type::Coherence, Channel(1), 3));
}

TEST_F(SmallAnalysis, CoherenceAndPhaseHaveNoDeviation) {
    Compute("Fp1-F3 = +Fp1 -F3");
    EXPECT_TRUE(std::isnan(analysis->SdAt(Type::Coherence, Channel(0), 1)));
    EXPECT_TRUE(std::isnan(analysis->SdAt(Type::Phase, Channel(0), 1)));
}

TEST_F(SmallAnalysis, WithoutASecondElectrodeThereIsNoCoherence) {
    Compute("Fp1 = +Fp1\nmix = +Fp1 -0.5*F3 -0.5*Cz");
    EXPECT_TRUE(std::isnan(analysis->MeanAt(Type::Coherence, Sensor("Fp1"), 1)));
    EXPECT_TRUE(std::isnan(analysis->MeanAt(Type::Phase, Channel(0), 1)));
    EXPECT_TRUE(std::isnan(analysis->MeanAt(Type::Coherence, Channel(1), 1)));
}

TEST_F(SmallAnalysis, ASingleEpochHasNoDeviationAndNoCoherence) {
    SpectraMacro macro = test::SmallMacro();
    macro.SetEpochsSelMode(SpectraMacro::EpochsSelectionMode::FirstN);
    macro.SetNumEpochsToUse(1);
    Compute("Fp1-F3 = +Fp1 -F3", test::InDouble(), macro);
    EXPECT_EQ(analysis->EpochCount(), 1u);
    EXPECT_FALSE(std::isnan(analysis->MeanAt(Type::Power, Channel(0), 1)));
    EXPECT_TRUE(std::isnan(analysis->SdAt(Type::Power, Channel(0), 1)));
    EXPECT_TRUE(std::isnan(analysis->SdAt(Type::Amplitude, Channel(0), 1)));
    EXPECT_TRUE(std::isnan(analysis->MeanAt(Type::Coherence, Channel(0), 1)));
    EXPECT_TRUE(std::isnan(analysis->MeanAt(Type::Phase, Channel(0), 1)));
    EXPECT_TRUE(std::isnan(analysis->AbsSpread(Type::Power, Channel(0), 1, 3).sd));
}

TEST_F(SmallAnalysis, BeyondTheLastBinIsNothing) {
    Compute("Fp1-F3 = +Fp1 -F3");
    EXPECT_EQ(analysis->Bins(), 5u);
    for (const Type entity : {Type::Amplitude, Type::Power, Type::Coherence, Type::Phase}) {
        EXPECT_TRUE(std::isnan(analysis->MeanAt(entity, Channel(0), 5)));
        EXPECT_TRUE(std::isnan(analysis->SdAt(entity, Channel(0), 5)));
    }
    EXPECT_TRUE(std::isnan(analysis->LogPowerAt(Channel(0), 5).first));
}

TEST_F(SmallAnalysis, WhatWasNotAskedForIsNothing) {
    ComputeOptions options = test::InDouble();
    options.amplitude = options.statistics = options.cross = options.channels = false;
    Compute("Fp1-F3 = +Fp1 -F3", options);
    EXPECT_TRUE(analysis->Channels().empty());
    EXPECT_TRUE(std::isnan(analysis->MeanAt(Type::Amplitude, Sensor("Fp1"), 1)));
    EXPECT_TRUE(std::isnan(analysis->SdAt(Type::Amplitude, Sensor("Fp1"), 1)));
    EXPECT_TRUE(std::isnan(analysis->LogPowerAt(Sensor("Fp1"), 1).first));
    ExpectNear(analysis->MeanOf(Type::Power, Sensor("Fp1")), kFp1Power, 1e-11);
}

TEST_F(SmallAnalysis, ACopyOfTheMontageFindsItsChannels) {
    Compute("a = +Fp1 -F3\nb = +F3 -Cz");
    const MontageType copy = analysis->Montage();
    EXPECT_EQ(analysis->Row(copy.GetChn(1)), analysis->Channels()[1].trace);
    const MontageType other = test::MontageOf(*recording, "b = +F3 -Fp1");
    EXPECT_FALSE(analysis->Row(other.GetChn(0)));
}

TEST_F(SmallAnalysis, NullAndForeignTracesHaveNoRow) {
    Compute("a = +Fp1 -F3");
    const auto another = test::SmallRecording();
    EXPECT_FALSE(analysis->Row(static_cast<const SensorType*>(nullptr)));
    EXPECT_FALSE(analysis->Row(static_cast<const ChnType*>(nullptr)));
    EXPECT_FALSE(analysis->Row(test::SensorOf(*another, "Fp1")));
}

TEST_F(SmallAnalysis, TheEpochsHaveTheirTimes) {
    Compute("Cz = +Cz");
    EXPECT_EQ(analysis->EpochTime(1), XTimeInterval(XTime::FromSeconds(0.5), XTime::FromSeconds(1.5)));
}

class AbsSpreads : public SmallAnalysis, public testing::WithParamInterface<bool> {
protected:
    ComputeOptions Options() const {
        return GetParam() ? test::InDouble() : test::WithoutMemory(test::InDouble());
    }
};

TEST_P(AbsSpreads, OfABandKnownWhenComputing) {
    SPECT::GetGlobals().Bands[0].lo = 1;
    SPECT::GetGlobals().Bands[0].hi = 3;
    Compute("Cz = +Cz", Options());
    const Spread power = analysis->AbsSpread(Type::Power, Sensor("Fp1"), 1, 3);
    EXPECT_NEAR(power.mean, 15.62991589396239, 1e-9);
    EXPECT_NEAR(100 * power.sd / power.mean, 55.278633222618616, 1e-8);
}

TEST_P(AbsSpreads, OfABandChangedSince) {
    Compute("Cz = +Cz", Options());
    const Spread power = analysis->AbsSpread(Type::Power, Sensor("Fp1"), 2, 4);
    EXPECT_NEAR(100 * power.sd / power.mean, 82.7671987445281, 1e-4);
}

TEST_P(AbsSpreads, OfAmplitudeAreThoseOfTheRoot) {
    Compute("Cz = +Cz", Options());
    const Spread amplitude = analysis->AbsSpread(Type::Amplitude, Sensor("Fp1"), 1, 3);
    EXPECT_NEAR(100 * amplitude.sd / amplitude.mean, 27.80060238992129, 1e-4);
}

INSTANTIATE_TEST_SUITE_P(Epochs, AbsSpreads, testing::Bool(),
                         [](const auto& kept) { return kept.param ? "Kept" : "ComputedAgain"; });

TEST_F(SmallAnalysis, ABandWithoutABinHasNoSpread) {
    Compute("Fp1-F3 = +Fp1 -F3");
    EXPECT_TRUE(std::isnan(analysis->AbsSpread(Type::Power, Channel(0), 1.2, 1.8).mean));
    EXPECT_TRUE(std::isnan(analysis->AbsSpread(Type::Power, Channel(0), 3, 1).mean));
    EXPECT_TRUE(std::isnan(analysis->AbsSpread(Type::Power, Channel(0), 90, 100).mean));
    EXPECT_TRUE(std::isnan(analysis->AbsSpread(Type::Coherence, Channel(0), 1, 3).mean));
}

TEST_F(SmallAnalysis, ACancelGivesNothing) {
    test::RecordingProgress progress;
    progress.CancelAfter = 0;
    EXPECT_EQ(Analysis::Compute(test::InputOf(*recording, test::SmallMacro(), MontageType()), &progress),
              nullptr);
}

TEST_F(SmallAnalysis, AnUnknownTaperIsNamed) {
    try {
        Compute("Cz = +Cz", {}, test::SmallMacro("Nonesuch"));
        FAIL() << "computed";
    } catch (const std::runtime_error& error) {
        EXPECT_NE(std::string(error.what()).find("Nonesuch"), std::string::npos) << error.what();
    }
}

TEST_F(SmallAnalysis, EffectiveEpochsOfUntouchingRectanglesAreAllOfThem) {
    Compute("Cz = +Cz", {}, test::SmallMacro("Rectangular", 0));
    EXPECT_EQ(analysis->EpochCount(), 5u);
    EXPECT_DOUBLE_EQ(analysis->EffectiveCount(), 5);
    EXPECT_DOUBLE_EQ(analysis->EffectiveLogCount(), 5);
}

TEST_F(SmallAnalysis, OverlappingEpochsAreWorthFewer) {
    Compute("Cz = +Cz");
    EXPECT_LT(analysis->EffectiveCount(), 9);
    EXPECT_LT(analysis->EffectiveCount(), analysis->EffectiveLogCount());
}

} // namespace
} // namespace orvanta::spectral
