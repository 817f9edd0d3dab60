// SPDX-License-Identifier: GPL-3.0-or-later
#include "spectra_contract/spect_macro_result.h"

#include "host/spectral_data/results/analysis.h"
#include "host/spectral_data/results/errors.h"
#include "tests/host/spectral_data/results/analysis_fixture.h"
#include "tests/support/recording_gui.h"
#include "tests/support/recording_progress.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

using namespace orvanta;
using Interval = SpectraMacro::TimeIntervalSelectMode;

/// An analysis of 10 s with the montage Fp1-F3, computed or not.
class Result : public testing::Test {
protected:
    Result() { Use("Fp1-F3 = +Fp1 -F3"); }

    void Use(const std::string& montage) {
        recording->GetTraceInfo()->SetMtg(test::MontageOf(*recording, montage));
    }
    bool IsNeeded(double top = 4, const XTimeList& events = {}) const {
        return result.IsRecomputingNeeded(recording->GetTraceInfo()->GetMtg(), events, top);
    }
    XTimeList Events() const {
        XTimeList list;
        result.GetEventList(recording.get(), list, nullptr);
        return list;
    }
    const SensorType* Fp1() const { return test::SensorOf(*recording, "Fp1"); }

    test::GlobalsGuard guard;
    std::unique_ptr<EEGFileInfoType> recording =
        test::SmallRecording(10, {{2, 3.0, "open"}, {6, 2.0, "open"}});
    SpectMacroResult result{test::SmallMacro(), recording.get(), nullptr};
};

TEST_F(Result, ConstructionComputesNothing) {
    EXPECT_FALSE(result.IsComputed());
    EXPECT_EQ(result.GetAnalysis(), nullptr);
    EXPECT_EQ(result.GetSpectrum(Fp1()), nullptr);
    EXPECT_EQ(result.GetSpectrum(result.GetMontage().GetChn(0)), nullptr);
    EXPECT_EQ(result.GetSpeCartoon(0, Fp1()), nullptr);
    EXPECT_EQ(result.GetSpeCartoonChnLen(), 0u);
    EXPECT_TRUE(result.GetSensorMap().empty());
}

TEST_F(Result, TheGeometryNeedsNoData) {
    Use("Fp1-F3 = +Fp1 -F3\nF3-Cz = +F3 -Cz");
    EXPECT_EQ(result.GetFFTSamples(), 8u);
    EXPECT_EQ(result.GetFFTSR(), 8.0);
    EXPECT_EQ(result.GetResolutionHz(), 1.0);
    EXPECT_EQ(result.GetFFTResolution(), 1.0);
    EXPECT_EQ(result.GetFFTCount(), 19u);
    EXPECT_EQ(result.GetFFTIntervalList().size(), 19u);
    EXPECT_EQ(result.GetFFTIntervalList().back(), "00:00:09.000  \t00:00:10.000");
    ASSERT_EQ(result.GetMontage().GetNumTraces(), 2u);
    EXPECT_EQ(result.GetMontage().GetChn(1)->GetName(), "F3-Cz");
    EXPECT_EQ(result.GetNumBip(), 2u);
}

TEST_F(Result, AWindowThatIsNoPowerOfTwoIsPadded) {
    result.SetFFTSeconds(1.25);
    EXPECT_EQ(result.GetFFTSamples(), 16u);
    EXPECT_EQ(result.GetResolutionHz(), 0.5);
}

TEST_F(Result, ComputingFillsEverything) {
    EXPECT_TRUE(result.Compute(nullptr));
    EXPECT_TRUE(result.IsComputed());
    EXPECT_EQ(result.GetFFTCount(), 19u);
    EXPECT_EQ(result.GetSpeCartoonChnLen(), 19u);
    ASSERT_EQ(result.GetSensorMap().size(), 3u);
    EXPECT_EQ(result.GetSensorMap().begin()->first, Fp1());
    EXPECT_NE(result.GetSpectrum(Fp1()), nullptr);
    EXPECT_NE(result.GetSpectrum(recording->GetTraceInfo()->GetMtg().GetChn(0)), nullptr);
}

