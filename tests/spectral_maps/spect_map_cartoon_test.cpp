// SPDX-License-Identifier: GPL-3.0-or-later
// The maps as a cartoon.
#include "host/toolkit/command_enabler.h"
#include "tests/spectral_maps/map_fixture.h"
#include "tests/support/qt/scripted_user.h"

namespace {

using namespace orvanta;
using namespace orvanta::test;
using testing::ElementsAre;

/// Four maps that show Theta, in a cartoon Alpha.
class SpectMapCartoon : public MapFixture {
protected:
    SpectMapCartoon() {
        Setting("SpectMap/SpectralBand") = kAlpha;
        for (int map = 0; map < 4; ++map) {
            Stored(map, Choice(kTheta));
        }
    }
    SpectMap& ShowCartoon(const SpectraMacro& macro = PlainMacro()) {
        Add(macro);
        Show();
        view->SetCartoonMode(true);
        RunQueue();
        return *view;
    }
    /// As UpdateMaps fills the maps for these items.
    void Update(const std::vector<std::pair<XTimeInterval, std::uint32_t>>& items) {
        XTimeList list;
        for (const auto& [interval, step] : items) {
            list.push_back(interval, step);
        }
        view->UpdateMaps(list);
        view->SetSinglePalette(true); // brings them to the screen
    }
    static XTimeInterval Between(double begin, double end) {
        return {XTime::FromSeconds(begin), XTime::FromSeconds(end)};
    }
};

TEST_F(SpectMapCartoon, ShowsOneEpochOnEachMap) {
    ShowCartoon();
    EXPECT_THAT(Map(0).GetValues(), Near({2, 8, 18, 32}));
    EXPECT_THAT(Map(1).GetValues(), Near({8, 32, 72, 128}));
    EXPECT_THAT(Map(2).GetValues(), Near({18, 72, 162, 288}));
    EXPECT_THAT(Map(3).GetValues(), Near({32, 128, 288, 512}));
}

TEST_F(SpectMapCartoon, TellsTheTimeOfTheFirstMapAndOthersRelativeToIt) {
    ShowCartoon();
    EXPECT_THAT(Titles(),
                ElementsAre("Time: 00:00:00.000", "00:00:01.000 - 00:00:02.000 sec.",
                            "00:00:02.000 - 00:00:03.000 sec.", "00:00:03.000 - 00:00:04.000 sec."));
}

TEST_F(SpectMapCartoon, SlidesOverTheEpochs) {
    ShowCartoon().ShowStep(2);
    EXPECT_THAT(Map(0).GetValues(), Near({18, 72, 162, 288}));
    EXPECT_EQ(Map(0).GetTitle(), "Time: 00:00:02.000");
    EXPECT_EQ(Map(1).GetTitle(), "00:00:01.000 - 00:00:02.000 sec.");
    EXPECT_EQ(view->GetStepCount(), 6U);
}

TEST_F(SpectMapCartoon, HasOneScaleOverAllEpochs) {
    ShowCartoon();
    for (std::size_t map = 0; map < 4; ++map) {
        EXPECT_NEAR(Map(map).GetScale().low, 2, 1e-3) << map;
        EXPECT_NEAR(Map(map).GetScale().high, 2 * 16 * 36, 0.1) << map; // O2 in the last second
    }
}

TEST_F(SpectMapCartoon, HasOneScaleFromZeroWhereThatIsChosen) {
    Setting("SpectMap/bZeroMin") = 1;
    ShowCartoon();
    EXPECT_EQ(Map(1).GetScale().low, 0);
    EXPECT_NEAR(Map(1).GetScale().high, 1152, 0.1);
}

TEST_F(SpectMapCartoon, HasTheScaleThatWasTyped) {
    Setting("SpectMap/bAutoScale") = 0;
    Setting("SpectMap/LoScale") = 10;
    Setting("SpectMap/HiScale") = 20;
    ShowCartoon();
    EXPECT_EQ(Map(3).GetScale(), (chart::ValueRange{10, 20}));
}

TEST_F(SpectMapCartoon, HasRoomForItsScaleBesideTheMaps) {
    ShowCartoon();
    EXPECT_LT(Map(1).geometry().right(), view->width() - 30);
    view->SetCartoonMode(false);
    EXPECT_GE(Map(1).geometry().right(), view->width() - 2);
}

TEST_F(SpectMapCartoon, LeavesMapsEmptyThatHaveNoEpoch) {
    ShowCartoon(PlainMacro(6));
    EXPECT_EQ(view->GetStepCount(), 1U);
    EXPECT_THAT(Titles(), ElementsAre("Time: 00:00:00.000", "---", "---", "---"));
    EXPECT_THAT(Map(2).GetValues(), Near({0, 0, 0, 0}));
    EXPECT_EQ(Map(2).GetMeasureUnit(), "++");
    EXPECT_EQ(Map(0).GetMeasureUnit(), "µV²");
}

TEST_F(SpectMapCartoon, CountsStepsWithoutItems) {
    ShowCartoon();
    Update({{Between(1, 2), 0}, {Between(4, 5), 3}});
    // 64 a second: 2147483647 is 9320:40:31.984; less the second of the first step.
    EXPECT_THAT(Titles(),
                ElementsAre("Time: 00:00:01.000", "9320:40:30.984 - -00:00:01.000 sec.",
                            "9320:40:30.984 - -00:00:01.000 sec.", "00:00:03.000 - 00:00:04.000 sec."));
}

TEST_F(SpectMapCartoon, TakesAStepFromItsEarliestItemToTheEndOfItsLast) {
    ShowCartoon();
    Update({{Between(1, 2), 0}, {Between(4, 5), 1}, {Between(3, 3.5), 1}});
    EXPECT_EQ(Titles().at(1), "00:00:02.000 - 00:00:02.500 sec.");
}

TEST_F(SpectMapCartoon, UsesNoMoreMapsThanThereAre) {
    ShowCartoon();
    Update({{Between(1, 2), 0}, {Between(4, 5), 70000}});
    EXPECT_EQ(Titles().size(), 4U);
    EXPECT_EQ(Titles().at(3).substr(0, 4), "9320");
}

TEST_F(SpectMapCartoon, HasNoValueBeyondTheEpochsOrBeforeComputing) {
    ShowCartoon();
    manager.GetMain()->ResetData();
    Update({{Between(0, 1), 0}, {Between(1, 2), 1}});
    EXPECT_THAT(Map(0).GetValues(), Near({0, 0, 0, 0}));
    EXPECT_THAT(Map(1).GetValues(), Near({0, 0, 0, 0}));
}

TEST_F(SpectMapCartoon, IsOneMapWithoutItems) {
    ShowCartoon();
    Update({});
    EXPECT_THAT(Titles(), ElementsAre("Time: 9320:40:31.984", "---", "---", "---"));
}

TEST_F(SpectMapCartoon, TitlesTheViewAfterTheCommonSetting) {
    ShowCartoon();
    EXPECT_EQ(view->GetTitle(), "Band: Alpha   Measure: Abs");
    EXPECT_EQ(view->GetMeasUnit(), "µV²");
    EXPECT_TRUE(view->IsSinglePalette());
}

TEST_F(SpectMapCartoon, TitlesTheViewAfterTheFirstMapUntilThereAreValues) {
    Open();
    view->SetCartoonMode(true); // there is no analysis
    EXPECT_EQ(view->GetTitle(), "Band: Theta   Measure: Abs");
    view->SetCartoonMode(false);
    EXPECT_EQ(view->GetTitle(), "");
    EXPECT_EQ(view->GetMeasUnit(), "");
}

TEST_F(SpectMapCartoon, KeepsTheUnitOfWhatItShowsWhileItIsDrawn) {
    Setting("SpectMap/SpectralMeas") = static_cast<int>(SPECT::Meas::Type::PeakF);
    ShowCartoon();
    view->Invalidate();
    RunQueue();
    EXPECT_EQ(view->GetMeasUnit(), "Hz");
}

TEST_F(SpectMapCartoon, ShowsTheMapsOwnChoicesAgainAfterwards) {
    ShowCartoon().SetCartoonMode(false);
    RunQueue();
    EXPECT_EQ(Titles().at(3), "Band: Theta - Measure: Abs");
    EXPECT_THAT(Map(3).GetValues(), Near({32, 18, 8, 2}));
    EXPECT_EQ(view->GetTitle(), "");
    EXPECT_FALSE(view->IsSinglePalette());
    EXPECT_EQ(view->GetStepCount(), 0U);
}

TEST_F(SpectMapCartoon, ComputesAgainAlsoWhenNothingChanges) {
    ShowCartoon();
    const auto generation = manager.GetMain()->GetGeneration();
    view->SetTitle("another");

    view->SetCartoonMode(true);

    EXPECT_NE(manager.GetMain()->GetGeneration(), generation);
    EXPECT_TRUE(manager.GetMain()->IsComputed());
    EXPECT_EQ(view->GetTitle(), "Band: Alpha   Measure: Abs");
}

TEST_F(SpectMapCartoon, ComesAndGoesWithItsMenuItem) {
    Add();
    Show();
    const auto checked = [this] { return owl::RunEnabler(*view, 14170).Checked(); };
    EXPECT_EQ(checked(), false);

    view->RunCommand(14170);
    EXPECT_TRUE(view->GetCartoonMode());
    EXPECT_EQ(checked(), true);
    EXPECT_TRUE(Item(14170)->isChecked());

    view->RunCommand(14170);
    EXPECT_FALSE(view->GetCartoonMode());
    EXPECT_FALSE(Item(14170)->isChecked());
}

TEST_F(SpectMapCartoon, MakesNewMapsEmpty) {
    ShowCartoon();
    const std::unique_ptr<TMapWindow> map(view->CreateMap(9));
    EXPECT_EQ(map->GetTitle(), "---");
    EXPECT_THAT(map->GetValues(), Near({0, 0, 0, 0}));
}

TEST_F(SpectMapCartoon, PointsTheOtherViewsAtElectrodeAndEpoch) {
    ShowCartoon().ShowStep(1);
    view->SendMessage(TMapWindow::kElectrodeClicked, 1, 2);
    EXPECT_THAT(window.channels, ElementsAre("O1"));
    EXPECT_THAT(window.times, ElementsAre(XTime::FromSeconds(2)));
}

TEST_F(SpectMapCartoon, PointsAtTheElectrodeAloneOutsideTheCartoon) {
    Add();
    Show();
    view->SendMessage(TMapWindow::kElectrodeClicked, 1, 3);
    view->SendMessage(TMapWindow::kElectrodeClicked, 1, 4); // there is none
    view->SendMessage(TMapWindow::kElectrodeClicked, 1, -1);
    EXPECT_THAT(window.channels, ElementsAre("O2"));
    EXPECT_THAT(window.times, testing::IsEmpty());
}

TEST_F(SpectMapCartoon, ScalesAgainForOtherBands) {
    ShowCartoon();
    std::swap(SPECT::GetGlobals().Bands[kTheta], SPECT::GetGlobals().Bands[kAlpha]);
    view->SetMapValues(true);
    EXPECT_NEAR(Map(0).GetScale().low, 2, 1e-3);
    EXPECT_NEAR(Map(0).GetScale().high, 32, 1e-3);
}

} // namespace
