// SPDX-License-Identifier: GPL-3.0-or-later
#include "side_bar/regression_panel.h"

#include "host/platform/host_platform.h"
#include "host/signal_base/recording.h"
#include "host/spectral_data/compute_options.h"
#include "host/toolkit/chart/scatter_chart.h"
#include "host/toolkit/report_list.h"
#include "side_bar/regression_results.h"
#include "spectra_contract/sensor.h"
#include "tests/support/failing_source.h"
#include "tests/support/globals_guard.h"
#include "tests/support/known_slope.h"
#include "tests/support/qt/form_user.h"
#include "tests/support/qt/scripted_user.h"
#include "tests/support/recording_gui.h"
#include "tests/support/small_recording.h"
#include "tests/support/temp_folder.h"

#include <QAbstractButton>
#include <QApplication>
#include <QSpinBox>
#include <QTest>
#include <gtest/gtest.h>

#include <algorithm>

namespace {

using namespace orvanta;
using test::FormUser;

/// The panel over analyses of known slope, in a view that can take the focus. The user answers nothing unless
/// told to.
class RegressionPanel : public testing::Test {
protected:
    SpectMacroResult* Add(int contrast) { return test::AddKnownSlope(manager, *recording, contrast); }
    void Open() {
        view.setFocusPolicy(Qt::StrongFocus);
        view.resize(400, 700);
        panel = new TFormListenerSpectraBCI(HWND(&view), &platform, recording.get(), &manager);
        panel->resize(300, 680);
        view.show();
        QApplication::setActiveWindow(&view);
    }
    FormUser Hand() const { return FormUser(*panel); }
    owl::ReportList& List(const char* name) const { return *panel->findChild<owl::ReportList*>(name); }
    /// Clicks a row of the other analyses as well.
    void AlsoClicks(int row) const {
        owl::ReportList& list = List("lvSecondaryList");
        QTest::mouseClick(list.viewport(), Qt::LeftButton, Qt::ControlModifier,
                          list.visualItemRect(list.topLevelItem(row)).center());
    }
    /// What one row of a list says.
    static QStringList TextsOf(const owl::ReportList& list, int row) {
        QStringList texts;
        for (int column = 0; column < list.columnCount(); ++column) {
            texts << list.topLevelItem(row)->text(column);
        }
        return texts;
    }
    void ExpectMessage(const char* text) const {
        ASSERT_EQ(user.Messages().size(), 1u);
        EXPECT_EQ(user.Messages().front(),
                  (test::ScriptedUser::Message{panel->GetHandle(), text, "Error", 48}));
    }
    /// Presses the button; meanwhile the results are looked at.
    void Computes(const std::function<void(TFormBCIResults&)>& look) {
        user.Meets<TFormBCIResults>([&](TFormBCIResults& form) {
            look(form);
            form.reject();
        });
        Hand().Clicks("BtnRegression");
    }
    /// The contrast values of the epochs behind the first result, each once.
    std::set<double> ContrastsComputed() {
        std::set<double> contrasts;
        Computes([&](const TFormBCIResults& form) {
            for (const QPointF& point : form.findChild<owl::ScatterChart*>("Chart1")->Points()) {
                contrasts.insert(point.y());
            }
        });
        return contrasts;
    }

