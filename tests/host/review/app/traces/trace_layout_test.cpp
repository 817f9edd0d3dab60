// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/app/traces/trace_layout.h"

#include <gtest/gtest.h>

namespace {

using namespace orvanta::review;

TraceLayout Laid(const owl::TRect& client, int lines, TraceWindow window = {}) {
    return LayOutTraces(client, {12, 60, lines, window});
}

TEST(TraceLayout, StacksLabelsTracesRulerAndOverview) {
    const TraceLayout layout = Laid({0, 0, 1000, 600}, 10);
    EXPECT_EQ(layout.labels, (owl::TRect{72, 0, 994, 33}));
    EXPECT_EQ(layout.names, (owl::TRect{0, 33, 72, 535}));
    EXPECT_EQ(layout.plot, (owl::TRect{72, 33, 994, 535}));
    EXPECT_EQ(layout.ruler, (owl::TRect{72, 535, 994, 554}));
    EXPECT_EQ(layout.overview, (owl::TRect{72, 554, 994, 594}));
}

TEST(TraceLayout, SharesTheHeightAmongTheLines) {
    const TraceLayout layout = Laid({0, 0, 1000, 600}, 10);
    EXPECT_EQ(layout.lineCount, 10);
    EXPECT_DOUBLE_EQ(layout.spacing, 50.2);
    EXPECT_DOUBLE_EQ(layout.YOf(0), 58.1);
    EXPECT_DOUBLE_EQ(layout.YOf(9), 509.9);
}

TEST(TraceLayout, ShowsAsManyLinesAsFitAndScrollsOverTheRest) {
    TraceWindow window;
    window.firstLine = 500;
    const TraceLayout layout = Laid({0, 0, 1000, 600}, 100, window);
    EXPECT_EQ(layout.lineCount, 79); // 518 pixels in steps of 6.5
    EXPECT_EQ(layout.firstLine, 21); // the last ones
}

TEST(TraceLayout, ShowsSoManyLinesAsWereAskedFor) {
    TraceWindow window;
    window.firstLine = 3;
    window.lineCount = 4;
    const TraceLayout layout = Laid({0, 0, 1000, 600}, 100, window);
    EXPECT_EQ(layout.firstLine, 3);
    EXPECT_EQ(layout.lineCount, 4);
    EXPECT_DOUBLE_EQ(layout.spacing, 125.5);
}

TEST(TraceLayout, TurnsTimesIntoPlacesAndBack) {
    TraceWindow window;
    window.start = 100;
    window.duration = 20;
    const TraceLayout layout = Laid({0, 0, 1078, 600}, 10, window);
    EXPECT_EQ(layout.plot.Width(), 1000);
    EXPECT_DOUBLE_EQ(layout.XOf(100), 72);
    EXPECT_DOUBLE_EQ(layout.XOf(105), 322);
    EXPECT_DOUBLE_EQ(layout.TimeAt(322), 105);
    EXPECT_DOUBLE_EQ(layout.SecondsPerPixel(), 0.02);
}

TEST(TraceLayout, FindsTheLineAtAPlace) {
    const TraceLayout layout = Laid({0, 0, 1000, 600}, 10);
    EXPECT_EQ(layout.LineAt(32), std::nullopt);
    EXPECT_EQ(layout.LineAt(33), 0);
    EXPECT_EQ(layout.LineAt(84), 1);
    EXPECT_EQ(layout.LineAt(534), 9);
    EXPECT_EQ(layout.LineAt(535), std::nullopt);
}

TEST(TraceLayout, GivesTheOverviewsRoomToTheTracesWhereThereIsLittle) {
    const TraceLayout layout = Laid({0, 0, 400, 120}, 10);
    EXPECT_TRUE(layout.overview.IsEmpty());
    EXPECT_EQ(layout.labelRows, 1);
    EXPECT_EQ(layout.plot, (owl::TRect{57, 17, 394, 101}));
}

TEST(TraceLayout, ShowsAllElectrodesOfARoutineEegOnHalfASmallScreen) {
    const struct {
        int height, lines, onPage, nameHeight, columns;
    } cases[] = {
        {330, 19, 19, 12, 1}, // each name at full size
        {330, 32, 32, 9, 2},  // smaller names
        {330, 40, 40, 9, 2},  // by turns in two columns
        {330, 64, 40, 9, 2},  // from here on the scroll bar
        {250, 19, 19, 10, 1}, {700, 64, 64, 10, 1}, {1000, 128, 128, 9, 2},
    };
    for (const auto& c : cases) {
        const TraceLayout layout = Laid({0, 0, 1300, c.height}, c.lines);
        EXPECT_EQ(layout.lineCount, c.onPage) << c.lines << " lines on " << c.height;
        EXPECT_EQ(layout.nameHeight, c.nameHeight) << c.lines << " lines on " << c.height;
        EXPECT_EQ(layout.nameColumns, c.columns) << c.lines << " lines on " << c.height;
        // Letters of neighbours in one column do not touch.
        EXPECT_GE(layout.spacing * layout.nameColumns, 0.92 * layout.nameHeight);
    }
}

TEST(TraceLayout, KeepsNoRoomForLabelsOfEventsThatThereAreNot) {
    const TraceLayout layout = LayOutTraces({0, 0, 1000, 600}, {12, 60, 10, {}, false});
    EXPECT_EQ(layout.labelRows, 0);
    EXPECT_EQ(layout.plot.top, 1);
}

TEST(TraceLayout, HasNoPlaceForAnythingInNothing) {
    for (const owl::TRect& client : {owl::TRect{0, 0, 0, 0}, owl::TRect{0, 0, 1, 1},
                                     owl::TRect{0, 0, 500, 10}, owl::TRect{0, 0, 10, 500}}) {
        const TraceLayout layout = Laid(client, 10);
        EXPECT_TRUE(layout.plot.IsEmpty());
        EXPECT_EQ(layout.LineAt(0), std::nullopt);
        EXPECT_EQ(layout.TimeAt(5), 0);
    }
}

TEST(TraceLayout, HasNoLinesWithoutChannels) {
    const TraceLayout layout = Laid({0, 0, 1000, 600}, 0);
    EXPECT_EQ(layout.lineCount, 0);
    EXPECT_EQ(layout.LineAt(100), std::nullopt);
}

} // namespace
