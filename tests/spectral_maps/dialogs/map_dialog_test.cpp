// SPDX-License-Identifier: GPL-3.0-or-later
#include "spectral_maps/dialogs/map_dialog.h"

#include "host/toolkit/modal_gateway.h"
#include "host/toolkit/window.h"
#include "resources/dialogs/dialog_templates.h"
#include "spectra_contract/recording.h"
#include "spectra_contract/spectra_mgr.h"
#include "tests/support/comma_numerals.h"
#include "tests/support/globals_guard.h"
#include "tests/support/qt/fake_global_window.h"
#include "tests/support/qt/form_user.h"
#include "tests/support/qt/scripted_user.h"
#include "tests/support/small_recording.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using namespace orvanta;
using test::FormUser;
using testing::ElementsAre;

/// The largest number of single precision.
constexpr const char* kLargest = "3.4028234663852886e38";

/// The dialogs look as designed while it lives.
struct Layouts {
    Layouts() { resources::RegisterDialogs(); }
    ~Layouts() { resources::ForgetDialogs(); }
    Layouts(const Layouts&) = delete;
    Layouts& operator=(const Layouts&) = delete;
};

class MapDialog : public testing::Test {
protected:
    /// A band and a measure of their own, numbers with more than one decimal, nothing as it is by default.
    static SPECT::PlotSet Given() { return {4, 2, 1.25, 8.75, false, true}; }
    /// The user does so and closes the dialog by a button.
    int Run(const std::function<void(const FormUser&)>& acts, int button = 1) {
        test::ScriptedUser user;
        user.Meets<Spect3DDlg>([&](Spect3DDlg& shown) {
            acts(FormUser(shown));
            shown.Item<QPushButton>(button)->click();
        });
        return dialog.Execute();
    }
    /// What is kept of a scale that is typed.
    SPECT::PlotSet Type(const char* least, const char* most) {
        Run([=](const FormUser& user) {
            user.Types("least", least);
            user.Types("most", most);
        });
        return dialog.plotSet;
    }
    std::vector<int> Checked(int first, int count) const {
        std::vector<int> checked;
        for (int i = 0; i < count; ++i) {
            if (dialog.IsDlgButtonChecked(first + i)) {
                checked.push_back(i);
            }
        }
        return checked;
    }
    std::string Text(int control) const { return dialog.GetDlgItemText(control, 99); }

    Layouts layouts;
    test::GlobalsGuard guard;
    std::unique_ptr<EEGFileInfoType> recording = test::SmallRecording();
    SpectraMgr manager{recording.get(), nullptr};
    test::FakePlatform platform;
    Spect3DDlg dialog{nullptr, &platform, &manager};
};

TEST_F(MapDialog, StartsWithABandAndAMeasureThatNobodyChoseAndForOneMap) {
    EXPECT_FALSE(dialog.applyToAll);
    EXPECT_FALSE(dialog.applyToAllLocked);
    EXPECT_EQ(dialog.plotSet, SPECT::PlotSet());
    EXPECT_EQ(dialog.spectraMgr, &manager);
    EXPECT_EQ(dialog.platform, &platform);
}

TEST_F(MapDialog, HasItsCaptions) {
    dialog.show();
    EXPECT_EQ(dialog.windowTitle(), "3-D View Spectral Manager");
    const struct {
        int control;
        const char* text;
    } captions[] = {{701, "Modify the spectral map representation"},
                    {201, "Band"},
                    {202, "Measures"},
                    {200, "Scale Range"},
                    {101, "AutoScale"},
                    {102, "Zero Min."},
                    {103, "Min."},
                    {104, "Max."},
                    {107, "Apply Measures And Scale To All Maps"},
                    {1, "OK"},
                    {2, "Cancel"}};
    for (const auto& [control, text] : captions) {
        EXPECT_EQ(Text(control), text) << control;
    }
}

TEST_F(MapDialog, NamesEveryBandWithItsEdges) {
    std::snprintf(manager.GetBand(5).name, sizeof(SPECT::Band::name), "A&B");
    manager.GetBand(5).lo = 1.04;
    manager.GetBand(5).hi = 2.06;
    dialog.show();
    const struct {
        const char *name, *low, *high;
    } bands[] = {{"Delta", "0.5", "4.0"},  {"Theta", "4.0", "8.0"},   {"Alpha", "8.0", "13.0"},
                 {"Beta", "13.0", "30.0"}, {"Gamma", "30.0", "45.0"}, {"A&B", "1.0", "2.1"},
                 {"", "0.0", "0.0"},       {"", "0.0", "0.0"}};
    for (int i = 0; i < 8; ++i) {
        EXPECT_EQ(Text(110 + i), bands[i].name) << i;
        EXPECT_EQ(Text(220 + i), bands[i].low) << i;
        EXPECT_EQ(Text(230 + i), bands[i].high) << i;
    }
}

