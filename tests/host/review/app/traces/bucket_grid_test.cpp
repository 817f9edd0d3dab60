// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/app/traces/bucket_grid.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace orvanta::review {
namespace {

using signal::Timeline;
using testing::ElementsAre;

std::vector<BucketRange> CoverOf(const BucketGrid& grid, std::int64_t begin, std::int64_t end) {
    std::vector<BucketRange> ranges;
    grid.Cover(begin, end, ranges);
    return ranges;
}

TEST(BucketGrid, HasABucketForEachCell) {
    const BucketGrid grid(Timeline(10, {{0, 100, 0}}), 8);

    EXPECT_EQ(grid.EndCell(), 13);
    EXPECT_EQ(grid.LevelCount(), 1U);
    EXPECT_EQ(grid.BucketCount(), 13U);
}

TEST(BucketGrid, HasAQuarterOfTheBucketsOnTheNextLevel) {
    const BucketGrid grid(Timeline(1, {{0, 100, 0}}), 1);

    EXPECT_EQ(grid.LevelCount(), 3U);
    EXPECT_EQ(grid.BucketCount(), 100U + 25U + 7U);
}

TEST(BucketGrid, SpendsNothingOnGaps) {
    // Samples 0 to 9 and, a million seconds later, 10 to 19: cells 0 to 2, and 250,000 to 250,002.
    const BucketGrid grid(Timeline(1, {{0, 10, 0}, {10, 10, 1e6}}), 4);

    EXPECT_EQ(grid.BucketCount(), 6U);
    EXPECT_EQ(grid.EndCell(), 250'003);
    EXPECT_EQ(grid.BucketAt(0, 100), 3U);
    EXPECT_EQ(grid.BucketAt(0, 250'001), 4U);
    EXPECT_EQ(grid.CellOf(0, 4), 250'001);
    EXPECT_EQ(grid.BucketAt(0, 250'003), 6U);
}

TEST(BucketGrid, SharesACellBetweenSegments) {
    // The second segment begins at sample 6 of elapsed time, in the cell in which the first one ended.
    const BucketGrid grid(Timeline(1, {{0, 5, 0}, {5, 5, 6}}), 4);

    EXPECT_EQ(grid.ElapsedOf(1), 6);
    EXPECT_EQ(grid.BucketCount(), 3U);
}

TEST(BucketGrid, PutsSegmentsBehindEachOther) {
    // By its time the second one would begin in the middle of the first's last sample.
    const BucketGrid grid(Timeline(1, {{0, 5, 0}, {5, 5, 4.4}}), 4);

    EXPECT_EQ(grid.ElapsedOf(1), 5);
}

TEST(BucketGrid, CoversWithFewBuckets) {
    const BucketGrid grid(Timeline(1, {{0, 100, 0}}), 1);

    // 3, then 4 to 7 as one of level 1 (bucket 101), then 8 and 9.
    EXPECT_THAT(CoverOf(grid, 3, 10),
                ElementsAre(BucketRange{3, 4}, BucketRange{8, 10}, BucketRange{101, 102}));
    EXPECT_THAT(CoverOf(grid, 0, 100), ElementsAre(BucketRange{124, 125}, BucketRange{125, 131}));
    EXPECT_THAT(CoverOf(grid, 5, 5), ElementsAre());
}

TEST(BucketGrid, CoversNothingOutside) {
    const BucketGrid grid(Timeline(1, {{0, 10, 20}}), 1);

    EXPECT_THAT(CoverOf(grid, -1, 20), ElementsAre());
    EXPECT_THAT(CoverOf(grid, 30, 100), ElementsAre());
}

} // namespace
} // namespace orvanta::review
