// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/app/traces/cursor_painter.h"
#include "host/review/app/traces/scale_bars.h"
#include "host/review/app/traces/trace_painter.h"
#include "host/toolkit/qt_painting.h"
#include "tests/support/qt/contrast.h"
#include "tests/support/qt/recording_dc.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using namespace orvanta::review;
using orvanta::test::RecordingDC;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

/// Two lines on 400 × 200 pixels in 10 s; a millimetre is four pixels.
class TracePainter : public testing::Test {
protected:
    TracePainter() {
        channels_.resize(2);
        channels_[0].name = "C3";
        channels_[0].unit = "µV";
        channels_[0].type = Sensor::ScalpEeg;
        channels_[1] = channels_[0];
        channels_[1].name = "ECG";
        channels_[1].type = Sensor::Ecg;
        lines_[0].runs.push_back({0, 2.5, {0, 20, -20}});
        lines_[1].columns = {{-10, 10}, {0, 0}, {1, -1}, {5, 30}};
        page_.layout.names = {0, 20, 50, 220};
        page_.layout.labels = {50, 0, 450, 20};
        page_.layout.plot = {50, 20, 450, 220};
        page_.layout.ruler = {50, 220, 450, 250};
        page_.layout.overview = {50, 260, 450, 300};
        page_.layout.lineCount = 2;
        page_.layout.spacing = 100;
        page_.colors = ColorsFor(0xFFFFFF, 0xF0F0F0, 0);
        page_.total = 100;
        for (std::size_t i = 0; i < 2; ++i) {
            page_.lines.push_back(
                {&channels_[i], &lines_[i], {1, 0, page_.layout.YOf(static_cast<int>(i))}, false});
        }
    }

    const RecordingDC& Painted() {
        dc_.Clear();
        PaintPage(dc_, page_, PlaceTags(page_.layout, page_.events, [](const std::string&) { return 30; }));
        return dc_;
    }
    const RecordingDC& Overview(const OverviewInput& input) {
        dc_.Clear();
        PaintOverview(dc_, page_, input);
        return dc_;
    }

    RecordingDC dc_;
    std::array<TraceLine, 2> lines_;
    std::vector<TraceChannel> channels_;
    std::vector<EventRecord> events_;
    PageInput page_;
};

TEST_F(TracePainter, DrawsSamplesWhereTheyAreAndColumnsUpAndDown) {
    EXPECT_THAT(Painted().CallsOf("curve"),
                ElementsAre("curve 1.0 50.00,70.00 150.00,50.00 250.00,90.00",
                            "curve 1.0 100.00,180.00 100.00,160.00 200.00,170.00 200.00,170.00",
                            "curve 1.0 400.00,165.00 400.00,140.00"));
}

TEST_F(TracePainter, ColoursLinesByTypeAndBadOnesGrey) {
    channels_[0].bad = true;
    const auto pens = Painted().CallsOf("pen");
    EXPECT_THAT(pens, ElementsAre("pen #A8A8A8 1 solid", "pen #B02E45 1 solid"));
}

TEST_F(TracePainter, KeepsTheTracesInTheirArea) {
    EXPECT_THAT(Painted().Calls(), Contains("clip 50,20,450,220"));
}

TEST_F(TracePainter, WritesNamesTimesAndTheScale) {
    EXPECT_THAT(Painted().Texts(), testing::IsSupersetOf({"C3", "ECG", "50 µV", "0 s", "10 s"}));
}

TEST_F(TracePainter, WritesTheTimeOfDayBesideTheSecondsOnOneLine) {
    page_.startTime = orvanta::signal::StartTime{2026, 1, 2, 10, 20, 30, 0};
    const auto texts = Painted().Texts();
    EXPECT_THAT(texts, testing::IsSupersetOf({"10:20:30", "0 s", "10:20:35", "5 s"}));
}

TEST_F(TracePainter, WritesTheScaleBesideTheTrace) {
    // The bar of 50 µV goes from 45 to 95, the trace along its middle.
    EXPECT_THAT(Painted().Calls(), Contains(StartsWith("text 61,45 ")));
}

TEST_F(TracePainter, WritesTheScaleOfALowLineInTheMiddleOfItsBar) {
    page_.layout.spacing = 20; // 20 µV from 20 to 40
    EXPECT_THAT(Painted().Calls(), Contains(StartsWith("text 61,24 ")));
}

TEST_F(TracePainter, SaysThatNegativeIsUp) {
    page_.lines[0].scaling.unitsPerPixel = -1;
    const RecordingDC& dc = Painted();
    EXPECT_THAT(dc.Texts(), Contains("\u221250 µV \u2191"));
    EXPECT_EQ(dc.CallsOf("curve")[0], "curve 1.0 50.00,70.00 150.00,90.00 250.00,50.00");
}

TEST_F(TracePainter, NamesStandInTwoColumnsByTurnsWhereLinesAreMany) {
    page_.layout.nameColumns = 2;
    page_.layout.names = {0, 20, 106, 220};
    const auto texts = Painted().CallsOf("text");
    EXPECT_THAT(texts, Contains(testing::StartsWith("text 100,")));
    EXPECT_THAT(texts, Contains(testing::StartsWith("text 50,")));
}

