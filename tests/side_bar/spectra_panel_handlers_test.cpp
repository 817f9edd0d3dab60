// SPDX-License-Identifier: GPL-3.0-or-later
// What the user does with the panel.
#include "side_bar/export_form.h"
#include "side_bar/macro_selection_form.h"
#include "side_bar/spectrum_macro_form.h"
#include "tests/side_bar/panel_fixture.h"
#include "tests/support/qt/fake_services.h"
#include "tests/support/qt/scripted_user.h"

#include <QCheckBox>
#include <gmock/gmock.h>

#include <stdexcept>

namespace {

using namespace orvanta;
using testing::ElementsAre;
using testing::IsEmpty;

class PanelWithTwo : public test::PanelFixture {
protected:
    PanelWithTwo() {
        first = &Add();
        second = &Add();
        Open();
    }

    test::FakeServices services;
    test::ScriptedUser user;
    SpectMacroResult* first = nullptr;
    SpectMacroResult* second = nullptr;
};

TEST_F(PanelWithTwo, DrawsTheViewAnewForEachChoice) {
    const std::function<void()> actions[] = {
        [this] { User().SelectsRow("lvMainList", 1); },
        [this] { User().SelectsRow("lvSecondaryList", 0); },
        [this] { User().Clicks("cbStat"); },
        [this] { User().Clicks("cbSpectRatio"); },
        [this] { panel->SomethingChanged(); },
        [this] { panel->FormActivate(); },
    };
    for (const auto& action : actions) {
        EXPECT_EQ(DrawsOf(action), std::vector{true});
        EXPECT_TRUE(ViewHasFocusAfter(action));
    }
}

TEST_F(PanelWithTwo, GivesTheFocusBackWhenTheMouseIsReleasedOverAList) {
    EXPECT_TRUE(ViewHasFocusAfter([this] { panel->lvMainListMouseUp(); }));
    EXPECT_TRUE(ViewHasFocusAfter([this] { panel->lvSecondaryListMouseUp(); }));
    EXPECT_TRUE(ViewHasFocusAfter([this] { User().SelectsRow("lvMainList", 0); })); // selected already
}

TEST_F(PanelWithTwo, PassesTheSwitchesToTheManager) {
    User().Clicks("cbStat");
    User().Clicks("cbSpectRatio");
    EXPECT_TRUE(manager.GetShowTTest());
    EXPECT_TRUE(manager.GetShowRatio());
    User().Clicks("cbSpectRatio");
    EXPECT_TRUE(manager.GetShowTTest());
    EXPECT_FALSE(manager.GetShowRatio());
}

TEST_F(PanelWithTwo, ChoosesTheSecondary) {
    User().SelectsRow("lvSecondaryList", 0);
    EXPECT_EQ(manager.GetSecondary(), second);
    panel->lvSecondaryListSelectItem(nullptr, false);
    EXPECT_EQ(manager.GetSecondary(), nullptr);
}

TEST_F(PanelWithTwo, AsksBeforeItErases) {
    user.AnswersMessage(owl::kIdNo);
    User().Clicks("BtnEraseSpectra");
    EXPECT_THAT(user.Messages(),
                ElementsAre(test::ScriptedUser::Message{panel->GetHandle(),
                                                        "This will remove the spectrum " + first->GetName() +
                                                            " (1 s, 50 %, Hanning, 9 epochs). Are you sure?",
                                                        "Warning", owl::kMbYesNo}));
    EXPECT_EQ(manager.Size(), 2u);
    EXPECT_EQ(manager.GetMain(), first);
}

TEST_F(PanelWithTwo, ErasesTheMainOneAndShowsTheNext) {
    manager.SetSecondary(second);
    panel->SomethingChanged();
    user.AnswersMessage(owl::kIdYes);
    EXPECT_EQ(DrawsOf([this] { User().Clicks("BtnEraseSpectra"); }), std::vector{true});
    EXPECT_EQ(manager.Size(), 1u);
    EXPECT_EQ(manager.GetMain(), second);
    EXPECT_EQ(manager.GetSecondary(), nullptr);
    EXPECT_EQ(User().SelectedRowsOf("lvMainList"), QStringList{QString::fromStdString(second->GetName())});
    EXPECT_THAT(User().RowsOf("lvSecondaryList"), IsEmpty());
    EXPECT_FALSE(User().IsEnabled("BtnEraseSpectra"));
    EXPECT_EQ(window.focusWidget(), view);
}

TEST_F(PanelWithTwo, ErasesOneThatIsNotTheFirst) {
    User().SelectsRow("lvMainList", 1);
    user.AnswersMessage(owl::kIdYes);
    User().Clicks("BtnEraseSpectra");
    EXPECT_EQ(manager.GetMain(), first);
    EXPECT_EQ(manager.Size(), 1u);
}

TEST_F(PanelWithTwo, ListsANewSpectrum) {
    user.Meets<TFormMacroSpectra>([](TFormMacroSpectra& form) { form.BtnAutoAverageClick(); });
    User().Clicks("BtnSpectraNew");
    EXPECT_EQ(manager.Size(), 3u);
    EXPECT_EQ(User().RowsOf("lvMainList").size(), 3);
    EXPECT_EQ(manager.GetMain(), first);
    EXPECT_EQ(window.focusWidget(), view);
}

TEST_F(PanelWithTwo, ListsNoNewSpectrumWhenTheUserCancels) {
    user.Meets<TFormMacroSpectra>([](TFormMacroSpectra& form) { form.BtnCancelClick(); });
    User().Clicks("BtnSpectraNew");
    EXPECT_EQ(User().RowsOf("lvMainList").size(), 2);
}

TEST_F(PanelWithTwo, ShowsTheFormThatExports) {
    user.Meets<TSpectraExportForm>([this](TSpectraExportForm& form) {
        EXPECT_EQ(form.parent(), panel);
        EXPECT_EQ(test::FormUser(form).RowsOf("lvSpectra").size(), 2);
        form.reject();
    });
    User().Clicks("BtnExport");
    EXPECT_EQ(user.DialogsShown(), 1);
}

TEST_F(PanelWithTwo, EditsTheMainOneAndComputesItUnderAWaitCursor) {
    user.Meets<TFormSpectrumMacro>([this](TFormSpectrumMacro& form) {
        EXPECT_EQ(form.parent(), panel);
        EXPECT_STREQ(form.GetMacroFolder(), "");
        EXPECT_EQ(form.GetSamplingRate(), 8u);
        EXPECT_TRUE(form.IsEditable());
        EXPECT_FALSE(form.IsOpenedFromLibrary());
        test::FormUser(form).Clicks("rbFFT_20s");
        test::FormUser(form).Clicks("BitBtnCompute");
    });
    const std::uint64_t before = first->GetGeneration();
    const test::CursorLog cursor;
    User().Clicks("BtnEdit");
    EXPECT_THAT(cursor.Log(), ElementsAre(32514u, 0u));
    EXPECT_NE(first->GetGeneration(), before);
    EXPECT_EQ(first->GetFFTResolution(), 0.5);
    EXPECT_TRUE(User().TextOf("ebSpectrumMemo").contains("Resolution: 0.5 Hz"));
    EXPECT_THAT(User().RowsOf("lvSecondaryList"), IsEmpty()); // another resolution from now on
}

TEST_F(PanelWithTwo, ComputesNothingWhenTheSettingsAreLeft) {
    user.Meets<TFormSpectrumMacro>([](TFormSpectrumMacro& form) { form.reject(); });
    const std::uint64_t before = first->GetGeneration();
    User().Clicks("BtnEdit");
    EXPECT_EQ(first->GetGeneration(), before);
}

TEST_F(PanelWithTwo, KeepsTheSpectraWhenTheNewSettingsCannotBeComputed) {
    user.Meets<TFormSpectrumMacro>([](TFormSpectrumMacro& form) {
        test::FormUser(form).Clicks("rbFFT_160s"); // longer than the recording
        test::FormUser(form).Clicks("BitBtnCompute");
    });
    const std::uint64_t before = first->GetGeneration();
    const test::CursorLog cursor;
    User().Clicks("BtnEdit");
    EXPECT_EQ(platform.gui.Errors().size(), 1u);
    EXPECT_THAT(cursor.Log(), ElementsAre(32514u, 0u));
    EXPECT_EQ(first->GetGeneration(), before);
    EXPECT_NE(first->GetSpectrum(test::SensorOf(*recording, "Cz")), nullptr);
    EXPECT_EQ(User().RowsOf("lvMainList").size(), 2);
    EXPECT_TRUE(User().IsEnabled("BtnEdit"));
    EXPECT_EQ(window.focusWidget(), view);
}

TEST_F(PanelWithTwo, TellsAFailureOfAButtonAndGoesOn) {
    user.Meets<TFormMacroSpectra>([](TFormMacroSpectra&) { throw std::runtime_error("the disk is gone"); })
        .AnswersMessage(owl::kIdOk);
    User().Clicks("BtnSpectraNew");
    ASSERT_EQ(user.Messages().size(), 1u);
    EXPECT_THAT(user.Messages()[0].text, testing::HasSubstr("the disk is gone"));
    EXPECT_EQ(manager.Size(), 2u);
}

TEST_F(PanelWithTwo, MayOutliveItsView) {
    delete std::exchange(view, nullptr);
    User().SelectsRow("lvMainList", 1);
    User().Clicks("cbSpectRatio");
    panel->SomethingChanged();
    EXPECT_EQ(manager.GetMain(), second);
    EXPECT_TRUE(manager.GetShowRatio());
}

TEST_F(PanelWithTwo, ComputesNothingWithoutAHost) {
    panel = new TFormListenerSpectra1(view->GetHandle(), nullptr, nullptr, &manager);
    panel->setParent(&window);
    const std::uint64_t before = first->GetGeneration();
    panel->BtnErpProcessClick();
    EXPECT_EQ(first->GetGeneration(), before);
}

TEST_F(PanelWithTwo, ComputesTheMainOneAgain) {
    const std::uint64_t others = second->GetGeneration();
    const std::uint64_t before = first->GetGeneration();
    const test::CursorLog cursor;
    EXPECT_EQ(DrawsOf([this] { User().Clicks("BtnErpProcess"); }), std::vector{true});
    EXPECT_THAT(cursor.Log(), ElementsAre(32514u, 0u));
    EXPECT_NE(first->GetGeneration(), before);
    EXPECT_EQ(second->GetGeneration(), others);
}

TEST_F(PanelWithTwo, ComputesNothingToChooseMainAndSecondary) {
    const std::uint64_t generations[] = {first->GetGeneration(), second->GetGeneration()};
    User().SelectsRow("lvMainList", 1);
    User().SelectsRow("lvSecondaryList", 0);
    panel->SomethingChanged();
    EXPECT_EQ(first->GetGeneration(), generations[0]);
    EXPECT_EQ(second->GetGeneration(), generations[1]);
    EXPECT_THAT(platform.gui.Progresses(), IsEmpty());
}

/// Asks the panel to fill itself whenever it gets the focus.
class AskingView final : public owl::TWindow {
public:
    TFormListenerSpectra1* panel = nullptr;
    int asked = 0;

protected:
    void focusInEvent(QFocusEvent* event) override {
        owl::TWindow::focusInEvent(event);
        if (panel != nullptr) {
            ++asked;
            panel->FillListSpectra();
        }
    }
};

TEST_F(PanelWithTwo, IsNotFilledWhileItIsFilled) {
    QWidget other;
    auto* asking = new AskingView;
    auto* rows = new QHBoxLayout(&other);
    rows->addWidget(asking);
    auto* filled = new TFormListenerSpectra1(asking->GetHandle(), &platform, recording.get(), &manager);
    rows->addWidget(filled);
    other.show();
    other.activateWindow();
    RunQueue();
    other.setFocusPolicy(Qt::StrongFocus);
    other.setFocus();
    asking->panel = filled;
    filled->FillListSpectra();
    EXPECT_EQ(asking->asked, 1);
    EXPECT_EQ(test::FormUser(*filled).RowsOf("lvMainList").size(), 2);
}

} // namespace
