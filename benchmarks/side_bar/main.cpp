// SPDX-License-Identifier: GPL-3.0-or-later
// Choosing another main or secondary spectrum in the side bar until the view has drawn it: 64 channels at
// 256 Hz, 20 analyses of 2 s windows over two minutes, a window of 1920 × 1080 logical pixels.
#include "benchmarks/window_benchmarks.h"
#include "host/signal_base/recording.h"
#include "host/toolkit/menu_templates.h"
#include "resources/menus/spectrum_menu.h"
#include "side_bar/spectra_panel.h"
#include "spectra_contract/spectra_mgr.h"
#include "spectrum_view/spectrum.h"
#include "tests/support/memory_source.h"
#include "tests/support/qt/fake_global_window.h"

#include <QCheckBox>
#include <QSplitter>
#include <QTreeWidget>

#include <random>

namespace {

using namespace orvanta;

constexpr int kRate = 256;
constexpr int kSeconds = 120;
constexpr int kAnalyses = 20;

const char* const kSites[] = {"Fp1", "Fp2", "AF7", "AF3", "AFz", "AF4", "AF8", "F7",  "F5",  "F3",  "F1",
                              "Fz",  "F2",  "F4",  "F6",  "F8",  "FT7", "FC5", "FC3", "FC1", "FCz", "FC2",
                              "FC4", "FC6", "FT8", "T7",  "C5",  "C3",  "C1",  "Cz",  "C2",  "C4",  "C6",
                              "T8",  "TP7", "CP5", "CP3", "CP1", "CPz", "CP2", "CP4", "CP6", "TP8", "P7",
                              "P5",  "P3",  "P1",  "Pz",  "P2",  "P4",  "P6",  "P8",  "PO7", "PO3", "POz",
                              "PO4", "PO8", "O1",  "Oz",  "O2",  "F9",  "F10", "P9",  "P10"};

std::unique_ptr<EEGFileInfoType> Noise() {
    std::mt19937 random(1);
    std::normal_distribution<double> noise(0, 10);
    std::vector<test::MadeSignal> signals;
    for (const char* site : kSites) {
        test::MadeSignal& signal = signals.emplace_back();
        signal.label = site;
        signal.rate_hz = kRate;
        for (int i = 0; i < kRate * kSeconds; ++i) {
            signal.values.push_back(noise(random));
        }
    }
    return signal::MakeRecording(test::MakeData(signals));
}

/// The view with its side bar, on the screen, every analysis computed.
class Session {
public:
    Session() {
        owl::RegisterMenuTemplate(resources::kSpectrumMenu, resources::kSpectrumMenuItems);
        for (int i = 0; i < kAnalyses; ++i) {
            auto* analysis = new SpectMacroResult(SpectraMacro(), recording.get(), nullptr);
            analysis->Compute(nullptr);
            manager.push_back(analysis);
        }
        view.ChangeViewMode(Layout::Mode::Scalp);
        window.resize(1920, 1080);
        view.Panes().resize(1920, 1080);
        window.show();
        view.Panes().show();
        window.activateWindow();
        view.SetFocus();
        RunQueue();
    }
    ~Session() { owl::RegisterMenuTemplate(resources::kSpectrumMenu, {}); }
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;

    /// Selects the row and waits until all is drawn.
    void Select(const char* list, int row) {
        auto* rows = window.findChild<QTreeWidget*>(list);
        rows->setCurrentItem(rows->topLevelItem(row));
        RunQueue();
    }
    void ShowTTest() {
        window.findChild<QCheckBox*>("cbStat")->setChecked(true);
        window.findChild<QCheckBox*>("cbSpectRatio")->setChecked(true);
        RunQueue();
    }
    std::size_t Computations() const { return window.platform.gui.Progresses().size(); }

private:
    static void RunQueue() {
        QApplication::processEvents();
        QApplication::processEvents();
    }

    std::unique_ptr<EEGFileInfoType> recording = Noise();
    SpectraMgr manager{recording.get(), nullptr};
    test::FakeGlobalWindow window;
    Spectrum view{window, recording.get(), &manager, false};
};

/// Argument: 0 the main spectrum alone, 1 compared with a secondary one, t-test and ratio shown.
void ChooseMain(benchmark::State& state) {
    Session session;
    if (state.range(0) != 0) {
        session.Select("lvSecondaryList", kAnalyses - 2);
        session.ShowTTest();
    }
    int row = 0;
    MeasureRounds(state, [&] {
        row = (row + 1) % (kAnalyses - 1);
        session.Select("lvMainList", row);
    });
    if (session.Computations() != 0) {
        state.SkipWithError("something was computed again");
    }
}
BENCHMARK(ChooseMain)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

void ChooseSecondary(benchmark::State& state) {
    Session session;
    session.Select("lvSecondaryList", kAnalyses - 2);
    session.ShowTTest();
    int row = 0;
    MeasureRounds(state, [&] {
        row = (row + 1) % (kAnalyses - 1);
        session.Select("lvSecondaryList", row);
    });
    if (session.Computations() != 0) {
        state.SkipWithError("something was computed again");
    }
}
BENCHMARK(ChooseSecondary)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char* argv[]) {
    return orvanta::RunWindowBenchmarks(argc, argv);
}
