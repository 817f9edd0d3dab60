// SPDX-License-Identifier: GPL-3.0-or-later
#include "spectral_maps/spectral_map_window.h"

#include "tests/support/qt/fake_global_window.h"

#include <QApplication>
#include <QMouseEvent>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using namespace orvanta;
using testing::ElementsAre;
using testing::IsEmpty;

const SPECT::PlotSet kOther{6, 3, -1.5, 12.25, false, false};

/// What a map tells the view around it.
class AroundMap final : public owl::TWindow {
public:
    const owl::TResponseEntry* Find(const owl::TEventKey& key) const override;
    LPARAM Told(WPARAM index, LPARAM zero) {
        told.emplace_back(index, zero);
        return 0;
    }

    std::vector<std::pair<WPARAM, LPARAM>> told;

private:
    static const owl::TResponseTable __entries; // NOLINT(bugprone-reserved-identifier): the family's name
};

constinit const owl::TResponseTable AroundMap::__entries = {
    owl::Message<&AroundMap::Told>(16333),
};

const owl::TResponseEntry* AroundMap::Find(const owl::TEventKey& key) const {
    return owl::FindFirst<owl::TWindow>(__entries, *this, key);
}

class SpectralMapWindow : public testing::Test {
protected:
    TSpectralMapWindow& Make(int index = 2) {
        map = new TSpectralMapWindow(&around, window, electrodes, true, false, 0, "SpectMap", index, 6);
        return *map;
    }
    SPECT::PlotSet PlotSet() const {
        SPECT::PlotSet plotSet;
        map->GetPlotSet(plotSet);
        return plotSet;
    }

    test::FakeGlobalWindow window;
    AroundMap around;
    std::vector<ElectInfo> electrodes{{"Cz", {0, 0, 1}, true}, {"Fpz", {0, 1, 0}, true}};
    TSpectralMapWindow* map = nullptr; ///< of the window around it
};

TEST_F(SpectralMapWindow, ShowsTheFirstBandAndMeasureWithoutStoredSettings) {
    Make();
    EXPECT_EQ(PlotSet(), (SPECT::PlotSet{0, 0, 0.0, 50.0, true, false}));
}

TEST_F(SpectralMapWindow, ReadsItsOwnSection) {
    auto& values = window.platform.user.values;
    values["SpectMap_Map_2/SpectralBand"] = 3;
    values["SpectMap_Map_2/SpectralMeas"] = 6;
    values["SpectMap_Map_2/bAutoScale"] = 0;
    values["SpectMap_Map_2/bZeroMin"] = 0;
    values["SpectMap_Map_2/LoScale"] = -1.5;
    values["SpectMap_Map_2/HiScale"] = 12.25;
    Make(2);
    EXPECT_EQ(PlotSet(), kOther);
    Make(1);
    EXPECT_EQ(PlotSet(), SPECT::PlotSet());
}

TEST_F(SpectralMapWindow, TakesItsScaleWhenSetUp) {
    window.platform.user.values["SpectMap_Map_2/bAutoScale"] = 0;
    window.platform.user.values["SpectMap_Map_2/LoScale"] = 5;
    Make().Create();
    EXPECT_EQ(map->GetScale(), (chart::ValueRange{5, 50}));
}

TEST_F(SpectralMapWindow, TakesANewChoiceWithItsScaleAndKeepsItOnDemandOnly) {
    Make().Create();
    window.platform.user.written.clear();

    map->SetPlotSet(kOther, false);

    EXPECT_EQ(PlotSet(), kOther);
    EXPECT_EQ(map->GetScale(), (chart::ValueRange{-1.5, 12.25}));
    EXPECT_THAT(window.platform.user.written, IsEmpty());

    map->SetPlotSet(kOther, true);

    EXPECT_THAT(window.platform.user.written,
                ElementsAre("SpectMap_Map_2/SpectralBand", "SpectMap_Map_2/SpectralMeas",
                            "SpectMap_Map_2/bAutoScale", "SpectMap_Map_2/bZeroMin", "SpectMap_Map_2/LoScale",
                            "SpectMap_Map_2/HiScale"));
    Make(2);
    EXPECT_EQ(PlotSet(), kOther);
}

TEST_F(SpectralMapWindow, BeginsTheScaleAtZeroWhereThatIsChosen) {
    Make().Create();
    SPECT::PlotSet zero = kOther;
    zero.bZeroMin = true;

    map->SetPlotSet(zero, false);

    EXPECT_EQ(map->GetScale(), (chart::ValueRange{0, 12.25}));
}

TEST_F(SpectralMapWindow, TellsTheViewOfADoubleClick) {
    Make(2).Create();
    map->resize(200, 200);
    QMouseEvent click(QEvent::MouseButtonDblClick, QPointF(5, 5), QPointF(5, 5), Qt::LeftButton,
                      Qt::LeftButton, Qt::NoModifier);

    QApplication::sendEvent(map, &click);

    EXPECT_THAT(around.told, ElementsAre(std::pair(WPARAM{2}, LPARAM{0})));
}

TEST_F(SpectralMapWindow, AnswersWhatTheBaseAnswers) {
    Make();
    const owl::TEventKey press{owl::EventKind::Window, static_cast<unsigned>(owl::WindowEvent::LButtonDown)};
    EXPECT_NE(map->Find(press), nullptr);
}

} // namespace
