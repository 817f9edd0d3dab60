// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/chart_view/topography/flat_map.h"

#include "host/chart_view/topography/map_surface.h"
#include "tests/support/qt/recording_dc.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>

namespace {

using namespace orvanta::chart;
using orvanta::test::RecordingDC;

bool Contains(const owl::TRect& outer, const owl::TRect& inner) {
    return inner.left >= outer.left && inner.top >= outer.top && inner.right <= outer.right &&
           inner.bottom <= outer.bottom;
}

/// Values that grow evenly from 0 at the forehead to 7 at the back of the head.
class FlatMapTest : public testing::Test {
protected:
    FlatMapTest() {
        for (int node = 0; node < kGridSide * kGridSide; ++node) {
            field.push_back(static_cast<float>(3.5 * (NodeAt(node / kGridSide) + 1)));
        }
        beyond.assign(field.size(), -1);
        for (int node = 0; node < kGridSide * kGridSide; ++node) {
            covers.push_back(
                static_cast<float>(1 - std::hypot(NodeAt(node % kGridSide), NodeAt(node / kGridSide))));
        }
        map.field = field;
        map.covers = covers;
        map.beyond = beyond;
        map.look.contours = 0;
    }

    std::vector<std::string> TextsOf() {
        dc.Clear();
        PaintFlatMap(dc, map);
        return dc.Texts();
    }
    bool Writes(const std::string& text) {
        const auto texts = TextsOf();
        return std::find(texts.begin(), texts.end(), text) != texts.end();
    }
    /// A pixel of a disc of 80 pixels.
    std::uint32_t At(int column, int row) const {
        return DiscOf(map, 80).pixels[static_cast<std::size_t>(row * 80 + column)];
    }

