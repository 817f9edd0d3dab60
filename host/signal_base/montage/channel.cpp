// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/signal_base/montage/montage_impl.h"

#include "spectra_contract/spectrum.h"

#include <utility>

ChnType::ChnType(std::unique_ptr<Impl> impl) : impl_(std::move(impl)) {}
ChnType::~ChnType() = default;

const std::string& ChnType::GetName() const {
    return impl_->name;
}

const std::string& ChnType::GetLabelPos() const {
    return impl_->position;
}

const std::vector<ChannelTerm>& ChnType::GetTerms() const {
    return impl_->terms;
}

const std::vector<const SensorType*>& ChnType::GetCommonAverage() const {
    static const std::vector<const SensorType*> none;
    return impl_->commonAverage == nullptr ? none : *impl_->commonAverage;
}

std::pair<const SensorType*, const SensorType*> ChnType::GetElectrodes() const {
    const std::vector<ChannelTerm>& terms = impl_->terms;
    if (impl_->commonAverage != nullptr || terms.size() != 2 || terms[0].Weight != 1 ||
        terms[1].Weight != -1) {
        return {nullptr, nullptr};
    }
    return {terms[0].Sensor, terms[1].Sensor};
}

// The spectra's library stands above this one: only what needs no symbol of it may be called, which the
// run-time type check of the undefined-behaviour sanitizer does not know.
__attribute__((no_sanitize("vptr"))) bool ChnType::AcceptsSpectrum(const SpectrumSingle* spectrum) const {
    if (spectrum == nullptr) {
        return false;
    }
    const std::string& name = spectrum->GetName();
    const bool ofElectrode = !impl_->terms.empty() && name == impl_->terms.front().Sensor->GetName();
    return name == impl_->name || ofElectrode;
}

void ChnType::AssignChannel(const ChnType* other) {
    if (other == nullptr || other->impl_->terms.empty() || impl_->terms.empty()) {
        return;
    }
    const ChannelTerm reference = other->impl_->terms.front();
    ChannelTerm own = impl_->terms.front();
    if (own.Sensor == reference.Sensor) {
        // The new reference itself has no trace; the old reference takes its place.
        if (GetElectrodes().second == nullptr) {
            return;
        }
        own.Sensor = impl_->terms.back().Sensor;
    }
    impl_->commonAverage = nullptr;
    impl_->terms = {{own.Sensor, 1}, {reference.Sensor, -1}};
    impl_->position = own.Sensor->GetName();
    impl_->name = own.Sensor->GetName() + "-" + reference.Sensor->GetName();
}

std::shared_ptr<ChnType> ChnType::Copy() const {
    return std::make_shared<ChnType>(std::make_unique<Impl>(*impl_));
}

bool ChnType::operator==(const ChnType& other) const {
    return impl_->name == other.impl_->name && impl_->terms == other.impl_->terms &&
           orvanta::signal::SameAverage(*this, other);
}

namespace orvanta::signal {

bool SameAverage(const ChnType& a, const ChnType& b) {
    const std::vector<const SensorType*>& x = a.GetCommonAverage();
    const std::vector<const SensorType*>& y = b.GetCommonAverage();
    return &x == &y || x == y;
}

} // namespace orvanta::signal
