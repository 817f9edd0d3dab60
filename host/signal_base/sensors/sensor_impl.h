// SPDX-License-Identifier: GPL-3.0-or-later
// The state of a sensor.
#pragma once

#include "spectra_contract/sensor.h"

struct SensorType::Impl {
    ElectInfo elect; ///< its name is the sensor's
    std::uint32_t type = Sensor::OtherSignal;
    double rateHz = 0;
    std::string unit; ///< kRawUnit for values without calibration
    std::string electrode;
    std::string reference;
    std::string recordedLabel;
    std::size_t signal = 0;
    bool bad = false;
};