    std::vector<float> field, covers, beyond;
    FlatMap map{{0, 0, 240, 200},
                "Alpha",
                {},
                {},
                {},
                {},
                FindPalette("grey")->colors,
                {0, 7, {"0.0", "3.5", "7.0"}, "µV"},
                {{{0, 0, 1}, "Cz", "3.5", true, 0}, {{0.7071, 0, 0.7071}, "C4", "n/a", false, 1}}};
    RecordingDC dc;
};

TEST(PlaceFlatHead, LeavesRoomForTheNose) {
    const FlatHead head = PlaceFlatHead({4, 4, 196, 196}, {});
    // 192 pixels across for two ears at 1.08 radii; 192 rows for 1.14 radii up and 1 down: 88 and 89.
    EXPECT_EQ(head.radius, 88);
    EXPECT_EQ(head.disc, (owl::TRect{12, 18, 188, 194}));
}

TEST(PlaceFlatHead, KeepsAWiderDiscInTheRoom) {
    const owl::TRect room{10, 20, 250, 220};
    EXPECT_TRUE(Contains(room, PlaceFlatHead(room, {1.3, 1.3, 1.3, 1.3}).disc));
}

TEST(PlaceFlatHead, HasNoHeadWithoutRoom) {
    EXPECT_EQ(PlaceFlatHead({0, 0, 2, 1}, {}).radius, 0);
}

TEST_F(FlatMapTest, ColorsEachPixelByItsValue) {
    EXPECT_EQ(At(40, 40), 0xFF818181U); // 255 * 40.5 / 80 = 129.1
    EXPECT_EQ(At(40, 20), 0xFF414141U); // 255 * 20.5 / 80 = 65.3
}

TEST_F(FlatMapTest, LeavesTheCornersTransparent) {
    EXPECT_EQ(At(0, 0) >> 24, 0U);
    EXPECT_EQ(At(79, 79) >> 24, 0U);
}

TEST_F(FlatMapTest, HasOneColorOnAScaleWithoutWidth) {
    map.scale = {7, 7, {"7.0"}, ""};
    EXPECT_EQ(At(40, 20), 0xFF808080U);
    EXPECT_EQ(At(40, 60), 0xFF808080U);
}

TEST_F(FlatMapTest, StripesWhatIsExtrapolated) {
    std::fill(beyond.begin(), beyond.end(), 1.0F);
    // On a row of equal values some pixels are lighter than they would be, others as they would be.
    int plain = 0;
    int lighter = 0;
    for (int column = 20; column < 60; ++column) {
        const std::uint32_t grey = At(column, 40) & 0xFFU;
        plain += grey == 0x81U ? 1 : 0;
        lighter += grey > 0x81U ? 1 : 0;
    }
    EXPECT_GT(plain, 10);
    EXPECT_GT(lighter, 10);
    EXPECT_EQ(plain + lighter, 40);
}

TEST_F(FlatMapTest, DrawsALineAtEachLevel) {
    map.look.contours = 6; // at 1, 2, ... 6 of 7: every 80 / 7 = 11.4 rows from 11.4
    const owl::TImage disc = DiscOf(map, 80);
    map.look.contours = 0;
    const owl::TImage plain = DiscOf(map, 80);
    std::vector<int> rows;
    for (int row = 0; row < 80; ++row) {
        const auto at = static_cast<std::size_t>(row * 80 + 40);
        if (disc.pixels[at] != plain.pixels[at] && (rows.empty() || row > rows.back() + 2)) {
            rows.push_back(row);
        }
    }
    EXPECT_EQ(rows, (std::vector<int>{10, 22, 33, 45, 56, 68}));
}

TEST_F(FlatMapTest, IsFinerOnAFinerScreen) {
    PaintFlatMap(dc, map);
    const int plain = dc.Images().back().width;
    map.look.pixelRatio = 2;
    PaintFlatMap(dc, map);
    EXPECT_EQ(dc.Images().back().width, 2 * plain);
}

TEST_F(FlatMapTest, WritesTitleAndScale) {
    EXPECT_EQ(TextsOf(), (std::vector<std::string>{"Alpha", "µV", "0.0", "3.5", "7.0"}));
}

TEST_F(FlatMapTest, WritesNamesAndValuesOnRequest) {
    map.look.names = true;
    EXPECT_TRUE(Writes("Cz"));
    map.look.values = true;
    EXPECT_TRUE(Writes("Cz 3.5"));
    map.look.names = false;
    EXPECT_TRUE(Writes("3.5"));
}

TEST_F(FlatMapTest, WritesNothingOnASmallHead) {
    map.look.names = true;
    map.area = {0, 0, 90, 90};
    EXPECT_FALSE(Writes("Cz"));
}

TEST_F(FlatMapTest, MarksElectrodesThatWereLeftOut) {
    PaintFlatMap(dc, map);
    EXPECT_EQ(dc.CallsOf("brush"),
              (std::vector<std::string>{"brush hollow", "brush #000000", "brush #FFFFFF"}));
}

TEST_F(FlatMapTest, TellsWhereElectrodesAre) {
    const std::vector<ElectrodeMark> marks = PaintFlatMap(dc, map);
    ASSERT_EQ(marks.size(), 2U);
    EXPECT_EQ(marks[0].electrode, 0U);
    EXPECT_EQ(marks[0].at.y, marks[1].at.y);
    EXPECT_LT(marks[0].at.x, marks[1].at.x); // C4 is on the right
}

TEST_F(FlatMapTest, HidesElectrodes) {
    PaintFlatMap(dc, map);
    const std::size_t shown = dc.CallsOf("ellipse").size();
    dc.Clear();
    map.look.electrodes = false;
    PaintFlatMap(dc, map);
    EXPECT_EQ(dc.CallsOf("ellipse").size(), shown - 2);
}

TEST_F(FlatMapTest, SaysWhyNothingIsShown) {
    map.field = {};
    map.notice = "No values";
    EXPECT_EQ(TextsOf(), (std::vector<std::string>{"Alpha", "No values"}));
    EXPECT_TRUE(dc.Images().empty());
}

TEST_F(FlatMapTest, DrawsNothingWithoutRoom) {
    map.area = {0, 0, 9, 9};
    EXPECT_EQ(TextsOf(), std::vector<std::string>());
    EXPECT_TRUE(dc.Images().empty());
}

} // namespace
