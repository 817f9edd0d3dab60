// SPDX-License-Identifier: GPL-3.0-or-later
// Signals and sizes that break careless sums.
#include "host/spectral_data/results/analysis.h"
#include "host/spectral_data/results/comparison_of.h"
#include "spectra_contract/spect_macro_result.h"
#include "tests/host/spectral_data/results/analysis_fixture.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <cmath>
#include <stdexcept>

namespace {

using namespace orvanta;
using SPECT::Entity::Type;
using Measure = SPECT::Meas::Type;
using Values = std::vector<double>;

constexpr double kPi = 3.14159265358979323846;

std::unique_ptr<EEGFileInfoType> RecordingOf(const std::vector<Values>& signals, double rate) {
    std::vector<test::MadeSignal> made;
    for (const Values& values : signals) {
        made.push_back({"EEG " + std::to_string(made.size() + 1), rate, values, "uV"});
    }
    return signal::MakeRecording(test::MakeData(made));
}

Values Constant(double value, std::size_t count = 512) {
    return Values(count, value);
}

Values Noise(std::uint64_t seed, std::size_t count = 512) {
    Values values;
    for (std::size_t i = 0; i < count; ++i) {
        seed = seed * 6364136223846793005u + 1442695040888963407u;
        values.push_back(static_cast<double>(seed >> 33) / 4294967296.0 * 100 - 25);
    }
    return values;
}

/// Two signals at 64 Hz under windows of 1 s; the channel is their difference.
class Hazard : public testing::Test {
protected:
    void Compute(const std::vector<Values>& signals) {
        recording = RecordingOf(signals, 64);
        if (signals.size() > 1) {
            const auto& sensors = recording->GetRecording()->Sensors();
            recording->GetTraceInfo()->SetMtg(
                test::MontageOf(*recording, "difference = \"" + sensors[0]->GetName() + "\" - \"" +
                                                sensors[1]->GetName() + "\""));
        }
        result = std::make_unique<SpectMacroResult>(test::SmallMacro(), recording.get(), nullptr);
        result->Compute(nullptr);
    }
    SpectrumSingle& Sensor(std::size_t index) const {
        return *result->GetSpectrum(recording->GetRecording()->Sensors()[index].get());
    }
    SpectrumSingle& Channel() const { return *result->GetSpectrum(result->GetMontage().GetChn(0)); }
    static Values MeanOf(const SpectrumSingle& spectrum) {
        Values values;
        spectrum.GetSpect(values);
        return values;
    }
    static bool AllNaN(const Values& values) {
        return std::all_of(values.begin(), values.end(), [](double value) { return std::isnan(value); });
    }

