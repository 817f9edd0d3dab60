// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/app/traces/file_page.h"

#include "tests/support/counting_source.h"
#include "tests/support/raw_source.h"
#include "tests/support/small_recording.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <random>

namespace orvanta::review {
namespace {

using test::MadeSignal;
using testing::ElementsAre;
using testing::SizeIs;

struct Sample {
    double time;
    float value;
};

/// Every sample with its time. A second has \p rate samples; gaps open before blocks of a second.
std::vector<Sample> SamplesOf(const std::vector<double>& values, int rate,
                              const std::vector<test::Gap>& gaps) {
    std::vector<Sample> samples;
    for (std::size_t i = 0; i < values.size(); ++i) {
        double time = static_cast<double>(i) / rate;
        for (const test::Gap& gap : gaps) {
            time += i >= gap.block * static_cast<std::size_t>(rate) ? gap.gap_s : 0;
        }
        samples.push_back({time, static_cast<float>(values[i])});
    }
    return samples;
}

/// The columns by looking at every sample.
std::vector<TraceColumn> BruteForce(const std::vector<Sample>& samples, const PageRequest& page) {
    std::vector<TraceColumn> columns(static_cast<std::size_t>(page.columns));
    for (const Sample& sample : samples) {
        const double column = std::floor((sample.time - page.start) * page.columns / page.duration);
        if (column >= 0 && column < page.columns) {
            TraceColumn& at = columns[static_cast<std::size_t>(column)];
            at = at.IsEmpty() ? TraceColumn{sample.value, sample.value}
                              : TraceColumn{std::min(at.low, sample.value), std::max(at.high, sample.value)};
        }
    }
    return columns;
}

TEST(FilePage, HasTheColumnsThatEverySampleGives) {
    const std::vector<test::Gap> gaps{{7, 0.5}, {8, 2.25}, {20, 0.125}};
    const std::vector<double> cz = test::Fp1Values(64 * 40), ecg = test::F3Values(256 * 40);
    const auto recording = signal::MakeRecording(
        test::MakeData({MadeSignal{"Cz", 64, cz}, MadeSignal{"ECG", 256, ecg}}, {}, gaps));
    const std::vector<TraceChannel> lines = ChannelsOf(*recording);
    const std::vector<Sample> czSamples = SamplesOf(cz, 64, gaps), ecgSamples = SamplesOf(ecg, 256, gaps);
    std::minstd_rand random(7);
    for (int round = 0; round < 300; ++round) {
        // Times that a double holds exactly, so that both ways sort samples on an edge alike.
        const double start = static_cast<double>(random() % 3200) / 64 - 4;
        const int columns = 1 << random() % 7;
        const double duration = columns * (0.25 + static_cast<double>(random() % 256) / 256);
        const PageRequest page{start, duration, columns};

        const TracePage read = FilePage(*recording->GetRecording(), lines, {}, page).Read();

        EXPECT_EQ(read.lines[0].columns, BruteForce(czSamples, page))
            << start << " " << duration << " " << columns;
        EXPECT_EQ(read.lines[1].columns, BruteForce(ecgSamples, page))
            << start << " " << duration << " " << columns;
        EXPECT_TRUE(read.complete);
    }
}

TEST(FilePage, ReadsOnlyTheBlocksItNeedsAndThoseOnce) {
    signal::RecordingData data = test::SmallData(20);
    const auto counting = std::make_shared<test::CountingSource>(data.source);
    data.source = counting;
    const auto recording = signal::MakeRecording(std::move(data));
    const std::vector<TraceChannel> lines = ChannelsOf(*recording);

    FilePage(*recording->GetRecording(), lines, {}, {5, 2, 2}).Read();

    std::vector<unsigned> expected(20, 0);
    expected[5] = expected[6] = 1;
    EXPECT_EQ(counting->Reads(), expected);
}

TEST(FilePage, ReadsWhatFiltersNeedToSettle) {
    signal::RecordingData data = test::SmallData(40);
    const auto counting = std::make_shared<test::CountingSource>(data.source);
    data.source = counting;
    const auto recording = signal::MakeRecording(std::move(data));
    const std::vector<TraceChannel> lines = ChannelsOf(*recording);

    // At 0.5 Hz ln(10⁶) · √2 / (2π · 0.5) s, about 6.2 s.
    FilePage(*recording->GetRecording(), lines, {0.5, 0, 0}, {20, 2, 2}).Read();

    const auto first = std::find(counting->Reads().begin(), counting->Reads().end(), 1U);
    EXPECT_EQ(first - counting->Reads().begin(), 13);
}

TEST(FilePage, TakesEveryWayOfStoring) {
    const std::vector<std::vector<double>> stored{{1, -2, 3, 30000, 5, 6}, {-7, 8, -9, -30000, 11, 12}};
    for (const auto format :
         {signal::SampleFormat::Int16, signal::SampleFormat::Int24, signal::SampleFormat::Float32}) {
        for (const auto order : {test::RawSource::Order::BySignal, test::RawSource::Order::BySample}) {
            signal::RecordingData data = test::MakeData({MadeSignal{"Cz", 2, {}}, MadeSignal{"Pz", 2, {}}});
            data.signals[1].gain = 0.5;
            data.signals[1].offset = 1;
            data.source = std::make_shared<test::RawSource>(format, stored, 2, order);
            data.segments = {{0, 3, 0}};
            const auto recording = signal::MakeRecording(std::move(data));

            const TracePage page =
                FilePage(*recording->GetRecording(), ChannelsOf(*recording), {}, {0, 3, 10}).Read();

            ASSERT_THAT(page.lines[0].runs, SizeIs(1));
            EXPECT_THAT(page.lines[0].runs[0].values, ElementsAre(1, -2, 3, 30000, 5, 6));
            EXPECT_THAT(page.lines[1].runs[0].values, ElementsAre(-2.5, 5, -3.5, -14999, 6.5, 7));
        }
    }
}

TEST(FilePage, LeavesLinesWithoutTermsEmpty) {
    const auto recording = test::SmallRecording();
    std::vector<TraceChannel> lines = ChannelsOf(*recording);
    lines[1].terms.clear();

    const TracePage page = FilePage(*recording->GetRecording(), lines, {}, {0, 1, 10}).Read();

    ASSERT_THAT(page.lines, SizeIs(3));
    EXPECT_THAT(page.lines[1].runs, SizeIs(0));
    EXPECT_THAT(page.lines[2].runs, SizeIs(1));
}

TEST(FilePage, RefusesALineOfSignalsOfDifferentRates) {
    const auto recording = signal::MakeRecording(test::MakeData(
        {MadeSignal{"ECG", 8, std::vector<double>(8)}, MadeSignal{"Resp", 4, std::vector<double>(4)}}));
    std::vector<TraceChannel> lines = ChannelsOf(*recording);
    lines[0].terms.push_back(lines[1].terms[0]);

    EXPECT_THROW(FilePage(*recording->GetRecording(), lines, {}, {0, 1, 10}), std::invalid_argument);
}

TEST(FilePage, ResamplesElectrodesOfALowerRateOnly) {
    const auto recording = signal::MakeRecording(test::MakeData(
        {MadeSignal{"Cz", 64, std::vector<double>(640, 3)}, MadeSignal{"Pz", 32, std::vector<double>(320, 5)},
         MadeSignal{"ECG", 32, std::vector<double>(320, 7)}}));

    const TracePage page =
        FilePage(*recording->GetRecording(), ChannelsOf(*recording), {}, {2, 1, 100}).Read();

    EXPECT_EQ(page.lines[1].runs.at(0).step, 1.0 / 64);
    EXPECT_NEAR(page.lines[1].runs[0].values.at(10), 5, 1e-3);
    EXPECT_EQ(page.lines[2].runs.at(0).step, 1.0 / 32);
}

} // namespace
} // namespace orvanta::review
