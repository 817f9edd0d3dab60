// SPDX-License-Identifier: GPL-3.0-or-later
// What the view's commands do.
#include "host/toolkit/command_enabler.h"
#include "side_bar/macro_selection_form.h"
#include "side_bar/spectrum_macro_form.h"
#include "spectral_maps/dialogs/map_dialog.h"
#include "spectrum_view/dialogs/band_dialog.h"
#include "spectrum_view/dialogs/info_dialog.h"
#include "tests/spectral_maps/map_fixture.h"
#include "tests/support/qt/form_user.h"
#include "tests/support/qt/scripted_user.h"

#include <QCheckBox>
#include <QContextMenuEvent>
#include <QMenu>
#include <QToolButton>

namespace {

using namespace orvanta;
using namespace orvanta::test;
using Measure = SPECT::Meas::Type;
using testing::IsEmpty;

/// Four maps: Delta to Beta, all Abs.
class SpectMapCommands : public MapFixture {
protected:
    SpectMapCommands() {
        for (int map = 0; map < 4; ++map) {
            Stored(map, Choice(map));
        }
    }
    /// The user chooses in the dialog of a map and closes it so.
    void Choose(const SPECT::PlotSet& choice, bool forAll, int answer = owl::kIdOk) {
        user.Meets<Spect3DDlg>([=](Spect3DDlg& dialog) {
            dialog.CheckRadioButton(110, 117, 110 + choice.SpectralBand);
            dialog.CheckRadioButton(521, 528, 521 + choice.SpectralMeas);
            dialog.CheckDlgButton(101, choice.bAutoScale);
            dialog.CheckDlgButton(102, choice.bZeroMin);
            dialog.SetDlgItemText(106, std::to_string(choice.LoScale));
            dialog.SetDlgItemText(105, std::to_string(choice.HiScale));
            if (dialog.Item<QCheckBox>(107)->isEnabled()) {
                dialog.CheckDlgButton(107, forAll);
            }
            dialog.done(answer);
        });
    }
    /// Captions of what the menu offers to choose, and those of the menu below it.
    static QStringList Captions(const QMenu& menu) {
        QStringList captions;
        for (const QAction* item : menu.actions()) {
            captions << item->text();
        }
        return captions;
    }
    /// The menu that a right click on the map opens, or the menu key on the view.
    QMenu& MenuAt(std::optional<std::size_t> map = std::nullopt) const {
        QWidget& at = map ? static_cast<QWidget&>(Map(*map)) : *view;
        const QPoint point = at.rect().center();
        QContextMenuEvent asked(map ? QContextMenuEvent::Mouse : QContextMenuEvent::Keyboard, point,
                                at.mapToGlobal(point));
        QApplication::sendEvent(&at, &asked);
        return dynamic_cast<QMenu&>(*QApplication::activePopupWidget());
    }
    /// As a double click on the map does.
    LPARAM DoubleClick(WPARAM map) { return view->SendMessage(16333, map); }

