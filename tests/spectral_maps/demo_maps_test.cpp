// SPDX-License-Identifier: GPL-3.0-or-later
// The maps of the demo show its alpha rhythm where it was put: over the back of the head, with closed eyes.
#include "host/review/cli/demo_recording.h"
#include "host/signal_base/recording.h"
#include "tests/spectral_maps/map_fixture.h"
#include "tests/support/temp_folder.h"

#include <algorithm>
#include <map>

namespace {

using namespace orvanta;
using namespace orvanta::test;

class DemoMaps : public MapFixture {
protected:
    DemoMaps() {
        Grid(1, 1);
        Stored(0, Choice(kAlpha));
        cli::DemoParameters parameters;
        parameters.minutes = 2;
        cli::DemoSignal demo(parameters);
        cli::WriteDemoRecording(folder.Path("demo.edf"), demo);
        demoRecording = signal::OpenRecording(folder.Path("demo.edf"));
    }

    /// The map's values by electrode, of the stretches with this label.
    std::map<std::string, double> AlphaWith(const std::string& label) {
        SpectraMacro macro;
        macro.SetTimeIntervalSelectMode(SpectraMacro::TimeIntervalSelectMode::ByStateEvents);
        macro.SetAcceptStateList({label});
        macro.SetRejectEventsList({"bad blink"});
        SpectraMgr analyses(demoRecording.get(), nullptr);
        analyses.push_back(new SpectMacroResult(macro, demoRecording.get(), nullptr));
        SpectMap maps(window, demoRecording.get(), &analyses, false, ElectrodesOf(*demoRecording));
        maps.Create();
        maps.SetMapValues(true);
        const std::vector<double> values = maps.GetMap(0)->GetValues();
        std::map<std::string, double> byName;
        for (std::size_t i = 0; i < maps.GetElectrodes().size(); ++i) {
            byName[maps.GetElectrodes()[i].Name] = values.at(i);
        }
        maps.Destroy();
        return byName;
    }

    TempFolder folder;
    std::unique_ptr<EEGFileInfoType> demoRecording;
};

// The rhythm is at its full strength from Pz backwards.
TEST_F(DemoMaps, HaveMostAlphaAtTheBackOfTheHeadWithClosedEyes) {
    const auto closed = AlphaWith("eyes closed");
    double most = 0;
    for (const auto& [name, value] : closed) {
        most = std::max(most, value);
    }
    for (const char* posterior : {"O1", "O2", "Pz"}) {
        EXPECT_GT(closed.at(posterior), 0.9 * most) << posterior;
    }
    for (const char* anterior : {"Cz", "C3", "C4", "T7", "T8", "F3", "Fz", "F4", "Fp1", "Fp2"}) {
        EXPECT_LT(closed.at(anterior), 0.25 * most) << anterior;
    }
}

TEST_F(DemoMaps, HaveMoreAlphaWithClosedEyesThanWithOpenOnes) {
    auto closed = AlphaWith("eyes closed");
    auto open = AlphaWith("eyes open");
    for (const char* posterior : {"O1", "O2", "P3", "P4", "Pz"}) {
        EXPECT_GT(closed.at(posterior), 3 * open.at(posterior)) << posterior;
    }
}

} // namespace
