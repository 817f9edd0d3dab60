// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/toolkit/backing_image.h"

#include <QPainter>
#include <gtest/gtest.h>

namespace {

using owl::BackingImage;

constexpr QColor kPaper(250, 250, 250);

BackingImage::Surface SurfaceOf(owl::TSize size, double pixelRatio = 1) {
    return {size, pixelRatio, kPaper};
}

/// Draws all of the surface in one colour.
void Draw(BackingImage& backing, const BackingImage::Surface& surface, QColor color) {
    BackingImage::Damage damage{{0, 0, surface.size.cx, surface.size.cy}, true};
    QImage picture = backing.Begin(surface, damage);
    picture.fill(color);
    backing.Finish(picture, damage.rect);
}

/// What a window of this surface shows.
QImage Shown(const BackingImage& backing, const BackingImage::Surface& surface) {
    QImage screen(qRound(surface.size.cx * surface.pixelRatio), qRound(surface.size.cy * surface.pixelRatio),
                  QImage::Format_RGB32);
    screen.setDevicePixelRatio(surface.pixelRatio);
    screen.fill(Qt::magenta);
    QPainter painter(&screen);
    backing.Paint(painter, surface);
    painter.end();
    return screen;
}

TEST(BackingImage, ShowsTheBackgroundBeforeThereIsAPicture) {
    const BackingImage backing;
    EXPECT_EQ(Shown(backing, SurfaceOf({4, 3})).pixelColor(3, 2), kPaper);
}

TEST(BackingImage, HasThePixelsOfTheScreen) {
    const BackingImage backing;
    BackingImage::Damage damage{};
    EXPECT_EQ(backing.Begin(SurfaceOf({41, 30}, 2), damage).size(), QSize(82, 60));
    EXPECT_EQ(backing.Begin(SurfaceOf({41, 30}, 1.5), damage).size(), QSize(62, 45));
    EXPECT_EQ(backing.Begin(SurfaceOf({41, 30}, 1), damage).size(), QSize(41, 30));
}

TEST(BackingImage, TakesLogicalPixelsAtTwiceTheResolution) {
    const BackingImage backing;
    BackingImage::Damage damage{};
    QImage picture = backing.Begin(SurfaceOf({10, 10}, 2), damage);
    QPainter(&picture).fillRect(QRect(1, 1, 1, 1), Qt::red);
    EXPECT_EQ(picture.pixelColor(1, 1), kPaper);
    EXPECT_EQ(picture.pixelColor(2, 2), QColor(Qt::red));
    EXPECT_EQ(picture.pixelColor(3, 3), QColor(Qt::red));
    EXPECT_EQ(picture.pixelColor(4, 4), kPaper);
}

TEST(BackingImage, IsShownPixelByPixel) {
    BackingImage backing;
    const BackingImage::Surface surface = SurfaceOf({4, 4}, 2);
    BackingImage::Damage damage{};
    QImage picture = backing.Begin(surface, damage);
    picture.setPixelColor(3, 5, Qt::blue); // half a logical pixel
    backing.Finish(picture, damage.rect);
    const QImage shown = Shown(backing, surface);
    EXPECT_EQ(shown.pixelColor(3, 5), QColor(Qt::blue));
    EXPECT_EQ(shown.pixelColor(2, 4), kPaper);
}

TEST(BackingImage, DamagesAllWhenTheSizeOrTheScreenChanged) {
    BackingImage backing;
    Draw(backing, SurfaceOf({8, 8}), Qt::red);
    for (const BackingImage::Surface& other : {SurfaceOf({8, 9}), SurfaceOf({8, 8}, 2)}) {
        EXPECT_FALSE(backing.Fits(other));
        BackingImage::Damage damage{{1, 1, 2, 2}, false};
        backing.Begin(other, damage);
        EXPECT_EQ(damage.rect, (owl::TRect{0, 0, other.size.cx, other.size.cy}));
        EXPECT_TRUE(damage.erase);
    }
}

TEST(BackingImage, KeepsWhatWasDrawnUnlessErased) {
    BackingImage backing;
    Draw(backing, SurfaceOf({8, 8}), Qt::red);
    BackingImage::Damage kept{{0, 0, 8, 8}, false};
    EXPECT_EQ(backing.Begin(SurfaceOf({8, 8}), kept).pixelColor(4, 4), QColor(Qt::red));
    BackingImage::Damage erased{{4, 4, 8, 8}, true};
    const QImage picture = backing.Begin(SurfaceOf({8, 8}), erased);
    EXPECT_EQ(picture.pixelColor(3, 3), QColor(Qt::red));
    EXPECT_EQ(picture.pixelColor(4, 4), kPaper);
}

TEST(BackingImage, TakesOverOnlyWhatWasDamaged) {
    BackingImage backing;
    Draw(backing, SurfaceOf({8, 8}), Qt::red);
    BackingImage::Damage damage{{2, 2, 4, 4}, false};
    QImage picture = backing.Begin(SurfaceOf({8, 8}), damage);
    picture.fill(Qt::blue);
    backing.Finish(picture, damage.rect);
    const QImage shown = Shown(backing, SurfaceOf({8, 8}));
    EXPECT_EQ(shown.pixelColor(1, 2), QColor(Qt::red));
    EXPECT_EQ(shown.pixelColor(2, 2), QColor(Qt::blue));
    EXPECT_EQ(shown.pixelColor(3, 3), QColor(Qt::blue));
    EXPECT_EQ(shown.pixelColor(4, 3), QColor(Qt::red));
}

TEST(BackingImage, ShowsTheLastPictureUntilTheNextIsFinished) {
    BackingImage backing;
    Draw(backing, SurfaceOf({8, 8}), Qt::red);
    BackingImage::Damage damage{{0, 0, 8, 8}, true};
    QImage next = backing.Begin(SurfaceOf({8, 8}), damage);
    next.fill(Qt::blue);
    EXPECT_EQ(Shown(backing, SurfaceOf({8, 8})).pixelColor(4, 4), QColor(Qt::red));
    // A larger window shows it in its corner meanwhile.
    EXPECT_EQ(Shown(backing, SurfaceOf({12, 12})).pixelColor(4, 4), QColor(Qt::red));
    EXPECT_EQ(Shown(backing, SurfaceOf({12, 12})).pixelColor(10, 10), kPaper);
}

} // namespace
