// SPDX-License-Identifier: GPL-3.0-or-later
// Expected values: SciPy's linregress of the contrast values on log10 power of the same epochs.
#include "host/signal_base/recording_error.h"
#include "spectra_contract/bci_regression.h"
#include "spectra_contract/spectra_mgr.h"
#include "tests/host/spectral_data/results/analysis_fixture.h"
#include "tests/support/failing_source.h"
#include "tests/support/known_slope.h"
#include "tests/support/recording_progress.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <iterator>

namespace {

using namespace orvanta;

/// Two analyses of five epochs each, contrast 0 and 1.
class Regression : public testing::Test {
protected:
    Regression() {
        open = Add("open", 0);
        closed = Add("closed", 1);
    }
    SpectMacroResult* Add(const std::string& label, int contrast, double seconds = 1) {
        SpectraMacro macro = test::SmallMacro("Rectangular", 0);
        macro.SetFFTSeconds(seconds);
        macro.SetTimeIntervalSelectMode(SpectraMacro::TimeIntervalSelectMode::ByStateEvents);
        macro.SetAcceptStateList({label});
        macro.SetContrastValue(contrast);
        auto* analysis = new SpectMacroResult(macro, recording.get(), nullptr);
        manager.push_back(analysis);
        analysis->SetComputeOptions(test::InDouble());
        analysis->Compute(nullptr);
        return analysis;
    }
    int Regress(const std::list<SpectMacroResult*>& analyses, int low = 1, int high = 2) {
        return manager.ComputeBCIRegression(analyses, results, sensors, low, high);
    }
    const SensorType* Sensor(const char* name) const { return test::SensorOf(*recording, name); }

