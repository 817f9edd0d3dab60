// SPDX-License-Identifier: GPL-3.0-or-later
// Axis ranges, bands and the computation report, as the view asks for them.
#include "resources/dialogs/dialog_templates.h"
#include "spectra_contract/spect_globals.h"
#include "spectrum_view/dialogs/band_dialog.h"
#include "spectrum_view/dialogs/info_dialog.h"
#include "spectrum_view/dialogs/scale_dialog.h"
#include "tests/spectrum_view/view_fixture.h"
#include "tests/support/qt/form_user.h"
#include "tests/support/qt/scripted_user.h"

#include <QLocale>

namespace {

using namespace orvanta;
using namespace orvanta::spectrum_view;
using spectrum_view::Display; // hides the one of the X headers
using test::FormUser;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::StartsWith;

/// One second windows of a recording at 256 Hz, amplitudes from 0 to 32 Hz; the focus is beside the view.
class DialogsOfView : public test::ViewFixture {
protected:
    DialogsOfView() {
        QLocale::setDefault(QLocale::c());
        resources::RegisterDialogs();
    }
    ~DialogsOfView() override {
        view.reset();
        resources::ForgetDialogs();
        QLocale::setDefault(QLocale::system());
    }

    void OpenView(bool withAnalysis = true) {
        if (withAnalysis) {
            ofSampled.push_back(new SpectMacroResult(test::SmallMacro(), sampled.get(), nullptr));
            ofSampled.GetMain()->Compute(nullptr);
        }
        view = std::make_unique<Spectrum>(window, sampled.get(), &ofSampled, false);
        if (!withAnalysis) {
            view->Create();
            return;
        }
        ShowMade();
        window.activateWindow();
        window.SetFocus();
        RunQueue();
        ASSERT_EQ(window.focusWidget(), &window);
    }
    /// In the range dialog the user types a maximum and presses OK.
    void TypeMaximum(const char* maximum) {
        user.Meets<SpectrumScaleDlg>([maximum](SpectrumScaleDlg& dialog) {
            FormUser(dialog).Types("highest", maximum);
            dialog.accept();
        });
        EXPECT_TRUE(view->RunCommand(kCmSetMaxAxis));
    }
    void ExpectFocus() {
        RunQueue();
        EXPECT_EQ(window.focusWidget(), view.get());
    }
    SPECT::Scale Scale() const { return view->GetState().scales.at(ofSampled.GetCurrMeasEntityStr()); }
    std::size_t Computations() const { return window.platform.gui.Progresses().size(); }