TEST_F(Result, NullAndForeignTracesHaveNoSpectrum) {
    result.Compute(nullptr);
    const auto other = test::SmallRecording();
    EXPECT_EQ(result.GetSpectrum(static_cast<const SensorType*>(nullptr)), nullptr);
    EXPECT_EQ(result.GetSpectrum(static_cast<const ChnType*>(nullptr)), nullptr);
    EXPECT_EQ(result.GetSpectrum(test::SensorOf(*other, "Fp1")), nullptr);
    EXPECT_EQ(result.GetSpeCartoon(0, test::SensorOf(*other, "Fp1")), nullptr);
    EXPECT_EQ(result.GetSpectrum(test::MontageOf(*recording, "Cz = +Cz").GetChn(0)), nullptr);
}

TEST_F(Result, FrequenciesSnapToTheNearestBin) {
    EXPECT_EQ(result.GetIndexFromFreq(2.4), 2u);
    EXPECT_EQ(result.GetIndexFromFreq(2.6), 3u);
    EXPECT_EQ(result.GetTrueFreqFromFreq(2.6), 3.0);
    EXPECT_EQ(result.GetFreqFromIndex(3), 3.0);
    EXPECT_EQ(result.GetIndexFromFreq(-5), 0u);
    EXPECT_EQ(result.GetIndexFromFreq(1e300), 4u);
    EXPECT_EQ(result.GetIndexFromFreq(std::nan("")), 0u);
}

class GeometryAfterAFailure : public Result, public testing::WithParamInterface<bool> {};

TEST_P(GeometryAfterAFailure, IsThatOfTheSpectraStillThere) {
    result.Compute(nullptr);
    result.SetFFTSeconds(4);
    test::RecordingGui gui;
    gui.Cancelled = GetParam();
    if (!GetParam()) {
        result.GetMacro().SetDSPWindowStr("Nonesuch");
    }
    result.ComputeFFT(recording.get(), &gui);
    EXPECT_TRUE(IsNeeded());
    std::vector<double> mean;
    result.GetSpectrum(Fp1())->GetSpect(mean);
    EXPECT_EQ(mean.size(), 5u);
    EXPECT_EQ(result.GetFFTSamples(), 8u);
    EXPECT_EQ(result.GetFFTSR(), 8.0);
    EXPECT_EQ(result.GetResolutionHz(), 1.0);
    EXPECT_EQ(result.GetFFTCount(), 19u);
    EXPECT_EQ(result.GetFFTIntervalList().size(), 19u);
    EXPECT_EQ(result.GetIndexFromFreq(100), 4u); // not 16, which the spectrum does not have
    EXPECT_EQ(result.GetFreqFromIndex(3), 3.0);
    EXPECT_EQ(result.GetTrueFreqFromFreq(2.6), 3.0);
}

INSTANTIATE_TEST_SUITE_P(Result, GeometryAfterAFailure, testing::Bool(),
                         [](const auto& cancelled) { return cancelled.param ? "Cancelled" : "Failed"; });

TEST_F(Result, AResetGivesTheGeometryOfTheSettings) {
    result.Compute(nullptr);
    result.SetFFTSeconds(4);
    result.ResetData();
    EXPECT_EQ(result.GetFFTSamples(), 32u);
    EXPECT_EQ(result.GetResolutionHz(), 0.25);
    EXPECT_EQ(result.GetIndexFromFreq(100), 16u);
}

// --- what makes a computation stale

TEST_F(Result, NeverComputedIsStale) {
    EXPECT_TRUE(IsNeeded());
}

TEST_F(Result, ComputedIsCurrent) {
    result.Compute(nullptr);
    EXPECT_FALSE(IsNeeded());
    EXPECT_FALSE(IsNeeded(4, Events()));
}

