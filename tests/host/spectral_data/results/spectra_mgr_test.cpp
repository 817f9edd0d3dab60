// SPDX-License-Identifier: GPL-3.0-or-later
#include "spectra_contract/spectra_mgr.h"

#include "host/spectral_data/results/analysis.h"
#include "host/spectral_data/results/errors.h"
#include "host/spectral_data/settings/event_context.h"
#include "tests/host/spectral_data/results/analysis_fixture.h"
#include "tests/support/recording_progress.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <stdexcept>

namespace {

using namespace orvanta;
using SPECT::Entity::Type;

class Manager : public testing::Test {
protected:
    Manager() { Use("Fp1-F3 = +Fp1 -F3\nCz = +Cz"); }

    void Use(const std::string& montage) {
        recording->GetTraceInfo()->SetMtg(test::MontageOf(*recording, montage));
    }
    /// Appends an analysis of the state events with the label.
    SpectMacroResult* Add(const std::string& label, double seconds = 1) {
        SpectraMacro macro = test::SmallMacro("Rectangular", 0);
        macro.SetFFTSeconds(seconds);
        macro.SetTimeIntervalSelectMode(SpectraMacro::TimeIntervalSelectMode::ByStateEvents);
        macro.SetAcceptStateList({label});
        auto* analysis = new SpectMacroResult(macro, recording.get(), nullptr);
        analysis->SetComputeOptions(test::InDouble());
        manager.push_back(analysis);
        return analysis;
    }
    void AddPair() {
        open = Add("open");
        closed = Add("closed");
        manager.SetSecondary(closed);
        manager.SetShowTTest(true);
        manager.SetShowRatio(true);
        Recompute();
    }
    bool Recompute(GenericProgress* progress = nullptr) {
        return manager.ReComputeFFT(recording.get(), 4, {}, progress);
    }
    bool IsNeeded() const { return manager.IsRecomputingNeeded(recording->GetTraceInfo()->GetMtg(), {}, 4); }
    const SensorType* Fp1() const { return test::SensorOf(*recording, "Fp1"); }
    const ChnType* Channel(std::size_t index = 0) const {
        return recording->GetTraceInfo()->GetMtg().GetChn(index);
    }