    std::unique_ptr<EEGFileInfoType> sampled =
        signal::MakeRecording(test::MakeData({{"Fp1", 256, test::Fp1Values(768), "uV"}}));
    SpectraMgr ofSampled{sampled.get(), nullptr};
    test::ScriptedUser user;
};

TEST_F(DialogsOfView, AxisRangesAreThoseOfTheEntity) {
    OpenView();
    view->CmSetEntity(kCmSetEntity + 1);
    user.Meets<SpectrumScaleDlg>([](SpectrumScaleDlg& dialog) {
        const FormUser hand(dialog);
        EXPECT_EQ(hand.TextOf("entity").toStdString(), "Power");
        EXPECT_EQ(hand.TextOf("unit").toStdString(), "µV²/Hz");
        hand.Types("most", "25");
        dialog.accept();
    });
    view->CmSetMaxAxis();
    EXPECT_EQ(Scale(), (SPECT::Scale{0, 25, 0, 32, true}));
    EXPECT_EQ(view->GetState().scales.at("Amplitude"), (SPECT::Scale{0, 10, 0, 32, true}));
    ExpectFocus();
}

TEST_F(DialogsOfView, AxisRangeIsShownFromAtLeast4Hz) {
    OpenView();
    TypeMaximum("2");
    EXPECT_DOUBLE_EQ(Scale().MaxX, 2);
    EXPECT_EQ(Display().range, (SPECT::FrequencyRange{0, 4}));
    TypeMaximum("20");
    EXPECT_EQ(Display().range, (SPECT::FrequencyRange{0, 20}));
    EXPECT_EQ(Computations(), 0u);
}

TEST_F(DialogsOfView, AxisRangeEndsAtHalfTheRate) {
    OpenView();
    TypeMaximum("300");
    EXPECT_DOUBLE_EQ(Scale().MaxX, 128);
    EXPECT_EQ(Display().range, (SPECT::FrequencyRange{0, 128}));
}

TEST_F(DialogsOfView, AxisRangeStartsAt0BelowAndAtItsMinimumWithinIt) {
    constexpr struct {
        double minimum;
        const char* maximum;
        SPECT::FrequencyRange shown;
    } kCases[] = {
        {-3, "20", {0, 20}},
        {5, "4", {0, 4}},
        {5, "20", {5, 20}},
    };
    for (const auto& [minimum, maximum, shown] : kCases) {
        Setting("EntityString_0/MinX") = minimum;
        view.reset();
        OpenView();
        TypeMaximum(maximum);
        EXPECT_EQ(Display().range, shown) << minimum << " to " << maximum;
    }
}

TEST_F(DialogsOfView, AxisRangesStayOnCancel) {
    OpenView();
    user.Meets<SpectrumScaleDlg>([](SpectrumScaleDlg& dialog) {
        FormUser(dialog).Types("highest", "20");
        dialog.reject();
    });
    view->CmSetMaxAxis();
    EXPECT_EQ(Scale(), (SPECT::Scale{0, 10, 0, 32, true}));
    EXPECT_EQ(Display().range, (SPECT::FrequencyRange{0, 32}));
    ExpectFocus();
}

TEST_F(DialogsOfView, EditedBandsAreComputed) {
    OpenView();
    user.Meets<SpectrumBandDlg>([](SpectrumBandDlg& dialog) {
        FormUser(dialog).Types("upper0", "5");
        dialog.accept();
    });
    const std::uint64_t before = ofSampled.GetMain()->GetGeneration();
    EXPECT_TRUE(view->RunCommand(kCmSetBands));
    EXPECT_DOUBLE_EQ(ofSampled.GetBand(0).hi, 5);
    EXPECT_NE(ofSampled.GetMain()->GetGeneration(), before);
    EXPECT_TRUE(ofSampled.GetMain()->IsComputed());
    EXPECT_THAT(window.platform.gui.Progresses(), ElementsAre("Computing Spectra..."));
    ExpectFocus();
}

TEST_F(DialogsOfView, BandsAreComputedWithoutProgressWhenQuiet) {
    OpenView();
    window.quiet = true;
    user.Meets<SpectrumBandDlg>([](SpectrumBandDlg& dialog) { dialog.accept(); });
    const std::uint64_t before = ofSampled.GetMain()->GetGeneration();
    view->CmSetBands();
    EXPECT_NE(ofSampled.GetMain()->GetGeneration(), before);
    EXPECT_EQ(Computations(), 0u);
}

TEST_F(DialogsOfView, CancelledBandsOnlyGiveTheFocusBack) {
    OpenView();
    user.Meets<SpectrumBandDlg>([](SpectrumBandDlg& dialog) { dialog.reject(); });
    const std::uint64_t before = ofSampled.GetMain()->GetGeneration();
    view->CmSetBands();
    EXPECT_EQ(ofSampled.GetMain()->GetGeneration(), before);
    ExpectFocus();
}

TEST_F(DialogsOfView, BandsCanBeSetWithoutAnAnalysis) {
    OpenView(false);
    user.Meets<SpectrumBandDlg>([](SpectrumBandDlg& dialog) {
        FormUser(dialog).Types("upper0", "5");
        dialog.accept();
    });
    view->CmSetBands();
    EXPECT_DOUBLE_EQ(SPECT::GetGlobals().Bands[0].hi, 5);
    EXPECT_EQ(Computations(), 0u);
}

TEST_F(DialogsOfView, ReportIsThatOfTheMainAnalysis) {
    OpenView();
    user.Meets<SpectrumInfoDlg>([](SpectrumInfoDlg& dialog) {
        EXPECT_THAT(dialog.GetDlgItemText(101, 1000),
                    StartsWith("FFT Computation Parameters:\n\tSeconds: 1\n\tSamples: 256\n"));
        dialog.accept();
    });
    EXPECT_TRUE(view->RunCommand(kCmSpectraInfo));
    ExpectFocus();
}

TEST_F(DialogsOfView, AxisRangesAndReportNeedAnAnalysis) {
    OpenView(false);
    view->CmSetMaxAxis();
    view->CmSpectraInfo();
    EXPECT_EQ(user.DialogsShown(), 0);
    EXPECT_EQ(Scale(), (SPECT::Scale{0, 10, 0, 32, true}));
}

} // namespace
