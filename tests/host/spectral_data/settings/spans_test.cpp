// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/spectral_data/settings/epochs.h"

#include <cmath>
#include <gtest/gtest.h>
#include <ostream>

namespace orvanta::spectral {

std::ostream& operator<<(std::ostream& text, const TimeSpan& span) {
    return text << '[' << span.begin_s << ", " << span.end_s << ')';
}

namespace {

using Mode = SpectraMacro::TimeIntervalSelectMode;
using Spans = std::vector<TimeSpan>;
using Starts = std::vector<std::int64_t>;

/// A recording of 100 s with some events.
class ProcessedSpans : public testing::Test {
protected:
    void State(const char* label, double begin, double end) { Add(label, EventClass::State, begin, end); }
    void Spot(const char* label, double at) { Add(label, EventClass::Spot, at, at); }
    void Mode_(Mode mode) { macro_.SetTimeIntervalSelectMode(mode); }
    /// Begin and end of the spans.
    Spans Get(double cursor = 0) const {
        Spans spans = GetProcessedSpans(macro_, events_, 100, cursor);
        for (TimeSpan& span : spans) {
            span = {span.begin_s, span.end_s};
        }
        return spans;
    }
    /// Starts of epochs of 1 s without overlap at 10 Hz.
    Starts EpochStarts() {
        macro_.SetFFTSeconds(1);
        macro_.SetOverlapPerc(0);
        return GetEpochStarts(macro_, signal::Timeline(10, {{0, 1000, 0}}),
                              GetProcessedSpans(macro_, events_, 100, 0), GetWindowGeometry(macro_, 10));
    }
    /// Starts of epochs of 0.3 s at 256 Hz: 76.8 samples, taken as 77.
    Starts OddStarts() {
        macro_.SetFFTSeconds(0.3);
        macro_.SetOverlapPerc(0);
        return GetEpochStarts(macro_, signal::Timeline(256, {{0, 25600, 0}}),
                              GetProcessedSpans(macro_, events_, 100, 0), GetWindowGeometry(macro_, 256));
    }

