// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/app/traces/trace_store.h"

#include "host/signal_base/recording_error.h"
#include "tests/support/edf_file.h"
#include "tests/support/failing_source.h"
#include "tests/support/silent_source.h"
#include "tests/support/small_recording.h"
#include "tests/support/temp_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <cmath>
#include <filesystem>
#include <functional>
#include <limits>
#include <thread>

namespace orvanta::review {
namespace {

using test::MadeSignal;
using testing::ElementsAre;
using testing::SizeIs;

constexpr float kNaN = std::numeric_limits<float>::quiet_NaN();
const std::vector<std::size_t> kFirst{0};

std::vector<double> Counting(std::size_t count) {
    std::vector<double> values(count);
    for (std::size_t i = 0; i < count; ++i) {
        values[i] = static_cast<double>(i);
    }
    return values;
}

/// A store of the signals, as recorded.
struct Opened {
    explicit Opened(signal::RecordingData data)
        : recording(signal::MakeRecording(std::move(data))), store(recording->GetRecording()) {
        store.SetLines(ChannelsOf(*recording), {});
    }

    TraceLine Line(const PageRequest& request, std::size_t line = 0) const {
        return store.Read(request, std::vector<std::size_t>{line}).lines.at(0);
    }

    std::unique_ptr<EEGFileInfoType> recording;
    TraceStore store;
};

Opened CountingCz(std::size_t seconds, const std::vector<test::Gap>& gaps = {}) {
    return Opened(test::MakeData({MadeSignal{"Cz", 8, Counting(8 * seconds)}}, {}, gaps));
}

TEST(TraceStore, GivesSamplesWhereFewMeetAColumn) {
    const Opened opened = CountingCz(5);

    const TraceLine line = opened.Line({1, 1, 2});

    // Eight samples of the page and a neighbour on either side.
    ASSERT_THAT(line.runs, SizeIs(1));
    EXPECT_EQ(line.runs[0].start, 0.875);
    EXPECT_EQ(line.runs[0].step, 0.125);
    EXPECT_THAT(line.runs[0].values, ElementsAre(7, 8, 9, 10, 11, 12, 13, 14, 15, 16));
    EXPECT_THAT(line.columns, SizeIs(0));
}

TEST(TraceStore, GivesLeastAndGreatestWhereManyMeetAColumn) {
    const Opened opened = CountingCz(5);

    const TraceLine line = opened.Line({1, 2, 2});

    EXPECT_THAT(line.runs, SizeIs(0));
    EXPECT_THAT(line.columns, ElementsAre(TraceColumn{8, 15}, TraceColumn{16, 23}));
}

TEST(TraceStore, BreaksRunsAtGaps) {
    const Opened opened = CountingCz(4, {{2, 0.5}});

    const TraceLine line = opened.Line({1.5, 1.5, 10});

    ASSERT_THAT(line.runs, SizeIs(2));
    EXPECT_THAT(line.runs[0].values, ElementsAre(11, 12, 13, 14, 15));
    EXPECT_EQ(line.runs[1].start, 2.5);
    EXPECT_THAT(line.runs[1].values, ElementsAre(16, 17, 18, 19, 20));
}

TEST(TraceStore, LeavesColumnsInGapsEmpty) {
    const Opened opened = CountingCz(4, {{2, 2}});

    const TraceLine line = opened.Line({0, 6, 6});

    EXPECT_THAT(line.columns, ElementsAre(TraceColumn{0, 7}, TraceColumn{8, 15}, TraceColumn{}, TraceColumn{},
                                          TraceColumn{16, 23}, TraceColumn{24, 31}));
}

TEST(TraceStore, LeavesColumnsOutsideTheRecordingEmpty) {
    const Opened opened = CountingCz(2);

    const TraceLine line = opened.Line({-1, 4, 4});

    EXPECT_THAT(line.columns,
                ElementsAre(TraceColumn{}, TraceColumn{0, 7}, TraceColumn{8, 15}, TraceColumn{}));
}

TEST(TraceStore, HasNothingFarOutside) {
    const Opened opened = CountingCz(2);

    EXPECT_THAT(opened.Line({100, 1, 10}).runs, SizeIs(0));
    EXPECT_THAT(opened.Line({-1e18, 1, 10}).runs, SizeIs(0));
    EXPECT_THAT(opened.Line({0, 1e300, 1}).columns, ElementsAre(TraceColumn{0, 15}));
}

TEST(TraceStore, AnswersWrongRequestsWithEmptyLines) {
    const Opened opened = CountingCz(2);

    for (const PageRequest& request :
         {PageRequest{0, 0, 10}, PageRequest{0, -1, 10}, PageRequest{0, kNaN, 10}, PageRequest{kNaN, 1, 10},
          PageRequest{0, 1, 0}}) {
        const TraceLine line = opened.Line(request);
        EXPECT_THAT(line.runs, SizeIs(0));
        EXPECT_THAT(line.columns, SizeIs(0));
    }
}

TEST(TraceStore, KeepsEachSignalsRate) {
    const Opened opened(
        test::MakeData({MadeSignal{"Cz", 8, Counting(16)}, MadeSignal{"Resp", 2, Counting(4), "L"}}));

    const TracePage page = opened.store.Read({0, 2, 3}, std::vector<std::size_t>{1, 0});

    ASSERT_THAT(page.lines, SizeIs(2));
    ASSERT_THAT(page.lines[0].runs, SizeIs(1));
    EXPECT_EQ(page.lines[0].runs[0].step, 0.5);
    EXPECT_THAT(page.lines[0].runs[0].values, ElementsAre(0, 1, 2, 3));
    EXPECT_THAT(page.lines[1].columns,
                ElementsAre(TraceColumn{0, 5}, TraceColumn{6, 10}, TraceColumn{11, 15}));
}

TEST(TraceStore, WeighsSignalsAndSubtractsTheAverage) {
    const auto recording = test::SmallRecording();
    recording->ChangeMntg(0, false, recording->GetMontageList()->Find("Average reference"));
    TraceStore store(recording->GetRecording());
    store.SetLines(ChannelsOf(*recording), {});

    const TracePage page = store.Read({0, 1, 10}, kFirst);

    ASSERT_THAT(page.lines[0].runs, SizeIs(1));
    const std::vector<float>& values = page.lines[0].runs[0].values;
    const auto fp1 = test::Fp1Values(9), f3 = test::F3Values(9), cz = test::CzValues(9);
    ASSERT_THAT(values, SizeIs(9));
    for (std::size_t i = 0; i < 9; ++i) {
        EXPECT_FLOAT_EQ(values[i], static_cast<float>(fp1[i] - (fp1[i] + f3[i] + cz[i]) / 3)) << i;
    }
}

TEST(TraceStore, BreaksRunsWhereValuesAreNoNumbers) {
    std::vector<double> values = Counting(8);
    values[3] = kNaN;
    values[6] = std::numeric_limits<double>::infinity();
    const Opened opened(test::MakeData({MadeSignal{"Cz", 8, values}}));

    const TraceLine runs = opened.Line({0, 1, 10});
    const TraceLine columns = opened.Line({0, 1, 1});

    ASSERT_THAT(runs.runs, SizeIs(3));
    EXPECT_THAT(runs.runs[1].values, ElementsAre(4, 5));
    EXPECT_EQ(runs.runs[1].start, 0.5);
    EXPECT_THAT(columns.columns, ElementsAre(TraceColumn{0, 7}));
}

TEST(TraceStore, ReadsASingleSample) {
    const Opened opened(test::MakeData({MadeSignal{"Cz", 1, {5}}}));

    EXPECT_THAT(opened.Line({0, 10, 100}).runs.at(0).values, ElementsAre(5));
}

TEST(TraceStore, ReadsNothingFromARecordingWithoutSamples) {
    const Opened opened(test::MakeData({MadeSignal{"Cz", 8, {}}}));

    EXPECT_THAT(opened.Line({0, 10, 100}).runs, SizeIs(0));
}

TEST(TraceStore, ReadsNoLines) {
    const Opened opened = CountingCz(2);

    const TracePage page = opened.store.Read({0, 1, 10}, {});

    EXPECT_THAT(page.lines, SizeIs(0));
    EXPECT_TRUE(page.complete);
}

TEST(TraceStore, SaysWhenTheFileWasCut) {
    const test::TempFolder folder;
    const std::string path = folder.Write("cut.edf", test::PlainEdf(20).Bytes());
    const auto recording = signal::OpenRecording(path);
    TraceStore store(recording->GetRecording());
    store.SetLines(ChannelsOf(*recording), {});
    std::filesystem::resize_file(path, 900);

    EXPECT_THROW(store.Read({10, 5, 100}, kFirst), signal::RecordingError);
}

/// A recording of so many values that reading all of them takes too long for a page.
signal::RecordingData LongData() {
    return test::SilentData(1000, 6000, 2);
}

void WaitUntil(const std::function<bool()>& done) {
    const auto end = std::chrono::steady_clock::now() + std::chrono::minutes(1);
    while (!done() && std::chrono::steady_clock::now() < end) {
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    EXPECT_TRUE(done());
}

TEST(TraceStore, ShowsLongPagesOnceTheBackgroundIsThere) {
    const Opened opened(LongData());

    WaitUntil([&] { return opened.store.Progress() == 1; });
    const TracePage page = opened.store.Read({0, 6'000, 4}, kFirst);

    EXPECT_TRUE(page.complete);
    EXPECT_THAT(page.lines[0].columns, testing::Each(TraceColumn{2, 2}));
    EXPECT_EQ(opened.store.Failure(), "");
}

TEST(TraceStore, TellsThatItGrowsAndWhenItIsDone) {
    const auto recording = signal::MakeRecording(LongData());
    TraceStore store(recording->GetRecording());
    std::atomic<int> calls = 0;
    store.SetGrown([&] { ++calls; });

    store.SetLines(ChannelsOf(*recording), {});
    WaitUntil([&] { return store.Progress() == 1 && calls > 0; });

    EXPECT_TRUE(store.Read({0, 6'000, 4}, kFirst).complete);
}

TEST(TraceStore, SaysWhyTheBackgroundGaveUp) {
    signal::RecordingData data = LongData();
    const auto failing = std::make_shared<test::FailingSource>(data.source);
    failing->BeforeRead = [] {
        throw signal::RecordingError("long.edf", "was changed while open", "open it again");
    };
    data.source = failing;

    const Opened opened(std::move(data));
    WaitUntil([&] { return !opened.store.Failure().empty(); });
    const TracePage page = opened.store.Read({0, 6'000, 4}, kFirst);

    EXPECT_EQ(opened.store.Failure(), "long.edf: was changed while open (open it again)");
    EXPECT_FALSE(page.complete);
    EXPECT_THAT(page.lines[0].columns, testing::Each(TraceColumn{}));
}

TEST(TraceStore, BeginsAnewWithOtherValuesOnly) {
    Opened opened(LongData());
    WaitUntil([&] { return opened.store.Progress() == 1; });
    std::vector<TraceChannel> lines = ChannelsOf(*opened.recording);

    lines[0].bad = true;
    opened.store.SetLines(lines, {});
    EXPECT_EQ(opened.store.Progress(), 1);

    lines[0].terms[0].weight = -1;
    opened.store.SetLines(lines, {});
    WaitUntil([&] { return opened.store.Progress() == 1; });
    EXPECT_THAT(opened.store.Read({0, 6'000, 2}, kFirst).lines[0].columns,
                testing::Each(TraceColumn{-2, -2}));
}

TEST(TraceStore, EndsWorkInTheBackgroundWithTheReadUnderWay) {
    signal::RecordingData data = LongData(); // twelve reads
    const auto held = std::make_shared<test::FailingSource>(data.source);
    std::atomic<int> reads = 0;
    std::atomic<bool> release = false;
    held->BeforeRead = [&] {
        ++reads;
        release.wait(false);
    };
    data.source = held;
    auto opened = std::make_unique<Opened>(std::move(data));
    WaitUntil([&] { return reads == 1; });

    std::jthread later([&] {
        std::this_thread::sleep_for(std::chrono::milliseconds(200));
        release = true;
        release.notify_all();
    });
    opened.reset();

    EXPECT_LT(reads, 12);
}

TEST(TraceStore, LooksTheSameWhereverAPageBegins) {
    std::vector<double> values = test::Fp1Values(256 * 120);
    for (std::size_t i = 0; i < values.size(); ++i) {
        values[i] = 5 * values[i] + 100'000 + static_cast<double>(i) / 10;
    }
    Opened opened(test::MakeData({MadeSignal{"Cz", 256, values}}));
    const TraceFilter filter{0.1, 70, 50};
    opened.store.SetLines(ChannelsOf(*opened.recording), filter);
    FilterRun(SectionsOf(filter, 256)).Apply(values);

    for (const double start : {1.0, 31.5, 59.996, 80.0, 100.0}) {
        const std::vector<TraceRun> runs = opened.Line({start, 10, 2000}).runs;
        ASSERT_THAT(runs, SizeIs(1));
        const auto first = static_cast<std::size_t>(std::lround(runs[0].start * 256));
        for (std::size_t i = 0; i < runs[0].values.size(); ++i) {
            ASSERT_NEAR(runs[0].values[i], values[first + i], 0.01) << start << " " << i;
        }
    }
}

} // namespace
} // namespace orvanta::review
