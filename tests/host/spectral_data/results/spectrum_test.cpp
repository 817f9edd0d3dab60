// SPDX-License-Identifier: GPL-3.0-or-later
#include "spectra_contract/spectrum.h"

#include "host/spectral_data/results/analysis.h"
#include "host/spectral_data/results/spectrum_impl.h"
#include "spectra_contract/spect_macro_result.h"
#include "tests/host/spectral_data/results/analysis_fixture.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

using orvanta::test::GlobalsGuard;
using SPECT::Entity::Type;
using Measure = SPECT::Meas::Type;

class Spectra : public testing::Test {
protected:
    Spectra() {
        recording->GetTraceInfo()->SetMtg(orvanta::test::MontageOf(*recording, "Fp1-F3 = +Fp1 -F3"));
        result.SetComputeOptions(orvanta::test::InDouble());
        result.Compute(nullptr);
        fp1 = result.GetSpectrum(orvanta::test::SensorOf(*recording, "Fp1"));
        channel = result.GetSpectrum(result.GetMontage().GetChn(0));
    }
    static void Choose(Type entity) { SPECT::GetGlobals().SetMeasEntity(entity); }
    static void SetBand(double lo, double hi) {
        SPECT::GetGlobals().Bands[0].lo = lo;
        SPECT::GetGlobals().Bands[0].hi = hi;
    }

    GlobalsGuard guard;
    std::unique_ptr<EEGFileInfoType> recording = orvanta::test::SmallRecording();
    SpectMacroResult result{orvanta::test::SmallMacro(), recording.get(), nullptr};
    SpectrumSingle* fp1 = nullptr;
    SpectrumSingle* channel = nullptr;
};

TEST_F(Spectra, KnowWhatTheyBelongTo) {
    const auto* ofSensor = dynamic_cast<SpectrumSens*>(fp1);
    const auto* ofChannel = dynamic_cast<SpectrumChn*>(channel);
    ASSERT_NE(ofSensor, nullptr);
    ASSERT_NE(ofChannel, nullptr);
    EXPECT_EQ(ofSensor->GetSensor(), orvanta::test::SensorOf(*recording, "Fp1"));
    EXPECT_EQ(fp1->GetName(), "Fp1");
    EXPECT_EQ(channel->GetName(), "Fp1-F3");
    EXPECT_EQ(*ofChannel->GetChn(), *recording->GetTraceInfo()->GetMtg().GetChn(0));
}

TEST_F(Spectra, FollowTheEntityAtEachCall) {
    EXPECT_NEAR(fp1->GetValue(1), 7.105665785957, 1e-10);
    Choose(Type::Amplitude);
    EXPECT_NEAR(fp1->GetValue(1), 2.577720334393, 1e-10);
    std::vector<double> sd;
    fp1->GetSpectSD(sd);
    EXPECT_NEAR(sd.at(1), 0.720174716001, 1e-10);
    Choose(Type::Coherence);
    EXPECT_TRUE(std::isnan(fp1->GetValue(1)));
    EXPECT_NEAR(channel->GetValue(1), 0.206583901656, 1e-10);
    Choose(Type::Phase);
    EXPECT_NEAR(channel->GetValue(1), 2.44369058646, 1e-10);
}

TEST_F(Spectra, HaveOneValuePerBin) {
    std::vector<double> values(99, 1.0);
    channel->GetSpect(values);
    EXPECT_EQ(values.size(), 5u);
    channel->GetSpectSD(values);
    EXPECT_EQ(values.size(), 5u);
    EXPECT_TRUE(std::isnan(channel->GetValue(5)));
    EXPECT_TRUE(std::isnan(channel->GetValue(std::numeric_limits<std::uint64_t>::max())));
}

TEST_F(Spectra, SamplesAreCoherenceAndPhaseWhateverTheEntity) {
    const SpectSample sample = channel->GetSample(3);
    EXPECT_NEAR(sample.GetCohM(), 0.385663390518, 1e-10);
    EXPECT_NEAR(sample.GetCohP(), 1.719825024337, 1e-10);
    EXPECT_TRUE(std::isnan(fp1->GetSample(3).GetCohM()));
    EXPECT_TRUE(std::isnan(fp1->GetSample(3).GetCohP()));
}

