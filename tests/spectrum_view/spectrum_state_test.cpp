// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/spectrum_view/view_fixture.h"

namespace {

using namespace orvanta;
using namespace orvanta::spectrum_view;
using SPECT::Data::Mode;
using SPECT::Entity::Type;
using spectrum_view::Display; // hides the one of the X headers
using testing::ElementsAre;
using testing::IsEmpty;

using NewView = test::ViewFixture;

TEST_F(NewView, HasTheDefaultsOfAFreshUser) {
    Make();
    EXPECT_EQ(view->GetState().layout, Layout::Mode::Grid);
    EXPECT_EQ(view->GetState().grid, (GridSize{4, 4}));
    EXPECT_EQ(view->GetState().firstTrace, 0u);
    EXPECT_FALSE(view->GetState().commonScale);
    EXPECT_EQ(manager.GetMeasEntity(), Type::Amplitude);
    EXPECT_EQ(Display().mode, Mode::Mean);
    EXPECT_EQ(Display().range, (SPECT::FrequencyRange{0, 4})); // half of 8 Hz
    EXPECT_FALSE(Display().showSd);
    EXPECT_TRUE(Display().showPoints);
    EXPECT_TRUE(Display().showLines);
    const SPECT::Scale& scale = view->GetState().scales.at("Amplitude");
    EXPECT_EQ(scale, (SPECT::Scale{0, 10, 0, 32, true}));
    EXPECT_EQ(view->GetState().scales.size(), 4u);
}

TEST_F(NewView, KeepsItsFlagUnchanged) {
    EXPECT_TRUE(Spectrum(window, recording.get(), &manager, true).GetFlag());
    EXPECT_FALSE(Spectrum(window, recording.get(), &manager, false).GetFlag());
}

TEST_F(NewView, ComputesNothing) {
    SpectMacroResult* main = Add(false);
    Make();
    EXPECT_FALSE(main->IsComputed());
    EXPECT_THAT(window.platform.gui.Progresses(), IsEmpty());
}

TEST_F(NewView, SetsTheSharedModeToMeanWithoutTellingOtherViews) {
    const Spectrum other(window, recording.get(), &manager, false);
    Display().mode = Mode::CSA;
    Display().showLabels = Display().showAxesText = Display().showMeasuresBox = false;
    Make();
    EXPECT_EQ(Display().mode, Mode::Mean);
    EXPECT_TRUE(Display().showLabels && Display().showAxesText && Display().showMeasuresBox);
    EXPECT_THAT(window.messages, IsEmpty());
}

TEST_F(NewView, ReadsItsSettings) {
    Setting("Spectrum/MeasEntity") = 1;
    Setting("Spectrum/NumRows") = 2;
    Setting("Spectrum/NumCols") = 3;
    Setting("Spectrum/bCommonScale") = 5;
    Setting("Spectrum/m_bShowSD") = 1;
    Setting("Spectrum/Degrees") = 0;
    Setting("Spectrum/ShowPoints") = 0;
    Setting("EntityString_1/MinX") = 1;
    Setting("EntityString_1/MaxX") = 3;
    Make();
    EXPECT_EQ(manager.GetMeasEntity(), Type::Power);
    EXPECT_EQ(view->GetState().grid, (GridSize{2, 3}));
    EXPECT_TRUE(view->GetState().commonScale);
    EXPECT_TRUE(Display().showSd);
    EXPECT_FALSE(Display().degrees);
    EXPECT_FALSE(Display().showPoints);
    EXPECT_EQ(Display().range, (SPECT::FrequencyRange{1, 3}));
}

TEST_F(NewView, ListsTheSensorsOfAReferentialMontageWithoutAnArea) {
    Add();
    Make();
    EXPECT_THAT(TraceNames(), ElementsAre("Fp1", "F3", "Cz"));
    for (const owl::TRect& rectangle : Rectangles()) {
        EXPECT_TRUE(rectangle.IsEmpty());
    }
}

TEST_F(NewView, ListsNothingWithoutAnAnalysis) {
    Make();
    EXPECT_THAT(TraceNames(), IsEmpty());
}

using EndingView = test::ViewFixture;

TEST_F(EndingView, StoresItsSettingsInOrder) {
    Open().Destroy();
    std::vector<std::string> names{"Spectrum/MeasEntity",   "Spectrum/NumRows",   "Spectrum/NumCols",
                                   "Spectrum/bCommonScale", "Spectrum/m_bShowSD", "Spectrum/ShowPoints",
                                   "Spectrum/ShowLines"};
    for (const char* section : {"EntityString_0/", "EntityString_1/", "EntityString_2/", "EntityString_3/"}) {
        for (const char* key : {"MinX", "MaxX", "MinY", "MaxY", "AutoScale"}) {
            names.push_back(std::string(section) + key);
        }
    }
    EXPECT_EQ(window.platform.user.written, names);
}

TEST_F(EndingView, StoresThemOnce) {
    Open().Destroy();
    const std::size_t written = window.platform.user.written.size();
    view->Destroy();
    EXPECT_EQ(window.platform.user.written.size(), written);
    EXPECT_FALSE(view->IsCreated());
}

TEST_F(EndingView, GivesTheNextOneWhatTheUserChose) {
    Open();
    view->CmSetEntity(kCmSetEntity + 1);
    view->CmSetCommon();
    view->CmShowPoints();
    view->CmShowSD();
    view->CmCSA();
    view->ChangeViewMode(Layout::Mode::Scalp);
    view->Destroy();
    Display() = {};
    Make();
    EXPECT_EQ(manager.GetMeasEntity(), Type::Power);
    EXPECT_TRUE(view->GetState().commonScale);
    EXPECT_FALSE(Display().showPoints);
    EXPECT_TRUE(Display().showSd);
    // Never stored: mode and layout.
    EXPECT_EQ(Display().mode, Mode::Mean);
    EXPECT_EQ(view->GetState().layout, Layout::Mode::Grid);
}

} // namespace
