// SPDX-License-Identifier: GPL-3.0-or-later
// What menu items and tool buttons look like.
#include "host/toolkit/command_enabler.h"
#include "tests/spectrum_view/view_fixture.h"
#include "tests/support/qt/idle.h"

#include <QToolButton>

namespace {

using namespace orvanta;
using namespace orvanta::spectrum_view;
using SPECT::Normalisation;
using spectrum_view::Display; // hides the one of the X headers
using testing::ElementsAre;

/// What an enabler says: "on" or "off", and "+" or "-" for a mark; "" when it leaves the item as it is.
class Enablers : public test::ViewFixture {
protected:
    std::string Said(unsigned id) {
        const owl::TCommandEnabler said = owl::RunEnabler(*view, id);
        std::string text;
        if (said.Enabled()) {
            text += *said.Enabled() ? "on" : "off";
        }
        if (said.Checked()) {
            text += *said.Checked() ? "+" : "-";
        }
        return text;
    }
    std::vector<std::string> Said(std::initializer_list<unsigned> ids) {
        std::vector<std::string> texts;
        for (const unsigned id : ids) {
            texts.push_back(Said(id));
        }
        return texts;
    }
    void Pick(unsigned rows, unsigned columns) { view->SendMessage(kGridPicked, rows << 16U | columns); }
    /// As a menu does before it opens.
    void PopUp() { view->GetMenu().aboutToShow(); }
};

TEST_F(Enablers, AlwaysEnableScaleZoomAndOptions) {
    Open();
    EXPECT_THAT(Said({14426, 14450, 14451, 14447}), ElementsAre("on", "on", "on", "on"));
}

TEST_F(Enablers, LeaveCommandsWithoutOneAlone) {
    Open();
    for (const unsigned id :
         {14396U, 14376U, 14386U, 14439U, 14437U, 14438U, 14448U, 14449U, 14486U, 9344U}) {
        EXPECT_EQ(Said(id), "") << id;
    }
}

TEST_F(Enablers, NextTracesNeedAnAnalysisFurtherTracesAndTheGrid) {
    Open();
    Pick(2, 2);
    EXPECT_EQ(Said(14417), "off"); // no analysis
    UseFiveBipolarChannels();
    SpectMacroResult* main = Add();
    EXPECT_EQ(Said(14417), "on");
    view->CmNextTrace();
    EXPECT_EQ(Said(14417), "off"); // the last page
    view->CmPreviousTrace();
    Pick(1, 5);
    EXPECT_EQ(Said(14417), "off"); // all are shown
    Pick(2, 2);
    view->CmHeadView();
    UseFiveBipolarChannels();
    main->Compute(nullptr);
    EXPECT_EQ(Said(14417), "off"); // not a grid
}

TEST_F(Enablers, PreviousTracesNeedAnEarlierOneAndTheGrid) {
    UseFiveBipolarChannels();
    Add();
    Open();
    Pick(2, 2);
    EXPECT_EQ(Said(14416), "off");
    view->CmNextTrace();
    EXPECT_EQ(Said(14416), "on");
    view->CmHeadView();
    UseFiveBipolarChannels();
    manager.GetMain()->Compute(nullptr);
    view->CmNextTrace();
    ASSERT_EQ(view->GetState().firstTrace, 4u);
    EXPECT_EQ(Said(14416), "off");
}

TEST_F(Enablers, NextSelectionNeedsAnAnalysisByDuration) {
    Open();
    EXPECT_EQ(Said(14476), "off");
    SpectraMacro& macro = Add()->GetMacro();
    constexpr const char* kSaid[] = {"off", "on", "off", "off"};
    for (int mode = 0; mode < 4; ++mode) {
        macro.SetTimeIntervalSelectMode(static_cast<SpectraMacro::TimeIntervalSelectMode>(mode));
        EXPECT_EQ(Said(14476), kSaid[mode]) << mode;
    }
}

TEST_F(Enablers, MarkModeAndLayout) {
    Add();
    Open();
    // Mean, time/frequency, CSA, scalp, grid. The mean's mark follows the layout.
    EXPECT_THAT(Said({14346, 14347, 14348, 14356, 14357}), ElementsAre("-", "off", "-", "-", "+"));
    view->CmCSA();
    EXPECT_THAT(Said({14346, 14347, 14348, 14356, 14357}), ElementsAre("-", "off", "+", "-", "+"));
    view->CmHeadView();
    EXPECT_THAT(Said({14346, 14347, 14348, 14356, 14357}), ElementsAre("+", "off", "+", "+", "-"));
    view->CmMean();
    EXPECT_THAT(Said({14346, 14347, 14348, 14356, 14357}), ElementsAre("+", "off", "-", "+", "-"));
    view->CmTimeFreq();
    EXPECT_THAT(Said({14346, 14347, 14348, 14356, 14357}), ElementsAre("+", "off", "-", "+", "-"));
}

TEST_F(Enablers, TheSizeOfTheGridNeedsTheGrid) {
    Add();
    Open();
    EXPECT_EQ(Said(14406), "on");
    view->CmHeadView();
    EXPECT_EQ(Said(14406), "off");
}

TEST_F(Enablers, MarkWhatIsShown) {
    Open();
    // Points, lines, SD, measures box, axes text, labels.
    EXPECT_THAT(Said({14496, 14497, 14498, 14499, 14500, 14501}), ElementsAre("+", "+", "-", "+", "+", "+"));
    constexpr unsigned kFirst = 14496;
    for (unsigned command = 0; command < 6; ++command) {
        view->RunCommand(kFirst + command);
        for (unsigned other = 0; other < 6; ++other) {
            const bool shownAtFirst = other != 2;
            const bool toggled = other <= command;
            EXPECT_EQ(Said(kFirst + other), shownAtFirst != toggled ? "+" : "-") << command << " " << other;
        }
    }
}

TEST_F(Enablers, MarkTheWeightingInUse) {
    Open();
    // None, dB, by f, by sqrt(f), by log10 f, by ln f.
    struct Case {
        Normalisation mode;
        std::vector<std::string> said;
    };
    const Case cases[] = {
        {Normalisation::None, {"+", "-", "on-", "on-", "-", "-"}},
        {Normalisation::ByF, {"-", "-", "on+", "on-", "-", "-"}},
        {Normalisation::BySqrtF, {"-", "-", "on-", "on+", "-", "-"}},
        {Normalisation::ByLnF, {"-", "-", "on-", "on-", "-", "+"}},
        {Normalisation::ByLog10F, {"-", "-", "on-", "on-", "+", "-"}},
        {Normalisation::Db, {"-", "+", "on-", "on-", "-", "-"}},
    };
    for (const Case& given : cases) {
        Display().normalisation = given.mode;
        EXPECT_EQ(Said({14506, 14507, 14508, 14509, 14510, 14511}), given.said)
            << static_cast<int>(given.mode);
    }
}

TEST_F(Enablers, WeightByFrequencyOnlyAmplitudeAndPower) {
    Open();
    constexpr const char* kSaid[] = {"on-", "on-", "off-", "off-"};
    for (unsigned entity = 0; entity < 4; ++entity) {
        view->CmSetEntity(kCmSetEntity + entity);
        EXPECT_THAT(Said({14508, 14509}), ElementsAre(kSaid[entity], kSaid[entity])) << entity;
    }
}

TEST_F(Enablers, OfferCoherenceAndPhaseOnlyUnweighted) {
    Open();
    EXPECT_THAT(Said({14456, 14457, 14458, 14459, 14460, 14461, 14462}),
                ElementsAre("on", "on", "on", "on", "", "", ""));
    for (const Normalisation mode : {Normalisation::ByF, Normalisation::BySqrtF, Normalisation::ByLnF,
                                     Normalisation::ByLog10F, Normalisation::Db}) {
        Display().normalisation = mode;
        EXPECT_THAT(Said({14456, 14457, 14458, 14459, 14460, 14461, 14462}),
                    ElementsAre("on", "on", "off", "off", "", "", ""));
    }
}

TEST_F(Enablers, RunBeforeTheMenuOpens) {
    Add();
    Open();
    PopUp();
    EXPECT_FALSE(Item(14347).isEnabled());
    EXPECT_FALSE(Item(14476).isEnabled());
    EXPECT_TRUE(Item(14357).isChecked());
    EXPECT_FALSE(Item(14346).isChecked());
    EXPECT_TRUE(Item(14506).isChecked());
    EXPECT_FALSE(Item(14498).isChecked());
    view->CmHeadView();
    view->CmShowSD();
    view->CmNormalizeByF();
    PopUp();
    EXPECT_FALSE(Item(14357).isChecked());
    EXPECT_TRUE(Item(14346).isChecked());
    EXPECT_TRUE(Item(14508).isChecked());
    EXPECT_FALSE(Item(14506).isChecked());
    EXPECT_TRUE(Item(14498).isChecked());
    EXPECT_TRUE(Item(14457).isEnabled());
    EXPECT_FALSE(Item(14458).isEnabled());
}

TEST_F(Enablers, MarkNothingThatTheMenuItselfChecks) {
    Open();
    view->CmSetEntity(kCmSetEntity + 1);
    view->CmSetCommon();
    PopUp();
    EXPECT_TRUE(Item(14457).isChecked());
    EXPECT_FALSE(Item(14456).isChecked());
    EXPECT_TRUE(Item(14426).isChecked());
}

TEST_F(Enablers, RunForToolButtonsWhileNothingElseHappens) {
    UseFiveBipolarChannels();
    Add();
    Show();
    Pick(2, 2);
    const auto button = [&](const char* tip) -> QToolButton& {
        for (auto* tool : view->GetToolBar().findChildren<QToolButton*>()) {
            if (tool->toolTip() == tip) {
                return *tool;
            }
        }
        throw std::out_of_range(tip);
    };
    test::WaitUntilIdle();
    EXPECT_TRUE(button("Next traces").isEnabled());
    EXPECT_FALSE(button("Previous traces").isEnabled());
    EXPECT_TRUE(button("Rows and columns of the grid").isEnabled());
    button("Next traces").click();
    EXPECT_EQ(view->GetState().firstTrace, 4u);
    test::WaitUntilIdle();
    EXPECT_FALSE(button("Next traces").isEnabled());
    EXPECT_TRUE(button("Previous traces").isEnabled());
    button("Previous traces").click();
    EXPECT_EQ(view->GetState().firstTrace, 0u);
    view->CmHeadView();
    test::WaitUntilIdle();
    EXPECT_FALSE(button("Next traces").isEnabled());
    EXPECT_FALSE(button("Rows and columns of the grid").isEnabled());
}

} // namespace
