// SPDX-License-Identifier: GPL-3.0-or-later
#include "spectra_contract/events.h"

#include <algorithm>

FlagListener::FlagListener(const char* name, ManagedFlag* flag)
    : name_(name == nullptr ? "" : name), flag_(flag) {
    if (flag_ != nullptr) {
        flag_->Attach(this);
    }
}

FlagListener::FlagListener(const char* name, ManagedFlag& flag) : FlagListener(name, &flag) {}

FlagListener::FlagListener(const FlagListener& other) : FlagListener(other.name_.c_str(), other.flag_) {}

FlagListener& FlagListener::operator=(const FlagListener& other) {
    if (this != &other) {
        name_ = other.name_;
    }
    if (flag_ != other.flag_) {
        if (flag_ != nullptr) {
            flag_->Detach(this);
        }
        flag_ = other.flag_;
        if (flag_ != nullptr) {
            flag_->Attach(this);
        }
    }
    return *this;
}

FlagListener::~FlagListener() {
    if (flag_ != nullptr) {
        flag_->Detach(this);
    }
}

ManagedFlag::~ManagedFlag() {
    for (FlagListener* listener : listeners_) {
        listener->flag_ = nullptr;
    }
}

void ManagedFlag::Set() {
    // A copy is walked, because an action may register and unregister listeners; those that are gone by
    // their turn are left out.
    const std::vector<FlagListener*> listeners = listeners_;
    for (FlagListener* listener : listeners) {
        if (std::find(listeners_.begin(), listeners_.end(), listener) != listeners_.end()) {
            listener->PerformAction();
        }
    }
}

void ManagedFlag::Attach(FlagListener* listener) {
    listeners_.push_back(listener);
}

void ManagedFlag::Detach(FlagListener* listener) {
    std::erase(listeners_, listener);
}
