// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/signal_base/montage/builders.h"

#include "host/signal_base/text.h"

#include <algorithm>

MontageList::MontageList(std::unique_ptr<Impl> impl) : impl_(std::move(impl)) {}
MontageList::~MontageList() = default;

MontageList::const_iterator MontageList::begin() const {
    return impl_->montages.begin();
}

MontageList::const_iterator MontageList::end() const {
    return impl_->montages.end();
}

std::size_t MontageList::Size() const {
    return impl_->montages.size();
}

std::size_t MontageList::GetCurrentIndex() const {
    return impl_->current;
}

void MontageList::SetCurrentIndex(std::size_t index) {
    if (index < Size()) {
        impl_->current = index;
    }
}

MontageType* MontageList::Get(std::size_t index) const {
    return index < Size() ? impl_->montages[index].get() : nullptr;
}

MontageType* MontageList::Find(const std::string& name) const {
    const auto found = std::find_if(begin(), end(), [&](const auto& montage) {
        return orvanta::signal::SameText(montage->GetName(), name);
    });
    return found == end() ? nullptr : found->get();
}

MontageType* MontageList::GetUniMtg() const {
    return impl_->montages[impl_->unipolar].get();
}

MontageType* MontageList::GetRefMtg() const {
    return impl_->montages[impl_->reference].get();
}

void MontageList::ReplaceUser(std::vector<MontageType> montages) {
    const std::string current = impl_->montages[impl_->current]->GetName();
    // They stand behind the standard ones, whose places stay.
    std::erase_if(impl_->montages,
                  [](const auto& montage) { return montage->GetKind() == MontageType::Kind::User; });
    for (MontageType& montage : montages) {
        Add(std::move(montage));
    }
    const auto same = std::find_if(begin(), end(), [&](const auto& montage) {
        return orvanta::signal::SameText(montage->GetName(), current);
    });
    impl_->current = same == end() ? impl_->unipolar : static_cast<std::size_t>(same - begin());
}

std::size_t MontageList::Add(MontageType montage) {
    using orvanta::signal::SameText;
    const auto sameName = [&](const std::string& name) {
        return std::find_if(begin(), end(),
                            [&](const auto& entry) { return SameText(entry->GetName(), name); });
    };
    auto at = sameName(montage.GetName());
    if (at != end() && (*at)->GetKind() != MontageType::Kind::User) {
        montage = orvanta::signal::Renamed(montage, montage.GetName() + " (user)");
        at = sameName(montage.GetName());
    }
    if (at == end()) {
        impl_->montages.push_back(std::make_shared<MontageType>(std::move(montage)));
        return Size() - 1;
    }
    **at = std::move(montage);
    return static_cast<std::size_t>(at - begin());
}
