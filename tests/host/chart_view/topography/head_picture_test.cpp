// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/chart_view/topography/head_picture.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace {

using namespace orvanta::chart;

constexpr int kSize = 80;

/// A head with high values on one side and low ones on the other.
class HeadPicture : public testing::Test {
protected:
    HeadPicture() {
        for (const HeadPosition& d : mesh.directions) {
            toTheRight.push_back(d.x > 0 ? 1.0F : 0.0F);
            everywhere.push_back(1.0F);
        }
    }

    owl::TImage Draw(const HeadView& view, double opacity = 1) const {
        return PictureOf({mesh,
                          toTheRight,
                          everywhere,
                          {},
                          FindPalette("difference")->colors,
                          0,
                          1,
                          view,
                          opacity,
                          kSize,
                          1});
    }
    static std::uint32_t At(const owl::TImage& image, int x, int y) {
        return image.pixels[static_cast<std::size_t>(y * image.width + x)];
    }
    static bool IsRed(std::uint32_t pixel) { return (pixel >> 16 & 0xFF) > (pixel & 0xFF); }

    HeadMesh mesh = MakeHeadMesh(40, 60);
    std::vector<float> toTheRight, everywhere;
};

TEST_F(HeadPicture, FromAboveHasTheRightSideToTheRight) {
    const owl::TImage image = Draw(kTopView);
    EXPECT_TRUE(IsRed(At(image, 52, 40)));
    EXPECT_FALSE(IsRed(At(image, 28, 40)));
}

TEST_F(HeadPicture, FromTheFrontHasTheRightSideToTheLeft) {
    const owl::TImage image = Draw(kFrontView);
    EXPECT_TRUE(IsRed(At(image, 28, 30)));
    EXPECT_FALSE(IsRed(At(image, 52, 30)));
}

TEST_F(HeadPicture, FromBehindHasTheRightSideToTheRight) {
    EXPECT_TRUE(IsRed(At(Draw(kBackView), 52, 30)));
}

TEST_F(HeadPicture, FromTheEarsShowsThatSideAlone) {
    EXPECT_TRUE(IsRed(At(Draw(kRightView), 40, 30)));
    EXPECT_FALSE(IsRed(At(Draw(kLeftView), 40, 30)));
}

TEST_F(HeadPicture, IsTransparentAroundTheHead) {
    const owl::TImage image = Draw(kTopView);
    EXPECT_EQ(At(image, 0, 0) >> 24, 0U);
    EXPECT_EQ(At(image, 40, 40) >> 24, 255U);
}

TEST_F(HeadPicture, HasSkinWhereNothingCoversIt) {
    std::vector<float> none(everywhere.size(), -1.0F);
    const owl::TImage covered =
        PictureOf({mesh, toTheRight, none, {}, FindPalette("grey")->colors, 0, 1, kTopView, 1, kSize, 1});
    const owl::TImage bare =
        PictureOf({mesh, {}, {}, {}, FindPalette("grey")->colors, 0, 1, kTopView, 1, kSize, 1});
    EXPECT_EQ(covered, bare);
    EXPECT_GT(At(bare, 40, 40) >> 16 & 0xFF, At(bare, 40, 40) & 0xFF); // more red than blue
}

TEST_F(HeadPicture, LetsTheFarSideThrough) {
    const std::uint32_t pixel = At(Draw(kTopView, 0.5), 52, 40);
    EXPECT_EQ(pixel >> 24, 191U); // 1 - (1 - 0.5)²
}

TEST_F(HeadPicture, ShowsNothingWithoutOpacity) {
    const owl::TImage image = Draw(kTopView, 0);
    EXPECT_TRUE(std::all_of(image.pixels.begin(), image.pixels.end(),
                            [](std::uint32_t pixel) { return pixel >> 24 == 0; }));
}

TEST_F(HeadPicture, OnAScaleWithoutWidthHasTheMiddleColor) {
    const owl::TImage image = PictureOf(
        {mesh, toTheRight, everywhere, {}, FindPalette("difference")->colors, 1, 1, kTopView, 1, kSize, 1});
    EXPECT_NEAR(At(image, 52, 40) >> 16 & 0xFF, At(image, 52, 40) & 0xFF, 4);
}

TEST_F(HeadPicture, SmoothsItsEdges) {
    const owl::TImage fine = PictureOf(
        {mesh, toTheRight, everywhere, {}, FindPalette("grey")->colors, 0, 1, kTopView, 1, kSize, 2});
    EXPECT_TRUE(std::any_of(fine.pixels.begin(), fine.pixels.end(),
                            [](std::uint32_t pixel) { return pixel >> 24 != 0 && pixel >> 24 != 255; }));
}

TEST(Seen, PutsTheNoseUpFromAbove) {
    const SeenPoint nose = Seen({0, 1, 0}, kTopView, 100);
    EXPECT_NEAR(nose.x, 50, 0.01);
    EXPECT_LT(nose.y, 20);
}

TEST(Seen, PutsTheVertexUpFromAllSides) {
    for (const HeadView& view : {kFrontView, kLeftView, kRightView, kBackView}) {
        EXPECT_LT(Seen({0, 0, 1}, view, 100).y, 20);
    }
}

TEST(Seen, TellsTheSideThatIsHidden) {
    EXPECT_TRUE(Seen({0, 1, 0}, kFrontView, 100).front);
    EXPECT_FALSE(Seen({0, 1, 0}, kBackView, 100).front);
}

TEST(Seen, ShowsBothEarsFromInFrontAndFromBehind) {
    for (const HeadView& view : {kFrontView, kBackView}) {
        EXPECT_TRUE(Seen({1, 0, 0}, view, 100).front);
        EXPECT_TRUE(Seen({-1, 0, 0}, view, 100).front);
    }
}

TEST(Seen, KeepsTheWholeHeadOnThePicture) {
    for (const HeadView& view : {kTopView, kFrontView, kLeftView, HeadView{30, -90}, HeadView{200, 45}}) {
        for (const HeadPosition& direction : MakeHeadMesh(20, 24).directions) {
            const SeenPoint point = Seen(direction, view, 100);
            EXPECT_GE(std::min(point.x, point.y), 0);
            EXPECT_LE(std::max(point.x, point.y), 100);
        }
    }
}

TEST(Dragged, TurnsHalfAroundAcrossThePicture) {
    EXPECT_EQ(Dragged(kFrontView, 50, 0, 100), (HeadView{90, 0}));
    EXPECT_EQ(Dragged(kFrontView, -50, 0, 100), (HeadView{270, 0}));
}

TEST(Dragged, TakesTheNoseAlong) {
    const HeadPosition nose{0, 1, 0};
    EXPECT_GT(Seen(nose, Dragged(kFrontView, 10, 0, 100), 100).x, Seen(nose, kFrontView, 100).x);
    EXPECT_GT(Seen(nose, Dragged(kFrontView, 0, 10, 100), 100).y, Seen(nose, kFrontView, 100).y);
}

TEST(Dragged, LooksFromHigherUpWhenDraggedDown) {
    EXPECT_EQ(Dragged(kFrontView, 0, 25, 100), (HeadView{0, 45}));
}

TEST(Dragged, NeverTurnsUpsideDown) {
    EXPECT_EQ(Dragged(kFrontView, 0, 90, 100), (HeadView{0, 90}));
    EXPECT_EQ(Dragged(kFrontView, 0, -90, 100), (HeadView{0, -90}));
}

} // namespace
