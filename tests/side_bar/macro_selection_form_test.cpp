// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/platform/host_platform.h"
#include "side_bar/macro_selection_form.h"
#include "tests/support/qt/form_user.h"
#include "tests/support/qt/scripted_user.h"
#include "tests/support/recording_gui.h"
#include "tests/support/temp_folder.h"

#include <QWidget>
#include <gtest/gtest.h>

#include <cstring>

namespace {

using orvanta::test::ScriptedUser;

class Form final : public TFormMacroSpectra {
public:
    explicit Form(int mode) : TFormMacroSpectra(nullptr, nullptr, nullptr, nullptr, {}, mode) {}
};

TEST(MacroSelectionForm, StartsAsCancelledWithNothingLoaded) {
    const Form form(1);
    EXPECT_EQ(form.GetResult(), 0);
    EXPECT_FALSE(form.IsMacroLoaded());
    EXPECT_EQ(form.GetCaption(), "Spectra Manager (Default)");
}

TEST(MacroSelectionForm, KnowsFromItsModeWhetherItIsNewAndActive) {
    const Form looking(0);
    EXPECT_FALSE(looking.IsOpenedAsNew());
    EXPECT_FALSE(looking.IsActive());
    const Form fresh(1);
    EXPECT_TRUE(fresh.IsOpenedAsNew());
    EXPECT_TRUE(fresh.IsActive());
    const Form other(2);
    EXPECT_FALSE(other.IsOpenedAsNew());
    EXPECT_TRUE(other.IsActive());
}

TEST(MacroSelectionForm, EndsWithTheResultOfTheLastButton) {
    Form form(1);
    form.BtnManualAverageClick();
    EXPECT_EQ(form.GetResult(), 2);
    form.BtnAutoAverageClick();
    EXPECT_EQ(form.GetResult(), 1);
    EXPECT_TRUE(form.IsActive());
    form.BtnCancelClick();
    EXPECT_EQ(form.GetResult(), 0);
    EXPECT_FALSE(form.IsActive());
}

TEST(MacroSelectionForm, IsShownThroughTheModalGateway) {
    ScriptedUser user;
    user.MeetsDialog([](QDialog& form) { orvanta::test::FormUser(form).Clicks("BtnAutoAverage"); });
    Form form(1);
    EXPECT_EQ(form.ShowModal(), owl::kIdOk);
    EXPECT_EQ(form.GetResult(), 1);
}

TEST(MacroSelectionForm, BelongsToItsParentElseItsOwner) {
    QWidget owner, parent;
    const TFormMacroSpectra owned(&owner, nullptr, nullptr, nullptr, {}, 1);
    EXPECT_EQ(owned.GetParentWindow(), HWND(&owner));
    const TFormMacroSpectra both(&owner, HWND(&parent), nullptr, nullptr, {}, 1);
    EXPECT_EQ(both.GetParentWindow(), HWND(&parent));
}

TEST(MacroSelectionForm, TakesItsFolderFromThePlatform) {
    const orvanta::test::TempFolder folder;
    const orvanta::test::RecordingGui gui;
    const orvanta::platform::HostPlatform platform(gui, folder.Path("settings.ini"), folder.Path("data"));
    const TFormMacroSpectra form(nullptr, nullptr, nullptr, nullptr, {}, 1, &platform);
    EXPECT_EQ(form.GetMacroFolder(), folder.Path("data") + "/MACRO/");
    EXPECT_EQ(form.GetSearchMask(), folder.Path("data") + "/MACRO/*.smx");
}

TEST(MacroSelectionForm, CutsALongFolderTo259Characters) {
    const orvanta::test::TempFolder folder;
    const orvanta::test::RecordingGui gui;
    const orvanta::platform::HostPlatform platform(
        gui, folder.Path("settings.ini"), folder.Path(std::string(200, 'a') + "/" + std::string(200, 'b')));
    const TFormMacroSpectra form(nullptr, nullptr, nullptr, nullptr, {}, 1, &platform);
    EXPECT_EQ(std::strlen(form.GetMacroFolder()), 259U);
    EXPECT_EQ(std::strlen(form.GetSearchMask()), 259U);
}

TEST(MacroSelectionForm, HasNoFolderWithoutAPlatform) {
    const Form form(1);
    EXPECT_STREQ(form.GetMacroFolder(), "");
    EXPECT_STREQ(form.GetSearchMask(), "*.smx");
}

} // namespace
