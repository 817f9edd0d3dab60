// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/app/main_window/starter_maps.h"

#include "host/chart_view/maps/multi_map_win.h"
#include "host/chart_view/maps/plot_set_store.h"
#include "tests/host/review/app/main_window/workbench_fixture.h"
#include "tests/support/qt/fake_global_window.h"

namespace {

using namespace orvanta;
using testing::ElementsAre;
using testing::IsEmpty;

class StarterMaps : public testing::Test {
protected:
    SPECT::PlotSet Map(int index) const {
        return chart::LoadPlotSet(platform.user, "SpectMap_Map_" + std::to_string(index));
    }
    test::FakePlatform platform;
};

TEST_F(StarterMaps, AreFourBandsAndTheirShares) {
    review::InstallStarterMaps(platform);
    std::vector<std::pair<int, int>> shown;
    for (int i = 0; i < 8; ++i) {
        shown.emplace_back(Map(i).SpectralBand, Map(i).SpectralMeas);
        EXPECT_TRUE(Map(i).bAutoScale);
        EXPECT_TRUE(Map(i).bZeroMin);
    }
    using Pair = std::pair<int, int>;
    EXPECT_THAT(shown, ElementsAre(Pair{0, 0}, Pair{1, 0}, Pair{2, 0}, Pair{3, 0}, Pair{0, 2}, Pair{1, 2},
                                   Pair{2, 2}, Pair{3, 2}));
}

TEST_F(StarterMaps, DoNotComeBackAfterTheUserChanged) {
    review::InstallStarterMaps(platform);
    platform.user.PutInt("SpectMap_Map_3", "SpectralBand", 6);
    review::InstallStarterMaps(platform);
    EXPECT_EQ(Map(3).SpectralBand, 6);
}

TEST_F(StarterMaps, AreNotForAUserWhoHasMaps) {
    platform.user.PutInt("SpectMap", "MapRows", 3);
    platform.user.written.clear();
    review::InstallStarterMaps(platform);
    EXPECT_THAT(platform.user.written, IsEmpty());
}

class MapsOfANewUser : public test::WorkbenchFixture {};

TEST_F(MapsOfANewUser, ShowFourBandsAndTheirShares) {
    Start(Demo());
    bench->GetViews().Hide(review::ViewKind::Spectrum); // maps alone measure what it would
    AddAnalysis();
    Item("viewMaps").trigger();
    test::WaitUntilIdle();
    auto* maps = dynamic_cast<MultiMapWin*>(bench->Middle().Views().ViewOf(review::ViewKind::Maps));
    ASSERT_NE(maps, nullptr);
    ASSERT_EQ(maps->GetNumMaps(), 8);
    EXPECT_EQ(maps->GetMap(0)->GetTitle(), "Band: Delta - Measure: Abs");
    EXPECT_EQ(maps->GetMap(2)->GetTitle(), "Band: Alpha - Measure: Abs");
    EXPECT_EQ(maps->GetMap(2)->GetMeasureUnit(),
              "µV"); // the square root of the power: amplitudes are shown first
    EXPECT_EQ(maps->GetMap(7)->GetTitle(), "Band: Beta - Measure: Rel");
    EXPECT_EQ(maps->GetMap(7)->GetMeasureUnit(), "%");
    EXPECT_EQ(maps->GetMap(7)->GetScale().low, 0);
}

TEST_F(MapsOfANewUser, SayHowToComputeThemUntilTheyAreComputed) {
    Start(Demo());
    AddAnalysis();
    bench->GetViews().Open(review::ViewKind::Maps);
    const auto* maps = dynamic_cast<MultiMapWin*>(bench->Middle().Views().ViewOf(review::ViewKind::Maps));
    ASSERT_NE(maps, nullptr);
    const TMapWindow& map = *maps->GetMap(0);
    EXPECT_EQ(map.accessibleDescription().toStdString(), "Not computed. Choose Recompute.");
    EXPECT_EQ(map.GetValues(), std::vector<double>(19, 0.0));
    bench->GetAnalyses().Recompute();
    EXPECT_TRUE(map.accessibleDescription().endsWith(QStringLiteral(" µV")));
    EXPECT_GT(map.GetValues().at(0), 0);
}

} // namespace