    test::GlobalsGuard guard;
    test::ScriptedUser user;
    test::RecordingGui gui;
    test::TempFolder folder;
    platform::HostPlatform platform{gui, folder.Path("settings.ini"), folder.Path("data")};
    std::unique_ptr<EEGFileInfoType> recording = test::KnownSlopeRecording();
    SpectraMgr manager{recording.get(), nullptr};
    QWidget view;
    TFormListenerSpectraBCI* panel = nullptr;
};

TEST_F(RegressionPanel, IsCalledBCI) {
    Open();
    EXPECT_EQ(panel->windowTitle(), "BCI");
}

TEST_F(RegressionPanel, StartsWithTheseControls) {
    Open();
    EXPECT_EQ(Hand().TextOf("gbProtocol"), "Main Spectrum");
    EXPECT_EQ(Hand().TextOf("gbStats"), "Other Spectra");
    EXPECT_EQ(Hand().TextOf("BtnRegression"), "Compute...");
    EXPECT_EQ(Hand().TextOf("GroupBox1"), "Processing Options");
    EXPECT_EQ(Hand().TextOf("rbCorrelation"), "Simple linear regression (SLR)");
    EXPECT_EQ(Hand().TextOf("rbMultiple"), "Multiple linear regression (MLR)");
    EXPECT_TRUE(Hand().IsChecked("rbCorrelation"));
    EXPECT_FALSE(Hand().IsChecked("rbMultiple"));
    EXPECT_EQ(Hand().TextOf("cbSelectVars"), "Auto Select Variables");
    EXPECT_TRUE(Hand().IsChecked("cbSelectVars"));
    EXPECT_FALSE(Hand().IsEnabled("cbSelectVars"));
    EXPECT_EQ(Hand().TextOf("rgAutoMode"), "Auto Selection Mode");
    EXPECT_FALSE(Hand().IsEnabled("rgAutoMode"));
    EXPECT_TRUE(Hand().IsChecked("rbAutoModeSLR"));
    EXPECT_EQ(Hand().TextOf("rbAutoModeSLR"), "Best ones from SLR");
    EXPECT_EQ(Hand().TextOf("rbAutoModeTTest"), "Best ones from t-test");
    EXPECT_EQ(Hand().TextOf("rbAutoModeRandom"), "Random");
    EXPECT_FALSE(Hand().IsEnabled("BtnRegression"));
}

TEST_F(RegressionPanel, HasSpinnersWithTheseRanges) {
    Open();
    struct {
        const char *spinner, *edit, *label, *text;
        int low, high, value;
    } const cases[] = {{"udOrder", "ebOrder", "Label1", "Order", 1, 6, 2},
                       {"udVarCount", "ebVarCount", "Label2", "Count", 2, 32767, 20},
                       {"udLowFreq", "ebLowFreq", "Label3", "Low Freq", 0, 256, 1},
                       {"udHighFreq", "ebHighFreq", "Label4", "High Freq", 1, 32767, 32}};
    for (const auto& expected : cases) {
        const auto* spinner = panel->findChild<QSpinBox*>(expected.spinner);
        EXPECT_EQ(spinner->minimum(), expected.low) << expected.spinner;
        EXPECT_EQ(spinner->maximum(), expected.high) << expected.spinner;
        EXPECT_EQ(spinner->value(), expected.value) << expected.spinner;
        EXPECT_EQ(Hand().TextOf(expected.edit), QString::number(expected.value));
        EXPECT_EQ(Hand().TextOf(expected.label), expected.text);
    }
}

TEST_F(RegressionPanel, ListsNameCountAndContrastValue) {
    Add(1);
    Add(3);
    Open();
    for (const char* name : {"lvMainList", "lvSecondaryList"}) {
        QStringList titles;
        for (int column = 0; column < 4; ++column) {
            titles << List(name).headerItem()->text(column);
        }
        EXPECT_EQ(titles, (QStringList{"Macro", "Count", "Value", "Col."}));
        EXPECT_GE(List(name).columnWidth(0), 88); // takes the room that is left
        EXPECT_GE(List(name).columnWidth(1), 45);
        EXPECT_GE(List(name).columnWidth(2), 40);
        EXPECT_GE(List(name).columnWidth(3), 30);
    }
    EXPECT_EQ(TextsOf(List("lvMainList"), 0), (QStringList{"c1", "5", "1", ""}));
    EXPECT_EQ(TextsOf(List("lvMainList"), 1), (QStringList{"c3", "5", "3", ""}));
    EXPECT_EQ(TextsOf(List("lvSecondaryList"), 0), (QStringList{"c3", "5", "3", ""}));
}

TEST_F(RegressionPanel, ShowsTheColorsOfTheAnalyses) {
    Add(1)->GetMacro().Color = 0x0000FF;
    Add(3)->GetMacro().Color = 0xFF0000;
    Open();
    const auto colorAt = [](owl::ReportList& list, int row) {
        const QRect cell = list.visualRect(list.model()->index(row, 3));
        return list.viewport()->grab().toImage().pixelColor(cell.center());
    };
    EXPECT_EQ(colorAt(List("lvMainList"), 0), QColor(255, 0, 0));
    EXPECT_EQ(colorAt(List("lvMainList"), 1), QColor(0, 0, 255));
    EXPECT_EQ(colorAt(List("lvSecondaryList"), 0), QColor(0, 0, 255));
}

TEST_F(RegressionPanel, SelectsTheManagersMainAndSecondary) {
    Add(1);
    manager.SetMain(Add(3));
    manager.SetSecondary(Add(5));
    Open();
    EXPECT_EQ(Hand().RowsOf("lvMainList"), (QStringList{"c1", "c3", "c5"}));
    EXPECT_EQ(Hand().SelectedRowsOf("lvMainList"), QStringList{"c3"});
    EXPECT_EQ(Hand().RowsOf("lvSecondaryList"), (QStringList{"c1", "c5"}));
    EXPECT_EQ(Hand().SelectedRowsOf("lvSecondaryList"), QStringList{"c5"});
    EXPECT_TRUE(Hand().IsEnabled("BtnRegression"));
}

TEST_F(RegressionPanel, ChoosingAMainMakesItTheManagers) {
    Add(1);
    SpectMacroResult* other = Add(3);
    Open();
    Hand().SelectsRow("lvMainList", 1);
    EXPECT_EQ(manager.GetMain(), other);
    EXPECT_EQ(Hand().RowsOf("lvSecondaryList"), QStringList{"c1"});
}

TEST_F(RegressionPanel, OffersNoOtherWithAnotherResolution) {
    Add(1);
    SpectraMacro coarse = test::KnownSlopeMacro(3);
    coarse.SetFFTSeconds(2);
    manager.push_back(new SpectMacroResult(coarse, recording.get(), nullptr));
    Open();
    EXPECT_EQ(Hand().RowsOf("lvMainList").size(), 2);
    EXPECT_EQ(Hand().RowsOf("lvSecondaryList"), QStringList());
}

TEST_F(RegressionPanel, OffersNoOtherWithAnotherMontage) {
    Add(1);
    Add(3);
    recording->GetTraceInfo()->SetMtg(test::MontageOf(*recording, "O1-O2 = +O1 -O2\n"));
    Add(5);
    Open();
    EXPECT_EQ(Hand().RowsOf("lvSecondaryList"), QStringList{"c3"});
}

TEST_F(RegressionPanel, KeepsWhatIsSelectedWhenSomethingChanges) {
    Add(1);
    Add(3);
    Add(5);
    Open();
    Hand().SelectsRow("lvSecondaryList", 1);
    panel->SomethingChanged();
    EXPECT_EQ(Hand().SelectedRowsOf("lvSecondaryList"), QStringList{"c5"});
    EXPECT_TRUE(Hand().IsEnabled("BtnRegression"));
}

TEST_F(RegressionPanel, FollowsTheManagersSecondaryWhenThatWasChosenElsewhere) {
    Add(1);
    manager.SetSecondary(Add(3));
    SpectMacroResult* next = Add(5);
    Open();
    ASSERT_EQ(Hand().SelectedRowsOf("lvSecondaryList"), QStringList{"c3"});
    manager.SetSecondary(next);
    panel->SomethingChanged();
    EXPECT_EQ(Hand().SelectedRowsOf("lvSecondaryList"), QStringList{"c5"});
    Hand().SelectsRow("lvSecondaryList", 0);
    panel->SomethingChanged(); // the manager's is the same as before
    EXPECT_EQ(Hand().SelectedRowsOf("lvSecondaryList"), QStringList{"c3"});
}

TEST_F(RegressionPanel, IsFilledAnewWhenItsTabComesToTheFront) {
    Add(1);
    SpectMacroResult* erased = Add(3);
    Open();
    panel->hide();
    manager.Remove(erased);
    delete erased;
    Add(5);
    EXPECT_EQ(Hand().RowsOf("lvMainList"), (QStringList{"c1", "c3"}));
    panel->show();
    EXPECT_EQ(Hand().RowsOf("lvMainList"), (QStringList{"c1", "c5"}));
    EXPECT_EQ(Hand().RowsOf("lvSecondaryList"), QStringList{"c5"});
}

TEST_F(RegressionPanel, EnablesTheButtonWithAnotherSelectedOnly) {
    Add(1);
    Add(3);
    Open();
    EXPECT_FALSE(Hand().IsEnabled("BtnRegression"));
    Hand().SelectsRow("lvSecondaryList", 0);
    EXPECT_TRUE(Hand().IsEnabled("BtnRegression"));
    List("lvSecondaryList").clearSelection();
    EXPECT_FALSE(Hand().IsEnabled("BtnRegression"));
}

TEST_F(RegressionPanel, DisablesTheButtonWithoutAMainAndGivesTheFocusBack) {
    Add(1);
    manager.SetSecondary(Add(3));
    Open();
    List("lvSecondaryList").setFocus();
    ASSERT_FALSE(view.hasFocus());
    List("lvMainList").clearSelection();
    EXPECT_FALSE(Hand().IsEnabled("BtnRegression"));
    EXPECT_TRUE(view.hasFocus());
    EXPECT_EQ(Hand().RowsOf("lvSecondaryList"), QStringList());
}

TEST_F(RegressionPanel, GivesTheFocusBackAfterAClick) {
    Add(1);
    Add(3);
    Open();
    Hand().SelectsRow("lvSecondaryList", 0);
    EXPECT_TRUE(view.hasFocus());
    List("lvMainList").setFocus();
    Hand().SelectsRow("lvMainList", 1);
    EXPECT_TRUE(view.hasFocus());
}

TEST_F(RegressionPanel, DoesNothingWithoutAnotherSelected) {
    Add(1);
    Add(3);
    Open();
    panel->BtnRegressionClick();
    EXPECT_EQ(user.DialogsShown(), 0);
    EXPECT_TRUE(user.Messages().empty());
}

TEST_F(RegressionPanel, DoesNothingWithoutAManager) {
    panel = new TFormListenerSpectraBCI(HWND(&view), &platform, nullptr, nullptr);
    panel->BtnRegressionClick();
    panel->BtnProcessClick();
    panel->SomethingChanged();
    EXPECT_EQ(Hand().RowsOf("lvMainList"), QStringList());
    EXPECT_FALSE(Hand().IsEnabled("BtnRegression"));
}

TEST_F(RegressionPanel, FindsTheKnownSlope) {
    Add(1);
    Add(3);
    Open();
    Hand().SelectsRow("lvSecondaryList", 0);
    Hand().SetsNumber("udLowFreq", 10);
    Hand().SetsNumber("udHighFreq", 10);
    Computes([](TFormBCIResults& form) {
        const auto& list = *form.findChild<owl::ReportList*>("lvBCIResults");
        ASSERT_EQ(list.topLevelItemCount(), 2); // the flat sensor has nothing to fit
        EXPECT_EQ(TextsOf(list, 0), (QStringList{"O1", "10.00", "1.000", "2.000", "1.000", "10"}));
        EXPECT_EQ(TextsOf(list, 1), (QStringList{"O2", "10.00", "-1.000", "-2.000", "3.000", "10"}));
    });
}

TEST_F(RegressionPanel, PassesTheRangeToTheLibrary) {
    Add(1);
    Add(3);
    Open();
    Hand().SelectsRow("lvSecondaryList", 0);
    Hand().SetsNumber("udLowFreq", 9);
    Hand().SetsNumber("udHighFreq", 12);
    Computes([](TFormBCIResults& form) {
        form.findChild<QAbstractButton*>("cbFillGrid")->click();
        EXPECT_EQ(FormUser(form).RowsOf("lvBCIResults").size(), 3 * 4);
    });
}

TEST_F(RegressionPanel, TakesTheFirstSelectedOnlyWhicheverHasTheFocus) {
    for (const int contrast : {1, -1, 3, 5}) {
        Add(contrast);
    }
    Open();
    Hand().SelectsRow("lvSecondaryList", 1); // c3
    AlsoClicks(2);                           // c5, which has the focus now
    ASSERT_EQ(Hand().SelectedRowsOf("lvSecondaryList"), (QStringList{"c3", "c5"}));
    EXPECT_EQ(ContrastsComputed(), (std::set<double>{1, 3}));
}

TEST_F(RegressionPanel, TakesTheFirstSelectedWhenARowThatIsNotHasTheFocus) {
    for (const int contrast : {1, -1, 3}) {
        Add(contrast);
    }
    Open();
    Hand().SelectsRow("lvSecondaryList", 1);
    AlsoClicks(0);
    AlsoClicks(0); // deselects it again, but leaves it the focus
    ASSERT_EQ(Hand().SelectedRowsOf("lvSecondaryList"), QStringList{"c3"});
    EXPECT_EQ(ContrastsComputed(), (std::set<double>{1, 3}));
}

TEST_F(RegressionPanel, TakesNoOtherWhenNoRowHasTheFocus) {
    Add(1);
    Add(3);
    Open();
    Hand().SelectsRows("lvSecondaryList", {"c3"});
    ASSERT_EQ(List("lvSecondaryList").currentItem(), nullptr);
    user.AnswersMessage(owl::kIdOk);
    Hand().Clicks("BtnRegression");
    ExpectMessage("No Y values");
}

TEST_F(RegressionPanel, ReadsNoneOfTheOptions) {
    Add(1);
    Add(3);
    Open();
    Hand().SelectsRow("lvSecondaryList", 0);
    const auto rows = [this] {
        QStringList texts;
        Computes([&](TFormBCIResults& form) {
            const auto& list = *form.findChild<owl::ReportList*>("lvBCIResults");
            for (int row = 0; row < list.topLevelItemCount(); ++row) {
                texts << TextsOf(list, row).join(' ');
            }
        });
        return texts;
    };
    const QStringList simple = rows();
    EXPECT_FALSE(simple.isEmpty());
    Hand().Clicks("rbMultiple");
    Hand().SetsNumber("udOrder", 6);
    Hand().SetsNumber("udVarCount", 2);
    EXPECT_EQ(rows(), simple);
}

TEST_F(RegressionPanel, TellsThatThereAreNoObservations) {
    Add(1)->ResetData();
    Add(3)->ResetData();
    Open();
    Hand().SelectsRow("lvSecondaryList", 0);
    user.AnswersMessage(owl::kIdOk);
    Hand().Clicks("BtnRegression");
    ExpectMessage("No observations");
}

TEST_F(RegressionPanel, TellsThatThereAreNoYValues) {
    Add(1);
    Add(3)->GetMacro().SetContrastValue(1);
    Open();
    Hand().SelectsRow("lvSecondaryList", 0);
    user.AnswersMessage(owl::kIdOk);
    Hand().Clicks("BtnRegression");
    ExpectMessage("No Y values");
}

TEST_F(RegressionPanel, TellsThatThereAreNoXValuesBeyondTheSpectrum) {
    Add(1);
    Add(3);
    Open();
    Hand().SelectsRow("lvSecondaryList", 0);
    Hand().SetsNumber("udLowFreq", 33);
    Hand().SetsNumber("udHighFreq", 40);
    user.AnswersMessage(owl::kIdOk);
    Hand().Clicks("BtnRegression");
    ExpectMessage("No X values");
}

TEST_F(RegressionPanel, TellsThatThereAreNoXValuesWithoutScalpSensors) {
    const auto unplaced = test::KnownSlopeRecording("EEG one", "EEG two", "EEG three");
    SpectraMgr others(unplaced.get(), nullptr);
    test::AddKnownSlope(others, *unplaced, 1);
    test::AddKnownSlope(others, *unplaced, 3);
    panel = new TFormListenerSpectraBCI(HWND(&view), &platform, unplaced.get(), &others);
    view.show();
    Hand().SelectsRow("lvSecondaryList", 0);
    user.AnswersMessage(owl::kIdOk);
    Hand().Clicks("BtnRegression");
    ExpectMessage("No X values");
    delete panel;
}

TEST_F(RegressionPanel, TellsAnyOtherFailureAsAGenericError) {
    Add(1);
    Add(3);
    Open();
    Hand().SelectsRow("lvSecondaryList", 0);
    Hand().SetsNumber("udLowFreq", 20);
    Hand().SetsNumber("udHighFreq", 10);
    user.AnswersMessage(owl::kIdOk);
    Hand().Clicks("BtnRegression");
    ExpectMessage("Generic Error");
}

/// The panel over analyses whose epochs are read again from the file, which may fail.
class RegressionPanelOfAFile : public RegressionPanel {
protected:
    RegressionPanelOfAFile() {
        for (const int contrast : {1, 3}) {
            SpectraMacro macro = test::SmallMacro();
            macro.SetContrastValue(contrast);
            auto* analysis = new SpectMacroResult(macro, file.get(), nullptr);
            spectral::ComputeOptions options;
            options.memory_bytes = 0; // keeps no epochs
            analysis->SetComputeOptions(options);
            analysis->Compute(nullptr);
            others.push_back(analysis);
        }
        panel = new TFormListenerSpectraBCI(HWND(&view), &platform, file.get(), &others);
        view.show();
        Hand().SelectsRow("lvSecondaryList", 0);
    }
    ~RegressionPanelOfAFile() override { delete panel; }

