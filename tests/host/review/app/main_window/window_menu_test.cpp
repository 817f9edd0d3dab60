// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/chart_view/the_child.h"
#include "tests/host/review/app/main_window/workbench_fixture.h"

#include <QTest>

namespace {

using namespace orvanta;
using review::ViewKind;
using testing::ElementsAre;

class WindowMenu : public test::WorkbenchFixture {
protected:
    WindowMenu() {
        Start(Demo());
        bench->Window().activateWindow();
        test::WaitUntilIdle();
    }
    void Analyse() {
        AddAnalysis();
        bench->GetAnalyses().Recompute();
        QTest::qWait(500); // the window looks now and then at what has changed
        test::WaitUntilIdle();
    }
    struct State {
        bool enabled, checked;
        bool operator==(const State&) const = default;
    };
    /// Of traces, spectrum and maps.
    std::vector<State> States() {
        Opens("menuWindow");
        std::vector<State> states;
        for (const char* item : {"windowTraces", "windowSpectrum", "windowMaps"}) {
            states.push_back({Item(item).isEnabled(), Item(item).isChecked()});
        }
        return states;
    }
};

TEST_F(WindowMenu, ChecksTheActiveViewAndOffersThoseThatAreShown) {
    EXPECT_THAT(States(), ElementsAre(State{true, true}, State{false, false}, State{false, false}));
    Analyse();
    EXPECT_THAT(States(), ElementsAre(State{true, true}, State{true, false}, State{true, false}));
}

TEST_F(WindowMenu, ActivatesTheViewThatIsChosen) {
    Analyse();
    Item("windowSpectrum").trigger();
    EXPECT_THAT(States(), ElementsAre(State{true, false}, State{true, true}, State{true, false}));
    EXPECT_TRUE(MenuTitles().contains("Spectrum"));
    Item("windowTraces").trigger();
    EXPECT_THAT(States(), ElementsAre(State{true, true}, State{true, false}, State{true, false}));
    EXPECT_TRUE(MenuTitles().contains("Traces"));
}

TEST_F(WindowMenu, OffersNothingWithoutARecording) {
    bench->GetDocuments().Close();
    EXPECT_THAT(States(), ElementsAre(State{false, false}, State{false, false}, State{false, false}));
}

} // namespace