TEST_F(Result, AResetIsStale) {
    result.Compute(nullptr);
    result.ResetData();
    EXPECT_TRUE(IsNeeded());
    EXPECT_EQ(result.GetSpectrum(Fp1()), nullptr);
}

TEST_F(Result, AnotherMontageIsStale) {
    result.Compute(nullptr);
    Use("Fp1-Cz = +Fp1 -Cz");
    EXPECT_TRUE(IsNeeded());
    EXPECT_EQ(result.GetMontage().GetChn(0)->GetName(), "Fp1-F3");
}

TEST_F(Result, OtherSettingsAreStale) {
    result.Compute(nullptr);
    result.SetFFTSeconds(2);
    EXPECT_TRUE(IsNeeded());
    result.SetFFTSeconds(1);
    EXPECT_FALSE(IsNeeded());
    result.SetDSPWindowStr("Hamming");
    EXPECT_EQ(result.GetDSPWindowStr(), "Hamming");
    EXPECT_TRUE(IsNeeded());
}

TEST_F(Result, ColourAndContrastAreNotPartOfTheSpectra) {
    result.Compute(nullptr);
    result.GetMacro().Color = 0x00112233;
    result.GetMacro().SetContrastValue(7);
    EXPECT_FALSE(IsNeeded());
}

TEST_F(Result, NewEventsThatItsEpochsDependOnAreStale) {
    result.GetMacro().SetRejectEventsList({"bad"});
    result.Compute(nullptr);
    recording->GetEventsManager()->Add(
        {"fine", EventClass::State, {XTime::FromSeconds(1), XTime::FromSeconds(2)}});
    EXPECT_FALSE(IsNeeded());
    recording->GetEventsManager()->Add(
        {"bad", EventClass::State, {XTime::FromSeconds(1), XTime::FromSeconds(2)}});
    EXPECT_TRUE(IsNeeded());
}

TEST_F(Result, EveryTopUpToHalfTheRateIsMet) {
    result.Compute(nullptr);
    EXPECT_FALSE(IsNeeded(0.5));
    EXPECT_FALSE(IsNeeded(4));
}

struct OddRate {
    const char* name;
    double rate;
    double halfOfMemory;      ///< the rate of the data in memory, a whole number, times 0.5
    double wholeHalfOfMemory; ///< the same without its fraction
};

class OddRates : public testing::TestWithParam<OddRate> {};

TEST_P(OddRates, NeitherHalfOfTheRateIsStale) {
    const double rate = GetParam().rate;
    const double perBlock = std::floor(rate);
    signal::RecordingData data =
        test::MakeData({{"Fp1", perBlock, test::Fp1Values(static_cast<std::size_t>(5 * perBlock)), "uV"}});
    data.signals[0].rate_hz = rate;
    data.block_seconds = perBlock / rate;
    const auto odd = signal::MakeRecording(std::move(data));
    SpectMacroResult analysis(test::SmallMacro(), odd.get(), nullptr);
    EXPECT_TRUE(analysis.Compute(nullptr));
    EXPECT_DOUBLE_EQ(analysis.GetFFTSR(), rate);
    const double memory = odd->GetTraceCursor()->GetMemDataSR();
    EXPECT_EQ(memory * 0.5, GetParam().halfOfMemory);
    const MontageType& montage = odd->GetTraceInfo()->GetMtg();
    EXPECT_FALSE(analysis.IsRecomputingNeeded(montage, {}, GetParam().halfOfMemory));
    EXPECT_FALSE(analysis.IsRecomputingNeeded(montage, {}, GetParam().wholeHalfOfMemory));
    EXPECT_FALSE(analysis.IsRecomputingNeeded(montage, {}, rate / 2));
    EXPECT_TRUE(analysis.IsRecomputingNeeded(montage, {}, GetParam().halfOfMemory + 1));
}

