// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/signal_base/recording/recording_impl.h"

#include "host/signal_base/montage/builders.h"
#include "host/signal_base/text.h"

namespace {

bool Belongs(const SensorType& sensor, Sensor::Class sensorClass) {
    return sensorClass == Sensor::Class::Eeg ? sensor.IsEeg() : sensor.IsSignal() && sensor.GetRateHz() > 0;
}

} // namespace

TraceInfoType::TraceInfoType(std::unique_ptr<Impl> impl) : impl_(std::move(impl)) {}
TraceInfoType::~TraceInfoType() = default;

void TraceInfoType::GetSensorsListOfType(SensorList& list, std::uint32_t mask,
                                         Sensor::Class sensorClass) const {
    for (const auto& sensor : impl_->recording->Sensors()) {
        if ((sensor->GetType() & mask) == mask && Belongs(*sensor, sensorClass)) {
            list.push_back(sensor.get());
        }
    }
}

void TraceInfoType::GetSensorsList(SensorList& list, Sensor::Class sensorClass) const {
    GetSensorsListOfType(list, 0, sensorClass);
}

SensorType* TraceInfoType::FindSensor(const std::string& name) const {
    using orvanta::signal::SameText;
    for (const auto& sensor : impl_->recording->Sensors()) {
        if (SameText(sensor->GetName(), name)) {
            return sensor.get();
        }
    }
    const SensorType* electrode = orvanta::signal::FindElectrode(impl_->recording->Sensors(), name);
    for (const auto& sensor : impl_->recording->Sensors()) {
        if (SameText(sensor->GetRecordedLabel(), name) || sensor.get() == electrode) {
            return sensor.get();
        }
    }
    return nullptr;
}

EEGTraceInfoType::EEGTraceInfoType(std::unique_ptr<Impl> impl, MontageType montage)
    : TraceInfoType(std::move(impl)), montage_(std::move(montage)) {}
