// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/toolkit/appearance.h"
#include "host/toolkit/form_style.h"
#include "tests/support/qt/contrast.h"

#include <QCheckBox>
#include <QImage>
#include <QListWidget>
#include <QPainter>
#include <QRadioButton>
#include <QStyleOption>
#include <gtest/gtest.h>

#include <algorithm>

namespace {

using orvanta::test::Contrast;

class StyleInBothAppearances : public testing::TestWithParam<bool> {
protected:
    /// The control as it is drawn without having the focus.
    QImage Drawn(QWidget& control) const {
        control.setStyle(&style_);
        control.setPalette(palette_);
        control.resize(control.sizeHint());
        QImage image(control.size(), QImage::Format_ARGB32_Premultiplied);
        image.fill(palette_.color(QPalette::Window));
        control.render(&image, {}, {}, QWidget::DrawChildren);
        return image;
    }
    /// The best contrast to the window among the pixels of the left column of the indicator.
    double OutlineContrast(const QImage& image, int width) const {
        double best = 1;
        for (int x = 0; x < width / 4; ++x) {
            best = std::max(
                best, Contrast(image.pixelColor(x, image.height() / 2), palette_.color(QPalette::Window)));
        }
        return best;
    }

    mutable owl::FormStyle style_;
    const QPalette palette_ = owl::AppearancePalette(GetParam());
};

TEST_P(StyleInBothAppearances, OutlinesUncheckedButtonsSoThatTheyCanBeSeen) {
    // 3 : 1 is what WCAG 2.1 asks of controls.
    QRadioButton radio;
    EXPECT_GE(OutlineContrast(Drawn(radio), style_.pixelMetric(QStyle::PM_ExclusiveIndicatorWidth)), 3.0);
    QCheckBox check;
    EXPECT_GE(OutlineContrast(Drawn(check), style_.pixelMetric(QStyle::PM_IndicatorWidth)), 3.0);
}

TEST_P(StyleInBothAppearances, DrawsFramesAlongTheOutermostPixelsAtEveryScale) {
    for (const double scale : {1.0, 1.25, 1.5, 1.75, 2.0, 3.0}) {
        for (const int size : {20, 21, 23}) {
            QStyleOption option;
            option.rect = QRect(0, 0, size, size);
            option.palette = palette_;
            const int pixels = qRound(size * scale);
            QImage image(pixels, pixels, QImage::Format_ARGB32_Premultiplied);
            image.setDevicePixelRatio(scale);
            image.fill(Qt::transparent);
            QPainter painter(&image);
            style_.drawPrimitive(QStyle::PE_Frame, &option, &painter, nullptr);
            painter.end();
            const int last = pixels - 1;
            for (const QPoint place :
                 {QPoint(0, 0), QPoint(last, last), QPoint(pixels / 2, 0), QPoint(pixels / 2, last),
                  QPoint(0, pixels / 2), QPoint(last, pixels / 2)}) {
                EXPECT_EQ(image.pixelColor(place).alpha(), 255)
                    << size << " at " << scale << ": " << place.x() << ", " << place.y();
            }
            EXPECT_EQ(image.pixelColor(pixels / 2, pixels / 2).alpha(), 0) << size << " at " << scale;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(LightAndDark, StyleInBothAppearances, testing::Bool(),
                         [](const auto& dark) { return dark.param ? "Dark" : "Light"; });

TEST(FormStyle, FallsBackToQtsIconsWithoutItsOwn) {
    const owl::FormStyle style;
    EXPECT_FALSE(style.standardIcon(QStyle::SP_MessageBoxWarning, nullptr, nullptr).isNull());
}

} // namespace