    SpectraMacro macro_;
    EventsManager events_{256};

private:
    void Add(const char* label, EventClass eventClass, double begin, double end) {
        events_.Add({label, eventClass, {XTime::FromSeconds(begin), XTime::FromSeconds(end)}});
    }
};

TEST_F(ProcessedSpans, AllOfTheRecording) {
    EXPECT_EQ(Get(30), Spans({{0, 100}}));
}

TEST_F(ProcessedSpans, OfAnEmptyRecordingAreNone) {
    EXPECT_TRUE(GetProcessedSpans(macro_, events_, 0, 0).empty());
}

TEST_F(ProcessedSpans, DurationCountsFromTheCursor) {
    Mode_(Mode::ByDuration);
    macro_.SetFixedDurationSec(20);
    EXPECT_EQ(Get(30), Spans({{30, 50}}));
    EXPECT_EQ(Get(90), Spans({{90, 100}}));
    EXPECT_EQ(Get(100), Spans());
    EXPECT_EQ(Get(-5), Spans({{0, 20}}));
    EXPECT_EQ(Get(std::nan("")), Spans({{0, 20}}));
    macro_.SetFixedDurationSec(0);
    EXPECT_EQ(Get(30), Spans());
}

TEST_F(ProcessedSpans, StateEventsAreUnited) {
    Mode_(Mode::ByStateEvents);
    macro_.SetAcceptStateList({"open", "closed"});
    State("open", 50, 60);
    State("closed", 10, 20);
    State("open", 15, 25);
    State("closed", 25, 30);
    State("open", 12, 13);
    State("other", 30, 40);
    State("closed", 95, 120);
    EXPECT_EQ(Get(), Spans({{10, 30}, {50, 60}, {95, 100}}));
}

TEST_F(ProcessedSpans, SpotEventsAreNoStateEvents) {
    Mode_(Mode::ByStateEvents);
    macro_.SetAcceptStateList({"flash"});
    Spot("flash", 10);
    EXPECT_EQ(Get(), Spans());
}

TEST_F(ProcessedSpans, LabelsAreComparedByteByByte) {
    Mode_(Mode::ByStateEvents);
    macro_.SetAcceptStateList({"Open"});
    State("open", 10, 20);
    EXPECT_EQ(Get(), Spans());
}

TEST_F(ProcessedSpans, SpotEventsStartSegments) {
    Mode_(Mode::BySpotEvents);
    macro_.SetAcceptSpotList({"flash"});
    macro_.SetPreTriggerMS(-500);
    macro_.SetTrgDurationMS(2000);
    Spot("flash", 10);
    Spot("beep", 11);
    Spot("flash", 20);
    State("flash", 40, 50);
    EXPECT_EQ(Get(), Spans({{9.5, 11.5}, {19.5, 21.5}}));
}

TEST_F(ProcessedSpans, StepsRepeatTheSegmentAndStayApart) {
    Mode_(Mode::BySpotEvents);
    macro_.SetAcceptSpotList({"flash"});
    macro_.SetPreTriggerMS(250);
    macro_.SetTrgDurationMS(1000);
    macro_.SpotStepCount = 3;
    macro_.SpotStepInc = 500;
    Spot("flash", 10);
    Spot("flash", 10.5);
    EXPECT_EQ(Get(), Spans({{10.25, 11.25},
                            {10.75, 11.75},
                            {10.75, 11.75},
                            {11.25, 12.25},
                            {11.25, 12.25},
                            {11.75, 12.75}}));
    EXPECT_EQ(EpochStarts(), Starts({103, 108, 113, 118}));
}

TEST_F(ProcessedSpans, StepsOutsideTheirRangeCountAsTheNearestInside) {
    Mode_(Mode::BySpotEvents);
    macro_.SetAcceptSpotList({"flash"});
    Spot("flash", 10);
    macro_.SpotStepCount = 0;
    EXPECT_EQ(Get(), Spans({{10, 11}}));
    macro_.SpotStepCount = 4294967295u;
    macro_.SpotStepInc = 0;
    EXPECT_EQ(Get().size(), 256u);
    EXPECT_EQ(Get().back(), TimeSpan({10.255, 11.255}));
}

TEST_F(ProcessedSpans, SegmentsAreCutToTheRecording) {
    Mode_(Mode::BySpotEvents);
    macro_.SetAcceptSpotList({"flash"});
    macro_.SetPreTriggerMS(-1000);
    macro_.SetTrgDurationMS(2000);
    Spot("flash", 0.5);
    Spot("flash", 99.5);
    Spot("flash", 105);
    EXPECT_EQ(Get(), Spans({{0, 1.5}, {98.5, 100}}));
}

TEST_F(ProcessedSpans, SegmentsWithoutLengthAreNone) {
    Mode_(Mode::BySpotEvents);
    macro_.SetAcceptSpotList({"flash"});
    Spot("flash", 10);
    macro_.SetTrgDurationMS(0);
    EXPECT_EQ(Get(), Spans());
    macro_.SetTrgDurationMS(-1000);
    EXPECT_EQ(Get(), Spans());
}

TEST_F(ProcessedSpans, RejectedEventsAreCutOut) {
    macro_.SetRejectEventsList({"bad", "worse"});
    State("bad", 10, 20);
    State("worse", 15, 25);
    State("fine", 40, 50);
    State("bad", 98, 110);
    State("bad", -5, 1);
    EXPECT_EQ(Get(), Spans({{1, 10}, {25, 98}}));
}

TEST_F(ProcessedSpans, RejectionHoldsInEveryMode) {
    macro_.SetRejectEventsList({"bad"});
    State("bad", 10, 20);
    Mode_(Mode::ByDuration);
    EXPECT_EQ(Get(5), Spans({{5, 10}, {20, 65}}));
    Mode_(Mode::ByStateEvents);
    macro_.SetAcceptStateList({"open"});
    State("open", 12, 30);
    EXPECT_EQ(Get(), Spans({{20, 30}}));
    Mode_(Mode::BySpotEvents);
    macro_.SetAcceptSpotList({"flash"});
    macro_.SetTrgDurationMS(15000);
    Spot("flash", 9);
    Spot("flash", 9.5);
    EXPECT_EQ(Get(), Spans({{9, 10}, {9.5, 10}, {20, 24}, {20, 24.5}}));
}

TEST_F(ProcessedSpans, AnAcceptedEventThatIsRejectedToo) {
    Mode_(Mode::ByStateEvents);
    macro_.SetAcceptStateList({"open"});
    macro_.SetRejectEventsList({"open"});
    State("open", 10, 20);
    EXPECT_EQ(Get(), Spans());
}

TEST_F(ProcessedSpans, ARejectedInstantIsInNoEpoch) {
    macro_.SetRejectEventsList({"bad"});
    Spot("bad", 1.5); // inside the epoch from 1 s
    Spot("bad", 3.6); // exactly on a sample that would start an epoch
    const Starts starts = EpochStarts();
    // [0, 1.5) holds one epoch, then from sample 16, then from sample 37, the one after 3.6 s.
    EXPECT_EQ(Starts(starts.begin(), starts.begin() + 5), Starts({0, 16, 26, 37, 47}));
}

TEST_F(ProcessedSpans, AStateEventWithoutLengthRejectsItsInstant) {
    macro_.SetRejectEventsList({"bad"});
    State("bad", 1, 1);
    const Starts starts = EpochStarts();
    EXPECT_EQ(Starts(starts.begin(), starts.begin() + 3), Starts({0, 11, 21}));
}

// Begins at 256, 281.6, 307.2 and 332.8 samples, and so on: every fifth of a sample.
TEST_F(ProcessedSpans, EverySegmentAsLongAsTheWindowIsAnEpoch) {
    Mode_(Mode::BySpotEvents);
    macro_.SetAcceptSpotList({"flash"});
    macro_.SetTrgDurationMS(300);
    for (const double at : {1.0, 2.1, 3.2, 4.3, 5.4}) {
        Spot("flash", at);
    }
    EXPECT_EQ(OddStarts(), Starts({256, 538, 820, 1101, 1383}));
}

TEST_F(ProcessedSpans, EveryStateAsLongAsTheWindowIsAnEpoch) {
    Mode_(Mode::ByStateEvents);
    macro_.SetAcceptStateList({"burst"});
    for (const double at : {1.0, 2.1, 3.2, 4.3, 5.4}) {
        State("burst", at, at + 0.3);
    }
    EXPECT_EQ(OddStarts(), Starts({256, 538, 820, 1101, 1383}));
}

// The segment ends at 1.3004 s; its 77 samples are 257 to 333, and 333 lies at 1.30078 s.
TEST_F(ProcessedSpans, RoundingTakesNoSampleOfARejectedStretch) {
    Mode_(Mode::BySpotEvents);
    macro_.SetAcceptSpotList({"flash"});
    macro_.SetRejectEventsList({"bad", "worse"});
    macro_.SetTrgDurationMS(300);
    Spot("flash", 1.0004);
    State("bad", 1.3008, 2);
    EXPECT_EQ(OddStarts(), Starts({257}));
    State("worse", 1.3005, 2);
    EXPECT_EQ(OddStarts(), Starts());
}

TEST_F(ProcessedSpans, EpochsTouchRejectedEventsButDoNotEnterThem) {
    macro_.SetRejectEventsList({"bad"});
    State("bad", 2, 3.05);
    const Starts starts = EpochStarts();
    EXPECT_EQ(Starts(starts.begin(), starts.begin() + 4), Starts({0, 10, 31, 41}));
}

} // namespace
} // namespace orvanta::spectral