INSTANTIATE_TEST_SUITE_P(Result, OddRates,
                         testing::Values(OddRate{"Odd", 255, 127.5, 127}, //
                                         OddRate{"RoundedUp", 173.61, 87, 87},
                                         OddRate{"RoundedDown", 250.4, 125, 125}),
                         [](const auto& odd) { return odd.param.name; });

TEST_F(Result, AHigherTopIsAskedForOnce) {
    result.Compute(nullptr);
    EXPECT_TRUE(IsNeeded(4.5));
    result.Compute(nullptr, 4.5);
    EXPECT_FALSE(IsNeeded(4.5));
}

TEST_F(Result, AnotherListOfEpochsIsStaleAnEmptyOneIsNotCompared) {
    result.Compute(nullptr);
    XTimeList other;
    other.push_back(XTimeInterval(XTime(), XTime::FromSeconds(1)));
    EXPECT_TRUE(IsNeeded(4, other));
    EXPECT_FALSE(IsNeeded(4, {}));
}

TEST_F(Result, AnotherFileIsStale) {
    result.Compute(nullptr);
    const auto other = test::SmallRecording(4);
    other->GetTraceInfo()->SetMtg(test::MontageOf(*other, "Fp1-F3 = +Fp1 -F3"));
    EXPECT_TRUE(result.IsRecomputingNeeded(other->GetTraceInfo()->GetMtg(), {}, 4));
    result.ComputeFFT(other.get(), nullptr);
    EXPECT_FALSE(result.IsRecomputingNeeded(other->GetTraceInfo()->GetMtg(), {}, 4));
    EXPECT_EQ(result.GetFFTCount(), 7u);
}

TEST_F(Result, AnotherFileIsKeptOnlyOnceItIsComputed) {
    result.Compute(nullptr);
    const auto other = test::SmallRecording(4);
    test::RecordingGui gui;
    gui.Cancelled = true;
    result.ComputeFFT(other.get(), &gui);
    EXPECT_FALSE(IsNeeded());
    EXPECT_EQ(result.GetFFTCount(), 19u);
    result.ResetData();
    EXPECT_EQ(result.GetFFTCount(), 19u); // would be 7 of the other
}

TEST_F(Result, AnElectrodeMarkedBadIsNotComputableAndNothingElseChanges) {
    Use("Fp1-F3 = +Fp1 -F3\nCz-F3 = +Cz -F3");
    result.Compute(nullptr);
    const std::vector<double> before = [&] {
        const SpectrumSingle* fp1 = result.GetSpectrum(Fp1());
        const SpectrumSingle* channel = result.GetSpectrum(result.GetMontage().GetChn(0));
        return std::vector<double>{fp1->GetValue(1), fp1->GetValue(3), channel->GetValue(2)};
    }();
    test::SensorOf(*recording, "Cz")->SetBad(true);
    EXPECT_TRUE(IsNeeded());
    result.Compute(nullptr);
    EXPECT_FALSE(IsNeeded());
    const SensorType* cz = test::SensorOf(*recording, "Cz");
    for (std::uint64_t bin = 0; bin < 5; ++bin) {
        EXPECT_TRUE(std::isnan(result.GetSpectrum(cz)->GetValue(bin)));
        EXPECT_TRUE(std::isnan(result.GetSpectrum(result.GetMontage().GetChn(1))->GetValue(bin)));
        EXPECT_TRUE(std::isnan(result.GetSpeCartoon(0, cz)->GetValue(bin)));
    }
    for (int measure = 0; measure < 8; ++measure) {
        EXPECT_TRUE(
            std::isnan(result.GetSpectrum(cz)->GetMeasure(2, static_cast<SPECT::Meas::Type>(measure))))
            << measure;
    }
    const SpectrumSingle* fp1 = result.GetSpectrum(Fp1());
    const SpectrumSingle* channel = result.GetSpectrum(result.GetMontage().GetChn(0));
    EXPECT_EQ((std::vector<double>{fp1->GetValue(1), fp1->GetValue(3), channel->GetValue(2)}), before);
    test::SensorOf(*recording, "Cz")->SetBad(false);
    EXPECT_TRUE(IsNeeded());
}

