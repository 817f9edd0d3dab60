// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/app/traces/trace_channel.h"

#include "tests/support/small_recording.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace orvanta::review {
namespace {

using test::MadeSignal;
using testing::ElementsAre;

std::unique_ptr<EEGFileInfoType> NightRecording() {
    return signal::MakeRecording(
        test::MakeData({MadeSignal{"EEG C3-Ref", 8, std::vector<double>(16, 1), "uV"},
                        MadeSignal{"EEG C4-Ref", 8, std::vector<double>(16, 2), "mV"},
                        MadeSignal{"ECG", 16, std::vector<double>(32, 3), "mV"},
                        MadeSignal{"Resp", 4, std::vector<double>(8, 4), "L/s"}}));
}

std::vector<std::string> NamesOf(const std::vector<TraceChannel>& lines) {
    std::vector<std::string> names;
    for (const TraceChannel& line : lines) {
        names.push_back(line.name);
    }
    return names;
}

TEST(TraceChannels, AreTheMontageThenTheOtherSignalsInFileOrder) {
    const auto recording = NightRecording();
    const auto montage = test::MontageOf(*recording, "C3-C4 = +C3 -C4");
    recording->ChangeMntg(0, false, &montage);

    const std::vector<TraceChannel> lines = ChannelsOf(*recording);

    EXPECT_THAT(NamesOf(lines), ElementsAre("C3-C4", "ECG", "Resp"));
    EXPECT_EQ(lines[0].rate, 8);
    EXPECT_EQ(lines[1].rate, 16);
    EXPECT_EQ(lines[2].rate, 4);
}

TEST(TraceChannels, AreInMicrovoltsWhereTheyAreVoltages) {
    const auto recording = NightRecording();
    const auto montage = test::MontageOf(*recording, "C3-C4 = +C3 -C4");
    recording->ChangeMntg(0, false, &montage);

    const std::vector<TraceChannel> lines = ChannelsOf(*recording);

    EXPECT_EQ(lines[0].terms, (std::vector<TraceTerm>{{0, 1, 1, 0}, {1, -1, 1000, 0}}));
    EXPECT_EQ(lines[0].unit, "\u00B5V");
    EXPECT_EQ(lines[1].terms, (std::vector<TraceTerm>{{2, 1, 1000, 0}}));
    EXPECT_EQ(lines[1].unit, "\u00B5V");
    EXPECT_EQ(lines[2].terms, (std::vector<TraceTerm>{{3, 1, 1, 0}}));
    EXPECT_EQ(lines[2].unit, "L/s");
}

TEST(TraceChannels, ShareTheElectrodesOfAnAverageReference) {
    const auto recording = test::SmallRecording();
    const auto* average = recording->GetMontageList()->Find("Average reference");
    ASSERT_NE(average, nullptr);
    recording->ChangeMntg(0, false, average);

    const std::vector<TraceChannel> lines = ChannelsOf(*recording);

    ASSERT_EQ(lines.size(), 3U);
    ASSERT_NE(lines[0].average, nullptr);
    EXPECT_EQ(lines[0].average, lines[2].average);
    EXPECT_EQ(*lines[0].average, (std::vector<TraceTerm>{{0, 1.0 / 3}, {1, 1.0 / 3}, {2, 1.0 / 3}}));
}

TEST(TraceChannels, AreBadWithOneOfTheirElectrodes) {
    const auto recording = test::SmallRecording();
    const auto montage = test::MontageOf(*recording, "Fp1-F3 = +Fp1 -F3\nCz = +Cz");
    recording->ChangeMntg(0, false, &montage);
    test::SensorOf(*recording, "F3")->SetBad(true);

    const std::vector<TraceChannel> lines = ChannelsOf(*recording);

    EXPECT_TRUE(lines[0].bad);
    EXPECT_FALSE(lines[1].bad);
}

TEST(TraceChannels, HaveNamesOfTheirOwn) {
    const auto recording = NightRecording();
    const auto montage = test::MontageOf(*recording, "ecg = +C3\nC4 = +C4");
    recording->ChangeMntg(0, false, &montage);

    EXPECT_THAT(NamesOf(ChannelsOf(*recording)), ElementsAre("ecg", "C4", "ECG-2", "Resp"));
}

TEST(TraceChannels, OfARecordingWithoutEegAreItsSignals) {
    const auto recording = signal::MakeRecording(
        test::MakeData({MadeSignal{"Resp", 4, {1, 2, 3, 4}, "L/s"}, MadeSignal{"ECG", 8, {}, "mV"}}));

    EXPECT_THAT(NamesOf(ChannelsOf(*recording)), ElementsAre("Resp", "ECG"));
}

TEST(TraceChannels, HaveTheSameValuesWhenOnlyMarksDiffer) {
    const auto recording = test::SmallRecording();
    const TraceChannel line = ChannelsOf(*recording).front();
    TraceChannel marked = line;
    marked.bad = true;
    TraceChannel weighted = line;
    weighted.terms.front().weight = 0.5;

    EXPECT_TRUE(SameValues(line, marked));
    EXPECT_FALSE(line == marked);
    EXPECT_FALSE(SameValues(line, weighted));
}

} // namespace
} // namespace orvanta::review
