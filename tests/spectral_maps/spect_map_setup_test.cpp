// SPDX-License-Identifier: GPL-3.0-or-later
// How the view comes and goes: settings, menu, tool bar, focus.
#include "host/toolkit/gadget_bar.h"
#include "host/toolkit/icon.h"
#include "side_bar/spectrum_macro_form.h"
#include "tests/spectral_maps/map_fixture.h"
#include "tests/support/qt/fake_services.h"
#include "tests/support/qt/form_user.h"
#include "tests/support/qt/scripted_user.h"

#include <QSlider>

namespace {

using namespace orvanta;
using namespace orvanta::test;
using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::IsEmpty;

using SpectMapSetup = MapFixture;

TEST_F(SpectMapSetup, IsNamedAfterItsClass) {
    EXPECT_EQ(Make().GetChildName(), "SpectMap");
}

TEST_F(SpectMapSetup, HasTheNumbersOfItsResources) {
    const ChildResInfo& numbers = Make().GetResInfo();
    EXPECT_EQ(numbers.command, 9328U);
    EXPECT_EQ(numbers.bitmap, 2328U);
    EXPECT_EQ(numbers.menu, 8304U);
    EXPECT_EQ(numbers.icon, 28785U);
    EXPECT_EQ(numbers.smallIcon, 28784U);
}

TEST_F(SpectMapSetup, GivesANewUserTheFirstBandScaledByTheData) {
    Open();
    EXPECT_EQ(view->GetCommonPlotSet(), (SPECT::PlotSet{0, 0, 0.0, 50.0, true, false}));
    EXPECT_EQ(PlotSetOf(3), (SPECT::PlotSet{0, 0, 0.0, 50.0, true, false}));
    EXPECT_FALSE(view->GetCartoonMode());
}

TEST_F(SpectMapSetup, ReadsItsSettings) {
    Setting("SpectMap/SpectralBand") = 2;
    Setting("SpectMap/SpectralMeas") = 1;
    Setting("SpectMap/bAutoScale") = 0;
    Setting("SpectMap/bZeroMin") = 7;
    Setting("SpectMap/LoScale") = 1.5;
    Setting("SpectMap/HiScale") = 2.5;
    EXPECT_EQ(Open().GetCommonPlotSet(), (SPECT::PlotSet{1, 2, 1.5, 2.5, false, true}));
}

TEST_F(SpectMapSetup, StoresItsSettingsLastWhenItEnds) {
    Setting("SpectMap/SpectralBand") = 4;
    Open();
    auto& written = window.platform.user.written;
    written.clear();

    view->Destroy();

    ASSERT_GE(written.size(), 6U);
    EXPECT_THAT(std::vector<std::string>(written.end() - 6, written.end()),
                ElementsAre("SpectMap/SpectralBand", "SpectMap/SpectralMeas", "SpectMap/bAutoScale",
                            "SpectMap/bZeroMin", "SpectMap/LoScale", "SpectMap/HiScale"));
    EXPECT_EQ(Setting("SpectMap/SpectralBand"), 4);
    EXPECT_EQ(Setting("SpectMap/bAutoScale"), 1);
}

TEST_F(SpectMapSetup, StoresNothingThatItNeverRead) {
    Setting("SpectMap/SpectralBand") = 4;
    Make().Destroy();
    EXPECT_THAT(window.platform.user.written, IsEmpty());
}

constexpr unsigned kOfHeads[] = {14150, 14100, 14101, 14102, 14103, 14104};

TEST_F(SpectMapSetup, TakesLockAndSidesOutOfTheMenuOfFlatMaps) {
    Open(false);
    for (const unsigned item : kOfHeads) {
        EXPECT_EQ(Item(item), nullptr) << item;
    }
    EXPECT_NE(Item(14170), nullptr);
}

TEST_F(SpectMapSetup, KeepsLockAndSidesInTheMenuOfHeads) {
    Open(true);
    for (const unsigned item : kOfHeads) {
        EXPECT_NE(Item(item), nullptr) << item;
    }
}

std::vector<int> KeysOf(const SpectMap& view) {
    std::vector<int> keys;
    for (int key = -1; key < 30; ++key) {
        if (view.GetGadget(key) != nullptr) {
            keys.push_back(key);
        }
    }
    return keys;
}

TEST_F(SpectMapSetup, HasNoLockSidesOrSliderInTheToolBarOfFlatMaps) {
    EXPECT_THAT(KeysOf(Open(false)), ElementsAre(0, 1, 2, 3, 4, 16, 17, 18, 19));
}

TEST_F(SpectMapSetup, HasAllGadgetsInTheToolBarOfHeads) {
    EXPECT_THAT(KeysOf(Open(true)),
                ElementsAre(0, 1, 2, 3, 4, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 17, 18, 19));
}

TEST_F(SpectMapSetup, HasButtonsWithPicturesAndTips) {
    Open(true);
    for (const int key : {0, 1, 3, 7, 9, 10, 11, 12, 13, 16, 18}) {
        const auto* button = dynamic_cast<const QToolButton*>(view->GetGadget(key));
        ASSERT_NE(button, nullptr) << key;
        EXPECT_FALSE(button->icon().isNull()) << key;
        EXPECT_FALSE(button->toolTip().isEmpty()) << key;
    }
    for (const int key : {7, 16}) {
        EXPECT_NE(dynamic_cast<const owl::TwoStateButton*>(view->GetGadget(key)), nullptr) << key;
    }
    for (const int key : {2, 4, 8, 14, 17, 19}) {
        EXPECT_EQ(view->GetGadget(key)->width(), 6) << key;
    }
}

QImage PictureOf(const QIcon& icon, QIcon::State state) {
    return icon.pixmap(24, QIcon::Normal, state).toImage();
}

TEST_F(SpectMapSetup, HasTheBitmapOfEachButton) {
    Open(true);
    for (const auto& [key, up, down] : {std::tuple(0, 2070U, 2070U),
                                        {1, 2071U, 2071U},
                                        {3, 2072U, 2072U},
                                        {7, 2069U, 2068U},
                                        {9, 2082U, 2082U},
                                        {10, 2081U, 2081U},
                                        {11, 2084U, 2084U},
                                        {12, 2083U, 2083U},
                                        {13, 2080U, 2080U},
                                        {16, 2079U, 2079U},
                                        {18, 2059U, 2059U}}) {
        const QIcon icon = dynamic_cast<const QToolButton*>(view->GetGadget(key))->icon();
        EXPECT_EQ(PictureOf(icon, QIcon::Off), PictureOf(owl::IconOf(up), QIcon::Off)) << key;
        EXPECT_EQ(PictureOf(icon, QIcon::On), PictureOf(owl::IconOf(down), QIcon::Off)) << key;
    }
}

TEST_F(SpectMapSetup, TurnsTheHeadsByItsButtons) {
    Open(true);
    struct Side {
        int key;
        chart::HeadView view;
    };
    for (const Side& side :
         {Side{9, chart::kLeftView}, Side{10, chart::kFrontView}, Side{12, chart::kRightView},
          Side{13, chart::kBackView}, Side{11, chart::kTopView}}) {
        dynamic_cast<QToolButton*>(view->GetGadget(side.key))->click();
        EXPECT_EQ(Map(0).GetView(), side.view) << side.key;
        EXPECT_EQ(Map(3).GetView(), side.view) << side.key;
    }
}

TEST_F(SpectMapSetup, RunsItsCommandsByItsButtons) {
    const FakeServices services;
    ScriptedUser user;
    Add();
    Show();
    const auto clicks = [this](int key) { dynamic_cast<QToolButton*>(view->GetGadget(key))->click(); };
    const auto generation = manager.GetMain()->GetGeneration();

    clicks(1);
    EXPECT_NE(manager.GetMain()->GetGeneration(), generation) << "computed again";
    clicks(16);
    EXPECT_FALSE(view->AreElectrodesShown());
    clicks(18);
    EXPECT_EQ(services.clipboard.Texts().size(), 1U);
    user.Meets<TFormSpectrumMacro>([](TFormSpectrumMacro& form) { FormUser(form).PressesEscape(); });
    clicks(0);
    user.MeetsDialog([](QDialog& dialog) { dialog.reject(); });
    clicks(3);
    EXPECT_EQ(user.DialogsShown(), 2);
}

TEST_F(SpectMapSetup, HasASliderFromClearToOpaque) {
    const auto* slider = dynamic_cast<const QSlider*>(Open(true).GetGadget(15));
    ASSERT_NE(slider, nullptr);
    EXPECT_EQ(slider->minimum(), 0);
    EXPECT_EQ(slider->maximum(), 100);
    EXPECT_EQ(slider->value(), 100);
    EXPECT_EQ(slider->tickInterval(), 10);
    EXPECT_EQ(slider->size(), QSize(100, 20));
}

TEST_F(SpectMapSetup, TurnsTheSliderIntoTheOpacityOfTheMaps) {
    Open(true);
    dynamic_cast<QSlider*>(view->GetGadget(15))->setValue(40);
    EXPECT_EQ(Map(0).GetDisplay().opacity, 40);
}

TEST_F(SpectMapSetup, PressesTheButtonOfElectrodesWhileTheyAreShown) {
    Open();
    const auto* button = dynamic_cast<const QToolButton*>(view->GetGadget(16));
    ASSERT_TRUE(view->AreElectrodesShown());
    EXPECT_TRUE(button->isChecked());

    view->CmElectrodes();
    EXPECT_FALSE(view->AreElectrodesShown());
    EXPECT_FALSE(button->isChecked());

    view->CmElectrodes();
    EXPECT_TRUE(button->isChecked());
}

TEST_F(SpectMapSetup, PressesTheButtonOfTheLockWhileMapsAreLocked) {
    Open(true);
    const auto* button = dynamic_cast<const QToolButton*>(view->GetGadget(7));
    EXPECT_EQ(button->isChecked(), view->IsLocked());

    view->CmLock();
    EXPECT_EQ(button->isChecked(), view->IsLocked());

    view->CmLock();
    EXPECT_EQ(button->isChecked(), view->IsLocked());
}

TEST_F(SpectMapSetup, ArrangesTheSideBarWheneverTheFocusComesOrGoes) {
    Open();
    window.sideBar.calls.clear();
    const auto focus = [this](owl::WindowEvent event) {
        view->Dispatch({{owl::EventKind::Window, static_cast<unsigned>(event)}, owl::FocusArgs{nullptr}});
    };
    focus(owl::WindowEvent::SetFocus);
    EXPECT_THAT(window.sideBar.calls, ElementsAre("update"));
    focus(owl::WindowEvent::KillFocus);
    EXPECT_THAT(window.sideBar.calls, ElementsAre("update", "update"));
}

TEST_F(SpectMapSetup, AnswersItsCommandsAndMessages) {
    Make();
    const auto answers = [this](owl::EventKind kind, unsigned id) {
        return view->Find({kind, id}) != nullptr;
    };
    for (const unsigned id : {14143U, 14081U, 14180U, 14160U, 14130U, 14140U, 14141U, 14150U, 14142U, 14170U,
                              14190U, 14200U, 14144U, 14100U, 14101U, 14102U, 14103U, 14104U}) {
        EXPECT_TRUE(answers(owl::EventKind::Command, id)) << id;
    }
    for (const unsigned id : {14160U, 14170U, 14190U}) {
        EXPECT_TRUE(answers(owl::EventKind::Enabler, id)) << id;
    }
    for (const unsigned id : {16333U, 16329U, 14160U, 16335U}) {
        EXPECT_TRUE(answers(owl::EventKind::Message, id)) << id;
    }
    EXPECT_FALSE(answers(owl::EventKind::Command, 9328)) << "the application's";
}

TEST_F(SpectMapSetup, MakesMapsOfItsElectrodesInItsSections) {
    Open(true);
    EXPECT_EQ(view->GetNumMaps(), 4);
    EXPECT_EQ(Map(3).GetSection(), "SpectMap_Map_3");
    EXPECT_TRUE(Map(3).IsThreeD());
    EXPECT_EQ(view->GetElectrodes().size(), 4U);
}

} // namespace