TEST_F(Result, ASensorMarkedBadIsStaleOnceTheAverageIsChosenAgain) {
    std::size_t average = 0;
    while (recording->GetMontageList()->Get(average)->GetKind() != MontageType::Kind::AverageReference) {
        ++average;
    }
    recording->ChangeMntg(average, false);
    result.SetComputeOptions(test::InDouble());
    result.Compute(nullptr);
    const double ofThree = result.GetSpectrum(result.GetMontage().GetChn(0))->GetValue(1);
    test::SensorOf(*recording, "Cz")->SetBad(true);
    EXPECT_TRUE(IsNeeded()); // though the montage in use is as it was
    recording->ChangeMntg(average, false);
    EXPECT_TRUE(IsNeeded());
    result.Compute(nullptr);
    EXPECT_FALSE(IsNeeded());
    const double ofTwo = result.GetSpectrum(result.GetMontage().GetChn(0))->GetValue(1);
    // Fp1 against the mean of Fp1 and F3 is half of Fp1 − F3.
    Use("half = +0.5*Fp1 -0.5*F3");
    result.Compute(nullptr);
    EXPECT_NEAR(ofTwo, result.GetSpectrum(result.GetMontage().GetChn(0))->GetValue(1), 1e-12 * ofTwo);
    EXPECT_GT(std::abs(ofTwo - ofThree), 1e-3 * ofTwo);
}

TEST_F(Result, TheGenerationChangesWithEveryResetAndComputation) {
    const auto first = result.GetGeneration();
    result.Compute(nullptr);
    const auto second = result.GetGeneration();
    result.ResetData();
    const auto third = result.GetGeneration();
    EXPECT_NE(first, second);
    EXPECT_NE(second, third);
    EXPECT_NE(third, first);
    SpectMacroResult another(test::SmallMacro(), recording.get(), nullptr);
    EXPECT_NE(another.GetGeneration(), third);
}

// --- failures

TEST_F(Result, AFailureKeepsTheEarlierSpectra) {
    result.Compute(nullptr);
    const auto generation = result.GetGeneration();
    result.SetFFTSeconds(60);
    EXPECT_THROW(result.Compute(nullptr), spectral::NothingComputable);
    EXPECT_EQ(result.GetGeneration(), generation);
    EXPECT_NE(result.GetSpectrum(Fp1()), nullptr);
    EXPECT_TRUE(IsNeeded());
}

TEST_F(Result, ACancelKeepsTheEarlierSpectra) {
    result.Compute(nullptr);
    result.SetDSPWindowStr("Hamming");
    test::RecordingProgress progress;
    progress.CancelAfter = 0;
    EXPECT_FALSE(result.Compute(&progress));
    EXPECT_EQ(result.GetAnalysis()->Macro().GetDSPWindowStr(), "Hanning");
    EXPECT_TRUE(IsNeeded());
}

TEST_F(Result, ComputeFFTShowsProgress) {
    const test::RecordingGui gui;
    result.ComputeFFT(recording.get(), &gui);
    EXPECT_TRUE(result.IsComputed());
    EXPECT_EQ(gui.Progresses(), std::vector<std::string>{"Computing Spectra..."});
    EXPECT_TRUE(gui.Errors().empty());
}

TEST_F(Result, ComputeFFTTellsItsFailure) {
    const test::RecordingGui gui;
    result.SetFFTSeconds(60);
    result.ComputeFFT(recording.get(), &gui);
    EXPECT_FALSE(result.IsComputed());
    ASSERT_EQ(gui.Errors().size(), 1u);
    EXPECT_EQ(gui.Errors()[0],
              "no processed interval without a gap is as long as the FFT window of 60 s (choose a "
              "shorter window or other intervals)");
}

