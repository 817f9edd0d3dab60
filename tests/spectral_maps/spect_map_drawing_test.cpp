// SPDX-License-Identifier: GPL-3.0-or-later
// How the first maps come up.
#include "side_bar/macro_selection_form.h"
#include "tests/spectral_maps/map_fixture.h"
#include "tests/support/qt/form_user.h"
#include "tests/support/qt/scripted_user.h"

namespace {

using namespace orvanta;
using namespace orvanta::test;
using testing::Each;

/// Four maps of Theta.
class SpectMapDrawing : public MapFixture {
protected:
    SpectMapDrawing() {
        for (int map = 0; map < 4; ++map) {
            Stored(map, Choice(kTheta));
        }
    }
    std::vector<bool> Shown() const {
        std::vector<bool> shown;
        for (std::size_t map = 0; map < view->GetNumMaps(); ++map) {
            shown.push_back(Map(map).isVisible());
        }
        return shown;
    }

    ScriptedUser user;
};

TEST_F(SpectMapDrawing, AsksForAnAnalysisUntilThereIsOneWithTheMapsHidden) {
    const auto cancels = [this](TFormMacroSpectra& form) {
        EXPECT_THAT(Shown(), Each(false));
        FormUser(form).PressesEscape();
    };
    user.Meets<TFormMacroSpectra>(cancels).Meets<TFormMacroSpectra>(cancels);
    user.Meets<TFormMacroSpectra>([this](TFormMacroSpectra& form) {
        Add();
        FormUser(form).PressesEscape();
    });

    Show();

    EXPECT_EQ(user.DialogsShown(), 3);
    EXPECT_THAT(Shown(), Each(true));
    EXPECT_THAT(Map(3).GetValues(), Near({32, 18, 8, 2}));
}

TEST_F(SpectMapDrawing, AsksOnceOnly) {
    user.Meets<TFormMacroSpectra>([this](TFormMacroSpectra& form) {
        view->Invalidate(); // a drawing in between is none of the first
        QApplication::processEvents();
        Add();
        FormUser(form).PressesEscape();
    });
    Show();
    view->Invalidate();
    RunQueue();
    EXPECT_EQ(user.DialogsShown(), 1);
}

TEST_F(SpectMapDrawing, StopsAskingWhenTheViewEnds) {
    user.Meets<TFormMacroSpectra>([this](TFormMacroSpectra& form) {
        view->Destroy();
        FormUser(form).PressesEscape();
    });
    Show();
    EXPECT_EQ(user.DialogsShown(), 1);
    EXPECT_FALSE(view->IsCreated());
}

TEST_F(SpectMapDrawing, ComputesAnAnalysisThatIsThere) {
    Add();
    Show();
    EXPECT_TRUE(manager.GetMain()->IsComputed());
    EXPECT_THAT(Shown(), Each(true));
}

TEST_F(SpectMapDrawing, TellsAFailureOnceAndShowsTheMaps) {
    Add()->GetMacro().SetDSPWindowStr("No such taper");
    user.AnswersMessage(owl::kIdOk);
    Show();
    RunQueue();
    EXPECT_EQ(user.Messages().size(), 1U);
    EXPECT_THAT(Shown(), Each(true));
}

TEST_F(SpectMapDrawing, TellsOnceThatAnotherAnalysisCannotBeComputedAndStaysUsable) {
    Add();
    SpectMacroResult* other = Add();
    other->GetMacro().SetDSPWindowStr("No such taper");
    user.AnswersMessage(owl::kIdOk);
    Show();
    view->Invalidate();
    RunQueue();
    view->Dispatch({{owl::EventKind::Window, static_cast<unsigned>(owl::WindowEvent::SetFocus)},
                    owl::FocusArgs{nullptr}});
    RunQueue();
    EXPECT_EQ(user.Messages().size(), 1U);
    EXPECT_THAT(Shown(), Each(true));

    manager.Remove(other);
    delete other;
    view->CmRecompute();
    EXPECT_GT(Map(0).GetScale().high, 0);
}

TEST_F(SpectMapDrawing, DoesNotFetchAgainWhatIsShown) {
    Add();
    Show();
    const std::size_t fetched = window.platform.gui.Progresses().size();
    view->Invalidate();
    RunQueue();
    EXPECT_EQ(window.platform.gui.Progresses().size(), fetched);
}

TEST_F(SpectMapDrawing, GivesTheSharedScaleTheUnitOfTheFirstMap) {
    Stored(0, Choice(kTheta, SPECT::Meas::Type::PeakF));
    Add();
    Show();
    EXPECT_EQ(view->GetMeasUnit(), "");
    view->SetSinglePalette(true);
    view->Invalidate();
    RunQueue();
    EXPECT_EQ(view->GetMeasUnit(), "Hz");
}

TEST_F(SpectMapDrawing, GoesWithTheViewInTheMidstOfTheFirstComputation) {
    Add();
    window.platform.gui.OnProgress = [this] { view.reset(); };
    Make();
    window.resize(640, 480);
    view->Panes().resize(640, 480);
    window.show();
    view->Panes().show();
    RunQueue();
    EXPECT_EQ(view, nullptr);
}

} // namespace