    test::GlobalsGuard guard;
    std::unique_ptr<EEGFileInfoType> recording =
        test::SmallRecording(10, {{0, 5.0, "open"}, {5, 5.0, "closed"}});
    SpectraMgr manager{recording.get(), nullptr};
    SpectMacroResult* open = nullptr;
    SpectMacroResult* closed = nullptr;
};

TEST_F(Manager, StartsEmptyWithItsDefaults) {
    EXPECT_EQ(manager.Size(), 0u);
    EXPECT_EQ(manager.GetMain(), nullptr);
    EXPECT_EQ(manager.GetSecondary(), nullptr);
    EXPECT_EQ(manager.GetPThreshold(), 0.05);
    EXPECT_FALSE(manager.GetShowTTest());
    EXPECT_FALSE(manager.GetShowRatio());
    EXPECT_EQ(manager.GetStatMode(), 0);
    EXPECT_FALSE(IsNeeded());
}

TEST_F(Manager, TheFirstAnalysisBecomesMainLaterOnesDoNot) {
    SpectMacroResult* first = Add("open");
    SpectMacroResult* second = Add("closed");
    EXPECT_EQ(manager.GetMain(), first);
    EXPECT_EQ(std::vector<SpectMacroResult*>(manager.begin(), manager.end()),
              (std::vector<SpectMacroResult*>{first, second}));
    manager.push_back(second);
    manager.push_back(nullptr);
    EXPECT_EQ(manager.Size(), 2u);
}

TEST_F(Manager, RemovingMainLeavesTheFirstOfTheRest) {
    SpectMacroResult* first = Add("open");
    SpectMacroResult* second = Add("closed");
    Add("open");
    manager.SetSecondary(second);
    manager.Remove(first);
    EXPECT_EQ(manager.GetMain(), second);
    EXPECT_EQ(manager.GetSecondary(), nullptr); // the same as main now
    EXPECT_EQ(manager.Size(), 2u);
    EXPECT_FALSE(first->IsComputed()); // still there: the caller destroys it
    delete first;
}

TEST_F(Manager, RemovingTheLastLeavesNone) {
    SpectMacroResult* only = Add("open");
    manager.Remove(only);
    EXPECT_EQ(manager.GetMain(), nullptr);
    EXPECT_EQ(manager.Size(), 0u);
    delete only;
}

TEST_F(Manager, RemovingTheSecondaryLeavesMainAlone) {
    SpectMacroResult* first = Add("open");
    SpectMacroResult* second = Add("closed");
    manager.SetSecondary(second);
    manager.Remove(second);
    EXPECT_EQ(manager.GetSecondary(), nullptr);
    EXPECT_EQ(manager.GetMain(), first);
    delete second;
}

TEST_F(Manager, MainAndSecondaryAreNeverTheSame) {
    Add("open");
    SpectMacroResult* second = Add("closed");
    manager.SetSecondary(second);
    manager.SetMain(second);
    EXPECT_EQ(manager.GetSecondary(), nullptr);
    manager.SetSecondary(second);
    EXPECT_EQ(manager.GetSecondary(), nullptr);
}

TEST_F(Manager, AnAnalysisOfSomeoneElseIsNotTaken) {
    Add("open");
    SpectMacroResult foreign(test::SmallMacro(), recording.get(), nullptr);
    manager.SetSecondary(&foreign);
    EXPECT_EQ(manager.GetSecondary(), nullptr);
    SpectMacroResult* main = manager.GetMain();
    manager.SetMain(&foreign);
    EXPECT_EQ(manager.GetMain(), main);
    manager.Remove(&foreign);
    EXPECT_EQ(manager.Size(), 1u);
    manager.SetMain(nullptr);
    EXPECT_EQ(manager.GetMain(), nullptr);
}

TEST_F(Manager, ItsRecordingsEventsAreTheContextOfMacros) {
    EXPECT_EQ(spectral::GetMacroEventContext(), recording->GetEventsManager());
    {
        const auto other = test::SmallRecording();
        const SpectraMgr another(other.get(), nullptr);
        EXPECT_EQ(spectral::GetMacroEventContext(), other->GetEventsManager());
    }
    EXPECT_EQ(spectral::GetMacroEventContext(), recording->GetEventsManager());
}

TEST(Managers, TheLastThatLivesGivesTheContextWhoeverGoesFirst) {
    const auto first = test::SmallRecording(), second = test::SmallRecording();
    auto early = std::make_unique<SpectraMgr>(first.get(), nullptr);
    auto late = std::make_unique<SpectraMgr>(second.get(), nullptr);
    const SpectraMgr ofNothing(nullptr, nullptr);
    EXPECT_EQ(spectral::GetMacroEventContext(), second->GetEventsManager());
    early.reset();
    EXPECT_EQ(spectral::GetMacroEventContext(), second->GetEventsManager());
    late.reset();
    EXPECT_EQ(spectral::GetMacroEventContext(), nullptr);
}

TEST_F(Manager, KeepsItsStatisticsModeAndThreshold) {
    for (const int mode : {2, 1, 0}) {
        manager.SetStatMode(mode);
        EXPECT_EQ(manager.GetStatMode(), mode);
    }
    for (const double threshold : {0.01, 0.001, 1.0, 0.0}) {
        manager.SetPThreshold(threshold);
        EXPECT_EQ(manager.GetPThreshold(), threshold);
    }
    EXPECT_EQ(SpectraMgr(recording.get(), nullptr).GetPThreshold(), 0.05); // each starts anew
}

// --- entities, bands, measures

TEST_F(Manager, TheEntityIsSharedWithTheGlobals) {
    EXPECT_EQ(manager.GetMeasEntityCount(), 4u);
    manager.SetMeasEntity(Type::Coherence);
    EXPECT_EQ(manager.GetMeasEntity(), Type::Coherence);
    EXPECT_EQ(SPECT::GetGlobals().GetMeasEntity(), Type::Coherence);
    EXPECT_EQ(manager.GetCurrMeasEntityStr(), "Coherence");
    manager.SetMeasEntity(static_cast<Type>(4));
    EXPECT_EQ(manager.GetMeasEntity(), Type::Coherence);
}

TEST_F(Manager, EntitiesHaveNamesAndUnits) {
    const struct {
        Type entity;
        const char *name, *unit, *abs, *mean, *rel;
    } table[] = {{Type::Amplitude, "Amplitude", "µV/√Hz", "µV", "µV/√Hz", "%"},
                 {Type::Power, "Power", "µV²/Hz", "µV²", "µV²/Hz", "%"},
                 {Type::Coherence, "Coherence", "", "", "", "%"},
                 {Type::Phase, "Phase", "rad", "rad", "rad", "%"}};
    for (const auto& row : table) {
        EXPECT_EQ(manager.GetMeasEntityStr(row.entity), row.name);
        manager.SetMeasEntity(row.entity);
        EXPECT_EQ(manager.GetCurrMeasEntityStr(), row.name);
        EXPECT_EQ(manager.GetCurrEntityMeasUnit(), row.unit) << row.name;
        EXPECT_EQ(manager.GetBandMeasUnit(0u), row.abs) << row.name;
        EXPECT_EQ(manager.GetBandMeasUnit(1u), row.mean) << row.name;
        EXPECT_EQ(manager.GetBandMeasUnit(2u), row.rel) << row.name;
    }
    EXPECT_EQ(manager.GetMeasEntityStr(static_cast<Type>(4)), "");
}

TEST_F(Manager, UnitsFollowTheEntity) {
    EXPECT_EQ(manager.GetCurrEntityMeasUnit(), "µV²/Hz");
    EXPECT_EQ(manager.GetBandMeasUnit(0u), "µV²");
    manager.SetMeasEntity(Type::Amplitude);
    EXPECT_EQ(manager.GetCurrEntityMeasUnit(), "µV/√Hz");
    EXPECT_EQ(manager.GetBandMeasUnit(SPECT::Meas::Type::Abs), "µV");
    EXPECT_EQ(manager.GetBandMeasName(3), "Peak F");
    EXPECT_EQ(manager.GetBandMeasName(8), "");
    EXPECT_EQ(manager.GetBandMeasUnit(8u), "");
}

TEST_F(Manager, BandsAreThoseOfTheGlobals) {
    manager.GetBand(2).hi = 12;
    EXPECT_EQ(SPECT::GetGlobals().Bands[2].hi, 12);
    EXPECT_THROW(manager.GetBand(8), std::out_of_range);
}

// --- comparisons

TEST_F(Manager, ComparesMainWithSecondary) {
    AddPair();
    ASSERT_NE(manager.GetP(Fp1()), nullptr);
    EXPECT_NEAR(manager.GetP(Fp1())[1], 0.571162290706,
                1e-9); // SciPy's ttest_ind, as in the comparison's tests
    EXPECT_NEAR(manager.GetRatio(Fp1())[1], 1.152796074136, 1e-9);
    ASSERT_NE(manager.GetP(Channel()), nullptr);
    EXPECT_NEAR(manager.GetP(Channel())[1], 0.6293492643149, 1e-9);
    EXPECT_NEAR(manager.GetP(Channel())[2], 0.2525475382099, 1e-9);
}

TEST_F(Manager, AnAliasChannelComparesAsItsSensor) {
    AddPair();
    const double* ofChannel = manager.GetP(Channel(1));
    ASSERT_NE(ofChannel, nullptr);
    EXPECT_NEAR(ofChannel[2], 0.0610235584586, 1e-9);
    EXPECT_EQ(ofChannel, manager.GetP(test::SensorOf(*recording, "Cz")));
}

TEST_F(Manager, ComparisonsAreKeptUntilSomethingChanges) {
    AddPair();
    const double* p = manager.GetP(Fp1());
    manager.GetP(Channel());
    EXPECT_EQ(manager.GetP(Fp1()), p);
    const double before = manager.GetRatio(Fp1())[1];
    manager.SetMeasEntity(Type::Amplitude);
    EXPECT_NEAR(manager.GetRatio(Fp1())[1], 1.103254757274, 1e-9);
    manager.SetMeasEntity(Type::Power);
    manager.SetMain(closed);
    manager.SetSecondary(open);
    EXPECT_NEAR(manager.GetRatio(Fp1())[1], 1 / before, 1e-9);
}

TEST_F(Manager, EachSwitchHidesItsOwn) {
    AddPair();
    manager.SetShowTTest(false);
    EXPECT_EQ(manager.GetP(Fp1()), nullptr);
    EXPECT_NE(manager.GetRatio(Fp1()), nullptr);
    manager.SetShowTTest(true);
    manager.SetShowRatio(false);
    EXPECT_NE(manager.GetP(Fp1()), nullptr);
    EXPECT_EQ(manager.GetRatio(Channel()), nullptr);
}

TEST_F(Manager, WithoutASecondaryThereIsNoComparison) {
    AddPair();
    manager.SetSecondary(nullptr);
    EXPECT_EQ(manager.GetP(Fp1()), nullptr);
    EXPECT_EQ(manager.GetRatio(Fp1()), nullptr);
}

TEST_F(Manager, WhatIsNotComputedIsNotCompared) {
    AddPair();
    closed->ResetData();
    EXPECT_EQ(manager.GetP(Fp1()), nullptr);
    EXPECT_EQ(manager.GetRatio(Channel()), nullptr);
}

TEST_F(Manager, AnotherResolutionOrMontageIsNotCompared) {
    AddPair();
    closed->SetFFTSeconds(2);
    Recompute();
    EXPECT_EQ(manager.GetP(Fp1()), nullptr);
    EXPECT_EQ(manager.GetRatio(Fp1()), nullptr);
    closed->SetFFTSeconds(1);
    Recompute();
    EXPECT_NE(manager.GetP(Fp1()), nullptr);
    Use("F3-Cz = +F3 -Cz");
    closed->Compute(nullptr);
    EXPECT_EQ(manager.GetP(Fp1()), nullptr);
}

TEST_F(Manager, CoherenceIsComparedForPairsPhaseOnlyAsARatio) {
    AddPair();
    manager.SetMeasEntity(Type::Coherence);
    EXPECT_NE(manager.GetP(Channel()), nullptr);
    EXPECT_EQ(manager.GetP(Channel(1)), nullptr);
    EXPECT_EQ(manager.GetP(Fp1()), nullptr);
    manager.SetMeasEntity(Type::Phase);
    EXPECT_EQ(manager.GetP(Channel()), nullptr);
    EXPECT_NE(manager.GetRatio(Channel()), nullptr);
}

TEST_F(Manager, UnknownTracesAreNotCompared) {
    AddPair();
    EXPECT_EQ(manager.GetP(static_cast<const SensorType*>(nullptr)), nullptr);
    EXPECT_EQ(manager.GetP(static_cast<const ChnType*>(nullptr)), nullptr);
    EXPECT_EQ(manager.GetRatio(test::MontageOf(*recording, "x = +Fp1 -Cz").GetChn(0)), nullptr);
}

// --- bringing up to date

TEST_F(Manager, NothingToDoIsSuccess) {
    EXPECT_TRUE(Recompute());
    AddPair();
    const auto generation = open->GetGeneration();
    EXPECT_FALSE(IsNeeded());
    EXPECT_TRUE(Recompute());
    EXPECT_EQ(open->GetGeneration(), generation);
    test::RecordingProgress progress;
    EXPECT_TRUE(Recompute(&progress));
    EXPECT_TRUE(progress.Positions.empty()); // nothing is shown
}

TEST_F(Manager, TheRecordingHandedOverIsTheOneComputed) {
    AddPair();
    const auto other = test::SmallRecording(8, {{0, 4.0, "open"}, {4, 4.0, "closed"}});
    other->GetTraceInfo()->SetMtg(test::MontageOf(*other, "F3-Cz = +F3 -Cz"));
    EXPECT_TRUE(manager.ReComputeFFT(other.get(), 4, {}, nullptr));
    EXPECT_EQ(&open->GetAnalysis()->Recording(), other->GetRecording().get());
    EXPECT_EQ(open->GetMontage().GetChn(0)->GetName(), "F3-Cz");
    EXPECT_EQ(closed->GetFFTCount(), 4u);
    const auto generation = open->GetGeneration();
    EXPECT_TRUE(manager.ReComputeFFT(other.get(), 4, {}, nullptr));
    EXPECT_EQ(open->GetGeneration(), generation);
    EXPECT_TRUE(manager.ReComputeFFT(nullptr, 4, {}, nullptr)); // the manager's own
    EXPECT_EQ(&open->GetAnalysis()->Recording(), recording->GetRecording().get());
}

TEST_F(Manager, OnlyWhatNeedsItIsComputed) {
    AddPair();
    const auto generation = open->GetGeneration();
    closed->ResetData();
    EXPECT_TRUE(IsNeeded());
    EXPECT_TRUE(Recompute());
    EXPECT_TRUE(closed->IsComputed());
    EXPECT_EQ(open->GetGeneration(), generation);
}

TEST_F(Manager, OnlyMainAndSecondaryAreAskedWhetherTheyNeedIt) {
    AddPair();
    Add("open");
    EXPECT_FALSE(IsNeeded());
}

TEST_F(Manager, TheEventListIsMainsOnly) {
    AddPair();
    XTimeList events;
    open->GetEventList(recording.get(), events, nullptr);
    EXPECT_FALSE(manager.IsRecomputingNeeded(recording->GetTraceInfo()->GetMtg(), events, 4));
    const auto generation = closed->GetGeneration();
    EXPECT_TRUE(manager.ReComputeFFT(recording.get(), 4, events, nullptr));
    EXPECT_EQ(closed->GetGeneration(), generation);
}

TEST_F(Manager, ACancelEndsItWithoutSuccess) {
    AddPair();
    open->ResetData();
    closed->ResetData();
    test::RecordingProgress progress;
    progress.CancelAfter = 0;
    EXPECT_FALSE(Recompute(&progress));
    EXPECT_FALSE(open->IsComputed());
}

TEST_F(Manager, ProgressRunsOnceFromStartToEnd) {
    AddPair();
    open->ResetData();
    closed->ResetData();
    test::RecordingProgress progress;
    EXPECT_TRUE(Recompute(&progress));
    ASSERT_FALSE(progress.Positions.empty());
    EXPECT_TRUE(std::is_sorted(progress.Positions.begin(), progress.Positions.end()));
    EXPECT_GE(progress.Positions.front(), 0);
    EXPECT_EQ(progress.Positions.back(), 1);
}

TEST_F(Manager, OneThatCannotBeComputedDoesNotStopTheOthers) {
    SpectMacroResult* hopeless = Add("nowhere");
    SpectMacroResult* fine = Add("open");
    EXPECT_THROW(Recompute(), spectral::NothingComputable);
    EXPECT_FALSE(hopeless->IsComputed());
    EXPECT_TRUE(fine->IsComputed());
}

TEST_F(Manager, AMontageChangeBringsAllUpToDate) {
    AddPair();
    Use("F3-Cz = +F3 -Cz");
    EXPECT_TRUE(IsNeeded());
    EXPECT_TRUE(Recompute());
    EXPECT_FALSE(IsNeeded());
    EXPECT_EQ(closed->GetMontage().GetChn(0)->GetName(), "F3-Cz");
}

} // namespace