TEST_F(Result, ACancelledComputeFFTIsNoFailure) {
    test::RecordingGui gui;
    gui.Cancelled = true;
    result.ComputeFFT(recording.get(), &gui);
    EXPECT_FALSE(result.IsComputed());
    EXPECT_TRUE(gui.Errors().empty());
}

TEST_F(Result, WithoutAGuiComputeFFTFailsInSilence) {
    result.SetFFTSeconds(60);
    result.ComputeFFT(recording.get(), nullptr);
    EXPECT_FALSE(result.IsComputed());
}

TEST_F(Result, WithoutARecordingThereIsNothing) {
    SpectMacroResult orphan(test::SmallMacro(), nullptr, nullptr);
    EXPECT_THROW(orphan.Compute(nullptr), spectral::NothingComputable);
    EXPECT_EQ(orphan.GetFFTCount(), 0u);
    EXPECT_EQ(orphan.GetNumBip(), 0u);
    EXPECT_EQ(orphan.GetNextSelectionStart(nullptr), nullptr);
}

// --- epochs

TEST_F(Result, ASingleEpochHasItsOwnSpectrum) {
    result.SetComputeOptions(test::InDouble());
    result.Compute(nullptr);
    double sum = 0;
    for (std::uint64_t epoch = 0; epoch < 19; ++epoch) {
        sum += result.GetSpeCartoon(epoch, Fp1())->GetValue(2);
    }
    EXPECT_NEAR(sum / 19, result.GetSpectrum(Fp1())->GetValue(2), 1e-6 * sum);
    std::vector<double> sd;
    result.GetSpeCartoon(0, Fp1())->GetSpectSD(sd);
    EXPECT_TRUE(std::isnan(sd.at(2)));
}

TEST_F(Result, TheSpectraOfOneEpochAreValidTogether) {
    result.Compute(nullptr);
    const SpectrumSingle* first = result.GetSpeCartoon(3, Fp1());
    const SpectrumSingle* second = result.GetSpeCartoon(3, test::SensorOf(*recording, "Cz"));
    EXPECT_EQ(first->GetName(), "Fp1");
    EXPECT_EQ(second->GetName(), "Cz");
    EXPECT_EQ(result.GetSpeCartoon(3, Fp1()), first);
}

TEST_F(Result, AnEpochOfAChannelFillsTheVectorInTheEntity) {
    result.Compute(nullptr);
    const ChnType* channel = result.GetMontage().GetChn(0);
    std::vector<double> power, amplitude;
    result.GetSpeCartoon(power, 5, channel);
    SPECT::GetGlobals().SetMeasEntity(SPECT::Entity::Type::Amplitude);
    result.GetSpeCartoon(amplitude, 5, channel);
    ASSERT_EQ(power.size(), 5u);
    EXPECT_DOUBLE_EQ(amplitude.at(2), std::sqrt(power[2]));
}

TEST_F(Result, BeyondTheLastEpochIsNothing) {
    result.Compute(nullptr);
    std::vector<double> values(3);
    result.GetSpeCartoon(values, 19, result.GetMontage().GetChn(0));
    EXPECT_TRUE(values.empty());
    EXPECT_EQ(result.GetSpeCartoon(19, Fp1()), nullptr);
}

TEST_F(Result, TheEventListIsTheEpochsWithTheirIndex) {
    result.GetMacro().SetTimeIntervalSelectMode(Interval::ByStateEvents);
    result.GetMacro().SetAcceptStateList({"open"});
    result.GetMacro().SetOverlapPerc(0);
    XTimeList expected;
    for (const double begin : {2.0, 3.0, 4.0, 6.0, 7.0}) {
        expected.push_back({XTime::FromSeconds(begin), XTime::FromSeconds(begin + 1)},
                           static_cast<std::uint32_t>(expected.size()));
    }
    EXPECT_EQ(Events(), expected);
    result.Compute(nullptr);
    EXPECT_EQ(Events(), expected);
}