    test::GlobalsGuard guard;
    std::unique_ptr<EEGFileInfoType> recording =
        test::SmallRecording(10, {{0, 5.0, "open"}, {5, 5.0, "closed"}});
    SpectraMgr manager{recording.get(), nullptr};
    SpectMacroResult* open = nullptr;
    SpectMacroResult* closed = nullptr;
    std::set<const SensorType*> sensors = {Sensor("Fp1")};
    std::list<BCIReg> results;
};

TEST_F(Regression, OfContrastOnLogPower) {
    ASSERT_EQ(Regress({open, closed}), 0);
    ASSERT_EQ(results.size(), 2u);
    const BCIReg& first = results.front();
    EXPECT_EQ(first.Sensor, Sensor("Fp1"));
    EXPECT_EQ(first.FreqHz, 1.0);
    EXPECT_NEAR(first.R, -0.20734835923183717, 1e-6);
    EXPECT_NEAR(first.K, -0.3065391933744204, 1e-6);
    EXPECT_NEAR(first.M, 0.8179542644189581, 1e-6);
    EXPECT_EQ(first.Count, 10u);
    EXPECT_EQ(results.back().FreqHz, 2.0);
    EXPECT_NEAR(results.back().R, 0.058212606872674814, 1e-6);
}

TEST_F(Regression, GoesBySensorInRecordingOrderThenByFrequency) {
    sensors = {Sensor("Cz"), Sensor("Fp1")};
    ASSERT_EQ(Regress({open, closed}, 2, 3), 0);
    ASSERT_EQ(results.size(), 4u);
    auto row = results.begin();
    EXPECT_EQ(row->Sensor, Sensor("Fp1"));
    EXPECT_EQ(row->FreqHz, 2.0);
    EXPECT_EQ(std::next(row)->FreqHz, 3.0);
    EXPECT_EQ(std::next(row, 2)->Sensor, Sensor("Cz"));
}

TEST_F(Regression, TheSameInTheEntityAmplitude) {
    SPECT::GetGlobals().SetMeasEntity(SPECT::Entity::Type::Amplitude);
    ASSERT_EQ(Regress({open, closed}), 0);
    EXPECT_NEAR(results.front().R, -0.20734835923183717, 1e-6);
}

TEST_F(Regression, TheContrastIsThePresentOne) {
    closed->GetMacro().SetContrastValue(3);
    ASSERT_EQ(Regress({open, closed}), 0);
    EXPECT_NEAR(results.front().K, 3 * -0.3065391933744204, 1e-6);
}

TEST_F(Regression, NoObservations) {
    EXPECT_EQ(Regress({}), -10);
    EXPECT_EQ(Regress({nullptr}), -10);
    open->ResetData();
    closed->ResetData();
    EXPECT_EQ(Regress({open, closed}), -10);
}

TEST_F(Regression, NoContrastThatDiffers) {
    EXPECT_EQ(Regress({open}), -20);
    EXPECT_EQ(Regress({open, open}), -20);
    closed->GetMacro().SetContrastValue(0);
    EXPECT_EQ(Regress({open, closed}), -20);
}

TEST_F(Regression, NoPredictors) {
    EXPECT_EQ(Regress({open, closed}, 5, 90), -30); // beyond Nyquist
    sensors.clear();
    EXPECT_EQ(Regress({open, closed}), -30);
    const auto other = test::SmallRecording();
    sensors = {test::SensorOf(*other, "Fp1"), nullptr};
    EXPECT_EQ(Regress({open, closed}), -30);
}

TEST_F(Regression, LowAboveHigh) {
    EXPECT_EQ(Regress({open, closed}, 3, 2), -40);
    EXPECT_EQ(Regress({}, 3, 2), -40);
}

TEST_F(Regression, EpochsThatCannotBeReadAgain) {
    signal::RecordingData data = test::SmallData(10, {{0, 5.0, "open"}, {5, 5.0, "closed"}});
    const auto source = std::make_shared<test::FailingSource>(data.source);
    data.source = source;
    const auto file = signal::MakeRecording(std::move(data));
    for (SpectMacroResult* analysis : {open, closed}) {
        analysis->SetComputeOptions(test::WithoutMemory(test::InDouble()));
        ASSERT_TRUE(analysis->ComputeOf(file.get(), nullptr));
    }
    sensors = {test::SensorOf(*file, "Fp1")};
    ASSERT_EQ(Regress({open, closed}), 0);
    for (SpectMacroResult* analysis : {open, closed}) { // leaves another epoch in the cache
        analysis->GetSpeCartoon(4, test::SensorOf(*file, "Cz"));
    }
    source->BeforeRead = [] { throw signal::RecordingError("memory.edf", "it went away", "bring it back"); };
    EXPECT_EQ(Regress({open, closed}), -50);
    EXPECT_TRUE(results.empty());
}

TEST_F(Regression, AFailureEmptiesTheResults) {
    ASSERT_EQ(Regress({open, closed}), 0);
    EXPECT_EQ(Regress({open, closed}, 3, 2), -40);
    EXPECT_TRUE(results.empty());
}

TEST_F(Regression, AnalysesOfAnotherResolutionAreLeftOut) {
    SpectMacroResult* coarse = Add("closed", 5, 2);
    ASSERT_EQ(Regress({open, coarse, closed}), 0);
    EXPECT_EQ(results.front().Count, 10u);
    EXPECT_NEAR(results.front().R, -0.20734835923183717, 1e-6);
}

TEST_F(Regression, EpochsComputedAgainGiveTheSame) {
    ASSERT_EQ(Regress({open, closed}), 0);
    const double kept = results.front().R;
    for (SpectMacroResult* analysis : {open, closed}) {
        analysis->SetComputeOptions(test::WithoutMemory(test::InDouble()));
        analysis->Compute(nullptr);
    }
    ASSERT_EQ(Regress({open, closed}), 0);
    EXPECT_EQ(results.front().R, kept);
}

/// Analyses of all four states, whose contrast values are known to depend on log10 power.
class KnownSlope : public testing::Test {
protected:
    KnownSlope() {
        for (const int contrast : {-1, 1, 3, 5}) {
            analyses.push_back(test::AddKnownSlope(manager, *recording, contrast));
        }
    }
    int Regress(int low, int high) {
        return manager.ComputeBCIRegression(analyses, results, GetBCISensors(*analyses.front()), low, high);
    }
    const SensorType* Sensor(const char* name) const { return test::SensorOf(*recording, name); }