TEST_F(Spectra, MeasuresFollowTheBandsWithoutComputingAnew) {
    SetBand(1, 3);
    EXPECT_NEAR(fp1->GetMeasure(0, Measure::Abs), 15.62991589396239, 1e-10);
    EXPECT_NEAR(fp1->GetMeasure(0, Measure::CV), 55.278633222618616, 1e-4);
    SetBand(2, 4);
    EXPECT_NEAR(fp1->GetMeasure(0, Measure::Abs), 17.641534727258, 1e-10); // 8.524250108005 + 9.117284619253
    EXPECT_NEAR(fp1->GetMeasure(0, Measure::CV), 82.7671987445281, 1e-4);
    EXPECT_NEAR(fp1->GetMeasure(0, Measure::PeakF), 3, 1e-12);
}

TEST_F(Spectra, AmplitudeMeasures) {
    Choose(Type::Amplitude);
    SetBand(1, 3);
    EXPECT_NEAR(fp1->GetMeasure(0, Measure::Abs), std::sqrt(15.62991589396239), 1e-10);
    EXPECT_NEAR(fp1->GetMeasure(0, Measure::Mean), (2.577720334393 + 2.652175128399) / 2, 1e-10);
    EXPECT_NEAR(fp1->GetMeasure(0, Measure::CV), 27.80060238992129, 1e-4);
}

TEST_F(Spectra, MinusOneIsTheTotalBand) {
    SPECT::GetGlobals().TotalLo = 1;
    SPECT::GetGlobals().TotalHi = 3;
    EXPECT_NEAR(fp1->GetMeasure(-1, Measure::Abs), 15.62991589396239, 1e-10);
    EXPECT_NEAR(fp1->GetMeasure(-1, Measure::Rel), 100, 1e-10);
}

TEST_F(Spectra, OtherBandsDoNotExist) {
    EXPECT_TRUE(std::isnan(fp1->GetMeasure(8, Measure::Abs)));
    EXPECT_TRUE(std::isnan(fp1->GetMeasure(-2, Measure::Abs)));
    EXPECT_TRUE(std::isnan(fp1->GetMeasure(0, static_cast<Measure>(8))));
}

class HopelessBands : public Spectra, public testing::WithParamInterface<std::pair<double, double>> {};

TEST_P(HopelessBands, HaveNoMeasure) {
    SetBand(GetParam().first, GetParam().second);
    for (const Type entity : {Type::Amplitude, Type::Power, Type::Coherence, Type::Phase}) {
        Choose(entity);
        for (int measure = 0; measure < 8; ++measure) {
            EXPECT_TRUE(std::isnan(channel->GetMeasure(0, static_cast<Measure>(measure)))) << measure;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Spectra, HopelessBands,
                         testing::Values(std::pair(2.0, 2.0),     // zero width
                                         std::pair(2.0, 2.01),    // no wider than 0.01 Hz
                                         std::pair(3.0, 1.0),     // reversed
                                         std::pair(50.0, 60.0),   // beyond Nyquist
                                         std::pair(1.2, 1.8),     // between two bins
                                         std::pair(-3.0, -1.0))); // below 0

TEST_F(Spectra, ABandThatReachesBeyondNyquistEndsThere) {
    SetBand(3, 500);
    EXPECT_NEAR(fp1->GetMeasure(0, Measure::Abs), 9.117284619253 + 2.143944906157, 1e-10);
}

TEST_F(Spectra, CoherenceMeasures) {
    Choose(Type::Coherence);
    SetBand(1, 3);
    EXPECT_NEAR(channel->GetMeasure(0, Measure::Mean), (0.206583901656 + 0.134722842307) / 2, 1e-10);
    EXPECT_NEAR(channel->GetMeasure(0, Measure::Peak), 0.206583901656, 1e-10);
    EXPECT_TRUE(std::isnan(channel->GetMeasure(0, Measure::CV)));
    EXPECT_TRUE(std::isnan(fp1->GetMeasure(0, Measure::Mean)));
}

TEST_F(Spectra, StayReadableAsACopy) {
    const SpectrumSens copy = result.GetSensorMap().begin()->second;
    result.ResetData();
    EXPECT_NEAR(copy.GetValue(1), 7.105665785957, 1e-10);
}

} // namespace
