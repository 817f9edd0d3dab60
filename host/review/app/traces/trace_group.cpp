// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/app/traces/trace_group.h"

#include "spectra_contract/sensor.h"

namespace orvanta::review {

TraceGroup GroupOf(std::uint32_t type) {
    if ((type & Sensor::EegFamily) == Sensor::EegFamily) {
        return TraceGroup::Eeg;
    }
    switch (type) {
    case Sensor::Eog:
        return TraceGroup::Eog;
    case Sensor::Ecg:
        return TraceGroup::Ecg;
    case Sensor::Emg:
        return TraceGroup::Emg;
    case Sensor::Respiration:
        return TraceGroup::Respiration;
    default:
        return TraceGroup::Other;
    }
}

const char* NameOf(TraceGroup group) {
    constexpr std::array kNames{"EEG", "EOG", "ECG", "EMG", "Respiration", "Other"};
    return kNames[static_cast<std::size_t>(group)];
}

} // namespace orvanta::review