    test::GlobalsGuard guard;
    std::unique_ptr<EEGFileInfoType> recording;
    std::unique_ptr<SpectMacroResult> result;
};

TEST_F(Hazard, AConstantChannelHasNoPowerAndNoShares) {
    Compute({Constant(-123.456), Noise(1)});
    EXPECT_EQ(MeanOf(Sensor(0)), Values(33, 0.0));
    EXPECT_EQ(Sensor(0).GetMeasure(2, Measure::Abs), 0);
    EXPECT_TRUE(std::isnan(Sensor(0).GetMeasure(2, Measure::Rel)));
    EXPECT_TRUE(std::isnan(Sensor(0).GetMeasure(2, Measure::PeakF)));
    EXPECT_TRUE(std::isnan(Sensor(0).GetMeasure(2, Measure::MeanF)));
    EXPECT_TRUE(std::isnan(Sensor(0).GetMeasure(2, Measure::SEF95)));
    EXPECT_TRUE(std::isnan(Sensor(0).GetMeasure(2, Measure::CV)));
}

TEST_F(Hazard, CoherenceWithAConstantChannelIsNotComputable) {
    Compute({Constant(5), Noise(1)});
    SPECT::GetGlobals().SetMeasEntity(Type::Coherence);
    EXPECT_TRUE(AllNaN(MeanOf(Channel())));
    SPECT::GetGlobals().SetMeasEntity(Type::Phase);
    EXPECT_TRUE(AllNaN(MeanOf(Channel())));
}

TEST_F(Hazard, AllZeroIsComparedWithNothing) {
    Compute({Constant(0), Noise(1)});
    const auto analysis = result->GetAnalysis();
    const auto* zero = recording->GetRecording()->Sensors()[0].get();
    const auto comparison = spectral::CompareTrace(*analysis, *analysis, zero, Type::Power);
    EXPECT_TRUE(AllNaN(comparison->p));
    EXPECT_TRUE(AllNaN(comparison->ratio));
}

TEST_F(Hazard, EqualSignalsAreFullyCoherentNotMore) {
    Compute({Noise(3), Noise(3)});
    SPECT::GetGlobals().SetMeasEntity(Type::Coherence);
    for (const double coherence : MeanOf(Channel())) {
        EXPECT_LE(coherence, 1.0);
        EXPECT_GT(coherence, 0.99999);
    }
    SPECT::GetGlobals().SetMeasEntity(Type::Power);
    for (const double power : MeanOf(Channel())) {
        EXPECT_NEAR(power, 0, 1e-9);
    }
}

TEST_F(Hazard, ASaturatedChannelStaysFinite) {
    Values saturated = Noise(5);
    for (double& value : saturated) {
        value = value > 0 ? 3.2e6 : -3.2e6;
    }
    Compute({saturated, Noise(1)});
    for (const double power : MeanOf(Sensor(0))) {
        EXPECT_TRUE(std::isfinite(power));
    }
    EXPECT_GT(Sensor(0).GetMeasure(-1, Measure::Abs), 1e12);
}

TEST_F(Hazard, AnOffsetOf200MillivoltsChangesNothing) {
    Values lifted = Noise(9);
    const Values plain = lifted;
    for (double& value : lifted) {
        value = std::round(value * 16) / 16 + 200000; // exact in the stored 32-bit floats
    }
    Values rounded = plain;
    for (double& value : rounded) {
        value = std::round(value * 16) / 16;
    }
    Compute({lifted, rounded});
    const Values a = MeanOf(Sensor(0)), b = MeanOf(Sensor(1));
    const double largest = *std::max_element(b.begin(), b.end());
    for (std::size_t bin = 0; bin < a.size(); ++bin) {
        EXPECT_NEAR(a[bin], b[bin], 1e-6 * largest) << bin;
    }
}

TEST_F(Hazard, NotANumberInTheSignalStaysInItsTraces) {
    Values broken = Noise(1);
    broken[100] = std::nan("");
    Compute({broken, Noise(2)});
    EXPECT_TRUE(AllNaN(MeanOf(Sensor(0))));
    EXPECT_TRUE(AllNaN(MeanOf(Channel())));
    EXPECT_TRUE(std::isnan(Sensor(0).GetMeasure(0, Measure::Abs)));
    EXPECT_TRUE(std::isnan(Sensor(0).GetMeasure(0, Measure::CV)));
    for (const double power : MeanOf(Sensor(1))) {
        EXPECT_TRUE(std::isfinite(power));
    }
}

TEST_F(Hazard, ACalibrationThatIsNoNumberIsNamed) {
    signal::RecordingData data = test::MakeData({{"Fp1", 64, Noise(1)}, {"Fp2", 64, Noise(2)}});
    data.signals[0].gain = std::nan("");
    recording = signal::MakeRecording(std::move(data));
    result = std::make_unique<SpectMacroResult>(test::SmallMacro(), recording.get(), nullptr);
    try {
        result->Compute(nullptr);
        FAIL() << "computed";
    } catch (const std::runtime_error& error) {
        EXPECT_STREQ(error.what(),
                     "the calibration of sensor Fp1 is no finite number (correct its physical range in "
                     "the file)");
    }
}

TEST_F(Hazard, OneChannelIsEnough) {
    Compute({Noise(1)});
    EXPECT_EQ(result->GetSensorMap().size(), 1u);
    EXPECT_TRUE(std::isfinite(Sensor(0).GetMeasure(2, Measure::Abs)));
}

TEST_F(Hazard, A512ChannelAverageReferenceIsComputed) {
    std::vector<Values> signals;
    for (std::uint64_t i = 0; i < 512; ++i) {
        signals.push_back(Noise(i + 1, 192));
    }
    recording = RecordingOf(signals, 64);
    for (const auto& montage : *recording->GetMontageList()) {
        if (montage->GetKind() == MontageType::Kind::AverageReference) {
            recording->GetTraceInfo()->SetMtg(*montage);
        }
    }
    result = std::make_unique<SpectMacroResult>(test::SmallMacro(), recording.get(), nullptr);
    result->Compute(nullptr);
    ASSERT_EQ(result->GetMontage().GetNumTraces(), 512u);
    const SpectrumSingle* last = result->GetSpectrum(result->GetMontage().GetChn(511));
    ASSERT_NE(last, nullptr);
    // By Parseval's theorem the windowed noise less its reference keeps 511/512 of its power.
    const double own = Sensor(511).GetMeasure(-1, Measure::Abs);
    EXPECT_NEAR(last->GetMeasure(-1, Measure::Abs) / own, 1, 0.1);
}

TEST_F(Hazard, ASineOfAmplitudeAHasAbsOfHalfASquared) {
    Values sine;
    for (std::size_t i = 0; i < 512; ++i) {
        sine.push_back(30 * std::sin(2 * kPi * 10 * static_cast<double>(i) / 64));
    }
    Compute({sine});
    EXPECT_NEAR(Sensor(0).GetMeasure(2, Measure::Abs), 450, 0.001); // alpha, 8 to 13 Hz
    EXPECT_NEAR(Sensor(0).GetMeasure(2, Measure::PeakF), 10, 1e-9);
}

TEST_F(Hazard, AChannelEqualsItsSamplesSubtractedInTime) {
    const Values a = Noise(11), b = Noise(12);
    Values difference;
    for (std::size_t i = 0; i < a.size(); ++i) {
        difference.push_back(static_cast<float>(a[i]) - static_cast<double>(static_cast<float>(b[i])));
    }
    Compute({a, b, difference});
    const Values ofChannel = MeanOf(Channel()), ofSamples = MeanOf(Sensor(2));
    const double largest = *std::max_element(ofSamples.begin(), ofSamples.end());
    for (std::size_t bin = 0; bin < ofSamples.size(); ++bin) {
        EXPECT_NEAR(ofChannel[bin], ofSamples[bin], 1e-6 * largest) << bin;
    }
}

TEST_F(Hazard, ThreadsDoNotChangeABit) {
    recording = RecordingOf({Noise(1, 6400), Noise(2, 6400), Noise(3, 6400)}, 64);
    const MontageType montage = *recording->GetMontageList()->GetRefMtg();
    std::vector<std::uint64_t> expected;
    for (unsigned threads = 1; threads <= 8; ++threads) {
        spectral::ComputeOptions options;
        options.threads = threads;
        const auto analysis = spectral::Analysis::Compute(
            test::InputOf(*recording, test::SmallMacro(), montage, options), nullptr);
        std::vector<std::uint64_t> bits;
        for (const auto& channel : analysis->Channels()) {
            for (const Type entity : {Type::Amplitude, Type::Power, Type::Coherence, Type::Phase}) {
                for (const Values& values :
                     {analysis->MeanOf(entity, *channel.trace), analysis->SdOf(entity, *channel.trace)}) {
                    for (const double value : values) {
                        bits.push_back(std::bit_cast<std::uint64_t>(value));
                    }
                }
            }
        }
        ASSERT_FALSE(bits.empty());
        expected = threads == 1 ? bits : expected;
        EXPECT_EQ(bits, expected) << threads << " threads";
    }
}

TEST_F(Hazard, AWindowWhoseSumsWouldExhaustTheMachineIsRefused) {
    // 2^24 samples per window: 512 sensors would take 400 GiB. The samples are not even looked at.
    spectral::EpochPlan plan;
    plan.geometry = {1u << 24, 1u << 24, 1u << 24};
    plan.starts = {0};
    std::vector<Values> signals(512, Constant(0, 64));
    recording = RecordingOf(signals, 64);
    try {
        spectral::Analysis::Compute({recording->GetRecording(), test::SmallMacro(), MontageType(), plan, {}},
                                    nullptr);
        FAIL() << "computed";
    } catch (const std::runtime_error& error) {
        EXPECT_STREQ(error.what(),
                     "spectra of 512 traces with 8388609 bins would take 192.0 GiB of memory (choose "
                     "a shorter FFT window)");
    }
}

} // namespace