    test::GlobalsGuard guard;
    std::unique_ptr<EEGFileInfoType> recording = test::KnownSlopeRecording();
    SpectraMgr manager{recording.get(), nullptr};
    std::list<SpectMacroResult*> analyses;
    std::list<BCIReg> results;
};

TEST_F(KnownSlope, IsFound) {
    ASSERT_EQ(Regress(10, 10), 0);
    ASSERT_EQ(results.size(), 3u);
    const BCIReg& rising = results.front();
    EXPECT_EQ(rising.Sensor, Sensor("O1"));
    EXPECT_NEAR(rising.R, 1, 1e-7);
    EXPECT_NEAR(rising.K, 2, 1e-6);
    EXPECT_NEAR(rising.M, 1, 1e-6);
    EXPECT_EQ(rising.Count, 20u);
    const BCIReg& falling = *std::next(results.begin());
    EXPECT_NEAR(falling.R, -1, 1e-7);
    EXPECT_NEAR(falling.K, -2, 1e-6);
    EXPECT_NEAR(falling.M, 3, 1e-6);
}

TEST_F(KnownSlope, TellsItsProgressAnalysisByAnalysis) {
    test::RecordingProgress progress;
    ASSERT_EQ(
        manager.ComputeBCIRegression(analyses, results, GetBCISensors(*analyses.front()), 10, 10, &progress),
        0);
    EXPECT_EQ(progress.Positions, (std::vector{0.25, 0.5, 0.75, 1.0}));
}

TEST_F(KnownSlope, HasNoResultsWhenItIsCancelled) {
    test::RecordingProgress progress;
    progress.CancelAfter = 2;
    EXPECT_EQ(
        manager.ComputeBCIRegression(analyses, results, GetBCISensors(*analyses.front()), 10, 10, &progress),
        -60);
    EXPECT_TRUE(results.empty());
    EXPECT_EQ(progress.Positions.size(), 2U);
}

TEST_F(KnownSlope, IsNotComputableWithoutPower) {
    ASSERT_EQ(Regress(10, 10), 0);
    const BCIReg& flat = results.back();
    EXPECT_EQ(flat.Sensor, Sensor("Cz"));
    EXPECT_TRUE(std::isnan(flat.R) && std::isnan(flat.K) && std::isnan(flat.M));
    EXPECT_EQ(flat.Count, 0u);
    EXPECT_TRUE(GetBCIPoints(analyses, flat).empty());
}

TEST_F(KnownSlope, HasAPointForEachEpoch) {
    const BCIReg pair{.Sensor = Sensor("O1"), .FreqHz = 10};
    const std::vector<BCIPoint> points = GetBCIPoints(analyses, pair);
    ASSERT_EQ(points.size(), 20u);
    for (std::size_t i = 0; i < points.size(); ++i) {
        const double contrast = std::array{-1, 1, 3, 5}[i / 5];
        EXPECT_EQ(points[i].Contrast, contrast);
        EXPECT_NEAR(points[i].LogPower, (contrast - 1) / 2, 1e-6);
    }
}

TEST_F(KnownSlope, HasTheSamePointsInEveryEntity) {
    const BCIReg pair{.Sensor = Sensor("O1"), .FreqHz = 10};
    const std::vector<BCIPoint> power = GetBCIPoints(analyses, pair);
    SPECT::GetGlobals().SetMeasEntity(SPECT::Entity::Type::Coherence);
    EXPECT_EQ(GetBCIPoints(analyses, pair), power);
}

TEST_F(KnownSlope, HasNoPointWhereThereIsNoSuchPair) {
    EXPECT_TRUE(GetBCIPoints(analyses, {.Sensor = Sensor("O1"), .FreqHz = 33}).empty());
    EXPECT_TRUE(GetBCIPoints(analyses, {.Sensor = nullptr, .FreqHz = 10}).empty());
    EXPECT_TRUE(GetBCIPoints({}, {.Sensor = Sensor("O1"), .FreqHz = 10}).empty());
}

TEST_F(KnownSlope, TakesTheSensorsWithAKnownScalpPosition) {
    EXPECT_EQ(GetBCISensors(*analyses.front()),
              (std::set<const SensorType*>{Sensor("O1"), Sensor("O2"), Sensor("Cz")}));
    const auto unplaced = test::KnownSlopeRecording("EEG one", "EEG two", "Cz");
    SpectraMgr others(unplaced.get(), nullptr);
    const SpectMacroResult* analysis = test::AddKnownSlope(others, *unplaced, 1);
    EXPECT_EQ(analysis->GetSensorMap().size(), 3u);
    EXPECT_EQ(GetBCISensors(*analysis), std::set<const SensorType*>{test::SensorOf(*unplaced, "Cz")});
}

} // namespace