TEST_F(MapDialog, NamesSevenMeasures) {
    dialog.show();
    const char* measures[] = {"Abs", "Mean", "Rel", "Peak F", "Mean F", "Peak", "SEF95"};
    for (int i = 0; i < 7; ++i) {
        EXPECT_EQ(Text(521 + i), measures[i]);
    }
    EXPECT_EQ(dialog.GetDlgItem(528), nullptr);
}

TEST_F(MapDialog, ShowsTheSettingBeingEdited) {
    dialog.plotSet = Given();
    dialog.applyToAll = true;
    dialog.show();
    EXPECT_THAT(Checked(110, 8), ElementsAre(2));
    EXPECT_THAT(Checked(521, 7), ElementsAre(4));
    EXPECT_FALSE(dialog.IsDlgButtonChecked(101));
    EXPECT_TRUE(dialog.IsDlgButtonChecked(102));
    EXPECT_TRUE(dialog.IsDlgButtonChecked(107));
    EXPECT_TRUE(dialog.GetDlgItem(107)->isEnabled());
    EXPECT_EQ(Text(106), "1.2"); // the tie goes to the even digit
    EXPECT_EQ(Text(105), "8.8");
}

TEST_F(MapDialog, ShowsOtherFlagsToo) {
    dialog.plotSet = {0, 7, 0, 50, true, false};
    dialog.show();
    EXPECT_THAT(Checked(110, 8), ElementsAre(7));
    EXPECT_THAT(Checked(521, 7), ElementsAre(0));
    EXPECT_TRUE(dialog.IsDlgButtonChecked(101));
    EXPECT_FALSE(dialog.IsDlgButtonChecked(102));
    EXPECT_FALSE(dialog.IsDlgButtonChecked(107));
}

TEST_F(MapDialog, CannotBeAppliedToAllMapsWhereThatIsLocked) {
    dialog.applyToAll = true;
    dialog.applyToAllLocked = true;
    dialog.show();
    EXPECT_FALSE(dialog.GetDlgItem(107)->isEnabled());
    EXPECT_TRUE(dialog.IsDlgButtonChecked(107));
}

TEST_F(MapDialog, IsReadBackOnOk) {
    dialog.plotSet = Given();
    EXPECT_EQ(Run([](const FormUser& user) {
                  user.Clicks("band3");
                  user.Clicks("measure6");
                  user.Clicks("autoScale");
                  user.Clicks("zeroMin");
                  user.Clicks("applyToAll");
                  user.Types("least", "-2.25");
                  user.Types("most", "80.5");
              }),
              owl::kIdOk);
    EXPECT_EQ(dialog.plotSet, (SPECT::PlotSet{6, 3, -2.25, 80.5, true, false}));
    EXPECT_TRUE(dialog.applyToAll);
}

TEST_F(MapDialog, IsLeftAloneOnCancel) {
    dialog.plotSet = Given();
    EXPECT_EQ(Run(
                  [](const FormUser& user) {
                      user.Clicks("band3");
                      user.Clicks("measure6");
                      user.Clicks("autoScale");
                      user.Clicks("zeroMin");
                      user.Clicks("applyToAll");
                      user.Types("most", "80.5");
                  },
                  2),
              owl::kIdCancel);
    EXPECT_EQ(dialog.plotSet, Given());
    EXPECT_FALSE(dialog.applyToAll);
}

TEST_F(MapDialog, KeepsAMeasureThatHasNoButton) {
    dialog.plotSet.SpectralMeas = 7;
    dialog.show();
    EXPECT_THAT(Checked(521, 7), ElementsAre());
    dialog.accept();
    EXPECT_EQ(dialog.plotSet.SpectralMeas, 7);
}

TEST_F(MapDialog, TakesTheLastOfSeveralCheckedBands) {
    dialog.show();
    dialog.CheckDlgButton(111, true);
    dialog.Item<QAbstractButton>(114)->setAutoExclusive(false);
    dialog.CheckDlgButton(114, true);
    ASSERT_THAT(Checked(110, 8), ElementsAre(1, 4));
    dialog.accept();
    EXPECT_EQ(dialog.plotSet.SpectralBand, 4);
}

