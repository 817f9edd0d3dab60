// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/signal_base/montage/montage_impl.h"

#include <algorithm>
#include <set>

namespace {

bool IsRecordedDifference(const ChnType& channel) {
    return channel.GetTerms().size() == 1 && channel.GetTerms().front().Sensor->GetElectrode().empty();
}

/// What is subtracted from the first electrode is the same.
bool SameReference(const ChnType& a, const ChnType& b) {
    const std::vector<ChannelTerm>& x = a.GetTerms();
    const std::vector<ChannelTerm>& y = b.GetTerms();
    return !x.empty() && !y.empty() && std::equal(x.begin() + 1, x.end(), y.begin() + 1, y.end()) &&
           orvanta::signal::SameAverage(a, b);
}

/// Every channel shows an electrode of its own, unscaled.
bool OneElectrodeEach(const std::vector<std::shared_ptr<ChnType>>& channels) {
    std::set<const SensorType*> electrodes;
    return std::all_of(channels.begin(), channels.end(), [&](const auto& channel) {
        const ChannelTerm& first = channel->GetTerms().front();
        return first.Weight == 1 && electrodes.insert(first.Sensor).second;
    });
}

} // namespace

MontageType::MontageType() : impl_(std::make_unique<Impl>()) {}
MontageType::MontageType(std::unique_ptr<Impl> impl) : impl_(std::move(impl)) {}

MontageType::MontageType(const MontageType& other) : impl_(std::make_unique<Impl>(*other.impl_)) {
    for (std::shared_ptr<ChnType>& channel : impl_->channels) {
        channel = channel->Copy();
    }
}

MontageType& MontageType::operator=(const MontageType& other) {
    if (this != &other) {
        *this = MontageType(other);
    }
    return *this;
}

MontageType::MontageType(MontageType&&) noexcept = default;
MontageType& MontageType::operator=(MontageType&&) noexcept = default;
MontageType::~MontageType() = default;

const std::string& MontageType::GetName() const {
    if (impl_->kind == Kind::Reference && !impl_->channels.empty()) {
        // The reference may have been changed channel by channel since the montage was made.
        const SensorType* reference = impl_->channels.front()->GetElectrodes().second;
        if (reference != nullptr && impl_->name != "Reference " + reference->GetName()) {
            impl_->name = "Reference " + reference->GetName();
        }
    }
    return impl_->name;
}

MontageType::Kind MontageType::GetKind() const {
    return impl_->kind;
}

std::size_t MontageType::GetNumTraces() const {
    return impl_->channels.size();
}

ChnType* MontageType::GetChn(std::size_t index) const {
    return index < impl_->channels.size() ? impl_->channels[index].get() : nullptr;
}

MontageType::const_iterator MontageType::BeginChn() const {
    return impl_->channels.begin();
}

MontageType::const_iterator MontageType::EndChn() const {
    return impl_->channels.end();
}

bool MontageType::IsMappable() const {
    return GetNumBip() == 0 && (impl_->kind != Kind::User || OneElectrodeEach(impl_->channels));
}

unsigned MontageType::GetNumBip() const {
    const auto& channels = impl_->channels;
    const auto all = static_cast<unsigned>(channels.size());
    if (impl_->kind == Kind::Bipolar) {
        return all;
    }
    const bool electrodes = std::all_of(channels.begin(), channels.end(), [&](const auto& channel) {
        return SameReference(*channel, *channels.front()) && !IsRecordedDifference(*channel);
    });
    return electrodes ? 0 : all;
}

bool MontageType::operator==(const MontageType& other) const {
    return GetName() == other.GetName() && std::equal(BeginChn(), EndChn(), other.BeginChn(), other.EndChn(),
                                                      [](const auto& a, const auto& b) { return *a == *b; });
}