TEST_F(Result, TheIntervalListHasOneTextPerEpoch) {
    result.GetMacro().SetTimeIntervalSelectMode(Interval::ByStateEvents);
    result.GetMacro().SetAcceptStateList({"open"});
    result.GetMacro().SetOverlapPerc(0);
    result.Compute(nullptr);
    const auto list = result.GetFFTIntervalList();
    ASSERT_EQ(list.size(), 5u);
    EXPECT_EQ(list.front(), "00:00:02.000  \t00:00:03.000");
    EXPECT_EQ(list.back(), "00:00:07.000  \t00:00:08.000");
}

// --- selections

TEST_F(Result, TheNextSelectionStartsLaterOrThereIsNone) {
    result.GetMacro().SetTimeIntervalSelectMode(Interval::ByStateEvents);
    result.GetMacro().SetAcceptStateList({"open"});
    const XTime start;
    const XTime* next = result.GetNextSelectionStart(&start);
    ASSERT_NE(next, nullptr);
    EXPECT_EQ(*next, XTime::FromSeconds(2));
    const XTime second = *next;
    next = result.GetNextSelectionStart(&second);
    ASSERT_NE(next, nullptr);
    EXPECT_EQ(*next, XTime::FromSeconds(6));
    const XTime third = *next;
    EXPECT_EQ(result.GetNextSelectionStart(&third), nullptr);
}

TEST_F(Result, ACursorOnASelectionsFirstSampleMovesOn) {
    const auto odd = test::SmallRecording(10, {{2.06, 1.0, "a"}, {6, 1.0, "a"}}); // between two samples
    SpectraMacro macro = test::SmallMacro();
    macro.SetTimeIntervalSelectMode(Interval::ByStateEvents);
    macro.SetAcceptStateList({"a"});
    const SpectMacroResult other(macro, odd.get(), nullptr);
    TraceCursorType* cursor = odd->GetTraceCursor();
    cursor->SetPosition(
        cursor->GetSample(other.GetNextSelectionStart(cursor->GetStartRecTime()), Sample::Mode::Memory, 0));
    EXPECT_EQ(cursor->GetStartRecTime()->Seconds(), 2.125);
    const XTime* next = other.GetNextSelectionStart(cursor->GetStartRecTime());
    ASSERT_NE(next, nullptr);
    EXPECT_EQ(*next, XTime::FromSeconds(6));
}

TEST_F(Result, ASelectionTooShortForAnEpochIsPassedOver) {
    const auto file = test::SmallRecording(10, {{1, 0.5, "a"}, {3, 2.0, "a"}, {7, 0.8, "a"}});
    SpectraMacro macro = test::SmallMacro();
    macro.SetTimeIntervalSelectMode(Interval::ByStateEvents);
    macro.SetAcceptStateList({"a"});
    const SpectMacroResult other(macro, file.get(), nullptr);
    const XTime* next = other.GetNextSelectionStart(nullptr);
    ASSERT_NE(next, nullptr);
    EXPECT_EQ(*next, XTime::FromSeconds(3));
    const XTime first = *next;
    EXPECT_EQ(other.GetNextSelectionStart(&first), nullptr);
}

TEST_F(Result, AShortSegmentInsideALongOneHasNoEpochOfItsOwn) {
    const auto file = test::SmallRecording(10, {{1, {}, "a"}, {4, 3.0, "bad"}});
    SpectraMacro macro = test::SmallMacro("Hanning", 0);
    macro.SetTimeIntervalSelectMode(Interval::BySpotEvents);
    macro.SetAcceptSpotList({"a"});
    macro.SetRejectEventsList({"bad"});
    macro.SetTrgDurationMS(3000);
    macro.SpotStepCount = 2;
    macro.SpotStepInc = 2500; // 1 to 4 s, and 3.5 to 6.5 s, of which half a second is left
    const SpectMacroResult other(macro, file.get(), nullptr);
    const XTime* next = other.GetNextSelectionStart(nullptr);
    ASSERT_NE(next, nullptr);
    const XTime first = *next;
    EXPECT_EQ(first, XTime::FromSeconds(1));
    EXPECT_EQ(other.GetNextSelectionStart(&first), nullptr);
}

