// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/toolkit/appearance.h"
#include "host/toolkit/form_style.h"
#include "tests/support/qt/contrast.h"

#include <QApplication>
#include <QPalette>
#include <QStyle>
#include <QToolTip>
#include <gtest/gtest.h>

#include <ostream>

namespace {

using orvanta::test::Contrast;
using owl::Appearance;

struct Pair {
    QPalette::ColorRole text;
    QPalette::ColorRole background;
};

void PrintTo(const Pair& pair, std::ostream* out) {
    *out << "role " << pair.text << " on role " << pair.background;
}

constexpr Pair kTexts[] = {
    {QPalette::WindowText, QPalette::Window},
    {QPalette::Text, QPalette::Window},
    {QPalette::ButtonText, QPalette::Window},
    {QPalette::Text, QPalette::Base},
    {QPalette::WindowText, QPalette::Base},
    {QPalette::Text, QPalette::AlternateBase},
    {QPalette::ButtonText, QPalette::Button},
    {QPalette::PlaceholderText, QPalette::Base},
    {QPalette::BrightText, QPalette::Window},
    {QPalette::HighlightedText, QPalette::Highlight},
    {QPalette::ToolTipText, QPalette::ToolTipBase},
    {QPalette::Link, QPalette::Window},
    {QPalette::Link, QPalette::Base},
    {QPalette::Link, QPalette::AlternateBase},
    {QPalette::LinkVisited, QPalette::Window},
    {QPalette::LinkVisited, QPalette::Base},
};

class AppearanceColors : public testing::TestWithParam<bool> {
protected:
    static double ContrastOf(QPalette::ColorGroup group, Pair pair) {
        const QPalette palette = owl::AppearancePalette(GetParam());
        return Contrast(palette.color(group, pair.text), palette.color(group, pair.background));
    }
};

TEST(Contrast, IsThatOfTheStandard) {
    EXPECT_NEAR(Contrast(Qt::white, Qt::black), 21.0, 1e-9);
    EXPECT_NEAR(Contrast(QColor(0x77, 0x77, 0x77), Qt::white), 4.48, 0.005);
}

TEST_P(AppearanceColors, KeepTextReadable) {
    for (const QPalette::ColorGroup group : {QPalette::Active, QPalette::Inactive}) {
        for (const Pair& pair : kTexts) {
            EXPECT_GE(ContrastOf(group, pair), 4.5) << testing::PrintToString(pair);
        }
    }
}

TEST_P(AppearanceColors, KeepDisabledTextReadableAndFainterThanText) {
    for (const Pair& pair : kTexts) {
        if (pair.text == QPalette::BrightText || pair.text == QPalette::ToolTipText) {
            continue;
        }
        EXPECT_GE(ContrastOf(QPalette::Disabled, pair), 3.0) << testing::PrintToString(pair);
        EXPECT_LE(ContrastOf(QPalette::Disabled, pair), ContrastOf(QPalette::Active, pair) + 1e-9)
            << testing::PrintToString(pair);
    }
}

TEST_P(AppearanceColors, SetSelectionOffTheListItIsIn) {
    EXPECT_GE(ContrastOf(QPalette::Active, {QPalette::Highlight, QPalette::Base}), 3.0);
}

INSTANTIATE_TEST_SUITE_P(LightAndDark, AppearanceColors, testing::Bool(),
                         [](const auto& dark) { return dark.param ? "Dark" : "Light"; });

class AppliedAppearance : public testing::Test {
protected:
    ~AppliedAppearance() override {
        QApplication::setPalette(QPalette());
        QToolTip::setPalette(QPalette());
    }
    static QApplication& Application() { return *qobject_cast<QApplication*>(QApplication::instance()); }
    static bool WindowsAreDark() { return QApplication::palette().color(QPalette::Window).lightness() < 128; }
};

TEST_F(AppliedAppearance, IsDarkOrLightAsAsked) {
    owl::ApplyAppearance(Application(), Appearance::Dark);
    EXPECT_TRUE(WindowsAreDark());
    EXPECT_EQ(QToolTip::palette().color(QPalette::ToolTipBase),
              owl::AppearancePalette(true).color(QPalette::ToolTipBase));
    owl::ApplyAppearance(Application(), Appearance::Light);
    EXPECT_FALSE(WindowsAreDark());
}

TEST_F(AppliedAppearance, FollowsTheDesktopAgainAfterDark) {
    owl::ApplyAppearance(Application(), Appearance::Dark);
    owl::ApplyAppearance(Application(), Appearance::System);
    EXPECT_FALSE(WindowsAreDark()); // the offscreen desktop is light
}

TEST_F(AppliedAppearance, UsesOneStyleAndAReadableFont) {
    QFont tiny = QApplication::font();
    tiny.setPointSize(6);
    QApplication::setFont(tiny);
    owl::ApplyAppearance(Application(), Appearance::Light);
    EXPECT_NE(dynamic_cast<owl::FormStyle*>(QApplication::style()), nullptr);
    EXPECT_EQ(QApplication::font().pointSize(), 9);
    QFont large = QApplication::font();
    large.setPointSize(14);
    QApplication::setFont(large);
    owl::ApplyAppearance(Application(), Appearance::Light);
    EXPECT_EQ(QApplication::font().pointSize(), 14);
}

} // namespace
