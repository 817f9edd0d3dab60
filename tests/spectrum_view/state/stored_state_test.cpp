// SPDX-License-Identifier: GPL-3.0-or-later
#include "spectrum_view/state/stored_state.h"

#include "spectra_contract/spectra_mgr.h"
#include "tests/support/globals_guard.h"
#include "tests/support/map_user.h"

#include <gtest/gtest.h>

namespace {

using namespace orvanta;
using namespace orvanta::spectrum_view;
using SPECT::Entity::Type;
using Names = std::vector<std::string>;

class StoredState : public testing::Test {
protected:
    ViewState Open(double rate = 256) { return OpenState(user, manager, rate, display); }

    test::GlobalsGuard guard;
    test::MapUser user;
    SpectraMgr manager{nullptr, nullptr};
    DisplaySettings display;
};

TEST_F(StoredState, OfAFreshUserAreTheDefaults) {
    const ViewState view = Open();
    EXPECT_EQ(view.layout, Layout::Mode::Grid);
    EXPECT_EQ(view.firstTrace, 0u);
    EXPECT_EQ(view.grid, (GridSize{4, 4}));
    EXPECT_FALSE(view.commonScale);
    EXPECT_EQ(manager.GetMeasEntity(), Type::Amplitude);
    EXPECT_EQ(display.mode, SPECT::Data::Mode::Mean);
    EXPECT_EQ(display.range, (SPECT::FrequencyRange{0, 32}));
    EXPECT_FALSE(display.showSd);
    EXPECT_TRUE(display.showPoints);
    EXPECT_TRUE(display.showLines);
    EXPECT_TRUE(display.degrees);
    EXPECT_EQ(display.normalisation, SPECT::Normalisation::None);
    EXPECT_EQ(display.gain, 1.0);
    ASSERT_EQ(view.scales.size(), 4u);
    for (const char* name : {"Amplitude", "Power", "Coherence", "Phase"}) {
        EXPECT_EQ(view.scales.at(name), (SPECT::Scale{0, 10, 0, 32, true})) << name;
    }
}

TEST_F(StoredState, AreAskedForInThisOrder) {
    Open();
    Names expected{"Spectrum/MeasEntity", "Spectrum/NumRows", "Spectrum/NumCols",    "Spectrum/bCommonScale",
                   "Spectrum/m_bShowSD",  "Spectrum/Degrees", "Spectrum/ShowPoints", "Spectrum/ShowLines"};
    for (const char* section : {"EntityString_0", "EntityString_1", "EntityString_2", "EntityString_3"}) {
        for (const char* key : {"/MinX", "/MaxX", "/MaxY", "/MinY", "/AutoScale"}) {
            expected.push_back(std::string(section) + key);
        }
    }
    EXPECT_EQ(user.asked, expected);
}

TEST_F(StoredState, ANewViewShowsTheMeanWithLabelsAxesAndMeasuresAgain) {
    display.mode = SPECT::Data::Mode::CSA;
    display.showLabels = display.showAxesText = display.showMeasuresBox = false;
    display.gain = 2.25;
    display.normalisation = SPECT::Normalisation::ByF;
    Open();
    EXPECT_EQ(display.mode, SPECT::Data::Mode::Mean);
    EXPECT_TRUE(display.showLabels);
    EXPECT_TRUE(display.showAxesText);
    EXPECT_TRUE(display.showMeasuresBox);
    EXPECT_EQ(display.gain, 2.25); // shared, and no view's start changes it
    EXPECT_EQ(display.normalisation, SPECT::Normalisation::ByF);
}

TEST_F(StoredState, AreReadBack) {
    user.values = {{"Spectrum/MeasEntity", 1},     {"Spectrum/NumRows", 2},     {"Spectrum/NumCols", 7},
                   {"Spectrum/bCommonScale", -1},  {"Spectrum/m_bShowSD", 1},   {"Spectrum/Degrees", 0},
                   {"Spectrum/ShowPoints", 0},     {"Spectrum/ShowLines", 0},   {"EntityString_1/MinX", 1.5},
                   {"EntityString_1/MaxX", 45},    {"EntityString_1/MinY", -2}, {"EntityString_1/MaxY", 80},
                   {"EntityString_1/AutoScale", 0}};
    const ViewState view = Open();
    EXPECT_EQ(manager.GetMeasEntity(), Type::Power);
    EXPECT_EQ(view.grid, (GridSize{2, 7}));
    EXPECT_TRUE(view.commonScale);
    EXPECT_TRUE(display.showSd);
    EXPECT_FALSE(display.degrees);
    EXPECT_FALSE(display.showPoints);
    EXPECT_FALSE(display.showLines);
    EXPECT_EQ(view.scales.at("Power"), (SPECT::Scale{-2, 80, 1.5, 45, false}));
    EXPECT_EQ(view.scales.at("Amplitude"), SPECT::Scale());
    EXPECT_EQ(display.range, (SPECT::FrequencyRange{1.5, 45}));
}

TEST_F(StoredState, TheTopIsHalfTheRateAtMost) {
    Open(50);
    EXPECT_EQ(display.range, (SPECT::FrequencyRange{0, 25}));
}

TEST_F(StoredState, TheBottomLiesBetweenZeroAndTheTop) {
    user.values["EntityString_0/MinX"] = 40;
    Open(50);
    EXPECT_EQ(display.range, (SPECT::FrequencyRange{25, 25}));
    user.values["EntityString_0/MinX"] = -3;
    Open(50);
    EXPECT_EQ(display.range, (SPECT::FrequencyRange{0, 25}));
}

TEST_F(StoredState, AnEntityThatDoesNotExistIsIgnored) {
    for (const int entity : {-1, 4, 99}) {
        manager.SetMeasEntity(Type::Coherence);
        user.values["Spectrum/MeasEntity"] = entity;
        Open();
        EXPECT_EQ(manager.GetMeasEntity(), Type::Coherence) << entity;
    }
}

TEST_F(StoredState, AreWrittenInThisOrderWithoutDegrees) {
    const ViewState view = Open();
    SaveState(user, manager, view, display);
    Names expected{"Spectrum/MeasEntity", "Spectrum/NumRows",    "Spectrum/NumCols",  "Spectrum/bCommonScale",
                   "Spectrum/m_bShowSD",  "Spectrum/ShowPoints", "Spectrum/ShowLines"};
    for (const char* section : {"EntityString_0", "EntityString_1", "EntityString_2", "EntityString_3"}) {
        for (const char* key : {"/MinX", "/MaxX", "/MinY", "/MaxY", "/AutoScale"}) {
            expected.push_back(std::string(section) + key);
        }
    }
    EXPECT_EQ(user.written, expected);
}

TEST_F(StoredState, WhatIsWrittenIsReadAgain) {
    ViewState view = Open();
    manager.SetMeasEntity(Type::Phase);
    view.grid = {3, 5};
    view.commonScale = true;
    view.scales["Phase"] = {1, 2, 3, 4, false};
    display.showSd = true;
    display.showPoints = display.showLines = false;
    SaveState(user, manager, view, display);

    manager.SetMeasEntity(Type::Power);
    display = {};
    const ViewState again = Open();
    EXPECT_EQ(manager.GetMeasEntity(), Type::Phase);
    EXPECT_EQ(again.grid, (GridSize{3, 5}));
    EXPECT_TRUE(again.commonScale);
    EXPECT_EQ(again.scales, view.scales);
    EXPECT_TRUE(display.showSd);
    EXPECT_FALSE(display.showPoints);
    EXPECT_FALSE(display.showLines);
    EXPECT_EQ(display.range, (SPECT::FrequencyRange{3, 4}));
}

TEST_F(StoredState, AnEntityWithoutARecordIsWrittenWithTheDefaults) {
    SaveState(user, manager, ViewState(), display);
    EXPECT_EQ(user.values.at("EntityString_3/MaxX"), 32);
    EXPECT_EQ(user.values.at("EntityString_3/MaxY"), 10);
    EXPECT_EQ(user.values.at("EntityString_3/AutoScale"), 1);
}

TEST_F(StoredState, ACountBelowZeroIsNone) {
    user.values["Spectrum/NumRows"] = -1;
    EXPECT_EQ(Open().grid, (GridSize{0, 4}));
    user.values["Spectrum/NumCols"] = 0;
    EXPECT_EQ(Open().grid, (GridSize{0, 0}));
}

TEST(Display, IsOneForTheProcess) {
    DisplaySettings& display = Display();
    const DisplaySettings before = display;
    display.gain = 1.5;
    EXPECT_EQ(Display().gain, 1.5);
    display = before;
}

} // namespace
