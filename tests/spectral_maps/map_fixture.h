// SPDX-License-Identifier: GPL-3.0-or-later
// A maps view of a recording whose measures are known by its making.
#pragma once

#include "host/toolkit/menu_templates.h"
#include "resources/dialogs/dialog_templates.h"
#include "resources/menus/maps_menu.h"
#include "spectra_contract/recording.h"
#include "spectra_contract/spectra_mgr.h"
#include "spectral_maps/spect_map.h"
#include "spectral_maps/spectral_map_window.h"
#include "tests/support/globals_guard.h"
#include "tests/support/qt/fake_global_window.h"
#include "tests/support/small_recording.h"

#include <QApplication>
#include <QSplitter>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <memory>
#include <string>
#include <vector>

namespace orvanta::test {

/// Fp1, Cz, O1 and O2 for 6 s at 64 Hz. In second e (from 0), electrode j (from 1) has 10 Hz with an
/// amplitude of 2·j·(1 + e) µV and 6 Hz with 10 − 2·j µV. With windows of 1 s without taper and overlap an
/// epoch's band power is half the squared amplitude: Alpha (2·j²·(1 + e)²), Theta 32, 18, 8 and 2.
inline std::unique_ptr<EEGFileInfoType>
KnownRecording(std::size_t seconds = 6, const std::vector<signal::Annotation>& annotations = {}) {
    constexpr std::size_t kRate = 64;
    constexpr double kTwoPi = 6.283185307179586;
    std::vector<MadeSignal> signals;
    for (const char* label : {"Fp1", "Cz", "O1", "O2"}) {
        const double amplitude = 2.0 * static_cast<double>(signals.size() + 1);
        MadeSignal made{label, kRate, {}, "uV"};
        for (std::size_t i = 0; i < seconds * kRate; ++i) {
            const double t = static_cast<double>(i) / kRate;
            const std::size_t second = i / kRate;
            const double growth = 1.0 + static_cast<double>(second);
            made.values.push_back(amplitude * growth * std::sin(kTwoPi * 10 * t) +
                                  (10 - amplitude) * std::sin(kTwoPi * 6 * t));
        }
        signals.push_back(made);
    }
    return signal::MakeRecording(MakeData(signals, annotations));
}

/// Windows of 1 s without taper and overlap.
inline SpectraMacro PlainMacro(double seconds = 1) {
    SpectraMacro macro = SmallMacro("Rectangular", 0);
    macro.SetFFTSeconds(seconds);
    return macro;
}

inline std::vector<ElectInfo> ElectrodesOf(const EEGFileInfoType& recording) {
    SensorList sensors;
    recording.GetTraceInfo()->GetSensorsListOfType(sensors, Sensor::EegFamily, Sensor::Class::Eeg);
    std::vector<ElectInfo> electrodes;
    for (const SensorType* sensor : sensors) {
        electrodes.push_back(sensor->GetElectInfo());
    }
    return electrodes;
}

/// Bands by their index.
enum Band { kDelta, kTheta, kAlpha, kBeta, kGamma, kUndefined };

inline SPECT::PlotSet Choice(int band, SPECT::Meas::Type measure = SPECT::Meas::Type::Abs) {
    SPECT::PlotSet choice;
    choice.SpectralBand = band;
    choice.SpectralMeas = static_cast<int>(measure);
    return choice;
}

/// Four maps in two rows; the settings of a new user but for that.
class MapFixture : public testing::Test {
protected:
    MapFixture() {
        owl::RegisterMenuTemplate(resources::kMapsMenu, resources::kMapsMenuItems);
        resources::RegisterDialogs();
        Grid(2, 2);
    }
    ~MapFixture() override {
        view.reset();
        resources::ForgetDialogs();
        owl::RegisterMenuTemplate(resources::kMapsMenu, {});
    }

    void Grid(int rows, int columns) {
        Setting("SpectMap/MapRows") = rows;
        Setting("SpectMap/MapColumns") = columns;
    }
    /// What map \p index shows, in the user's settings.
    void Stored(int index, const SPECT::PlotSet& choice) {
        const std::string section = "SpectMap_Map_" + std::to_string(index) + "/";
        Setting(section + "SpectralBand") = choice.SpectralBand;
        Setting(section + "SpectralMeas") = choice.SpectralMeas;
        Setting(section + "bAutoScale") = choice.bAutoScale ? 1 : 0;
        Setting(section + "bZeroMin") = choice.bZeroMin ? 1 : 0;
        Setting(section + "LoScale") = choice.LoScale;
        Setting(section + "HiScale") = choice.HiScale;
    }
    SpectMacroResult* Add(const SpectraMacro& macro = PlainMacro()) {
        auto* analysis = new SpectMacroResult(macro, recording.get(), nullptr);
        manager.push_back(analysis);
        return analysis;
    }
    SpectMap& Make(bool threeD = false) {
        view =
            std::make_unique<SpectMap>(window, recording.get(), &manager, threeD, ElectrodesOf(*recording));
        return *view;
    }
    /// Made and set up, not on the screen.
    SpectMap& Open(bool threeD = false) {
        Make(threeD).Create();
        return *view;
    }
    /// On the screen, with everything drawn that was to be drawn.
    SpectMap& Show(bool threeD = false) {
        Make(threeD);
        window.resize(640, 480);
        view->Panes().resize(640, 480);
        window.show();
        view->Panes().show();
        RunQueue();
        return *view;
    }
    static void RunQueue() {
        QApplication::processEvents();
        QApplication::processEvents();
    }
    TSpectralMapWindow& Map(std::size_t index) const {
        return dynamic_cast<TSpectralMapWindow&>(*view->GetMap(index));
    }
    std::vector<std::string> Titles() const {
        std::vector<std::string> titles;
        for (std::size_t i = 0; i < view->GetNumMaps(); ++i) {
            titles.push_back(Map(i).GetTitle());
        }
        return titles;
    }
    std::vector<std::string> Units() const {
        std::vector<std::string> units;
        for (std::size_t i = 0; i < view->GetNumMaps(); ++i) {
            units.push_back(Map(i).GetMeasureUnit());
        }
        return units;
    }
    SPECT::PlotSet PlotSetOf(std::size_t index) const {
        SPECT::PlotSet plotSet;
        Map(index).GetPlotSet(plotSet);
        return plotSet;
    }
    QAction* Item(unsigned id) const { return view->GetMenu().Item(id); }
    double& Setting(const std::string& name) { return window.platform.user.values[name]; }

    GlobalsGuard guard;
    std::unique_ptr<EEGFileInfoType> recording = KnownRecording();
    SpectraMgr manager{recording.get(), nullptr};
    FakeGlobalWindow window;
    std::unique_ptr<SpectMap> view;
};

/// Values of a map within single precision.
inline auto Near(const std::vector<double>& values) {
    std::vector<testing::Matcher<double>> near(values.size());
    std::transform(values.begin(), values.end(), near.begin(),
                   [](double value) { return testing::DoubleNear(value, 1e-5 * (1 + std::abs(value))); });
    return testing::ElementsAreArray(near);
}

} // namespace orvanta::test
