// SPDX-License-Identifier: GPL-3.0-or-later
// Events, start and gaps of BrainVision recordings.
#include "host/signal_base/recording_data.h"
#include "tests/support/brainvision_files.h"
#include "tests/support/event_rows.h"

#include <gtest/gtest.h>

#include <ostream>
#include <string>
#include <vector>

namespace orvanta::signal {
namespace {

using test::BrainVisionFiles;
using test::TempFolder;
using Lines = std::vector<std::string>;

using test::kSpot;
using Events = test::EventRows;

struct Piece {
    std::uint64_t first = 0;
    std::uint64_t count = 0;
    double start = 0;

    bool operator==(const Piece&) const = default;
    friend std::ostream& operator<<(std::ostream& out, const Piece& piece) {
        return out << piece.first << ' ' << piece.count << ' ' << piece.start;
    }
};
using Pieces = std::vector<Piece>;

struct Opened {
    RecordingData data;
    Events events;
    Pieces pieces;
};

/// A recording at 10 Hz of 60 frames with these markers.
Opened Open(const std::vector<std::string>& markers) {
    TempFolder folder;
    BrainVisionFiles files;
    files.interval = "100000";
    files.channels = {"Cz,,1,µV"};
    files.values = {std::vector<double>(60, 1)};
    files.markers = markers;
    Opened opened;
    opened.data = ReadBrainVision(WriteBrainVision(folder, files));
    opened.events = test::RowsOf(opened.data.annotations);
    for (const BlockSegment& segment : opened.data.segments) {
        opened.pieces.push_back({segment.first_block, segment.count, segment.start_s});
    }
    return opened;
}

TEST(BrainVisionMarkers, BecomeEventsCountedFromTheFirstDataPoint) {
    EXPECT_EQ(Open({"Stimulus,S  1,1,1,0", "Response,R 12,11,1,0"}).events,
              (Events{{0, kSpot, "Stimulus/S  1"}, {1, kSpot, "Response/R 12"}}));
}

TEST(BrainVisionMarkers, OfMoreThanOneDataPointLast) {
    EXPECT_EQ(Open({"Bad Interval,Userdefined,21,10,0", "Comment,spot,21,0,0", "Comment,none,21"}).events,
              (Events{{2, 1, "Bad Interval/Userdefined"}, {2, kSpot, "spot"}, {2, kSpot, "none"}}));
}

TEST(BrainVisionMarkers, AreNamedByWhatThereIs) {
    EXPECT_EQ(Open({"Comment,eyes open\\1 awake,1,1,0", "Time 0,,1,1,0", ",alone,1,1,0", ",,1,1,0",
                    "comment,,1,1,0"})
                  .events,
              (Events{{0, kSpot, "eyes open, awake"},
                      {0, kSpot, "Time 0"},
                      {0, kSpot, "alone"},
                      {0, kSpot, "event"},
                      {0, kSpot, "comment"}}));
}

TEST(BrainVisionMarkers, MayHoldAnUnescapedComma) {
    EXPECT_EQ(Open({"Comment,open, then closed,31,20,0"}).events, (Events{{3, 2, "open,then closed"}}));
}

TEST(BrainVisionMarkers, MayBeLatin1) {
    EXPECT_EQ(Open({"Comment,m\xFC"
                    "de,1,1,0"})
                  .events,
              (Events{{0, kSpot, "müde"}}));
}

TEST(BrainVisionMarkers, WithoutAUsablePositionAreLeftOut) {
    const Opened opened =
        Open({"Comment,a,x,1,0", "Comment,b,-5,1,0", "Comment,c", "Comment,d,61,1,0", "Comment,e,60,1,0"});
    EXPECT_EQ(opened.events, (Events{{5.9, kSpot, "e"}}));
    EXPECT_EQ(opened.data.repairs,
              (Lines{"rec.vmrk: line 8: position \"x\" is no data point, marker left out",
                     "rec.vmrk: line 9: position \"-5\" is no data point, marker left out",
                     "rec.vmrk: line 10: position \"\" is no data point, marker left out",
                     "rec.vmrk: line 11: marker \"d\" lies beyond the data, left out"}));
}

TEST(BrainVisionMarkers, AtPositionZeroStandAtTheStart) {
    const Opened opened = Open({"Comment,a,0,1,0"});
    EXPECT_EQ(opened.events, (Events{{0, kSpot, "a"}}));
    EXPECT_EQ(opened.data.repairs, (Lines{"rec.vmrk: line 8: position 0 taken as the first data point"}));
}

TEST(BrainVisionMarkers, BeyondTheDataAreListedTwentyTimes) {
    const Opened opened = Open(std::vector<std::string>(50, "Comment,a,1000,1,0"));
    ASSERT_EQ(opened.data.repairs.size(), 21u);
    EXPECT_EQ(opened.data.repairs.back(), "rec.vmrk: and 30 more");
}

TEST(BrainVisionTime, StartsWithTheFirstNewSegment) {
    const Opened opened = Open({"New Segment,,1,1,0,20240229235959000500"});
    EXPECT_EQ(opened.data.start, (StartTime{2024, 2, 29, 23, 59, 59, 500}));
    EXPECT_EQ(opened.pieces, (Pieces{{0, 6, 0}}));
    EXPECT_TRUE(opened.events.empty());
}

TEST(BrainVisionTime, CountsBackFromADateInsideTheData) {
    const Opened opened = Open({"New Segment,,21,1,0,20240301000001000000"});
    EXPECT_EQ(opened.data.start, (StartTime{2024, 2, 29, 23, 59, 59, 0}));
}

TEST(BrainVisionTime, IsUnknownWithoutAUsableDate) {
    EXPECT_EQ(Open({}).data.start, std::nullopt);
    EXPECT_EQ(Open({"New Segment,,1,1,0,00000000000000000000"}).data.start, std::nullopt);
    const Opened opened = Open({"New Segment,,1,1,0,20230229000000000000"});
    EXPECT_EQ(opened.data.start, std::nullopt);
    EXPECT_EQ(opened.data.repairs,
              (Lines{"rec.vmrk: line 8: date \"20230229000000000000\" is none, ignored"}));
}

TEST(BrainVisionTime, HasAGapWhereTheNextDateSaysSo) {
    const Opened opened = Open({"New Segment,,1,1,0,20240101120000000000",
                                "New Segment,,21,1,0,20240101120102500000", "Comment,after,26,1,0"});
    EXPECT_EQ(opened.pieces, (Pieces{{0, 2, 0}, {2, 4, 62.5}}));
    EXPECT_EQ(opened.events, (Events{{63, kSpot, "after"}}));
    EXPECT_TRUE(opened.data.repairs.empty());
}

TEST(BrainVisionTime, GoesOnWhereTheNextDateFits) {
    EXPECT_EQ(
        Open({"New Segment,,1,1,0,20240101120000000000", "New Segment,,21,1,0,20240101120002050000"}).pieces,
        (Pieces{{0, 6, 0}}));
}

TEST(BrainVisionTime, BreaksWithoutAGapWhereThereIsNoDate) {
    EXPECT_EQ(Open({"New Segment,,1,1,0", "New Segment,,31,1,0"}).pieces, (Pieces{{0, 3, 0}, {3, 3, 3}}));
}

TEST(BrainVisionTime, BreaksWithoutAGapWhereTheDateGoesBackOrYearsAhead) {
    for (const std::string date : {"20240101115959000000", "20300101120000000000"}) {
        const Opened opened =
            Open({"New Segment,,1,1,0,20240101120000000000", "New Segment,,31,1,0," + date});
        EXPECT_EQ(opened.pieces, (Pieces{{0, 3, 0}, {3, 3, 3}}));
        EXPECT_EQ(
            opened.data.repairs,
            (Lines{"rec.vmrk: line 9: the date of the new segment does not fit the data before it, taken "
                   "as a break without a gap"}));
    }
}

TEST(BrainVisionTime, HasBlocksThatEndAtEveryBreak) {
    const Opened opened = Open({"New Segment,,29,1,0", "New Segment,,8,1,0"});
    EXPECT_DOUBLE_EQ(opened.data.block_seconds, 0.7);
    EXPECT_EQ(opened.pieces, (Pieces{{0, 1, 0}, {1, 3, 0.7}, {4, 5, 2.8}}));
    EXPECT_EQ(opened.data.source->SampleCount(0), 60u);
}

TEST(BrainVisionTime, KeepsWhatANewSegmentSays) {
    EXPECT_EQ(Open({"New Segment,LostSamples: 12,31,1,0"}).events,
              (Events{{3, kSpot, "New Segment/LostSamples: 12"}}));
}

} // namespace
} // namespace orvanta::signal
