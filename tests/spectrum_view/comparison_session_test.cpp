// SPDX-License-Identifier: GPL-3.0-or-later
// A user compares closed with open eyes in the demo recording, erases one analysis and exports the other.
#include "host/review/cli/demo_recording.h"
#include "host/signal_base/recording.h"
#include "host/toolkit/menu_templates.h"
#include "resources/menus/spectrum_menu.h"
#include "side_bar/export_form.h"
#include "side_bar/macro_selection_form.h"
#include "side_bar/spectra_panel.h"
#include "side_bar/spectrum_macro_form.h"
#include "spectra_contract/spectra_mgr.h"
#include "spectrum_view/painting/significance.h"
#include "spectrum_view/spectrum.h"
#include "tests/support/globals_guard.h"
#include "tests/support/qt/fake_global_window.h"
#include "tests/support/qt/fake_services.h"
#include "tests/support/qt/form_user.h"
#include "tests/support/qt/recording_dc.h"
#include "tests/support/qt/scripted_user.h"
#include "tests/support/temp_folder.h"

#include <QApplication>
#include <QSplitter>
#include <gmock/gmock.h>

#include <algorithm>
#include <fstream>
#include <sstream>

namespace {

using namespace orvanta;
using spectrum_view::Display; // hides the one of the X headers
using test::FormUser;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;

constexpr owl::TColor kBlue = owl::Rgb(0x20, 0x60, 0xB0);
constexpr owl::TColor kOrange = owl::Rgb(0xD0, 0x80, 0x20);

/// Two minutes of the demo: 19 channels at 256 Hz, 30 s each of open and closed eyes.
std::unique_ptr<EEGFileInfoType> Demo(const std::string& file) {
    cli::DemoParameters parameters;
    parameters.minutes = 2;
    cli::DemoSignal demo(parameters);
    cli::WriteDemoRecording(file, demo);
    return signal::OpenRecording(file);
}

class Comparison : public testing::Test {
protected:
    Comparison() {
        Display() = {};
        owl::RegisterMenuTemplate(resources::kSpectrumMenu, resources::kSpectrumMenuItems);
        view = std::make_unique<Spectrum>(window, recording.get(), &manager, false);
        view->ChangeViewMode(Layout::Mode::Scalp);
    }
    ~Comparison() override {
        view.reset();
        owl::RegisterMenuTemplate(resources::kSpectrumMenu, {});
        Display() = {};
    }

    /// Shows the view, which asks for its first analysis when it gets the focus.
    void OpenView() {
        ConfirmsTheMacro();
        window.resize(1400, 900);
        view->Panes().resize(1400, 900);
        window.show();
        view->Panes().show();
        window.activateWindow();
        view->SetFocus();
        RunQueue();
    }
    void ConfirmsTheMacro() {
        user.Meets<TFormMacroSpectra>(
            [](TFormMacroSpectra& form) { FormUser(form).Clicks("BtnAutoAverage"); });
    }
    /// Gives the main analysis these events and this colour, and computes it.
    void EditsToBe(const char* state, owl::TColor color) {
        user.Meets<TFormSpectrumMacro>([state](TFormSpectrumMacro& form) {
            const FormUser settings(form);
            settings.Clicks("rbByStateEvent");
            settings.SelectsRows("lvStateAccept", {state});
            settings.SelectsRows("lvReject", {"bad blink"});
            settings.Clicks("BtnSpeColor");
            settings.Clicks("BitBtnCompute");
        });
        user.ChoosesColor(color);
        Panel().Clicks("BtnEdit");
        RunQueue();
    }
    FormUser Panel() {
        for (QWidget* widget : window.findChildren<QWidget*>()) {
            if (auto* panel = dynamic_cast<TFormListenerSpectra1*>(widget)) {
                return FormUser(*panel);
            }
        }
        throw std::logic_error("no panel");
    }
    void RunQueue() {
        QApplication::processEvents();
        QApplication::processEvents();
    }
    /// What the view draws.
    const std::vector<std::string>& Drawn() {
        dc.Clear();
        owl::TRect all = view->GetClientRect();
        view->Draw(dc, true, all);
        return dc.Calls();
    }
    const spectrum_view::TraceEntry& Trace(const std::string& name) {
        const auto traces = view->GetTraces();
        const auto found = std::ranges::find_if(traces, [&](const auto& entry) {
            return entry.main != nullptr && entry.main->GetName() == name;
        });
        if (found == traces.end()) {
            throw std::logic_error("no trace " + name);
        }
        return *found;
    }
    /// Frequencies below the top of 20 Hz at which the trace's p-value is under the threshold.
    std::vector<double> SignificantAt(const std::string& trace) {
        const auto& channel = dynamic_cast<const SpectrumChn&>(*Trace(trace).main);
        const double* p = manager.GetP(channel.GetChn());
        std::vector<double> frequencies;
        for (std::uint64_t bin = 1; p != nullptr && manager.GetMain()->GetFreqFromIndex(bin) < 20; ++bin) {
            if (p[bin] < manager.GetPThreshold()) {
                frequencies.push_back(manager.GetMain()->GetFreqFromIndex(bin));
            }
        }
        return frequencies;
    }
    /// The mark of a frequency in the trace's plot, as it is drawn.
    std::string MarkAt(const std::string& trace, double hz) {
        const spectrum_view::FrequencyAxis axis = spectrum_view::AxisOf(*manager.GetMain(), 0, 32);
        std::vector<double> p(manager.GetMain()->GetFFTSamples() / 2 + 1, 1.0);
        p[manager.GetMain()->GetIndexFromFreq(hz)] = 0;
        const auto marks = spectrum_view::SignificanceMarks(Trace(trace).rectangle, axis, p, 0.05);
        std::string text = "polygon";
        for (const owl::TPoint& corner : marks.at(0)) {
            text += " " + std::to_string(corner.x) + "," + std::to_string(corner.y);
        }
        return text;
    }

