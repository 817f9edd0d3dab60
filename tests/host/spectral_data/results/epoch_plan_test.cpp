// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/spectral_data/results/epoch_plan.h"

#include "host/spectral_data/results/errors.h"
#include "tests/support/small_recording.h"

#include <gtest/gtest.h>

namespace orvanta::spectral {
namespace {

using Interval = SpectraMacro::TimeIntervalSelectMode;

EpochPlan Plan(const EEGFileInfoType& recording, const SpectraMacro& macro, double cursor_s = 0) {
    return PlanEpochs(macro, *recording.GetEventsManager(), *recording.GetRecording(), cursor_s);
}

/// What RequireEpochs says; empty when it is content.
std::string Complaint(const EEGFileInfoType& recording, const SpectraMacro& macro) {
    try {
        RequireEpochs(Plan(recording, macro), macro, *recording.GetRecording());
    } catch (const NothingComputable& error) {
        return error.what();
    }
    return "";
}

TEST(EpochPlan, LaysWindowsOverTheRecording) {
    const auto recording = test::SmallRecording(3);
    const EpochPlan plan = Plan(*recording, test::SmallMacro());
    EXPECT_EQ(plan.geometry, (WindowGeometry{8, 8, 4}));
    EXPECT_EQ(plan.starts, (std::vector<std::int64_t>{0, 4, 8, 12, 16}));
    EXPECT_EQ(Complaint(*recording, test::SmallMacro()), "");
}

TEST(EpochPlan, NoEpochCrossesAGap) {
    const auto recording = test::SmallRecording(4, {}, {{2, 10.0}});
    const EpochPlan plan = Plan(*recording, test::SmallMacro());
    EXPECT_EQ(plan.starts, (std::vector<std::int64_t>{0, 4, 8, 16, 20, 24}));
}

TEST(EpochPlan, AnEpochsTimeCountsTheGapsBeforeIt) {
    const auto recording = test::SmallRecording(4, {}, {{2, 10.0}});
    EXPECT_EQ(EpochInterval(*recording->GetRecording(), {8, 8, 4}, 20),
              XTimeInterval(XTime::FromSeconds(12.5), XTime::FromSeconds(13.5)));
}

TEST(EpochPlan, ByDurationStartsAtTheCursor) {
    const auto recording = test::SmallRecording(10);
    SpectraMacro macro = test::SmallMacro("Hanning", 0);
    macro.SetTimeIntervalSelectMode(Interval::ByDuration);
    macro.SetFixedDurationSec(2);
    EXPECT_EQ(Plan(*recording, macro, 3).starts, (std::vector<std::int64_t>{24, 32}));
}

TEST(EpochPlan, CoversWhatItsEpochsShareOnce) {
    const auto covered = [](std::vector<std::int64_t> starts) {
        return CoveredSamples({{8, 8, 4}, {}, std::move(starts)});
    };
    EXPECT_EQ(covered({}), 0);
    EXPECT_EQ(covered({3}), 8);
    EXPECT_EQ(covered({0, 4, 8}), 16);
    EXPECT_EQ(covered({0, 8, 16}), 24);     // side by side
    EXPECT_EQ(covered({0, 1, 20, 30}), 25); // 0 … 8, 20 … 27, 30 … 37
}

TEST(NothingToCompute, AWindowLongerThanTheRecording) {
    SpectraMacro macro = test::SmallMacro();
    macro.SetFFTSeconds(6);
    EXPECT_EQ(
        Complaint(*test::SmallRecording(5), macro),
        "no processed interval without a gap is as long as the FFT window of 6 s (choose a shorter window "
        "or other intervals)");
}

TEST(NothingToCompute, EveryStretchBetweenGapsTooShort) {
    SpectraMacro macro = test::SmallMacro();
    macro.SetFFTSeconds(1.5);
    const auto recording = test::SmallRecording(3, {}, {{1, 1.0}, {2, 1.0}});
    EXPECT_NE(Complaint(*recording, macro).find("no processed interval without a gap"), std::string::npos);
}

TEST(NothingToCompute, AWindowShorterThanASample) {
    SpectraMacro macro = test::SmallMacro();
    macro.SetFFTSeconds(0.01);
    EXPECT_EQ(Complaint(*test::SmallRecording(), macro),
              "the FFT window of 0.01 s is shorter than one sample (choose a longer window)");
}

TEST(NothingToCompute, NoAcceptedStateEvent) {
    SpectraMacro macro = test::SmallMacro();
    macro.SetTimeIntervalSelectMode(Interval::ByStateEvents);
    macro.SetAcceptStateList({"sleep"});
    EXPECT_EQ(
        Complaint(*test::SmallRecording(), macro),
        "no accepted state event lies in the recording, or all are rejected (choose other state events or "
        "fewer rejected ones)");
}

TEST(NothingToCompute, NoAcceptedSpotEvent) {
    SpectraMacro macro = test::SmallMacro();
    macro.SetTimeIntervalSelectMode(Interval::BySpotEvents);
    EXPECT_NE(Complaint(*test::SmallRecording(), macro).find("no accepted spot event"), std::string::npos);
}

TEST(NothingToCompute, AllRejected) {
    SpectraMacro macro = test::SmallMacro();
    macro.SetRejectEventsList({"bad"});
    EXPECT_EQ(Complaint(*test::SmallRecording(5, {{0, 5.0, "bad"}}), macro),
              "the processed interval is empty, or all of it is rejected (choose a longer interval or fewer "
              "rejected events)");
}

TEST(NothingToCompute, NoEegSensor) {
    const auto recording = signal::MakeRecording(test::MakeData({{"Resp", 8, test::Fp1Values(40), "degC"}}));
    EXPECT_EQ(recording->GetRecording()->Rate(), 0);
    EXPECT_TRUE(Plan(*recording, test::SmallMacro()).starts.empty());
    EXPECT_EQ(
        Complaint(*recording, test::SmallMacro()),
        "the recording has no EEG sensor (open a recording with EEG, or check the labels and units of its "
        "channels)");
}

TEST(NothingToCompute, ARecordingWithoutSamples) {
    const auto recording = test::SmallRecording(0);
    EXPECT_EQ(Complaint(*recording, test::SmallMacro()),
              "the recording holds no samples (open a recording with data)");
}

} // namespace
} // namespace orvanta::spectral
