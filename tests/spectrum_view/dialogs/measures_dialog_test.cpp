// SPDX-License-Identifier: GPL-3.0-or-later
#include "spectrum_view/dialogs/measures_dialog.h"

#include "host/toolkit/modal_gateway.h"
#include "host/toolkit/window.h"
#include "resources/dialogs/dialog_templates.h"
#include "tests/spectrum_view/traces/trace_fixture.h"
#include "tests/support/qt/fake_global_window.h"
#include "tests/support/qt/form_user.h"
#include "tests/support/qt/scripted_user.h"

#include <QAbstractButton>
#include <QPushButton>

namespace {

using namespace orvanta;

class Measures : public test::TraceFixture {
protected:
    Measures() { resources::RegisterDialogs(); }
    ~Measures() override { resources::ForgetDialogs(); }

    static std::string Flags(const std::function<bool(unsigned)>& flag) {
        std::string text;
        for (unsigned i = 0; i < 8; ++i) {
            text += flag(i) ? '1' : '0';
        }
        return text;
    }
    std::string Bands() const {
        return Flags([this](unsigned i) { return manager.GetBand(i).selected; });
    }
    static std::string MeasuresOf() {
        return Flags([](unsigned i) { return SPECT::GetGlobals().MeasSelected[i]; });
    }
    static std::string Checked(const owl::TDialog& dialog, int first) {
        return Flags([&](unsigned i) { return dialog.IsDlgButtonChecked(first + static_cast<int>(i)); });
    }
    /// The user clicks on what is to be clicked and closes the dialog by a button.
    int Run(const std::vector<const char*>& clicks, int button) {
        SpectMeasDlg dialog(nullptr, &platform, &manager);
        test::ScriptedUser user;
        user.Meets<SpectMeasDlg>([&](SpectMeasDlg& shown) {
            for (const char* control : clicks) {
                test::FormUser(shown).Clicks(control);
            }
            shown.Item<QPushButton>(button)->click();
        });
        return dialog.Execute();
    }

    test::FakePlatform platform;
};

TEST_F(Measures, ShowsTheNamesOfAllBandsAndMeasures) {
    SpectMeasDlg dialog(nullptr, &platform, &manager);
    dialog.grab();
    EXPECT_EQ(dialog.windowTitle(), "Select Measures");
    EXPECT_EQ(dialog.GetDlgItemText(501, 99), "Select Bands and Measures to be exported to the Clipboard");
    EXPECT_EQ(dialog.GetDlgItemText(101, 99), "Bands");
    EXPECT_EQ(dialog.GetDlgItemText(102, 99), "Measures");
    EXPECT_EQ(dialog.GetDlgItemText(1, 99), "OK");
    EXPECT_EQ(dialog.GetDlgItemText(2, 99), "Cancel");
    const char* bands[] = {"Delta", "Theta", "Alpha", "Beta", "Gamma", "", "", ""};
    const char* measures[] = {"Abs", "Mean", "Rel", "Peak F", "Mean F", "Peak", "SEF95", "CV"};
    for (int i = 0; i < 8; ++i) {
        ASSERT_NE(dialog.GetDlgItem(103 + i), nullptr);
        EXPECT_EQ(dialog.GetDlgItemText(103 + i, 99), bands[i]);
        EXPECT_EQ(dialog.GetDlgItemText(113 + i, 99), measures[i]);
    }
}

TEST_F(Measures, ShowsANameWithItsAmpersand) {
    std::snprintf(manager.GetBand(0).name, sizeof(SPECT::Band::name), "D&T");
    SpectMeasDlg dialog(nullptr, &platform, &manager);
    dialog.grab();
    EXPECT_EQ(dialog.GetDlgItemText(103, 99), "D&T");
}

TEST_F(Measures, TellsTheRangeOfABandInItsTip) {
    SpectMeasDlg dialog(nullptr, &platform, &manager);
    dialog.grab();
    EXPECT_EQ(dialog.GetDlgItem(103)->toolTip(), "0.5 – 4.0 Hz");
    EXPECT_EQ(dialog.GetDlgItem(110)->toolTip(), "This band is not defined");
}

TEST_F(Measures, ChecksWhatIsSelected) {
    for (unsigned i = 0; i < 8; ++i) {
        manager.GetBand(i).selected = i % 2 == 0;
        SPECT::GetGlobals().MeasSelected[i] = i >= 6;
    }
    SpectMeasDlg dialog(nullptr, &platform, &manager);
    dialog.grab();
    EXPECT_EQ(Checked(dialog, 103), "10101010");
    EXPECT_EQ(Checked(dialog, 113), "00000011");
}

TEST_F(Measures, SelectsAndStoresWhatIsCheckedOnOk) {
    EXPECT_EQ(Run({"band1", "band7", "measure0", "measure5"}, 1), owl::kIdOk);
    EXPECT_EQ(Bands(), "10111110");
    EXPECT_EQ(MeasuresOf(), "01111011");
    EXPECT_EQ(platform.texts["Spectrum/BandSelect"], "10111110");
    EXPECT_EQ(platform.texts["Spectrum/MeasureSelect"], "01111011");
}

TEST_F(Measures, StayAsTheyWereOnCancel) {
    EXPECT_EQ(Run({"band0", "band1", "measure0"}, 2), owl::kIdCancel);
    EXPECT_EQ(Bands(), "11111111");
    EXPECT_EQ(MeasuresOf(), "11111111");
    EXPECT_TRUE(platform.texts.empty());
}

TEST_F(Measures, LeaveTheFirstSelectedWhenNothingIsChecked) {
    EXPECT_EQ(Run({"band0", "band1", "band2", "band3", "band4", "band5", "band6", "band7", "measure0",
                   "measure1", "measure2", "measure3", "measure4", "measure5", "measure6", "measure7"},
                  1),
              owl::kIdOk);
    EXPECT_EQ(Bands(), "10000000");
    EXPECT_EQ(MeasuresOf(), "10000000");
    EXPECT_EQ(platform.texts["Spectrum/BandSelect"], "10000000");
    EXPECT_EQ(platform.texts["Spectrum/MeasureSelect"], "10000000");
}

TEST_F(Measures, LeaveTheFirstBandUnselectedWhenAnotherIs) {
    Run({"band0", "measure0"}, 1);
    EXPECT_EQ(Bands(), "01111111");
    EXPECT_EQ(MeasuresOf(), "01111111");
}

TEST_F(Measures, CanBeReachedByTabInTheirOrder) {
    SpectMeasDlg dialog(nullptr, &platform, &manager);
    dialog.grab();
    QStringList order;
    for (const QWidget* next = dialog.GetDlgItem(103); order.size() < 18; next = next->nextInFocusChain()) {
        if (qobject_cast<const QAbstractButton*>(next) != nullptr) {
            order << next->property("controlId").toString();
        }
    }
    EXPECT_EQ(order.join(' ').toStdString(),
              "103 104 105 106 107 108 109 110 113 114 115 116 117 118 119 120 1 2");
}

TEST_F(Measures, StandOverTheirView) {
    owl::TWindow view;
    const SpectMeasDlg dialog(&view, &platform, &manager);
    EXPECT_EQ(dialog.parentWidget(), &view);
}

} // namespace
