// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/bridge/map_electrodes.h"

#include "spectra_contract/recording.h"

namespace orvanta::review {

std::vector<ElectInfo> MapElectrodes(const EEGFileInfoType& recording) {
    SensorList sensors;
    recording.GetTraceInfo()->GetSensorsListOfType(sensors, Sensor::EegFamily, Sensor::Class::Eeg);
    std::vector<ElectInfo> electrodes;
    for (const SensorType* sensor : sensors) {
        electrodes.push_back(sensor->GetElectInfo());
    }
    return electrodes;
}

} // namespace orvanta::review
