// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/chart_view/topography/flat_map.h"

#include "tests/support/qt/recording_dc.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace {

using namespace orvanta::chart;
using orvanta::test::RecordingDC;

bool Contains(const owl::TRect& outer, const owl::TRect& inner) {
    return inner.left >= outer.left && inner.top >= outer.top && inner.right <= outer.right &&
           inner.bottom <= outer.bottom;
}

/// A map of 8 × 8 pixels over the whole head, its values growing from 0 at the top to 7 at the bottom.
class FlatMapTest : public testing::Test {
protected:
    FlatMapTest() {
        for (const std::uint32_t pixel : raster.Pixels()) {
            const std::uint32_t row = pixel / 8;
            field.push_back(static_cast<float>(row));
            beyond.push_back(false);
        }
    }

    FlatMap Map() {
        return {{0, 0, 240, 200},
                "Alpha",
                raster,
                field,
                beyond,
                FindPalette("grey")->colors,
                {0, 7, "0.0", "7.0", "µV"},
                {{{0, 0}, "Cz", "3.5", true}, {{0.5, 0}, "C4", "n/a", false}}};
    }
    std::vector<std::string> TextsOf(const FlatMap& map) {
        dc.Clear();
        PaintFlatMap(dc, map);
        return dc.Texts();
    }
    bool Writes(const FlatMap& map, const std::string& text) {
        const auto texts = TextsOf(map);
        return std::find(texts.begin(), texts.end(), text) != texts.end();
    }

    MapRaster raster{8, 1};
    std::vector<float> field;
    std::vector<bool> beyond;
    RecordingDC dc;
};

TEST(LayOutFlatMap, KeepsTheDiscAndTheBarInTheArea) {
    const owl::TRect area{10, 20, 250, 220};
    const FlatMapLayout layout = LayOutFlatMap(area, 1.2, 12, 40, true, true);
    EXPECT_TRUE(Contains(area, layout.disc));
    EXPECT_TRUE(Contains(area, layout.scale));
    EXPECT_TRUE(Contains(area, layout.title));
}

TEST(LayOutFlatMap, PutsTheBarBesideTheDiscAndTheTitleAbove) {
    const FlatMapLayout layout = LayOutFlatMap({0, 0, 240, 200}, 1, 12, 40, true, true);
    EXPECT_GT(layout.scale.left, layout.disc.right);
    EXPECT_LE(layout.scale.right + 4 + 40, 240 - 4);
    EXPECT_LE(layout.title.bottom, layout.disc.top);
}

TEST(LayOutFlatMap, LeavesRoomForTheNose) {
    const FlatMapLayout layout = LayOutFlatMap({0, 0, 200, 200}, 1, 12, 0, false, false);
    // 192 pixels across for two ears at 1.08 radii; 188 rows for 1.14 radii up and 1 down.
    EXPECT_EQ(layout.headRadius, 88);
    EXPECT_EQ(layout.disc, (owl::TRect{12, 18, 188, 194}));
}

TEST(LayOutFlatMap, LeavesOutTheBarWhereTheHeadWouldBeTooSmall) {
    const FlatMapLayout layout = LayOutFlatMap({0, 0, 90, 90}, 1, 12, 40, true, true);
    EXPECT_TRUE(layout.scale.IsEmpty());
    EXPECT_GT(layout.headRadius, 24);
}

TEST(LayOutFlatMap, HasNoHeadWithoutRoom) {
    EXPECT_EQ(LayOutFlatMap({0, 0, 6, 6}, 1, 12, 40, true, true).headRadius, 0);
}

TEST_F(FlatMapTest, ColorsEachPixelByItsValue) {
    const owl::TImage disc = DiscOf(Map());
    // Row 3 of 7 is 255 · 3 / 7 = 109, in the middle of the disc.
    EXPECT_EQ(disc.pixels[3 * 8 + 3], 0xFF6D6D6DU);
}

TEST_F(FlatMapTest, LeavesTheCornersTransparent) {
    EXPECT_EQ(DiscOf(Map()).pixels[0], 0U);
}

TEST_F(FlatMapTest, StripesWhatIsExtrapolated) {
    beyond.assign(beyond.size(), true);
    const owl::TImage striped = DiscOf(Map());
    beyond.assign(beyond.size(), false);
    const owl::TImage plain = DiscOf(Map());
    // Pixel (3, 4) lies on diagonal 7: 7000 / 8 = 875, 875 mod 24 = 11, between stripes; pixel (3, 3) on
    // diagonal 6: 750 mod 24 = 6, on one.
    EXPECT_EQ(striped.pixels[3 * 8 + 4], plain.pixels[3 * 8 + 4]);
    EXPECT_EQ(striped.pixels[3 * 8 + 3], 0xFFBDBDBDU); // 109 + 0.55 · (255 - 109)
}

TEST_F(FlatMapTest, WritesTitleAndScale) {
    EXPECT_EQ(TextsOf(Map()), (std::vector<std::string>{"Alpha", "7.0", "0.0", "µV"}));
}

TEST_F(FlatMapTest, WritesNamesAndValuesOnRequest) {
    FlatMap map = Map();
    map.showNames = true;
    EXPECT_TRUE(Writes(map, "Cz"));
    map.showValues = true;
    EXPECT_TRUE(Writes(map, "Cz 3.5"));
    map.showNames = false;
    EXPECT_TRUE(Writes(map, "3.5"));
}

TEST_F(FlatMapTest, WritesNothingOnASmallHead) {
    FlatMap map = Map();
    map.showNames = true;
    map.area = {0, 0, 100, 100};
    EXPECT_FALSE(Writes(map, "Cz"));
}

TEST_F(FlatMapTest, MarksElectrodesThatWereLeftOut) {
    PaintFlatMap(dc, Map());
    EXPECT_EQ(dc.CallsOf("brush"), (std::vector<std::string>{"brush #000000", "brush #FFFFFF"}));
    EXPECT_EQ(dc.CallsOf("ellipse").size(), 2U);
}

TEST_F(FlatMapTest, HidesElectrodes) {
    FlatMap map = Map();
    map.showElectrodes = false;
    PaintFlatMap(dc, map);
    EXPECT_TRUE(dc.CallsOf("ellipse").empty());
}

TEST_F(FlatMapTest, DrawsAContourForEachLevel) {
    const auto linesWith = [this](int contours) {
        FlatMap map = Map();
        map.contours = contours;
        dc.Clear();
        PaintFlatMap(dc, map);
        return dc.CallsOf("polyline").size();
    };
    EXPECT_EQ(linesWith(6) - linesWith(0), 6U);
}

TEST_F(FlatMapTest, SaysThatNothingIsKnown) {
    FlatMap map = Map();
    map.field = {};
    map.nothing = "n/a";
    EXPECT_EQ(TextsOf(map), (std::vector<std::string>{"Alpha", "n/a"}));
    EXPECT_TRUE(dc.Images().empty());
}

TEST_F(FlatMapTest, DrawsNothingButTheTitleWithoutRoom) {
    FlatMap map = Map();
    map.area = {0, 0, 10, 10};
    EXPECT_EQ(TextsOf(map), (std::vector<std::string>{"Alpha"}));
}

} // namespace
