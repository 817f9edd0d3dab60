// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/app/render/svg_dc.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <limits>

namespace {

using orvanta::review::SvgDC;
using owl::PenStyle;
using owl::Rgb;
using testing::HasSubstr;
using testing::Not;

constexpr owl::TColor kRed = Rgb(255, 0, 0);

/// What a drawing adds to the file, from behind the white sheet on.
std::string Written(const std::function<void(SvgDC&)>& draw) {
    SvgDC dc({100, 80}, "");
    draw(dc);
    const std::string all = dc.Finish();
    const std::string sheet = "fill=\"#ffffff\"/>\n";
    const std::size_t begin = all.find(sheet) + sheet.size();
    return all.substr(begin, all.rfind("</svg>") - begin);
}

TEST(SvgDC, StartsWithAWhiteSheetOfItsSizeAndATitle) {
    const std::string text = SvgDC({100, 80}, "a < b\x01").Finish();
    EXPECT_THAT(text, HasSubstr("width=\"100\" height=\"80\" viewBox=\"0 0 100 80\""));
    EXPECT_THAT(text, HasSubstr("<title>a &lt; b</title>"));
    EXPECT_THAT(text, HasSubstr("<rect x=\"0\" y=\"0\" width=\"100\" height=\"80\" fill=\"#ffffff\"/>"));
}

TEST(SvgDC, CoversBothEndPixelsOfAStraightLine) {
    EXPECT_EQ(Written([](SvgDC& dc) {
                  dc.Line({2, 3}, {5, 3});
              }),
              "<line x1=\"2\" y1=\"3.5\" x2=\"6\" y2=\"3.5\" stroke=\"#000000\"/>\n");
    EXPECT_EQ(Written([](SvgDC& dc) {
                  dc.Line({2, 9}, {2, 3});
              }),
              "<line x1=\"2.5\" y1=\"3\" x2=\"2.5\" y2=\"10\" stroke=\"#000000\"/>\n");
}

TEST(SvgDC, SetsAWidePenBesideItsLineAsTheScreenDoes) {
    EXPECT_EQ(Written([](SvgDC& dc) {
                  dc.SelectPen({kRed, 2, PenStyle::Solid});
                  dc.Line({2, 3}, {5, 3});
              }),
              "<line x1=\"2\" y1=\"3\" x2=\"6\" y2=\"3\" stroke=\"#ff0000\" stroke-width=\"2\"/>\n");
}

TEST(SvgDC, DotsALineInTheMeasureOfItsPen) {
    EXPECT_THAT(Written([](SvgDC& dc) {
                    dc.SelectPen({kRed, 1, PenStyle::Dotted});
                    dc.Line({2, 3}, {5, 3});
                }),
                HasSubstr("stroke-dasharray=\"1 2\""));
}

TEST(SvgDC, DrawsCurvesThroughTheMiddlesOfPixels) {
    EXPECT_EQ(Written([](SvgDC& dc) {
                  dc.Polyline(std::array<owl::TPoint, 3>{{{0, 0}, {4, 2}, {6, 9}}});
              }),
              "<polyline points=\"0.5,0.5 4.5,2.5 6.5,9.5\" fill=\"none\" stroke=\"#000000\" "
              "stroke-linecap=\"round\" stroke-linejoin=\"round\"/>\n");
}

TEST(SvgDC, DrawsFineCurvesWhereTheyAreAndBreaksThemWhereThereIsNoPoint) {
    const double none = std::numeric_limits<double>::quiet_NaN();
    EXPECT_EQ(Written([none](SvgDC& dc) {
                  dc.Curve(std::vector<owl::TPointF>{{0, 1.25}, {4, 2}, {5, none}, {6, 1}, {7, 2}}, 0.8);
              }),
              "<path d=\"M0.00 1.25L4.00 2.00M6.00 1.00L7.00 2.00\" fill=\"none\" stroke=\"#000000\" "
              "stroke-width=\"0.8\" stroke-linecap=\"round\" stroke-linejoin=\"round\"/>\n");
}

TEST(SvgDC, KeepsThePenOfARectangleInside) {
    EXPECT_EQ(Written([](SvgDC& dc) {
                  dc.SelectBrush({kRed});
                  dc.Rectangle({10, 20, 30, 40});
              }),
              "<rect x=\"10.5\" y=\"20.5\" width=\"19\" height=\"19\" fill=\"#ff0000\" "
              "stroke=\"#000000\"/>\n");
}

TEST(SvgDC, KeepsThePenOfAnEllipseInside) {
    EXPECT_EQ(Written([](SvgDC& dc) {
                  dc.SelectBrush({0, true});
                  dc.Ellipse({10, 20, 15, 25});
              }),
              "<ellipse cx=\"12.5\" cy=\"22.5\" rx=\"2\" ry=\"2\" fill=\"none\" stroke=\"#000000\"/>\n");
}

TEST(SvgDC, LaysAColourOverWithItsOpacity) {
    EXPECT_EQ(Written([](SvgDC& dc) {
                  dc.BlendRect({1, 2, 3, 4}, kRed, 51);
              }),
              "<rect x=\"1\" y=\"2\" width=\"2\" height=\"2\" fill=\"#ff0000\" fill-opacity=\"0.200\"/>\n");
}

TEST(SvgDC, DrawsNothingForAnEmptyRectangle) {
    EXPECT_EQ(Written([](SvgDC& dc) {
                  dc.FillRect({5, 5, 5, 9}, kRed);
                  dc.FrameRect({5, 5, 5, 9}, kRed);
                  dc.Ellipse({5, 5, 5, 9});
                  dc.DrawImage({5, 5, 5, 9}, {1, 1, {0xFF000000}});
              }),
              "");
}

TEST(SvgDC, ClipsWhatIsDrawnUntilTheClipIsCleared) {
    EXPECT_EQ(Written([](SvgDC& dc) {
                  dc.SetClip({1, 2, 31, 42});
                  dc.FillRect({0, 0, 90, 70}, kRed);
                  dc.ClearClip();
                  dc.FillRect({0, 0, 9, 7}, kRed);
              }),
              "<clipPath id=\"clip0\">\n<rect x=\"1\" y=\"2\" width=\"30\" height=\"40\"/>\n</clipPath>\n"
              "<g clip-path=\"url(#clip0)\">\n"
              "<rect x=\"0\" y=\"0\" width=\"90\" height=\"70\" fill=\"#ff0000\"/>\n</g>\n"
              "<rect x=\"0\" y=\"0\" width=\"9\" height=\"7\" fill=\"#ff0000\"/>\n");
}

TEST(SvgDC, ReplacesAClipAndWritesEachOnce) {
    const std::string text = Written([](SvgDC& dc) {
        for (const owl::TRect& clip :
             {owl::TRect{0, 0, 5, 5}, owl::TRect{0, 0, 9, 9}, owl::TRect{0, 0, 5, 5}}) {
            dc.SetClip(clip);
            dc.FillRect({0, 0, 9, 9}, kRed);
        }
    });
    EXPECT_EQ(QString::fromStdString(text).count("<clipPath"), 2);
    EXPECT_EQ(QString::fromStdString(text).count("url(#clip0)"), 2);
    EXPECT_EQ(QString::fromStdString(text).count("<g "), QString::fromStdString(text).count("</g>"));
}

TEST(SvgDC, WritesTextsAsTextsInTheirFontAndPlace) {
    const std::string text = Written([](SvgDC& dc) {
        dc.SelectFont({"Verdana", 20, true, false});
        dc.SetTextColor(kRed);
        EXPECT_EQ(dc.SetTextAlign(owl::TextAlign::Right), owl::TextAlign::Left);
        dc.TextOut({50, 10}, "µV²/Hz <1>");
    });
    EXPECT_THAT(text, HasSubstr("<text x=\"50\" y=\""));
    EXPECT_THAT(text, HasSubstr("text-anchor=\"end\" fill=\"#ff0000\""));
    EXPECT_THAT(text, HasSubstr("'Verdana', sans-serif\""));
    EXPECT_THAT(text, HasSubstr("font-weight=\"bold\""));
    EXPECT_THAT(text, Not(HasSubstr("font-style")));
    EXPECT_THAT(text, HasSubstr(">µV²/Hz &lt;1&gt;</text>"));
}

TEST(SvgDC, HoldsAPictureWithItsPixels) {
    EXPECT_THAT(Written([](SvgDC& dc) {
                    dc.DrawImage({0, 0, 10, 10}, {1, 1, {0xFFFF0000}});
                }),
                testing::AllOf(HasSubstr("<image x=\"0\" y=\"0\" width=\"10\" height=\"10\""),
                               HasSubstr("xlink:href=\"data:image/png;base64,iVBORw0KGgo")));
}

TEST(SvgDC, DrawsNoPictureThatHasFewerPixelsThanItSays) {
    EXPECT_EQ(Written([](SvgDC& dc) { dc.DrawImage({0, 0, 10, 10}, {2, 2, {0xFFFF0000}}); }), "");
}

} // namespace