    static std::unique_ptr<EEGFileInfoType> FileOf(std::shared_ptr<test::FailingSource>& source) {
        signal::RecordingData data = test::SmallData(60);
        source = std::make_shared<test::FailingSource>(data.source);
        data.source = source;
        return signal::MakeRecording(std::move(data));
    }

    std::shared_ptr<test::FailingSource> source;
    std::unique_ptr<EEGFileInfoType> file = FileOf(source);
    SpectraMgr others{file.get(), nullptr};
};

TEST_F(RegressionPanelOfAFile, TellsThatTheFileWentAwayAsAGenericError) {
    source->BeforeRead = [] { throw std::runtime_error("memory.edf: it went away (bring it back)"); };
    user.AnswersMessage(owl::kIdOk);
    Hand().Clicks("BtnRegression");
    ExpectMessage("Generic Error");
}

TEST_F(RegressionPanelOfAFile, PassesAnyOtherFailureOnWithoutTheWaitCursor) {
    source->BeforeRead = [] { throw std::logic_error("a mistake"); };
    EXPECT_THROW(panel->BtnRegressionClick(), std::logic_error);
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
    EXPECT_TRUE(user.Messages().empty());
}

TEST_F(RegressionPanelOfAFile, EndsAnyOtherFailureAtTheButtonAndTellsIt) {
    source->BeforeRead = [] { throw std::logic_error("a mistake"); };
    user.AnswersMessage(owl::kIdOk);
    Hand().Clicks("BtnRegression");
    ASSERT_EQ(user.Messages().size(), 1u);
    EXPECT_EQ(user.Messages().front().text, "This could not be finished:\na mistake");
}

TEST_F(RegressionPanel, PassesAnExceptionOnAndWorksAfterwards) {
    Add(1);
    Add(3);
    Open();
    Hand().SelectsRow("lvSecondaryList", 0);
    user.MeetsDialog([](QDialog&) { throw std::runtime_error("in the middle"); });
    EXPECT_THROW(panel->BtnRegressionClick(), std::runtime_error);
    EXPECT_EQ(ContrastsComputed(), (std::set<double>{1, 3}));
}

TEST_F(RegressionPanel, ShowsAWaitCursorUntilTheResultsAreThere) {
    Add(1);
    Add(3);
    Open();
    Hand().SelectsRow("lvSecondaryList", 0);
    const test::CursorLog cursors;
    Computes([&](TFormBCIResults&) { EXPECT_EQ(cursors.Log().back(), 0u); });
    EXPECT_EQ(cursors.Log().size(), 2u);
}

TEST_F(RegressionPanel, ShowsItsProgress) {
    Add(1);
    Add(3);
    Open();
    Hand().SelectsRow("lvSecondaryList", 0);
    Computes([](TFormBCIResults& /*form*/) {});
    EXPECT_EQ(gui.Progresses(), std::vector<std::string>{"Computing the regressions"});
    EXPECT_EQ(gui.Positions().back(), 1.0);
}

TEST_F(RegressionPanel, SaysNothingWhenTheUserCancels) {
    Add(1);
    Add(3);
    Open();
    Hand().SelectsRow("lvSecondaryList", 0);
    gui.Cancelled = true;
    Hand().Clicks("BtnRegression");
    EXPECT_EQ(gui.Progresses().size(), 1U);
    EXPECT_TRUE(user.Messages().empty());
}

TEST_F(RegressionPanel, ProcessesTheMainAnalysisAgain) {
    SpectMacroResult* main = Add(1);
    main->ResetData();
    Open();
    ASSERT_FALSE(main->IsComputed());
    panel->BtnProcessClick();
    EXPECT_TRUE(main->IsComputed());
    EXPECT_EQ(TextsOf(List("lvMainList"), 0), (QStringList{"c1", "5", "1", ""}));
}

TEST_F(RegressionPanel, IsWithoutAnAnalysisThatTheManagerHasNoMore) {
    SpectMacroResult* main = Add(1);
    Add(3);
    Open();
    Hand().SelectsRow("lvSecondaryList", 0);
    manager.Remove(main);
    delete main;
    panel->BtnRegressionClick();
    EXPECT_EQ(user.DialogsShown(), 0);
    panel->SomethingChanged();
    EXPECT_EQ(Hand().RowsOf("lvMainList"), QStringList{"c3"});
}

} // namespace