TEST_F(MapDialog, ProposesZeroToAHundredForTheThirdMeasure) {
    dialog.plotSet = {0, 2, 3, 7, true, false};
    dialog.show();
    const FormUser user(dialog);
    user.Types("least", "5");
    user.Types("most", "6");
    user.Clicks("measure2");
    EXPECT_EQ(Text(106), "0.0");
    EXPECT_EQ(Text(105), "100.0");
    EXPECT_FALSE(dialog.IsDlgButtonChecked(101));
    EXPECT_TRUE(dialog.IsDlgButtonChecked(102));
    dialog.accept();
    EXPECT_EQ(dialog.plotSet, (SPECT::PlotSet{2, 2, 0, 100, false, true}));
}

TEST_F(MapDialog, ProposesItAgainAtEveryClickOnTheThirdMeasure) {
    dialog.plotSet = {2, 2, 3, 7, true, false};
    dialog.show();
    EXPECT_EQ(Text(105), "7.0"); // being shown is no click
    FormUser(dialog).Clicks("measure2");
    EXPECT_EQ(Text(105), "100.0");
}

TEST_F(MapDialog, ProposesNothingForOtherMeasures) {
    dialog.plotSet = {0, 2, 3, 7, true, false};
    dialog.show();
    for (const char* measure : {"measure0", "measure1", "measure3", "measure4", "measure5", "measure6"}) {
        FormUser(dialog).Clicks(measure);
        EXPECT_EQ(Text(106), "3.0") << measure;
        EXPECT_EQ(Text(105), "7.0") << measure;
        EXPECT_TRUE(dialog.IsDlgButtonChecked(101)) << measure;
    }
}

struct TypedScale {
    const char *name, *least, *most;
    double low, high;
};

class MapScale : public MapDialog, public testing::WithParamInterface<TypedScale> {};

/// Both ends or none, of a dialog with 1.25 to 8.75.
TEST_P(MapScale, IsKeptOrTakenAsAPair) {
    dialog.plotSet = Given();
    const SPECT::PlotSet kept = Type(GetParam().least, GetParam().most);
    EXPECT_EQ(kept.LoScale, GetParam().low);
    EXPECT_EQ(kept.HiScale, GetParam().high);
}

INSTANTIATE_TEST_SUITE_P(
    Typed, MapScale,
    testing::Values(TypedScale{"Plain", "0.125", "4", 0.125, 4},
                    TypedScale{"Negative", "-8", "-4.5", -8, -4.5}, TypedScale{"Equal", "4", "4", 1.25, 8.75},
                    TypedScale{"Reversed", "5", "4", 1.25, 8.75},
                    TypedScale{"NoNumbers", "low", "high", 1.25, 8.75},
                    TypedScale{"NoNumberBelow", "low", "4", 0, 4},
                    TypedScale{"NoNumberAbove", "-4", "high", -4, 0}, TypedScale{"Empty", "", "4", 0, 4},
                    TypedScale{"NumberAndMore", "1 µV²", "2 µV²", 1, 2},
                    TypedScale{"Exponents", "1e-3", "1e3", 0.001, 1000},
                    TypedScale{"NotANumberBelow", "nan", "4", 1.25, 8.75},
                    TypedScale{"NotANumberAbove", "0", "nan", 1.25, 8.75},
                    TypedScale{"InfiniteBelow", "-inf", "4", 1.25, 8.75},
                    TypedScale{"InfiniteAbove", "0", "inf", 1.25, 8.75},
                    TypedScale{"LargestAbove", "0", kLargest, 1.25, 8.75},
                    TypedScale{"LargestBelow", "-3.4028234663852886e38", "0", 1.25, 8.75},
                    TypedScale{"JustInside", "-3.4028234663852e38", "3.4028234663852e38", -3.4028234663852e38,
                               3.4028234663852e38}),
    [](const auto& scale) { return std::string(scale.param.name); });

TEST_F(MapDialog, ReadsSixtyThreeCharactersOfANumber) {
    dialog.plotSet = Given();
    const std::string digits = std::string(61, '0') + "427";
    EXPECT_EQ(Type("0", digits.c_str()).HiScale, 42);
    EXPECT_EQ(dialog.Item<QLineEdit>(105)->maxLength(), 63);
    EXPECT_EQ(dialog.Item<QLineEdit>(106)->maxLength(), 63);
}

