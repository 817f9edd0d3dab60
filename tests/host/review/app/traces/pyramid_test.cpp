// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/app/traces/pyramid.h"

#include "tests/support/counting_source.h"
#include "tests/support/silent_source.h"
#include "tests/support/small_recording.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <numeric>

namespace orvanta::review {
namespace {

using test::MadeSignal;
using testing::Each;
using testing::ElementsAre;
using testing::Le;
using testing::SizeIs;

constexpr std::size_t kPlenty = std::size_t{1} << 30;

/// Whole numbers that wander, without a pattern.
std::vector<double> Wandering(std::size_t count, std::uint32_t seed) {
    std::vector<double> values;
    std::uint32_t state = seed;
    double level = 0;
    for (std::size_t i = 0; i < count; ++i) {
        state = 1664525U * state + 1013904223U;
        level = std::trunc(0.9 * level) + static_cast<double>(state >> 24) - 128;
        values.push_back(level);
    }
    return values;
}

struct Built {
    explicit Built(signal::RecordingData data, std::size_t budget = kPlenty, const TraceFilter& filter = {})
        : recording(signal::MakeRecording(std::move(data))), lines(ChannelsOf(*recording)),
          wanted(lines.size()), pyramid(recording->GetRecording(), lines, filter, budget) {
        std::iota(wanted.begin(), wanted.end(), std::size_t{0});
        done = pyramid.Build({}, [this] { ++calls; });
    }

    std::vector<TraceColumn> Columns(const PageRequest& request, std::size_t line = 0) const {
        const TracePage page = pyramid.Read(request, wanted);
        EXPECT_TRUE(page.complete);
        return page.lines.at(line).columns;
    }

