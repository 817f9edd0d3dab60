// SPDX-License-Identifier: GPL-3.0-or-later
// Analyses notice when events are edited.
#include "spectra_contract/spect_macro_result.h"
#include "tests/support/globals_guard.h"
#include "tests/support/small_recording.h"

#include <gtest/gtest.h>

#include <memory>
#include <vector>

namespace {

using namespace orvanta;
using Interval = SpectraMacro::TimeIntervalSelectMode;

/// Events of the user's, added and taken away while the analysis of the stretches "open" is there.
class ChangedEvents : public testing::Test {
protected:
    ChangedEvents() {
        SpectraMacro macro = test::SmallMacro();
        macro.SetTimeIntervalSelectMode(Interval::ByStateEvents);
        macro.SetAcceptStateList({"open"});
        macro.SetRejectEventsList({"bad"});
        result.GetMacro() = macro;
        result.ComputeFFT(recording.get(), nullptr);
    }
    static EventRecord Own(const char* label, EventClass eventClass, double begin, double end) {
        return {label, eventClass, {XTime::FromSeconds(begin), XTime::FromSeconds(end)}, EventSource::Table};
    }
    bool IsNeeded() const {
        constexpr double kTop = 4;
        return result.IsRecomputingNeeded(recording->GetTraceInfo()->GetMtg(), {}, kTop);
    }
    EventsManager& Manager() const { return *recording->GetEventsManager(); }
    void TakeOut(std::size_t place) const { Manager().Change(std::vector<std::size_t>{place}, {}); }

    test::GlobalsGuard guard;
    std::unique_ptr<EEGFileInfoType> recording =
        test::SmallRecording(10, {{2, 3.0, "open"}, {6, 2.0, "open"}});
    SpectMacroResult result{test::SmallMacro(), recording.get(), nullptr};
};

TEST_F(ChangedEvents, OfTheChosenLabelAskForAComputation) {
    ASSERT_FALSE(IsNeeded());
    const std::size_t place = Manager().Add(Own("open", EventClass::State, 8.5, 10));
    EXPECT_TRUE(IsNeeded());
    TakeOut(place);
    EXPECT_FALSE(IsNeeded()) << "the events are those of the computed data again";
}

TEST_F(ChangedEvents, OfARejectedLabelAskForAComputation) {
    const std::size_t place = Manager().Add(Own("bad", EventClass::Spot, 3.5, 3.5));
    EXPECT_TRUE(IsNeeded());
    result.ComputeFFT(recording.get(), nullptr);
    EXPECT_FALSE(IsNeeded());
    TakeOut(place);
    EXPECT_TRUE(IsNeeded());
}

TEST_F(ChangedEvents, ThatGetAnotherLabelAskForAComputation) {
    const std::size_t place = Manager().Add(Own("eyes", EventClass::State, 8.5, 10));
    EXPECT_FALSE(IsNeeded());
    const std::vector<PlacedEvent> renamed{{place, Own("open", EventClass::State, 8.5, 10)}};
    Manager().Change(std::vector<std::size_t>{place}, renamed);
    EXPECT_TRUE(IsNeeded());
}

TEST_F(ChangedEvents, ThatDoNotEnterTheAnalysisAskForNone) {
    Manager().Add(Own("other", EventClass::State, 3, 4));
    Manager().Add(Own("open", EventClass::Spot, 3, 3));
    EXPECT_FALSE(IsNeeded());
}

} // namespace