TEST_F(MapDialog, SaysThatAReversedScaleIsNotTaken) {
    dialog.plotSet = Given();
    dialog.show();
    auto* remark = dialog.findChild<QLabel*>("remark");
    EXPECT_EQ(remark->text(), "");
    FormUser(dialog).Types("least", "9");
    EXPECT_EQ(remark->text(), "Maximum not above minimum: the scale stays as it was");
    EXPECT_EQ(dialog.GetDlgItem(106)->toolTip(), "Maximum not above minimum: the scale stays as it was");
    FormUser(dialog).Types("least", "8");
    EXPECT_EQ(remark->text(), "");
}

TEST_F(MapDialog, SaysHowATextIsReadThatIsNotOnlyANumber) {
    dialog.show();
    FormUser(dialog).Types("most", "12,5");
    EXPECT_EQ(dialog.findChild<QLabel*>("remark")->text(), "Read as 0 - 12");
}

TEST_F(MapDialog, ShowsAndReadsTheNumeralsOfTheUser) {
    const test::CommaNumerals numerals;
    dialog.plotSet = {0, 0, 0.5, 4.5, true, false};
    EXPECT_EQ(Run([this](const FormUser& user) {
                  EXPECT_EQ(Text(106), "0,5");
                  EXPECT_EQ(Text(105), "4,5");
                  EXPECT_EQ(Text(231), "8,0");
                  user.Types("most", "12,5");
              }),
              owl::kIdOk);
    EXPECT_EQ(dialog.plotSet.LoScale, 0.5);
    EXPECT_EQ(dialog.plotSet.HiScale, 12.5);
}

TEST_F(MapDialog, SelectsTheFirstBandInTheSettingsWhenNoneIsStored) {
    dialog.show();
    EXPECT_EQ(platform.texts["Spectrum/BandSelect"], "10000000");
    EXPECT_EQ(platform.defaults["Spectrum/BandSelect"], "00000000");
    EXPECT_EQ(platform.defaults["Spectrum/MeasureSelect"], "0000000");
    EXPECT_EQ(platform.texts.count("Spectrum/MeasureSelect"), 0U);
}

TEST_F(MapDialog, SelectsTheFirstBandInTheSettingsWhenNoneIsSelectedAlsoOnCancel) {
    platform.texts["Spectrum/BandSelect"] = "00000000";
    Run([](const FormUser&) {}, 2);
    EXPECT_EQ(platform.texts["Spectrum/BandSelect"], "10000000");
}

TEST_F(MapDialog, LeavesAStoredSelectionOfBandsAlone) {
    platform.texts["Spectrum/BandSelect"] = "00000010";
    dialog.show();
    EXPECT_EQ(platform.texts["Spectrum/BandSelect"], "00000010");
}

TEST_F(MapDialog, LooksAtSevenStoredBandsOnly) {
    platform.texts["Spectrum/BandSelect"] = "00000001";
    dialog.show();
    EXPECT_EQ(platform.texts["Spectrum/BandSelect"], "10000000");
}

TEST_F(MapDialog, LeavesTheSelectionsOfTheProcessAlone) {
    SPECT::GetGlobals().Bands[0].selected = false;
    dialog.show();
    dialog.accept();
    EXPECT_FALSE(SPECT::GetGlobals().Bands[0].selected);
}

TEST_F(MapDialog, CanBeReachedByTabInItsOrder) {
    dialog.show();
    QStringList order;
    for (const QWidget* next = dialog.GetDlgItem(110); order.size() < 22; next = next->nextInFocusChain()) {
        if ((next->focusPolicy() & Qt::TabFocus) != 0 && next->property("controlId").isValid()) {
            order << next->property("controlId").toString();
        }
    }
    EXPECT_EQ(order.join(' ').toStdString(),
              "110 111 112 113 114 115 116 117 521 522 523 524 525 526 527 101 102 106 105 107 1 2");
}

TEST_F(MapDialog, TellsScreenReadersOfBandsWithoutAName) {
    dialog.show();
    EXPECT_EQ(dialog.GetDlgItem(117)->accessibleName(), "Band 8");
    EXPECT_EQ(dialog.GetDlgItem(110)->accessibleName(), "");
}

TEST_F(MapDialog, StandsOverItsView) {
    owl::TWindow view;
    const Spect3DDlg over(&view, &platform, &manager);
    EXPECT_EQ(over.parentWidget(), &view);
}

} // namespace