    ScriptedUser user;
    SPECT::PlotSet chosen{static_cast<int>(Measure::Mean), kGamma, 1, 9, false, true};
};

// --- what a map shows

TEST_F(SpectMapCommands, AMapBehindTheLastIsNone) {
    Add();
    Show();
    EXPECT_EQ(DoubleClick(4), -1);
}

TEST_F(SpectMapCommands, AMapThatIsGoneIsNone) {
    Add();
    Show();
    delete view->GetMap(1);
    EXPECT_EQ(DoubleClick(1), -2);
}

TEST_F(SpectMapCommands, ACancelledChoiceChangesNothing) {
    Add();
    Show();
    window.platform.user.written.clear();
    Choose(chosen, true, owl::kIdCancel);
    EXPECT_EQ(DoubleClick(1), 4);
    EXPECT_EQ(PlotSetOf(1), Choice(1));
    EXPECT_THAT(window.platform.user.written, IsEmpty());
}

TEST_F(SpectMapCommands, AChoiceIsOneMapsAndKept) {
    Add();
    Show();
    Choose(chosen, false);
    EXPECT_EQ(DoubleClick(1), 4);
    EXPECT_EQ(PlotSetOf(1), chosen);
    EXPECT_EQ(PlotSetOf(0), Choice(0));
    EXPECT_EQ(PlotSetOf(2), Choice(2));
    EXPECT_EQ(Map(1).GetTitle(), "Band: Gamma - Measure: Mean");
    EXPECT_EQ(Setting("SpectMap_Map_1/SpectralBand"), kGamma);
    EXPECT_EQ(Setting("SpectMap_Map_1/HiScale"), 9);
}

TEST_F(SpectMapCommands, AChoiceForAllLeavesTheOthersTheirBands) {
    Add();
    Show();
    Choose(chosen, true);
    DoubleClick(1);
    for (int map : {0, 2, 3}) {
        SPECT::PlotSet other = chosen;
        other.SpectralBand = map;
        EXPECT_EQ(PlotSetOf(static_cast<std::size_t>(map)), other) << map;
        const std::string section = "SpectMap_Map_" + std::to_string(map);
        EXPECT_EQ(Setting(section + "/SpectralBand"), map);
        EXPECT_EQ(Setting(section + "/SpectralMeas"), static_cast<int>(Measure::Mean));
        EXPECT_EQ(Setting(section + "/bZeroMin"), 1);
        EXPECT_EQ(Setting(section + "/LoScale"), 1);
    }
    EXPECT_EQ(view->GetCommonPlotSet(), SPECT::PlotSet()) << "of cartoons";
}

TEST_F(SpectMapCommands, ARightClickOffersToChooseForTheMapUnderTheMouse) {
    Add();
    Show();
    QMenu& menu = MenuAt(2);
    EXPECT_EQ(menu.actions().first()->text(), "Ban&d and Measure...");
    EXPECT_EQ(menu.actions().first()->menu(), nullptr);
    Choose(chosen, false);
    menu.actions().first()->trigger();
    menu.close();
    EXPECT_EQ(PlotSetOf(2), chosen);
    EXPECT_EQ(PlotSetOf(1), Choice(1));
}

TEST_F(SpectMapCommands, TheMenuKeyOffersToChooseForEachMap) {
    Add();
    Show();
    QMenu& menu = MenuAt();
    QMenu* each = menu.actions().first()->menu();
    ASSERT_NE(each, nullptr);
    EXPECT_EQ(menu.actions().first()->text(), "Ban&d and Measure...");
    EXPECT_EQ(Captions(*each),
              QStringList({"&1 Band: Delta - Measure: Abs", "&2 Band: Theta - Measure: Abs",
                           "&3 Band: Alpha - Measure: Abs", "&4 Band: Beta - Measure: Abs"}));
    Choose(chosen, false);
    each->actions()[1]->trigger();
    menu.close();
    EXPECT_EQ(PlotSetOf(1), chosen);
    EXPECT_EQ(PlotSetOf(0), Choice(0));
}

TEST_F(SpectMapCommands, TheMenuKeyOffersToChooseOnceForACartoon) {
    Add();
    Show();
    view->SetCartoonMode(true);
    RunQueue();
    QMenu& menu = MenuAt();
    EXPECT_EQ(menu.actions().first()->menu(), nullptr);
    Choose(chosen, true);
    menu.actions().first()->trigger();
    menu.close();
    EXPECT_EQ(view->GetCommonPlotSet(), chosen);
}

TEST_F(SpectMapCommands, TheChoiceBeginsWithTheMapsOwn) {
    Add();
    Show();
    user.Meets<Spect3DDlg>([](Spect3DDlg& dialog) {
        EXPECT_TRUE(dialog.IsDlgButtonChecked(112));
        EXPECT_FALSE(dialog.IsDlgButtonChecked(107));
        EXPECT_TRUE(dialog.Item<QCheckBox>(107)->isEnabled());
        dialog.done(owl::kIdCancel);
    });
    DoubleClick(2);
}

TEST_F(SpectMapCommands, AChoiceInTheCartoonIsForAllMapsAndNotKept) {
    Add();
    Show();
    view->SetCartoonMode(true);
    window.platform.user.written.clear();
    user.Meets<Spect3DDlg>([](Spect3DDlg& dialog) {
        EXPECT_TRUE(dialog.IsDlgButtonChecked(107));
        EXPECT_FALSE(dialog.Item<QCheckBox>(107)->isEnabled());
        dialog.CheckRadioButton(110, 117, 110 + kTheta);
        dialog.done(owl::kIdOk);
    });
    EXPECT_EQ(DoubleClick(3), 4);
    for (std::size_t map = 0; map < 4; ++map) {
        EXPECT_EQ(PlotSetOf(map), Choice(kTheta)) << map;
        EXPECT_THAT(Map(map).GetValues(), Near({32, 18, 8, 2})) << map;
    }
    EXPECT_EQ(view->GetCommonPlotSet(), Choice(kTheta));
    EXPECT_EQ(view->GetTitle(), "Band: Theta   Measure: Abs");
    EXPECT_THAT(window.platform.user.written, IsEmpty());
}

// --- computing

TEST_F(SpectMapCommands, RecomputeComputesAgain) {
    Add();
    Show();
    const auto generation = manager.GetMain()->GetGeneration();
    view->RunCommand(14130);
    EXPECT_NE(manager.GetMain()->GetGeneration(), generation);
    EXPECT_TRUE(manager.GetMain()->IsComputed());
    EXPECT_THAT(Map(1).GetValues(), Near({32, 18, 8, 2}));
}

TEST_F(SpectMapCommands, RecomputeDoesNothingWithoutAnAnalysis) {
    Open().RunCommand(14130);
    EXPECT_THAT(window.platform.gui.Progresses(), IsEmpty());
}

TEST_F(SpectMapCommands, OptionsEditTheSettingsAndComputeWithThem) {
    Add();
    Show();
    user.Meets<TFormSpectrumMacro>([](TFormSpectrumMacro& form) {
        EXPECT_TRUE(form.IsEditable());
        EXPECT_STREQ(form.GetMacroFolder(), "");
        EXPECT_EQ(form.GetSamplingRate(), 64U);
        FormUser(form).Clicks("rbFFT_20s");
        FormUser(form).Clicks("BitBtnCompute");
    });
    view->RunCommand(14140);
    EXPECT_EQ(manager.GetMain()->GetMacro().GetFFTSeconds(), 2);
    EXPECT_EQ(manager.GetMain()->GetFFTCount(), 3U);
}

TEST_F(SpectMapCommands, OptionsThatWereCancelledChangeNothing) {
    Add();
    Show();
    const auto generation = manager.GetMain()->GetGeneration();
    user.Meets<TFormSpectrumMacro>([](TFormSpectrumMacro& form) { FormUser(form).PressesEscape(); });
    view->RunCommand(14140);
    EXPECT_EQ(manager.GetMain()->GetGeneration(), generation);
}

TEST_F(SpectMapCommands, OptionsAskForAnAnalysisWhereThereIsNone) {
    Open();
    user.Meets<TFormMacroSpectra>([this](TFormMacroSpectra& form) {
        Add();
        FormUser(form).PressesEscape();
    });
    view->RunCommand(14140);
    EXPECT_THAT(Map(1).GetValues(), Near({32, 18, 8, 2})) << "fetched afterwards";
}

TEST_F(SpectMapCommands, OtherBandsAreComputedAtOnce) {
    Add();
    Show();
    user.Meets<SpectrumBandDlg>([](SpectrumBandDlg& dialog) {
        std::swap(SPECT::GetGlobals().Bands[kTheta], SPECT::GetGlobals().Bands[kAlpha]);
        dialog.done(owl::kIdCancel);
    });
    view->RunCommand(14142);
    EXPECT_THAT(Map(1).GetValues(), Near({32, 18, 8, 2})) << "not after Cancel";
    const auto generation = manager.GetMain()->GetGeneration();
    user.Meets<SpectrumBandDlg>([](SpectrumBandDlg& dialog) { dialog.done(owl::kIdOk); });
    view->RunCommand(14142);
    EXPECT_NE(manager.GetMain()->GetGeneration(), generation);
    EXPECT_THAT(Map(2).GetValues(), Near({32, 18, 8, 2}));
}

TEST_F(SpectMapCommands, InformationIsThatOfTheAnalysis) {
    Open().RunCommand(14200); // nothing to tell of
    Add();
    user.Meets<SpectrumInfoDlg>([](SpectrumInfoDlg& dialog) { dialog.done(owl::kIdOk); });
    view->RunCommand(14200);
    EXPECT_EQ(user.DialogsShown(), 1);
}

TEST_F(SpectMapCommands, MapsSettingsBeginWithTheMapsAndBecomeTheirs) {
    Add();
    Show();
    user.MeetsDialog([](QDialog& form) {
        const FormUser settings(form);
        EXPECT_TRUE(settings.IsChecked("cbElectrodes"));
        EXPECT_FALSE(settings.IsChecked("rbSingle"));
        settings.Clicks("cbElectrodes");
        settings.Clicks("cbNames");
        settings.Clicks("rbSingle");
        settings.SetsNumber("spContours", 3);
        form.accept();
    });
    view->RunCommand(14143);
    for (std::size_t map = 0; map < 4; ++map) {
        EXPECT_FALSE(Map(map).GetDisplay().electrodes);
        EXPECT_TRUE(Map(map).GetDisplay().names);
        EXPECT_EQ(Map(map).GetDisplay().contours, 3);
    }
    EXPECT_TRUE(view->IsSinglePalette());
    EXPECT_FALSE(dynamic_cast<const QToolButton*>(view->GetGadget(16))->isChecked());
}

TEST_F(SpectMapCommands, CancelledMapsSettingsChangeNothing) {
    Add();
    Show();
    user.MeetsDialog([](QDialog& form) {
        FormUser(form).Clicks("cbElectrodes");
        form.reject();
    });
    view->RunCommand(14143);
    EXPECT_TRUE(Map(0).GetDisplay().electrodes);
    EXPECT_TRUE(dynamic_cast<const QToolButton*>(view->GetGadget(16))->isChecked());
}

TEST_F(SpectMapCommands, AnotherFontIsThatOfTheMaps) {
    const owl::TFont serif{"Serif", 15, true, false};
    Open();
    user.ChoosesFont(serif);
    view->RunCommand(14144);
    EXPECT_EQ(Map(0).GetDisplay().font, serif);
}

TEST_F(SpectMapCommands, TheViewMayEndWhileTheUserChoosesAFont) {
    Open();
    user.ChoosesFont(owl::TFont{"Serif", 15, true, false}, [this] { view.reset(); });
    view->RunCommand(14144);
    EXPECT_EQ(view, nullptr);
    EXPECT_EQ(window.platform.texts.count("SpectMap/FontFace"), 0U);
}

TEST_F(SpectMapCommands, TheViewMayEndWhileTheUserChoosesForAMap) {
    Add();
    Show();
    user.Meets<Spect3DDlg>([this](Spect3DDlg& dialog) {
        view.reset();
        dialog.done(owl::kIdOk);
    });
    DoubleClick(1);
    EXPECT_EQ(view, nullptr);
}

TEST_F(SpectMapCommands, ANewSizeOfTheArrayComputesAgain) {
    Add();
    Show();
    const auto generation = manager.GetMain()->GetGeneration();
    view->SendMessage(14160, (1U << 16U) | 2U);
    EXPECT_EQ(view->GetNumMaps(), 2);
    EXPECT_NE(manager.GetMain()->GetGeneration(), generation);
    EXPECT_THAT(Map(1).GetValues(), Near({32, 18, 8, 2}));
}

TEST_F(SpectMapCommands, OtherWindowsDropTheData) {
    Add();
    Show();
    view->ResetWindows(1, 3);
    EXPECT_FALSE(manager.GetMain()->IsComputed());
    EXPECT_EQ(view->GetNumMaps(), 3);
}

TEST_F(SpectMapCommands, ResetAllComputesAgain) {
    Add();
    Show();
    const auto generation = manager.GetMain()->GetGeneration();
    view->ResetAll();
    EXPECT_NE(manager.GetMain()->GetGeneration(), generation);
    EXPECT_TRUE(manager.GetMain()->IsComputed());
}

// --- next selection

SpectraMacro ByDuration(unsigned seconds) {
    SpectraMacro macro = PlainMacro();
    macro.SetTimeIntervalSelectMode(SpectraMacro::TimeIntervalSelectMode::ByDuration);
    macro.SetFixedDurationSec(seconds);
    return macro;
}

TEST_F(SpectMapCommands, NextSelectionMovesTheCursorAndComputesThere) {
    Add(ByDuration(2));
    Show();
    // Mean of the first two seconds, 2·j²·(1 + 4)/2, then of the next two, 2·j²·(9 + 16)/2.
    EXPECT_THAT(Map(2).GetValues(), Near({5, 20, 45, 80}));

    view->RunCommand(14190);

    EXPECT_EQ(recording->GetTraceCursor()->GetStartRecTime()->Seconds(), 2);
    EXPECT_THAT(Map(2).GetValues(), Near({25, 100, 225, 400}));
}

TEST_F(SpectMapCommands, AfterTheLastSelectionTheCursorStaysAndTheMapsAreComputedAllTheSame) {
    Add(ByDuration(4));
    recording->GetTraceCursor()->SetPosition(4 * 64);
    Show();
    const auto generation = manager.GetMain()->GetGeneration();

    view->RunCommand(14190);

    EXPECT_EQ(recording->GetTraceCursor()->GetStartRecTime()->Seconds(), 4);
    EXPECT_NE(manager.GetMain()->GetGeneration(), generation);
}

TEST_F(SpectMapCommands, WithoutAnAnalysisThereIsNoNextSelection) {
    Open().RunCommand(14190);
    EXPECT_EQ(recording->GetTraceCursor()->GetStartRecTime()->Seconds(), 0);
    EXPECT_THAT(window.platform.gui.Progresses(), IsEmpty());
}

// --- enablers

TEST_F(SpectMapCommands, NextSelectionIsForAnalysesByDuration) {
    Make();
    const auto enabled = [this] { return owl::RunEnabler(*view, 14190).Enabled(); };
    EXPECT_EQ(enabled(), false);
    SpectraMacro& macro = Add()->GetMacro();
    using Mode = SpectraMacro::TimeIntervalSelectMode;
    for (const Mode mode : {Mode::AllRecording, Mode::ByDuration, Mode::ByStateEvents, Mode::BySpotEvents}) {
        macro.SetTimeIntervalSelectMode(mode);
        EXPECT_EQ(enabled(), mode == Mode::ByDuration) << static_cast<int>(mode);
    }
}

TEST_F(SpectMapCommands, TheSizeOfTheArrayIsForAnalyses) {
    Make();
    EXPECT_EQ(owl::RunEnabler(*view, 14160).Enabled(), false);
    Add();
    EXPECT_EQ(owl::RunEnabler(*view, 14160).Enabled(), true);
}

} // namespace