    test::TempFolder folder;
    test::GlobalsGuard guard;
    test::FakeServices services;
    test::ScriptedUser user;
    std::unique_ptr<EEGFileInfoType> recording = Demo(folder.Path("demo.edf"));
    SpectraMgr manager{recording.get(), nullptr};
    test::FakeGlobalWindow window;
    std::unique_ptr<Spectrum> view;
    test::RecordingDC dc;
};

std::string Number(double value) {
    std::ostringstream text;
    text << value; // general format, 6 digits
    return text.str();
}

/// What the export of one analysis holds: a line of names, then one line for each epoch, all fields with a
/// tab behind them.
std::string ExportOf(const SpectMacroResult& analysis, const EEGFileInfoType& recording) {
    SensorList sensors;
    recording.GetTraceInfo()->GetSensorsList(sensors, Sensor::Class::Eeg);
    const std::uint64_t bins = analysis.GetFFTSamples() / 2;
    std::ostringstream text;
    text << "Macro\tContrast\t";
    for (const SensorType* sensor : sensors) {
        for (std::uint64_t bin = 1; bin < bins; ++bin) {
            text << sensor->GetName() << "(" << Number(analysis.GetResolutionHz() * static_cast<double>(bin))
                 << ")\t";
        }
    }
    text << '\n';
    for (std::uint64_t epoch = 0; epoch < analysis.GetSpeCartoonChnLen(); ++epoch) {
        text << analysis.GetName() << "\t0\t";
        for (const SensorType* sensor : sensors) {
            const SpectrumSingle& spectrum = *analysis.GetSpeCartoon(epoch, sensor);
            for (std::uint64_t bin = 1; bin < bins; ++bin) {
                text << Number(spectrum.GetValue(bin)) << '\t';
            }
        }
        text << '\n';
    }
    return text.str();
}

std::string ContentOf(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

TEST_F(Comparison, OfClosedWithOpenEyesMarksTheAlphaRhythmAndIsErasedAndExported) {
    OpenView();
    ASSERT_EQ(manager.Size(), 1u);
    EditsToBe("eyes closed", kBlue);
    ConfirmsTheMacro();
    Panel().Clicks("BtnSpectraNew");
    Panel().SelectsRow("lvMainList", 1);
    EditsToBe("eyes open", kOrange);
    SpectMacroResult* closed = *manager.begin();
    SpectMacroResult* open = *(manager.begin() + 1);
    EXPECT_EQ(closed->GetMacro().GetAcceptStateList(), std::set<std::string>{"eyes closed"});
    EXPECT_EQ(open->GetMacro().Color, kOrange);

    // Compares: closed eyes are the main spectrum.
    Panel().SelectsRow("lvMainList", 0);
    Panel().SelectsRow("lvSecondaryList", 0);
    ASSERT_EQ(manager.GetMain(), closed);
    ASSERT_EQ(manager.GetSecondary(), open);
    EXPECT_TRUE(closed->IsComputed() && open->IsComputed());
    ASSERT_FALSE(Panel().IsChecked("cbStat"));
    Drawn();
    EXPECT_THAT(Drawn(), Not(Contains(MarkAt("O1", 10))));
    Panel().Clicks("cbStat");
    Drawn();
    for (const double alpha : {9.0, 9.5, 10.0, 10.5, 11.0}) {
        EXPECT_THAT(SignificantAt("O1"), Contains(alpha));
        EXPECT_THAT(Drawn(), Contains(MarkAt("O1", alpha))) << alpha;
    }
    EXPECT_GT(closed->GetSpectrum(dynamic_cast<const SpectrumChn&>(*Trace("O1").main).GetChn())->GetValue(20),
              open->GetSpectrum(dynamic_cast<const SpectrumChn&>(*Trace("O1").main).GetChn())->GetValue(20));

    // Erases open eyes.
    Panel().SelectsRow("lvMainList", 1);
    user.AnswersMessage(owl::kIdYes);
    Panel().Clicks("BtnEraseSpectra");
    RunQueue();
    EXPECT_EQ(manager.Size(), 1u);
    EXPECT_EQ(manager.GetMain(), closed);
    EXPECT_EQ(manager.GetSecondary(), nullptr);
    EXPECT_THAT(Panel().RowsOf("lvSecondaryList"), IsEmpty());

    // Exports closed eyes.
    const std::string file = folder.Path("closed.txt");
    user.Meets<TSpectraExportForm>([](TSpectraExportForm& form) { FormUser(form).Clicks("BitBtnOk"); })
        .ChoosesFile(file);
    Panel().Clicks("BtnExport");
    EXPECT_TRUE(ContentOf(file) == ExportOf(*closed, *recording));
}

} // namespace
