// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/toolkit/icon.h"

#include "host/toolkit/appearance.h"

#include <QApplication>
#include <QImage>
#include <QPalette>
#include <gtest/gtest.h>

#include <set>

namespace {

constexpr unsigned kColoured = 1;
constexpr unsigned kLockDown = 2068;
constexpr unsigned kLockUp = 2069;
constexpr unsigned kPalette = 2072;

class Icon : public testing::Test {
protected:
    ~Icon() override { QApplication::setPalette(before_); }

private:
    QPalette before_ = QApplication::palette();
};

/// The colours of the pixels that cover what is below.
std::set<QRgb> SolidColors(const QPixmap& picture) {
    const QImage image = picture.toImage();
    std::set<QRgb> colors;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (qAlpha(image.pixel(x, y)) == 255) {
                colors.insert(image.pixel(x, y));
            }
        }
    }
    return colors;
}

TEST_F(Icon, IsEmptyForANumberWithoutPicture) {
    EXPECT_TRUE(owl::IconOf(9999).isNull());
    EXPECT_TRUE(owl::IconOf(kLockUp, 9999).isNull());
    EXPECT_FALSE(owl::IconOf(kLockUp).isNull());
}

TEST_F(Icon, FollowsTheColoursOfTheAppearance) {
    const QIcon icon = owl::IconOf(kPalette);
    for (const bool dark : {false, true}) {
        const QPalette palette = owl::AppearancePalette(dark);
        QApplication::setPalette(palette);
        EXPECT_EQ(SolidColors(icon.pixmap(24, QIcon::Normal)),
                  std::set{palette.color(QPalette::Active, QPalette::ButtonText).rgb()});
        EXPECT_EQ(SolidColors(icon.pixmap(24, QIcon::Disabled)),
                  std::set{palette.color(QPalette::Disabled, QPalette::ButtonText).rgb()});
    }
}

TEST_F(Icon, KeepsColoursOfItsOwn) {
    EXPECT_EQ(SolidColors(owl::IconOf(kColoured).pixmap(24)), std::set{qRgb(255, 0, 0)});
    EXPECT_TRUE(SolidColors(owl::IconOf(kColoured).pixmap(24, QIcon::Disabled)).empty());
}

TEST_F(Icon, IsDrawnForTheScaleAndNotEnlarged) {
    const QPixmap picture = owl::IconOf(kPalette).pixmap({24, 24}, 2.0);
    EXPECT_EQ(picture.size(), QSize(48, 48));
    EXPECT_EQ(picture.devicePixelRatio(), 2.0);
    const QImage enlarged = owl::IconOf(kPalette).pixmap({24, 24}, 1.0).toImage().scaled(48, 48);
    EXPECT_NE(picture.toImage().convertToFormat(enlarged.format()), enlarged);
}

TEST_F(Icon, HasAPictureForEachState) {
    const QIcon icon = owl::IconOf(kLockUp, kLockDown);
    EXPECT_EQ(icon.pixmap(24, QIcon::Normal, QIcon::Off).toImage(),
              owl::IconOf(kLockUp).pixmap(24).toImage());
    EXPECT_EQ(icon.pixmap(24, QIcon::Normal, QIcon::On).toImage(),
              owl::IconOf(kLockDown).pixmap(24).toImage());
    EXPECT_NE(owl::IconOf(kLockUp).pixmap(24).toImage(), owl::IconOf(kLockDown).pixmap(24).toImage());
}

} // namespace
