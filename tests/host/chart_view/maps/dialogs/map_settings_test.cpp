// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/chart_view/maps/dialogs/map_settings.h"

#include "tests/support/qt/form_user.h"
#include "tests/support/qt/scripted_user.h"

#include <QDialog>
#include <gtest/gtest.h>

namespace {

using namespace orvanta::chart;
using orvanta::test::FormUser;
using orvanta::test::ScriptedUser;

MapSettings Changed(MapSettings settings, const std::function<void(QDialog&)>& action) {
    ScriptedUser user;
    user.MeetsDialog([&action](QDialog& form) {
        action(form);
        form.accept();
    });
    EXPECT_TRUE(EditMapSettings(nullptr, settings));
    return settings;
}

TEST(MapSettingsForm, ShowsWhatItGets) {
    MapSettings settings;
    settings.display.electrodes = false;
    settings.display.values = true;
    settings.display.contours = 9;
    settings.display.font = {"Sans", 15, true, false};
    settings.singlePalette = true;
    Changed(settings, [](QDialog& form) {
        const FormUser user(form);
        EXPECT_FALSE(user.IsChecked("cbElectrodes"));
        EXPECT_FALSE(user.IsChecked("cbNames"));
        EXPECT_TRUE(user.IsChecked("cbValues"));
        EXPECT_TRUE(user.IsChecked("rbSingle"));
        EXPECT_EQ(user.NumberOf("spContours"), 9);
        EXPECT_EQ(user.TextOf("btFont"), "Sans, 15");
    });
}

TEST(MapSettingsForm, GivesBackWhatTheUserLeaves) {
    MapSettings settings;
    settings.display.palette = "turbo";
    settings.display.opacity = 40;
    EXPECT_EQ(Changed(settings, [](QDialog&) {}), settings);
}

TEST(MapSettingsForm, TakesOverWhatTheUserChanges) {
    const MapSettings changed = Changed({}, [](QDialog& form) {
        const FormUser user(form);
        user.Clicks("cbElectrodes");
        user.Clicks("cbNames");
        user.Clicks("cbValues");
        user.Clicks("rbSingle");
        user.SetsNumber("spContours", 12);
    });
    EXPECT_FALSE(changed.display.electrodes);
    EXPECT_TRUE(changed.display.names);
    EXPECT_TRUE(changed.display.values);
    EXPECT_EQ(changed.display.contours, 12);
    EXPECT_TRUE(changed.singlePalette);
    EXPECT_FALSE(changed.display.ownScale);
}

TEST(MapSettingsForm, AsksForAFont) {
    MapSettings settings;
    ScriptedUser user;
    user.MeetsDialog([&user](QDialog& form) {
        user.ChoosesFont(owl::TFont{"Courier", 18, false, true});
        FormUser(form).Clicks("btFont");
        user.ChoosesFont(std::nullopt); // that one stays
        FormUser(form).Clicks("btFont");
        EXPECT_EQ(FormUser(form).TextOf("btFont"), "Courier, 18");
        form.accept();
    });
    EXPECT_TRUE(EditMapSettings(nullptr, settings));
    EXPECT_EQ(settings.display.font, (owl::TFont{"Courier", 18, false, true}));
}

TEST(MapSettingsForm, ChangesNothingWhenCancelled) {
    MapSettings settings;
    ScriptedUser user;
    user.MeetsDialog([](QDialog& form) {
        FormUser(form).Clicks("cbNames");
        FormUser(form).PressesEscape();
    });
    EXPECT_FALSE(EditMapSettings(nullptr, settings));
    EXPECT_EQ(settings, MapSettings());
}

} // namespace
