// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/app/traces/measuring.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

namespace {

using namespace orvanta::review;
using testing::ElementsAre;

/// A sine of 10 Hz and 50 units at 256 Hz, from 2 s to 6 s.
TraceLine Sine() {
    TraceRun run{2, 1.0 / 256, {}};
    for (int i = 0; i < 1024; ++i) {
        run.values.push_back(static_cast<float>(50 * std::sin(2 * std::numbers::pi * 10 * i / 256)));
    }
    return {{run}, {}};
}

TraceLayout Page() {
    return LayOutTraces({0, 0, 1078, 600}, {12, 60, 1, {}}); // ten seconds on 1000 pixels
}

TEST(WaveFrequency, IsThatOfTheWaveAtTheTime) {
    EXPECT_NEAR(*WaveFrequency(Sine(), 4), 10, 0.01);
    EXPECT_NEAR(*WaveFrequency(Sine(), 2.5), 10, 0.01);
}

TEST(WaveFrequency, IsNoneOutsideOfTheRunAndOfAFlatLine) {
    EXPECT_FALSE(WaveFrequency(Sine(), 1));
    EXPECT_FALSE(WaveFrequency(Sine(), 6.5));
    EXPECT_FALSE(WaveFrequency({{TraceRun{0, 0.01, std::vector<float>(500, 3)}}, {}}, 2));
    EXPECT_FALSE(WaveFrequency({{}, std::vector<TraceColumn>(10, TraceColumn{-1, 1})}, 2));
}

TEST(Measurement, IsTheTimeTheDifferenceAndTheRangeBetweenTwoPlaces) {
    const TraceLine line{{TraceRun{0, 1, {1, 5, -3, 2}}}, {}};
    const Measurement measured = Measure(line, Page(), 3, 1);
    EXPECT_EQ(measured.seconds, 2);
    EXPECT_EQ(measured.difference, 3); // 5 less 2
    EXPECT_EQ(measured.peakToPeak, 8);
}

TEST(Measurement, OfColumnsTakesTheirMiddlesAndTheirWholeRange) {
    const TraceLine line{{}, {{0, 2}, {4, 8}, {-1, 1}, {1, -1}}};
    const Measurement measured = Measure(line, Page(), 1, 6); // the first and the third of four
    EXPECT_EQ(measured.difference, -1);
    EXPECT_EQ(measured.peakToPeak, 9);
    EXPECT_FALSE(Measure(line, Page(), 1, 9).difference); // nothing there
}

TEST(ColumnsOfALine, SortItsSamplesIntoTheStretch) {
    const std::vector<TraceColumn> columns =
        ColumnsOf({{TraceRun{-1, 1, {9, 1, 5, -3, 2, 7}}}, {}}, {0, 4, 2}); // from -1 s to 4 s
    ASSERT_EQ(columns.size(), 2);
    EXPECT_EQ(columns[0].low, 1);
    EXPECT_EQ(columns[0].high, 5);
    EXPECT_EQ(columns[1].low, -3);
    EXPECT_EQ(columns[1].high, 2);
    EXPECT_TRUE(ColumnsOf({}, {0, 4, 3})[2].IsEmpty());
}

TEST(MeasurementTexts, SayTimeFrequencyAndValues) {
    TraceChannel channel;
    channel.name = "Fp1-F3";
    channel.unit = "µV";
    EXPECT_THAT(MeasurementTexts(channel, {0.125, -34.55, 120.4}),
                ElementsAre("Fp1-F3", "Δt 0.125 s  (8.00 Hz)", "ΔV -34.5 µV", "peak to peak 120 µV"));
    EXPECT_THAT(MeasurementTexts(channel, {0, {}, {}}), ElementsAre("Fp1-F3", "Δt 0.0 ms"));
}

TEST(CursorTexts, SayValueAndWave) {
    TraceChannel channel;
    channel.name = "O1";
    channel.unit = "µV";
    EXPECT_THAT(CursorTexts(channel, Sine(), Page(), 4.025), ElementsAre("O1  49.8 µV", "wave of 10.0 Hz"));
    EXPECT_THAT(CursorTexts(channel, Sine(), Page(), 0), ElementsAre("O1  no data"));
}

} // namespace
