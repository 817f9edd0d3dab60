// SPDX-License-Identifier: GPL-3.0-or-later
// What the settings form does when the user acts.
#include "tests/side_bar/settings_case.h"
#include "tests/support/qt/scripted_user.h"
#include "tests/support/temp_folder.h"

#include <QAbstractButton>
#include <QFrame>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <initializer_list>

namespace {

using orvanta::test::NumeralsOf;
using orvanta::test::OpenForm;
using orvanta::test::ScriptedUser;
using orvanta::test::SettingsCase;
using orvanta::test::TempFolder;
using testing::ElementsAre;
using testing::IsEmpty;
using Interval = SpectraMacro::TimeIntervalSelectMode;
using Epochs = SpectraMacro::EpochsSelectionMode;

constexpr unsigned kErrorBox = 48; // exclamation icon, OK button

QColor SwatchColor(QWidget& form) {
    const QImage swatch = form.findChild<QFrame*>("imSpeColor")->grab().toImage();
    return swatch.pixelColor(swatch.rect().center());
}

TEST(SettingsFormLength, IsThatOfTheCheckedButton) {
    SettingsCase given;
    const OpenForm form(given);
    const struct {
        const char* button;
        double seconds;
    } cases[] = {
        {"rbFFT_05s", 0.5}, {"rbFFT_10s", 1}, {"rbFFT_20s", 2},
        {"rbFFT_40s", 4},   {"rbFFT_80s", 8}, {"rbFFT_160s", 16},
    };
    for (const auto& chosen : cases) {
        form.user.Clicks(chosen.button);
        EXPECT_EQ(form.GetFFTSeconds(), chosen.seconds);
    }
}

TEST(SettingsFormLength, FollowsTheCustomText) {
    SettingsCase given;
    const OpenForm form(given);
    form.user.Clicks("rbFFT_Custom");
    EXPECT_TRUE(form.user.IsEnabled("ebCustomSeconds"));
    form.user.Types("ebCustomSeconds", "0.25");
    EXPECT_EQ(form.GetFFTSeconds(), 0.25);
    EXPECT_EQ(form.user.TextOf("ebNumSamples"), "125  (128)");
    form.user.Clicks("rbFFT_10s");
    EXPECT_FALSE(form.user.IsEnabled("ebCustomSeconds"));
    EXPECT_EQ(form.GetFFTSeconds(), 1.0);
}

TEST(SettingsFormLength, IsOneSecondForATextThatIsNoNumber) {
    SettingsCase given;
    OpenForm form(given);
    form.user.Clicks("rbFFT_Custom");
    for (const char* text : {"two", "", "1,5", "2 s"}) {
        form.user.Types("ebCustomSeconds", text);
        EXPECT_EQ(form.GetFFTSeconds(), 1.0) << text;
        EXPECT_EQ(form.user.TextOf("ebNumSamples"), "500  (512)") << text;
    }
    form.user.Clicks("BitBtnCompute");
    EXPECT_EQ(given.macro.GetFFTSeconds(), 1.0);
}

/// Unchecks the buttons, which no user can.
void Uncheck(const QWidget& form, std::initializer_list<const char*> buttons) {
    for (const char* name : buttons) {
        auto* button = form.findChild<QAbstractButton*>(name);
        button->setAutoExclusive(false);
        button->setChecked(false);
    }
}

TEST(SettingsFormLength, IsOneSecondWhenNoButtonIsChecked) {
    SettingsCase given;
    const OpenForm form(given);
    form.user.Clicks("rbFFT_40s");
    Uncheck(form, {"rbFFT_40s"});
    EXPECT_EQ(form.GetFFTSeconds(), 1.0);
}

TEST(SettingsFormLength, ReadsTheUsersNumerals) {
    SettingsCase given;
    const NumeralsOf german(QLocale::German);
    const OpenForm form(given);
    form.user.Clicks("rbFFT_Custom");
    form.user.Types("ebCustomSeconds", "1,5");
    EXPECT_EQ(form.GetFFTSeconds(), 1.5);
}

TEST(SettingsFormLength, ShowsItsResolutionWithEveryClick) {
    SettingsCase given;
    const OpenForm form(given);
    form.user.Clicks("rbFFT_10s");
    EXPECT_EQ(form.user.TextOf("ebNumSamples"), "500  (512)");
    EXPECT_EQ(form.user.TextOf("ebResolution"), "0.97700");
    EXPECT_EQ(form.user.TextOf("ebPadding"), "12  (2%)");
    form.user.Clicks("rbFFT_05s");
    EXPECT_EQ(form.user.TextOf("ebNumSamples"), "250  (256)");
    EXPECT_EQ(form.user.TextOf("ebResolution"), "1.95000");
    EXPECT_EQ(form.user.TextOf("ebPadding"), "6  (2%)");
}

TEST(SettingsFormLength, HasNoResolutionBelowOneSample) {
    SettingsCase given;
    const OpenForm form(given);
    form.user.Clicks("rbFFT_Custom");
    form.user.Types("ebCustomSeconds", "0.0005");
    EXPECT_EQ(form.user.TextOf("ebNumSamples"), "0  (1)");
    EXPECT_EQ(form.user.TextOf("ebResolution"), "***");
    EXPECT_EQ(form.user.TextOf("ebPadding"), "1  (100%)");
}

TEST(SettingsFormIntervals, EnableWhatBelongsToTheChoice) {
    SettingsCase given;
    const OpenForm form(given);
    const struct {
        const char* button;
        bool duration, states, spots;
    } cases[] = {
        {"rbByDuration", true, false, false},
        {"rbByStateEvent", false, true, false},
        {"rbBySpotEvent", false, false, true},
        {"rbAllRec", false, false, false},
    };
    for (const auto& chosen : cases) {
        form.user.Clicks(chosen.button);
        EXPECT_EQ(form.user.IsEnabled("udDuration"), chosen.duration) << chosen.button;
        EXPECT_EQ(form.user.IsEnabled("lvStateAccept"), chosen.states) << chosen.button;
        EXPECT_EQ(form.user.IsEnabled("lvSpotAccept"), chosen.spots) << chosen.button;
        EXPECT_EQ(form.user.IsEnabled("gbSegmentation"), chosen.spots) << chosen.button;
        EXPECT_TRUE(form.user.IsEnabled("lvReject")) << chosen.button;
    }
}

TEST(SettingsFormEpochs, EnableTheCriteriaForNoMoreThan) {
    SettingsCase given;
    const OpenForm form(given);
    form.user.Clicks("rbESMUseExactly");
    EXPECT_TRUE(form.user.IsEnabled("rgExactNum"));
    form.user.Clicks("rbESMAllEpochs");
    EXPECT_FALSE(form.user.IsEnabled("rgExactNum"));
}

TEST(SettingsFormEpochs, KeepTheCriterionWhileAllAreAnalyzed) {
    SettingsCase given;
    const OpenForm form(given);
    form.user.Clicks("rbESMUseExactly");
    form.user.Clicks("rbExactNumRandom");
    form.user.Clicks("rbESMAllEpochs");
    form.user.Clicks("rbESMUseExactly");
    EXPECT_TRUE(form.user.IsChecked("rbExactNumRandom"));
    EXPECT_FALSE(form.user.IsChecked("rbExactNumFirst"));
}

TEST(SettingsFormEpochs, NameTheCriteriaByTheirNumber) {
    SettingsCase given;
    const OpenForm form(given);
    EXPECT_EQ(form.user.TextOf("rgExactNum"), "'No more' selection criteria");
    form.user.SetsNumber("udUseExactlyCountEpochs", 25);
    EXPECT_EQ(form.user.TextOf("rgExactNum"), "25 epochs selection mode");
    form.user.SetsNumber("udUseExactlyCountEpochs", 10);
    EXPECT_EQ(form.user.TextOf("rgExactNum"), "10 epochs selection mode");
    form.user.Types("ebUseExactlyCountEpochs", "7");
    EXPECT_EQ(form.user.TextOf("rgExactNum"), "7 epochs selection mode");
}

TEST(SettingsFormCompute, WritesEveryControlBack) {
    SettingsCase given;
    OpenForm form(given, 1);
    form.user.Clicks("rbFFT_40s");
    form.user.SelectsRows("lbWindow", {"Triangular"});
    form.user.SetsNumber("udOverlap", 25);
    form.user.Clicks("rbByDuration");
    form.user.SetsNumber("udDuration", 120);
    form.user.Clicks("rbByStateEvent");
    form.user.SelectsRows("lvStateAccept", {"Asleep", "Awake"});
    form.user.Clicks("rbBySpotEvent");
    form.user.SelectsRows("lvSpotAccept", {"Spike"});
    form.user.SetsNumber("udPreTrigger", -200);
    form.user.SetsNumber("udTrgDuration", 800);
    form.user.SetsNumber("udSpotStepCount", 3);
    form.user.SetsNumber("udSpotStepInc", 50);
    form.user.SelectsRows("lvReject", {"bad"});
    form.user.SetsNumber("udContrastValue", 2);
    form.user.Clicks("rbESMUseExactly");
    form.user.Clicks("rbExactNumRandom");
    form.user.SetsNumber("udUseExactlyCountEpochs", 40);

    form.user.Clicks("BitBtnCompute");

    EXPECT_EQ(form.result(), QDialog::Accepted);
    EXPECT_FALSE(form.isVisible());
    SpectraMacro wanted;
    wanted.SetFFTSeconds(4);
    wanted.SetDSPWindowStr("Triangular");
    wanted.SetOverlapPerc(25);
    wanted.SetTimeIntervalSelectMode(Interval::BySpotEvents);
    wanted.SetFixedDurationSec(120);
    wanted.SetPreTriggerMS(-200);
    wanted.SetTrgDurationMS(800);
    wanted.SpotStepCount = 3;
    wanted.SpotStepInc = 50;
    wanted.SetAcceptStateList({"Asleep", "Awake"});
    wanted.SetAcceptSpotList({"Spike"});
    wanted.SetRejectEventsList({"bad"});
    wanted.SetContrastValue(2);
    wanted.SetEpochsSelMode(Epochs::RandomN);
    wanted.SetNumEpochsToUse(40);
    EXPECT_EQ(given.macro, wanted);
}

TEST(SettingsFormCompute, LeavesSettingsAsTheyAreWhenNothingWasTouched) {
    SettingsCase given;
    given.macro.SetFFTSeconds(3);
    given.macro.SetDSPWindowStr("Hamming");
    given.macro.SetTimeIntervalSelectMode(Interval::ByStateEvents);
    given.macro.SetAcceptStateList({"Awake"});
    given.macro.SetRejectEventsList({"bad"});
    given.macro.SetEpochsSelMode(Epochs::FirstN);
    given.macro.Color = owl::Rgb(1, 2, 3);
    const SpectraMacro before = given.macro;
    OpenForm(given).user.Clicks("BitBtnCompute");
    EXPECT_EQ(given.macro, before);
}

TEST(SettingsFormCompute, KeepsLabelsThatTheRecordingLacks) {
    SettingsCase given;
    given.macro.SetTimeIntervalSelectMode(Interval::ByStateEvents);
    given.macro.SetAcceptStateList({"Awake", "N2 sleep"});
    given.macro.SetAcceptSpotList({"Tone"});
    given.macro.SetRejectEventsList({"Blink", "Movement", "bad"});
    const SpectraMacro before = given.macro;
    OpenForm(given).user.Clicks("BitBtnCompute");
    EXPECT_EQ(given.macro, before);
}

TEST(SettingsFormCompute, DropsALackingLabelThatIsDeselected) {
    SettingsCase given;
    given.macro.SetRejectEventsList({"Movement", "bad"});
    const OpenForm form(given);
    form.user.SelectsRows("lvReject", {"bad"});
    form.user.Clicks("BitBtnCompute");
    EXPECT_THAT(given.macro.GetRejectEventsList(), ElementsAre("bad"));
}

TEST(SettingsFormCompute, StoresTheIntervalsOfTheChoice) {
    const struct {
        const char* button;
        Interval mode;
    } cases[] = {
        {"rbByDuration", Interval::ByDuration},
        {"rbByStateEvent", Interval::ByStateEvents},
        {"rbBySpotEvent", Interval::BySpotEvents},
        {"rbAllRec", Interval::AllRecording},
    };
    for (const auto& chosen : cases) {
        SettingsCase given;
        given.macro.SetTimeIntervalSelectMode(chosen.mode == Interval::AllRecording ? Interval::ByDuration
                                                                                    : Interval::AllRecording);
        const OpenForm form(given);
        form.user.Clicks(chosen.button);
        form.user.Clicks("BitBtnCompute");
        EXPECT_EQ(given.macro.GetTimeIntervalSelectMode(), chosen.mode) << chosen.button;
    }
}

TEST(SettingsFormCompute, KeepsTheIntervalsWhenNoneIsChosen) {
    SettingsCase given;
    given.macro.SetTimeIntervalSelectMode(Interval::ByDuration);
    const OpenForm form(given);
    Uncheck(form, {"rbByDuration"});
    form.user.Clicks("BitBtnCompute");
    EXPECT_EQ(given.macro.GetTimeIntervalSelectMode(), Interval::ByDuration);
}

TEST(SettingsFormCompute, StoresTheEpochsOfTheChoice) {
    const struct {
        const char *button, *criterion;
        Epochs mode;
    } cases[] = {
        {"rbESMUseExactly", "rbExactNumFirst", Epochs::FirstN},
        {"rbESMUseExactly", "rbExactNumRandom", Epochs::RandomN},
    };
    for (const auto& chosen : cases) {
        SettingsCase given;
        const OpenForm form(given);
        form.user.Clicks(chosen.button);
        form.user.Clicks(chosen.criterion);
        form.user.Clicks("BitBtnCompute");
        EXPECT_EQ(given.macro.GetEpochsSelMode(), chosen.mode) << chosen.criterion;
    }
    SettingsCase given;
    given.macro.SetEpochsSelMode(Epochs::RandomN);
    const OpenForm form(given);
    form.user.Clicks("rbESMAllEpochs");
    form.user.Clicks("BitBtnCompute");
    EXPECT_EQ(given.macro.GetEpochsSelMode(), Epochs::All);
}

TEST(SettingsFormCompute, StoresAnEmptySetWhenNoEventIsSelected) {
    SettingsCase given;
    given.macro.SetTimeIntervalSelectMode(Interval::ByStateEvents);
    given.macro.SetAcceptStateList({"Awake"});
    given.macro.SetAcceptSpotList({"Spike"});
    given.macro.SetRejectEventsList({"bad"});
    const OpenForm form(given);
    form.user.SelectsRows("lvStateAccept", {});
    form.user.SelectsRows("lvReject", {});
    form.user.Clicks("rbBySpotEvent");
    form.user.SelectsRows("lvSpotAccept", {});
    form.user.Clicks("BitBtnCompute");
    EXPECT_THAT(given.macro.GetAcceptStateList(), IsEmpty());
    EXPECT_THAT(given.macro.GetAcceptSpotList(), IsEmpty());
    EXPECT_THAT(given.macro.GetRejectEventsList(), IsEmpty());
}

TEST(SettingsFormCompute, KeepsLabelsByteByByte) {
    SettingsCase given;
    const std::string odd = "caf\xC3\xA9 \xFF";
    given.AddState(odd, 70, 1);
    given.macro.SetAcceptStateList({odd});
    OpenForm(given).user.Clicks("BitBtnCompute");
    EXPECT_THAT(given.macro.GetAcceptStateList(), ElementsAre(odd));
}

TEST(SettingsFormCompute, KeepsTheWindowFunctionWhenNoRowIsSelected) {
    SettingsCase given;
    given.macro.SetDSPWindowStr("Unheard of");
    const OpenForm form(given);
    form.user.SelectsRows("lbWindow", {});
    form.user.Clicks("BitBtnCompute");
    EXPECT_EQ(given.macro.GetDSPWindowStr(), "Unheard of");
}

TEST(SettingsFormCompute, SavesTheFileOfTheSettings) {
    const TempFolder folder;
    SettingsCase given;
    ASSERT_EQ(given.macro.SaveAs(folder.Path("mine.smx")), 0);
    const OpenForm form(given);
    form.user.Clicks("rbFFT_80s");
    form.user.Clicks("BitBtnCompute");
    SpectraMacro saved;
    ASSERT_EQ(saved.Load(folder.Path("mine.smx")), 0);
    EXPECT_EQ(saved.GetFFTSeconds(), 8.0);
}

TEST(SettingsFormCompute, SaysNothingWhenThereIsNoFileToSave) {
    const ScriptedUser user;
    SettingsCase given;
    OpenForm form(given);
    form.user.Clicks("rbFFT_80s");
    form.user.Clicks("BitBtnCompute");
    EXPECT_EQ(form.result(), QDialog::Accepted);
    EXPECT_EQ(given.macro.GetFFTSeconds(), 8.0);
    EXPECT_THAT(user.Messages(), IsEmpty());
}

TEST(SettingsFormCompute, IsWhatEscapePresses) {
    SettingsCase given;
    OpenForm form(given);
    form.user.Clicks("rbFFT_80s");
    form.user.PressesEscape();
    EXPECT_EQ(form.result(), QDialog::Accepted);
    EXPECT_FALSE(form.isVisible());
    EXPECT_EQ(given.macro.GetFFTSeconds(), 8.0);
}

TEST(SettingsFormCompute, OnlyClosesWhenTheSettingsAreNotEditable) {
    SettingsCase given;
    const SpectraMacro before = given.macro;
    OpenForm looking(given, 0);
    looking.user.Clicks("rbFFT_80s");
    looking.user.Clicks("BitBtnCompute");
    EXPECT_EQ(looking.result(), QDialog::Accepted);
    EXPECT_EQ(given.macro, before);

    TFormSpectrumMacro withoutEvents(nullptr, "", &given.macro, nullptr, {&given.sensor}, 2);
    withoutEvents.show();
    const orvanta::test::FormUser user(withoutEvents);
    user.Clicks("rbFFT_80s");
    user.Clicks("BitBtnCompute");
    EXPECT_EQ(withoutEvents.result(), QDialog::Accepted);
    EXPECT_EQ(given.macro, before);
}

TEST(SettingsFormClose, LeavesTheSettings) {
    SettingsCase given;
    const SpectraMacro before = given.macro;
    OpenForm form(given);
    form.user.Clicks("rbFFT_80s");
    form.user.Clicks("BitBtn3");
    EXPECT_EQ(form.result(), QDialog::Rejected);
    EXPECT_FALSE(form.isVisible());
    EXPECT_EQ(given.macro, before);
}

TEST(SettingsFormSaveAs, AsksForTheNameOfTheMacro) {
    const TempFolder folder;
    ScriptedUser user;
    user.Enters("alpha");
    SettingsCase given;
    given.folder = folder.Path("");
    OpenForm form(given, 1);
    form.user.Clicks("rbFFT_80s");
    form.user.Clicks("BitBtnSaveAs");
    ASSERT_EQ(user.TextQuestions().size(), 1U);
    EXPECT_EQ(user.TextQuestions()[0].title, "Save Macro Input Box");
    EXPECT_EQ(user.TextQuestions()[0].prompt, "Insert the name of the spectral analysis macro");
    EXPECT_EQ(user.TextQuestions()[0].text, "NoName");
    EXPECT_EQ(form.result(), QDialog::Accepted);
    EXPECT_EQ(given.macro.GetFileName(), folder.Path("alpha.smx"));
    SpectraMacro saved;
    ASSERT_EQ(saved.Load(folder.Path("alpha.smx")), 0);
    EXPECT_EQ(saved.GetFFTSeconds(), 8.0);
}

TEST(SettingsFormSaveAs, ClosesWithOkWhenNoNameIsGiven) {
    const TempFolder folder;
    ScriptedUser user;
    user.Enters(std::nullopt).AnswersMessage(owl::kIdOk);
    SettingsCase given;
    given.folder = folder.Path("");
    OpenForm form(given);
    form.user.Clicks("rbFFT_80s");
    form.user.Clicks("BitBtnSaveAs");
    EXPECT_EQ(form.result(), QDialog::Accepted);
    EXPECT_FALSE(form.isVisible());
    EXPECT_EQ(given.macro.GetFFTSeconds(), 8.0);
    EXPECT_EQ(given.macro.GetFileName(), "");
    EXPECT_TRUE(std::filesystem::is_empty(folder.Path("")));
}

TEST(SettingsFormSaveAs, TellsThatTheFileCannotBeWrittenAndKeepsTheSettings) {
    const TempFolder folder;
    ScriptedUser user;
    user.Enters("alpha").AnswersMessage(owl::kIdOk);
    SettingsCase given;
    given.folder = folder.Path("missing/");
    OpenForm form(given);
    form.user.Clicks("rbFFT_80s");
    form.user.Clicks("BitBtnSaveAs");
    EXPECT_THAT(user.Messages(),
                ElementsAre(ScriptedUser::Message{
                    HWND(&form), "Unable to save the macro file:\n" + folder.Path("missing/alpha.smx"),
                    "Error", kErrorBox}));
    EXPECT_EQ(form.result(), QDialog::Accepted);
    EXPECT_EQ(given.macro.GetFFTSeconds(), 8.0);
}

TEST(SettingsFormSaveAs, OnlyClosesWhenTheSettingsAreNotEditable) {
    const ScriptedUser user;
    SettingsCase given;
    const SpectraMacro before = given.macro;
    OpenForm form(given, 0);
    form.user.Clicks("rbFFT_80s");
    form.user.Clicks("BitBtnSaveAs");
    EXPECT_EQ(form.result(), QDialog::Accepted);
    EXPECT_EQ(given.macro, before);
}

TEST(SettingsFormColor, IsWrittenAtOnceAndOutlivesClose) {
    ScriptedUser user;
    user.ChoosesColor(owl::Rgb(10, 200, 30));
    SettingsCase given;
    given.macro.Color = owl::Rgb(200, 0, 0);
    OpenForm form(given);
    form.user.Clicks("BtnSpeColor");
    EXPECT_THAT(user.ColorsOffered(), ElementsAre(owl::Rgb(200, 0, 0)));
    EXPECT_EQ(given.macro.Color, owl::Rgb(10, 200, 30));
    EXPECT_EQ(SwatchColor(form), QColor(10, 200, 30));
    form.user.Clicks("BitBtn3");
    EXPECT_EQ(given.macro.Color, owl::Rgb(10, 200, 30));
}

TEST(SettingsFormColor, StaysWhenTheChooserIsCancelled) {
    ScriptedUser user;
    user.ChoosesColor(std::nullopt);
    SettingsCase given;
    given.macro.Color = owl::Rgb(200, 0, 0);
    OpenForm form(given);
    form.user.Clicks("BtnSpeColor");
    EXPECT_EQ(SwatchColor(form), QColor(200, 0, 0));
    form.user.Clicks("BitBtnCompute");
    EXPECT_EQ(given.macro.Color, owl::Rgb(200, 0, 0));
}

TEST(SettingsFormColor, IsThatOfTheChooserWhenTheSettingsAreWrittenBack) {
    SettingsCase given;
    given.macro.Color = owl::Rgb(200, 0, 0);
    const OpenForm form(given);
    given.macro.Color = owl::Rgb(0, 0, 1); // by someone else
    form.user.Clicks("BitBtnCompute");
    EXPECT_EQ(given.macro.Color, owl::Rgb(200, 0, 0));
}

TEST(SettingsFormColor, IsOfferedAgainAsItWasChosen) {
    ScriptedUser user;
    user.ChoosesColor(owl::Rgb(1, 2, 3)).ChoosesColor(std::nullopt);
    SettingsCase given;
    const OpenForm form(given);
    form.user.Clicks("BtnSpeColor");
    form.user.Clicks("BtnSpeColor");
    EXPECT_THAT(user.ColorsOffered(), ElementsAre(owl::Rgb(0, 0, 255), owl::Rgb(1, 2, 3)));
}

} // namespace