TEST_F(TracePainter, DrawsAGridLineEachSecondWhereThereIsRoom) {
    const auto fills = Painted().CallsOf("fill");
    EXPECT_THAT(fills, Contains("fill 90,20,91,220 #E8E8E8"));   // 1 s
    EXPECT_THAT(fills, Contains("fill 130,20,131,220 #E8E8E8")); // 2 s
}

TEST_F(TracePainter, DrawsEventsOfTheUserFilledAndThoseOfTheRecordingPale) {
    events_ = {{"own", EventClass::State, {XTime::FromSeconds(1), XTime::FromSeconds(2)}},
               {"file", EventClass::Spot, {XTime::FromSeconds(5), XTime::FromSeconds(5)}}};
    page_.events = {{&events_[0], 0, true, false}, {&events_[1], 1, false, false}};
    const RecordingDC& dc = Painted();
    EXPECT_THAT(dc.Calls(), Contains("blend 90,20,130,220 #A85A00 34"));
    EXPECT_THAT(dc.Calls(), Contains("fill 90,0,128,15 #A85A00"));
    EXPECT_THAT(dc.Calls(), Contains("fill 250,0,251,220 #2F7D4F"));
    EXPECT_THAT(dc.Calls(), Contains("fill 250,0,288,15 #D1DED6"));
}

TEST_F(TracePainter, HatchesAGapAndSaysHowLongItIs) {
    page_.gaps = {{2, 8}};
    EXPECT_THAT(Painted().Texts(), Contains("no data for 6.0 s"));
    page_.gaps = {{20, 30}}; // elsewhere
    EXPECT_THAT(Painted().Texts(), Not(Contains("no data for 10 s")));
}

TEST_F(TracePainter, ShadesEpochs) {
    page_.shades = {{{XTime::FromSeconds(-5), XTime::FromSeconds(5)}, 0x0000FF}};
    EXPECT_THAT(Painted().CallsOf("blend"), Contains("blend 50,20,250,220 #FF0000 36"));
}

TEST_F(TracePainter, FramesThePageInTheOverview) {
    page_.layout.start = 50;
    const auto frames = Overview({{}, 1}).CallsOf("frame");
    ASSERT_EQ(frames.size(), 2);
    EXPECT_EQ(frames[1], "frame 249,260,290,300 #1B6ED0");
}

TEST_F(TracePainter, ShowsActivityAndHowFarItIsKnown) {
    const RecordingDC& dc = Overview({{1, 0.5F, -1}, 0.5});
    EXPECT_THAT(dc.Calls(), Contains("fill 50,267,51,296 #7385A0"));
    EXPECT_THAT(dc.Calls(), Contains("fill 50,298,250,300 #1B6ED0"));
}

TEST_F(TracePainter, PaintsNothingWhereThereIsNoRoom) {
    page_.layout = LayOutTraces({0, 0, 0, 0}, {12, 60, 2, {}});
    EXPECT_THAT(Painted().CallsOf("curve"), IsEmpty());
    EXPECT_THAT(Overview({{1, 1}, 1}).Calls(), IsEmpty());
}

TEST(ScaleBars, HaveARoundHeight) {
    EXPECT_EQ(ValueText(100, "µV"), "100 µV");
    EXPECT_EQ(ValueText(0.5, "%"), "0.5 %");
    EXPECT_EQ(ValueText(-12.34, "µV"), "-12.3 µV");
    EXPECT_EQ(ValueText(0, ""), "0");
}

TEST(TraceColors, CanBeToldFromTheirBackground) {
    struct Look {
        owl::TColor base, window, text;
    };
    for (const Look& look : {Look{0xFFFFFF, 0xF0F0F0, 0}, Look{0x1E1E1E, 0x353535, 0xFFFFFF}}) {
        const TraceColors colors = ColorsFor(look.base, look.window, look.text);
        for (const owl::TColor color : colors.groups) {
            EXPECT_GE(orvanta::test::Contrast(owl::ToQColor(color), owl::ToQColor(colors.background)), 4.5);
        }
        EXPECT_GE(orvanta::test::Contrast(owl::ToQColor(colors.faint), owl::ToQColor(colors.margin)), 4.5);
        for (const owl::TColor color : {colors.ownEvent, colors.fileEvent, colors.badEvent}) {
            EXPECT_GE(orvanta::test::Contrast(owl::ToQColor(color), owl::ToQColor(TextOn(color))), 4.5);
        }
    }
}

TEST(CursorBox, StandsBesideThePlaceInsideTheArea) {
    const owl::TRect area{0, 0, 500, 300};
    EXPECT_EQ(BoxBeside({100, 100}, {80, 40}, area), (owl::TRect{114, 114, 194, 154}));
    EXPECT_EQ(BoxBeside({480, 290}, {80, 40}, area), (owl::TRect{386, 236, 466, 276}));
    EXPECT_EQ(BoxBeside({10, 10}, {600, 400}, area), (owl::TRect{0, 0, 600, 400}));
}

} // namespace
