// SPDX-License-Identifier: GPL-3.0-or-later
#include "spectrum_view/painting/page_parts.h"

#include "tests/support/qt/recording_dc.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using namespace orvanta;
using namespace orvanta::spectrum_view;
using testing::ElementsAre;
using testing::IsEmpty;

const owl::TFont kFont{"Verdana", 10, false, false}; // its characters are 6 pixels wide
constexpr owl::TRect kArea{0, 0, 200, 100};

/// The lines of text as "x,y text".
std::vector<std::string> Title(const std::string& title, const std::vector<owl::TRect>& slots,
                               const owl::TRect& area = kArea) {
    test::RecordingDC dc;
    PaintTitle(dc, area, slots, title, kFont, 0);
    return dc.CallsOf("text");
}

TEST(PageTitle, StandsBelowTheCellsOfAGrid) {
    EXPECT_THAT(Title("one two three", {{0, 0, 200, 90}}), ElementsAre(R"(text 5,90 left "one two three")"));
}

TEST(PageTitle, IsBrokenBesideTheSlotsOfAScalp) {
    EXPECT_THAT(Title("one two three four", {{80, 0, 200, 100}}),
                ElementsAre(R"(text 5,80 left "one two")", R"(text 5,90 left "three four")"));
    EXPECT_THAT(Title("one two three four", {{81, 0, 200, 100}, {0, 0, 81, 90}}), IsEmpty());
}

TEST(PageTitle, IsLeftOutWhereItDoesNotFit) {
    EXPECT_THAT(Title("one two three", {{0, 0, 200, 91}}), IsEmpty());
    EXPECT_THAT(Title("indivisible", {}, {0, 0, 70, 100}), IsEmpty());
    EXPECT_THAT(Title("", {}), IsEmpty());
}

/// Its lines are four pixels higher than their font says.
class TallDC final : public test::RecordingDC {
public:
    owl::TSize GetTextExtent(std::string_view text) const override {
        const owl::TSize size = test::RecordingDC::GetTextExtent(text);
        return {size.cx, size.cy + 4};
    }
};

TEST(PageTitle, IsSmallerWhereItWouldBeCut) {
    TallDC dc;
    PaintTitle(dc, kArea, {}, "one", kFont, 0);
    EXPECT_EQ(dc.CallsOf("font").back(), R"(font "Verdana" 6)");
    EXPECT_THAT(dc.CallsOf("text"), ElementsAre(R"(text 5,90 left "one")"));
}

std::vector<std::string> Notice(const std::string& notice, const owl::TRect& area) {
    test::RecordingDC dc;
    PaintNotice(dc, area, notice, kFont);
    return dc.CallsOf({"fill", "text"});
}

TEST(PageNotice, StandsOnAPlateInTheMiddle) {
    EXPECT_THAT(Notice("nothing yet", kArea),
                ElementsAre("fill 57,35,143,65 #FFFFFF", R"(text 100,45 center "nothing yet")"));
}

TEST(PageNotice, IsBrokenInANarrowPlaceAndLeftOutOfATinyOne) {
    EXPECT_THAT(Notice("nothing yet", {0, 0, 90, 100}),
                ElementsAre("fill 14,30,76,70 #FFFFFF", R"(text 45,40 center "nothing")",
                            R"(text 45,50 center "yet")"));
    EXPECT_THAT(Notice("nothing yet", {0, 0, 60, 100}), IsEmpty());
    EXPECT_THAT(Notice("nothing yet", {0, 0, 90, 39}), IsEmpty());
    EXPECT_THAT(Notice("", kArea), IsEmpty());
}

TEST(PageHead, HasNoseAndEars) {
    test::RecordingDC dc;
    const HeadOutline head{{{0, 0}, {9, 9}, {0, 0}}, {{1, 1}}, {{2, 2}}, {{3, 3}}};
    PaintHead(dc, head, owl::Rgb(1, 2, 3));
    EXPECT_THAT(dc.Calls(), ElementsAre("pen #010203 1 solid", "polyline 0,0 9,9 0,0", "polyline 1,1",
                                        "polyline 2,2", "polyline 3,3"));
}

} // namespace
