// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/host/chart_view/electrode_sets.h"

#include "host/signal_base/recording.h"
#include "host/signal_base/sensors/positions.h"
#include "tests/support/memory_source.h"

#include <algorithm>
#include <set>
#include <sstream>

namespace orvanta::test {

namespace {

constexpr const char* k21 = "Fp1 Fpz Fp2 F7 F3 Fz F4 F8 T7 C3 Cz C4 T8 P7 P3 Pz P4 P8 O1 Oz O2";
constexpr const char* k32 =
    "Fp1 Fp2 AF3 AF4 F7 F3 Fz F4 F8 FC5 FC1 FC2 FC6 T7 C3 Cz C4 T8 CP5 CP1 CP2 CP6 P7 "
    "P3 Pz P4 P8 PO3 PO4 O1 Oz O2";
constexpr const char* kRestOf64 = " AF7 AF3 AFz AF4 AF8 F5 F1 F2 F6 FT7 FC5 FC3 FC1 FCz FC2 FC4 FC6 FT8 C5 "
                                  "C1 C2 C6 TP7 CP5 CP3 CP1 CPz CP2 "
                                  "CP4 CP6 TP8 P5 P1 P2 P6 PO7 PO3 POz PO4 PO8 Iz P9 P10";

std::vector<std::string> Split(const std::string& names) {
    std::istringstream in(names);
    std::vector<std::string> split;
    for (std::string name; in >> name;) {
        split.push_back(name);
    }
    return split;
}

/// Positions between those of 10-10 first, then all others, but neither ears nor second names.
std::vector<std::string> StandardNames() {
    const std::set<std::string> leftOut{"a1", "a2", "m1", "m2", "t3", "t4", "t5", "t6"};
    std::vector<std::string> names;
    for (const auto& [key, electrode] : signal::StandardPositions()) {
        if (!leftOut.contains(key)) {
            names.push_back(electrode.Name);
        }
    }
    std::sort(names.begin(), names.end(), [](const std::string& a, const std::string& b) {
        return std::pair(!a.ends_with('h'), a) < std::pair(!b.ends_with('h'), b);
    });
    return names;
}

} // namespace

std::vector<std::string> ElectrodeSet(std::size_t count) {
    if (count == 32) {
        return Split(k32);
    }
    std::vector<std::string> names = Split(count == 21 ? k21 : std::string(k21) + kRestOf64);
    std::set<std::string> known(names.begin(), names.end());
    for (const std::string& name : StandardNames()) {
        if (names.size() < count && known.insert(name).second) {
            names.push_back(name);
        }
    }
    return names;
}

std::unique_ptr<EEGFileInfoType> RecordingOf(const std::vector<std::string>& electrodes) {
    std::vector<MadeSignal> signals;
    for (const std::string& name : electrodes) {
        signals.push_back({name, 8, std::vector<double>(8), "uV"});
    }
    return signal::MakeRecording(MakeData(signals));
}

SensorList EegSensors(const EEGFileInfoType& recording) {
    SensorList sensors;
    recording.GetTraceInfo()->GetSensorsListOfType(sensors, Sensor::EegFamily, Sensor::Class::Eeg);
    return sensors;
}

} // namespace orvanta::test
