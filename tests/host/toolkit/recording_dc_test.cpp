// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/support/qt/recording_dc.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace orvanta::test {

namespace {

using testing::ElementsAre;

constexpr owl::TRect kRect{1, 2, 30, 40};
constexpr owl::TColor kColor = owl::Rgb(0x12, 0xAB, 0xEF);

TEST(RecordingDC, WritesOneLineForEachCall) {
    RecordingDC dc;
    dc.SelectPen({kColor, 2, owl::PenStyle::Solid});
    dc.SelectPen({0, 1, owl::PenStyle::Dotted});
    dc.SelectPen({0, 1, owl::PenStyle::None});
    dc.SelectBrush({kColor});
    dc.SelectBrush({0, true});
    dc.SelectFont({"Verdana", 12, true, true});
    dc.SetTextColor(kColor);
    dc.Polyline(std::vector<owl::TPoint>{{10, 20}, {30, 40}});
    dc.Polygon(std::vector<owl::TPoint>{{10, 20}, {30, 40}, {-5, 0}});
    dc.Curve(std::vector<owl::TPointF>{{0.5, 20.25}, {30, -4}}, 1.25);
    dc.Ellipse(kRect);
    dc.Line({1, 2}, {3, 4});
    dc.Rectangle(kRect);
    dc.FillRect(kRect, kColor);
    dc.FrameRect(kRect, kColor);
    dc.SetClip(kRect);
    dc.ClearClip();
    dc.BlendRect(kRect, kColor, 128);
    dc.DrawImage(kRect, {2, 1, {0xFF000000, 0xFFFFFFFF}});
    EXPECT_THAT(dc.Calls(), ElementsAre("pen #12ABEF 2 solid", "pen #000000 1 dotted", "pen #000000 1 none",
                                        "brush #12ABEF", "brush hollow", "font \"Verdana\" 12 bold italic",
                                        "textcolor #12ABEF", "polyline 10,20 30,40",
                                        "polygon 10,20 30,40 -5,0", "curve 1.2 0.50,20.25 30.00,-4.00",
                                        "ellipse 1,2,30,40", "line 1,2 3,4", "rectangle 1,2,30,40",
                                        "fill 1,2,30,40 #12ABEF", "frame 1,2,30,40 #12ABEF", "clip 1,2,30,40",
                                        "noclip", "blend 1,2,30,40 #12ABEF 128", "image 1,2,30,40 2x1"));
    EXPECT_THAT(dc.Images(), ElementsAre(owl::TImage{2, 1, {0xFF000000, 0xFFFFFFFF}}));
}

TEST(RecordingDC, WritesATextWithTheAlignmentThen) {
    RecordingDC dc;
    dc.TextOut({5, 6}, "Fp1");
    EXPECT_EQ(dc.SetTextAlign(owl::TextAlign::Right), owl::TextAlign::Left);
    dc.TextOut({5, 6}, "Fp2");
    EXPECT_EQ(dc.SetTextAlign(owl::TextAlign::Center), owl::TextAlign::Right);
    dc.TextOut({5, 6}, "Cz");
    EXPECT_THAT(dc.CallsOf("text"),
                ElementsAre("text 5,6 left \"Fp1\"", "text 5,6 right \"Fp2\"", "text 5,6 center \"Cz\""));
    EXPECT_THAT(dc.Texts(), ElementsAre("Fp1", "Fp2", "Cz"));
}

TEST(RecordingDC, GivesTheCallsOfSomeKinds) {
    RecordingDC dc;
    dc.SelectPen({});
    dc.Line({0, 0}, {1, 1});
    dc.FillRect(kRect, 0);
    dc.SelectPen({0, 2});
    EXPECT_THAT(dc.CallsOf({"pen", "line"}),
                ElementsAre("pen #000000 1 solid", "line 0,0 1,1", "pen #000000 2 solid"));
}

TEST(RecordingDC, MeasuresSixPixelsForEachCharacterAndTheFontsHeight) {
    RecordingDC dc;
    EXPECT_EQ(dc.GetTextExtent("Alpha"), (owl::TSize{30, 12}));
    EXPECT_EQ(dc.GetTextExtent("µV²"), (owl::TSize{18, 12}));
    dc.SelectFont({"Verdana", 20});
    EXPECT_EQ(dc.GetTextExtent(""), (owl::TSize{0, 20}));
}

TEST(RecordingDC, ForgetsCallsButNotTheFont) {
    RecordingDC dc;
    dc.SelectFont({"Verdana", 20});
    dc.TextOut({0, 0}, "a");
    dc.Clear();
    EXPECT_THAT(dc.Calls(), ElementsAre());
    EXPECT_THAT(dc.Texts(), ElementsAre());
    EXPECT_EQ(dc.GetTextExtent("a"), (owl::TSize{6, 20}));
}

} // namespace

} // namespace orvanta::test