    std::unique_ptr<EEGFileInfoType> recording;
    std::vector<TraceChannel> lines;
    std::vector<std::size_t> wanted;
    Pyramid pyramid;
    bool done = false;
    int calls = 0;
};

/// By looking at every sample.
std::vector<TraceColumn> BruteForce(const std::vector<double>& values, std::size_t perColumn) {
    std::vector<TraceColumn> columns;
    for (std::size_t first = 0; first < values.size(); first += perColumn) {
        const auto begin = values.begin() + static_cast<std::ptrdiff_t>(first);
        const auto end = begin + static_cast<std::ptrdiff_t>(std::min(perColumn, values.size() - first));
        columns.push_back({static_cast<float>(*std::min_element(begin, end)),
                           static_cast<float>(*std::max_element(begin, end))});
    }
    return columns;
}

TEST(Pyramid, HasTheExtremesOfEverySample) {
    const std::vector<double> cz = Wandering(64 * 300, 1), pz = Wandering(64 * 300, 2);
    const Built built(test::MakeData({MadeSignal{"Cz", 64, cz}, MadeSignal{"Pz", 64, pz}}));

    EXPECT_TRUE(built.done);
    for (const int columns : {1, 2, 3, 4, 5, 10, 15, 60, 100, 300, 600, 1200}) {
        const auto perColumn = cz.size() / static_cast<std::size_t>(columns);
        EXPECT_EQ(built.Columns({0, 300, columns}, 0), BruteForce(cz, perColumn)) << columns;
        EXPECT_EQ(built.Columns({0, 300, columns}, 1), BruteForce(pz, perColumn)) << columns;
    }
}

TEST(Pyramid, AgreesWithItselfOnPartsOfTheRecording) {
    const std::vector<double> cz = Wandering(64 * 300, 3);
    const Built built(test::MakeData({MadeSignal{"Cz", 64, cz}}));
    const std::vector<TraceColumn> seconds = BruteForce(cz, 64);

    const std::vector<TraceColumn> part = built.Columns({100, 50, 50});

    EXPECT_TRUE(std::equal(part.begin(), part.end(), seconds.begin() + 100));
}

TEST(Pyramid, MovesTheEdgesOfColumnsToThoseOfBuckets) {
    // Buckets of 16 samples; columns of 24 begin in the buckets 0, 1, 3, 4.
    const std::vector<double> cz = Wandering(96, 4);
    const Built built(test::MakeData({MadeSignal{"Cz", 8, cz}}));
    const std::vector<TraceColumn> buckets = BruteForce(cz, 16);
    const auto both = [](TraceColumn a, const TraceColumn& b) {
        return TraceColumn{std::min(a.low, b.low), std::max(a.high, b.high)};
    };

    EXPECT_THAT(built.Columns({0, 12, 4}), ElementsAre(buckets[0], both(buckets[1], buckets[2]), buckets[3],
                                                       both(buckets[4], buckets[5])));
    EXPECT_THAT(built.Columns({0, 4, 4}), ElementsAre(buckets[0], buckets[0], buckets[1], buckets[1]));
}

TEST(Pyramid, LeavesGapsAndTheOutsideEmpty) {
    const std::vector<double> cz = Wandering(64 * 8, 5);
    const Built built(test::MakeData({MadeSignal{"Cz", 64, cz}}, {}, {{4, 1000}}));
    const std::vector<TraceColumn> halves = BruteForce(cz, 256);

    const std::vector<TraceColumn> columns = built.Columns({-4, 1016, 254});

    ASSERT_THAT(columns, SizeIs(254));
    EXPECT_EQ(columns[1], halves[0]);
    EXPECT_EQ(columns[252], halves[1]);
    EXPECT_EQ(std::count_if(columns.begin(), columns.end(), [](const TraceColumn& c) { return c.IsEmpty(); }),
              252);
}

TEST(Pyramid, KeepsEachRate) {
    const std::vector<double> cz = Wandering(64 * 60, 6), resp = Wandering(4 * 60, 7);
    const Built built(test::MakeData({MadeSignal{"Cz", 64, cz}, MadeSignal{"Resp", 4, resp, "L"}}));

    EXPECT_EQ(built.Columns({0, 60, 60}, 0), BruteForce(cz, 64));
    EXPECT_EQ(built.Columns({0, 60, 60}, 1), BruteForce(resp, 4));
}

TEST(Pyramid, StaysBelowItsBudget) {
    const auto data = [] {
        return test::MakeData({MadeSignal{"Cz", 64, Wandering(64 * 600, 8)},
                               MadeSignal{"Resp", 4, Wandering(4 * 600, 9), "L"}});
    };
    for (const std::size_t budget : {std::size_t{20000}, std::size_t{5000}, std::size_t{1000}}) {
        const Built built(data(), budget);
        const auto share = static_cast<int>(budget / sizeof(TraceColumn) / 2); // of each line
        EXPECT_FALSE(built.pyramid.IsFineEnough({0, 600, share + 1}));
        EXPECT_TRUE(built.pyramid.IsFineEnough({0, 600, share / 4}));
        EXPECT_EQ(built.Columns({0, 600, 1}), BruteForce(Wandering(64 * 600, 8), 64 * 600));
    }
}

TEST(Pyramid, HasRoomForADayOf256LinesIn64Megabytes) {
    const auto recording = signal::MakeRecording(test::SilentData(512, 86'400));
    const std::vector<TraceChannel> lines(256, ChannelsOf(*recording).front());

    const Pyramid pyramid(recording->GetRecording(), lines, {}, std::size_t{64} << 20);

    EXPECT_FALSE(pyramid.IsFineEnough({0, 86'400, (64 << 20) / 256 / 8 + 1})); // 8 bytes a bucket
    EXPECT_TRUE(pyramid.IsFineEnough({0, 86'400, 8192}));
    EXPECT_TRUE(pyramid.IsFineEnough({0, 7200, 1800}));
}

TEST(Pyramid, FiltersWithoutABreakFromTheBeginOfEachSegment) {
    const TraceFilter filter{1, 20, 0};
    const std::vector<double> cz = Wandering(64 * 40, 10);
    const Built built(test::MakeData({MadeSignal{"Cz", 64, cz}}, {}, {{20, 5}}), kPlenty, filter);
    std::vector<double> first(cz.begin(), cz.begin() + 64 * 20), second(cz.begin() + 64 * 20, cz.end());
    FilterRun(SectionsOf(filter, 64)).Apply(first);
    FilterRun(SectionsOf(filter, 64)).Apply(second);

    EXPECT_EQ(built.Columns({0, 20, 20}), BruteForce(first, 64));
    EXPECT_EQ(built.Columns({25, 20, 20}), BruteForce(second, 64));
}

TEST(Pyramid, ReadsTheFileOnce) {
    signal::RecordingData data = test::MakeData(
        {MadeSignal{"Cz", 64, Wandering(64 * 60, 11)}, MadeSignal{"ECG", 128, Wandering(128 * 60, 12)}});
    const auto counting = std::make_shared<test::CountingSource>(data.source);
    data.source = counting;

    const Built built(std::move(data));

    EXPECT_THAT(counting->Reads(), Each(1U));
    EXPECT_EQ(built.pyramid.Progress(), 1);
}

TEST(Pyramid, LeavesOutWhatIsNoNumber) {
    std::vector<double> cz(64, std::numeric_limits<double>::quiet_NaN());
    cz[40] = 5;
    cz[50] = -HUGE_VAL;
    cz[60] = 7;
    const Built built(test::MakeData({MadeSignal{"Cz", 8, cz}}));

    EXPECT_THAT(built.Columns({0, 8, 2}), ElementsAre(TraceColumn{}, TraceColumn{5, 7}));
}

TEST(Pyramid, IsEmptyUntilItIsBuilt) {
    const auto recording = test::SmallRecording(60);
    const Pyramid pyramid(recording->GetRecording(), ChannelsOf(*recording), {}, kPlenty);

    const TracePage page = pyramid.Read({0, 60, 4}, std::vector<std::size_t>{0});

    EXPECT_FALSE(page.complete);
    EXPECT_THAT(page.lines[0].columns, SizeIs(4));
    EXPECT_THAT(page.lines[0].columns, Each(TraceColumn{}));
    EXPECT_EQ(pyramid.Progress(), 0);
    EXPECT_FALSE(pyramid.Covers({0, 1, 1}));
}

TEST(Pyramid, GivesWhatIsBuiltWhileItGrows) {
    // 40 000 blocks of 96 bytes take four pieces of a megabyte.
    const auto recording = test::SmallRecording(40'000);
    Pyramid pyramid(recording->GetRecording(), ChannelsOf(*recording), {}, kPlenty);
    const std::vector<double> fp1 = test::Fp1Values(8 * 40'000);
    const std::vector<TraceColumn> expected = BruteForce(fp1, 8 * 1000);
    std::vector<std::size_t> counts;
    pyramid.Build({}, [&] {
        const TracePage page = pyramid.Read({0, 40'000, 40}, std::vector<std::size_t>{0});
        const std::vector<TraceColumn>& columns = page.lines[0].columns;
        const auto there = static_cast<std::size_t>(pyramid.Progress() * 40 + 1e-9);
        counts.push_back(there);
        EXPECT_TRUE(std::equal(columns.begin(), columns.begin() + static_cast<std::ptrdiff_t>(there),
                               expected.begin()));
        EXPECT_EQ(page.complete, there == 40);
        EXPECT_TRUE(pyramid.Covers({0, 1000, 1}));
    });

    EXPECT_THAT(counts, ElementsAre(10, 21, 32, 40));
}

TEST(Pyramid, StopsWhenAsked) {
    const auto recording = test::SmallRecording(40'000);
    Pyramid pyramid(recording->GetRecording(), ChannelsOf(*recording), {}, kPlenty);
    std::stop_source stop;

    EXPECT_FALSE(pyramid.Build(stop.get_token(), [&] { stop.request_stop(); }));

    EXPECT_LT(pyramid.Progress(), 1);
}

TEST(Pyramid, OfNothingIsReady) {
    const auto recording = test::SmallRecording();
    Pyramid pyramid(recording->GetRecording(), {}, {}, kPlenty);

    EXPECT_EQ(pyramid.Progress(), 1);
    EXPECT_TRUE(pyramid.Build({}, [] {}));
    EXPECT_THAT(pyramid.Read({0, 1, 1}, {}).lines, SizeIs(0));
}

} // namespace
} // namespace orvanta::review
