// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/app/traces/trace_scales.h"
#include "host/review/app/traces/trace_state.h"

#include <gtest/gtest.h>

namespace {

using namespace orvanta::review;

TraceWindow At(double start, double duration = 10) {
    TraceWindow window;
    window.start = start;
    window.duration = duration;
    return window;
}

TEST(TraceWindow, StaysInsideTheRecording) {
    EXPECT_EQ(KeptInside(At(-5), 100).start, 0);
    EXPECT_EQ(KeptInside(At(95), 100).start, 90);
    EXPECT_EQ(KeptInside(At(50), 100).start, 50);
    EXPECT_EQ(KeptInside(At(3), 5).start, 0); // shorter than a page
}

TEST(TraceWindow, KeepsTheTimeUnderTheMouseWhenItsLengthChanges) {
    const TraceWindow half = WithDuration(At(50), 5, 0.25, 100);
    EXPECT_EQ(half.duration, 5);
    EXPECT_EQ(half.start + 0.25 * 5, 52.5);
    EXPECT_EQ(WithDuration(At(50), 5, 0, 100).start, 50);
    EXPECT_EQ(WithDuration(At(50), 1e9, 0, 100).duration, 86400);
    EXPECT_EQ(WithDuration(At(50), 0, 0, 100).duration, 0.05);
}

TEST(TraceWindow, MovesOnlyWhereATimeIsNotOnThePage) {
    EXPECT_EQ(Showing(At(50), 55, 100).start, 50);
    EXPECT_EQ(Showing(At(50), 20, 100).start, 19);
    EXPECT_EQ(Showing(At(50), 70, 100).start, 69);
    EXPECT_EQ(Showing(At(50), 0, 100).start, 0);
    EXPECT_EQ(Showing(At(50), 100, 100).start, 90);
}

TEST(TraceScales, StepToTheNextAndStopAtTheEnds) {
    EXPECT_EQ(NextStep(kSensitivities, 7, true), 10);
    EXPECT_EQ(NextStep(kSensitivities, 7, false), 5);
    EXPECT_EQ(NextStep(kSensitivities, 8, false), 7);
    EXPECT_EQ(NextStep(kSensitivities, 8, true), 10);
    EXPECT_EQ(NextStep(kSensitivities, 7.0000001, true), 10);
    EXPECT_EQ(NextStep(kPageLengths, 3600, true), 3600);
    EXPECT_EQ(NextStep(kPageLengths, 0.1, false), 0.5);
}

TEST(TraceScales, RoundDownToOneTwoOrFive) {
    EXPECT_DOUBLE_EQ(RoundValueBelow(99), 50);
    EXPECT_DOUBLE_EQ(RoundValueBelow(100), 100);
    EXPECT_DOUBLE_EQ(RoundValueBelow(0.03), 0.02);
    EXPECT_DOUBLE_EQ(RoundValueBelow(1.9), 1);
}

} // namespace
