// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/toolkit/module.h"

namespace owl {

namespace {

std::vector<TModule*>& Registry() {
    // Never destroyed: modules end while the process exits, in an order that nobody here knows.
    static auto& modules = *new std::vector<TModule*>;
    return modules;
}

} // namespace

TModule::TModule(const char* name, HINSTANCE instance, bool registered) : name_(name), instance_(instance) {
    if (registered) {
        Registry().push_back(this);
    }
}

TModule::~TModule() {
    std::erase(Registry(), this);
}

const std::vector<TModule*>& RegisteredModules() {
    return Registry();
}

} // namespace owl
