// SPDX-License-Identifier: GPL-3.0-or-later
// The next day with analyses that cannot be computed: what they look for is not in the recording any more.
#include "host/chart_view/maps/map_window.h"
#include "host/chart_view/maps/multi_map_win.h"
#include "tests/host/review/app/main_window/workbench_fixture.h"

#include <QTest>

namespace {

using namespace orvanta;
using review::ViewKind;

struct Case {
    const char* name;
    bool main; ///< cannot be computed
    bool secondary;
    ViewKind maps; ///< shown, too
};

class AnalysesOfYesterday : public test::WorkbenchFixture, public testing::WithParamInterface<Case> {
protected:
    SpectMacroResult& AddSaved(const std::string& name, bool computable) const {
        SpectraMacro macro;
        if (!computable) {
            macro.SetTimeIntervalSelectMode(SpectraMacro::TimeIntervalSelectMode::ByStateEvents);
            macro.SetAcceptStateList({"nowhere"});
        }
        EXPECT_EQ(macro.SaveAs(folder.Path(name)), 0);
        return AddAnalysis(macro);
    }
    MultiMapWin& Maps(ViewKind kind) const {
        return dynamic_cast<MultiMapWin&>(*bench->Middle().Views().ViewOf(kind));
    }
    /// They are painted, and the application looks at what changed.
    void SeesTheMaps(ViewKind kind) const {
        Maps(kind).grab();
        test::WaitUntilIdle();
        QTest::qWait(250); // the application looks five times a second
        test::WaitUntilIdle();
    }
};

TEST_P(AnalysesOfYesterday, LeaveTheRecordingOpen) {
    Start(Demo());
    Analyses().SetMain(&AddSaved("shown.smx", true));
    bench->GetAnalyses().Show(ViewKind::Spectrum);
    bench->GetAnalyses().Show(GetParam().maps);
    Analyses().SetMain(&AddSaved("main.smx", !GetParam().main));
    Analyses().SetSecondary(&AddSaved("secondary.smx", !GetParam().secondary));
    Leave();
    user.AnswersMessage(owl::kIdOk);
    Start();
    SeesTheMaps(GetParam().maps);
    ASSERT_NE(bench->GetDocuments().Current(), nullptr);
    ASSERT_EQ(Analyses().Size(), 3U);
    for (const ViewKind kind : {ViewKind::Traces, ViewKind::Spectrum, GetParam().maps}) {
        EXPECT_TRUE(bench->GetViews().IsShown(kind)) << static_cast<int>(kind);
    }
    EXPECT_EQ(user.Messages().size(), 1U);
    EXPECT_EQ(Analyses().GetMain()->IsComputed(), !GetParam().main);
    const TMapWindow& map = *Maps(GetParam().maps).GetMap(0);
    EXPECT_EQ(map.GetValues().at(0) > 0, !GetParam().main);
    EXPECT_EQ(map.accessibleDescription() == QStringLiteral("Not computed. Choose Recompute."),
              GetParam().main);
}

TEST_P(AnalysesOfYesterday, AreToldOfOnceWhenMapsAreOpened) {
    Start(Demo());
    Analyses().SetMain(&AddSaved("shown.smx", true));
    bench->GetAnalyses().Show(ViewKind::Spectrum);
    bench->GetViews().Hide(ViewKind::Maps);
    Analyses().SetMain(&AddSaved("main.smx", !GetParam().main));
    Analyses().SetSecondary(&AddSaved("secondary.smx", !GetParam().secondary));
    Leave();
    Start();
    EXPECT_TRUE(user.Messages().empty()) << "the spectrum view shows what there is";
    user.AnswersMessage(owl::kIdOk);
    bench->GetAnalyses().Show(GetParam().maps);
    SeesTheMaps(GetParam().maps);
    EXPECT_EQ(user.Messages().size(), 1U);
}

INSTANTIATE_TEST_SUITE_P(Shown, AnalysesOfYesterday,
                         testing::Values(Case{"MainInMaps", true, false, ViewKind::Maps},
                                         Case{"MainInHeads", true, false, ViewKind::Heads},
                                         Case{"SecondaryInMaps", false, true, ViewKind::Maps},
                                         Case{"SecondaryInHeads", false, true, ViewKind::Heads},
                                         Case{"BothInMaps", true, true, ViewKind::Maps}),
                         [](const testing::TestParamInfo<Case>& row) { return row.param.name; });

} // namespace