TEST_F(Result, ASelectionAsLongAsTheWindowHasAnEpochBetweenSamplesToo) {
    const auto file = test::SmallRecording(10, {{2.06, 0.94, "a"}}); // 7.52 samples from sample 16.48 on
    SpectraMacro macro = test::SmallMacro();
    macro.SetFFTSeconds(0.94);
    macro.SetTimeIntervalSelectMode(Interval::ByStateEvents);
    macro.SetAcceptStateList({"a"});
    const SpectMacroResult other(macro, file.get(), nullptr);
    EXPECT_EQ(other.GetFFTCount(), 1u);
    const XTime* next = other.GetNextSelectionStart(nullptr);
    ASSERT_NE(next, nullptr);
    EXPECT_EQ(*next, XTime::FromSeconds(2.125));
}

TEST_F(Result, ASelectionBeyondTheFirstNIsPassedOver) {
    result.GetMacro().SetTimeIntervalSelectMode(Interval::ByStateEvents);
    result.GetMacro().SetAcceptStateList({"open"});
    result.GetMacro().SetOverlapPerc(0);
    result.GetMacro().SetEpochsSelMode(SpectraMacro::EpochsSelectionMode::FirstN);
    result.GetMacro().SetNumEpochsToUse(3); // all in the first, 2 to 5 s
    const XTime first = XTime::FromSeconds(2);
    EXPECT_EQ(result.GetNextSelectionStart(&first), nullptr);
    result.GetMacro().SetNumEpochsToUse(4);
    const XTime* next = result.GetNextSelectionStart(&first);
    ASSERT_NE(next, nullptr);
    EXPECT_EQ(*next, XTime::FromSeconds(6));
}

TEST_F(Result, ByDurationTheNextSelectionIsOneDurationOn) {
    result.GetMacro().SetTimeIntervalSelectMode(Interval::ByDuration);
    result.GetMacro().SetFixedDurationSec(3);
    const XTime start = XTime::FromSeconds(1.5);
    const XTime* next = result.GetNextSelectionStart(&start);
    ASSERT_NE(next, nullptr);
    EXPECT_EQ(*next, XTime::FromSeconds(4.5));
}

TEST_F(Result, ByDurationThereIsNoSelectionBeyondTheEnd) {
    result.GetMacro().SetTimeIntervalSelectMode(Interval::ByDuration);
    result.GetMacro().SetFixedDurationSec(3);
    const XTime late = XTime::FromSeconds(recording->GetRecording()->Time().Duration() - 3);
    EXPECT_EQ(result.GetNextSelectionStart(&late), nullptr);
}

TEST_F(Result, ByDurationOfNothingThereIsNoNextSelection) {
    result.GetMacro().SetTimeIntervalSelectMode(Interval::ByDuration);
    result.GetMacro().SetFixedDurationSec(0);
    const XTime start;
    EXPECT_EQ(result.GetNextSelectionStart(&start), nullptr);
}

TEST_F(Result, ByDurationStartsAtTheCursorWhenComputed) {
    result.GetMacro().SetTimeIntervalSelectMode(Interval::ByDuration);
    result.GetMacro().SetFixedDurationSec(2);
    recording->GetTraceCursor()->SetPosition(24);
    result.Compute(nullptr);
    EXPECT_EQ(result.GetAnalysis()->EpochStarts(), (std::vector<std::int64_t>{24, 28, 32}));
    recording->GetTraceCursor()->SetPosition(40);
    EXPECT_FALSE(IsNeeded()); // scrolling through the traces computes nothing
    result.ResetData();
    result.Compute(nullptr);
    EXPECT_EQ(result.GetAnalysis()->EpochStarts().front(), 40);
}

} // namespace
