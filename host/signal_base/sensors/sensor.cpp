// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/signal_base/sensors/sensor_impl.h"

#include <algorithm>
#include <cmath>
#include <limits>

SensorType::SensorType(std::unique_ptr<Impl> impl) : impl_(std::move(impl)) {}
SensorType::~SensorType() = default;

const std::string& SensorType::GetName() const {
    return impl_->elect.Name;
}

std::uint32_t SensorType::GetType() const {
    return impl_->type;
}

bool SensorType::IsSignal() const {
    return impl_->type != Sensor::Status && impl_->type != Sensor::Annotations;
}

bool SensorType::IsVirtual() const {
    return false;
}

std::uint32_t SensorType::GetAcqSR() const {
    constexpr double kMost = std::numeric_limits<std::uint32_t>::max();
    return static_cast<std::uint32_t>(std::clamp(std::round(impl_->rateHz), 0.0, kMost));
}

double SensorType::GetRateHz() const {
    return impl_->rateHz;
}

const std::string& SensorType::GetUnit() const {
    return impl_->unit;
}

ElectInfo SensorType::GetElectInfo() const {
    return impl_->elect;
}

const std::string& SensorType::GetElectrode() const {
    return impl_->electrode;
}

const std::string& SensorType::GetReference() const {
    return impl_->reference;
}

const std::string& SensorType::GetRecordedLabel() const {
    return impl_->recordedLabel;
}

std::size_t SensorType::GetSignalIndex() const {
    return impl_->signal;
}

bool SensorType::IsBad() const {
    return impl_->bad;
}

void SensorType::SetBad(bool bad) {
    impl_->bad = bad;
}
