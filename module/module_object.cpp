// SPDX-License-Identifier: GPL-3.0-or-later
#include "module/module_object.h"

#include "host/toolkit/menu_templates.h"
#include "host/toolkit/module.h"
#include "resources/dialogs/dialog_templates.h"
#include "resources/menus/maps_menu.h"
#include "resources/menus/spectrum_menu.h"

#include <array>
#include <cstdint>
#include <cstdio>
#include <optional>

namespace orvanta::module {

namespace {

constexpr std::size_t kFileNameBuffer = 260;

struct State {
    unsigned users = 0;
    std::uint16_t startUpFlags = 0;
    owl::TModule* module = nullptr;
    std::optional<PModule> messages;
};

State& TheState() {
    static State state;
    return state;
}

void BuildModule(HINSTANCE instance) {
    std::array<char, kFileNameBuffer> fileName{};
    std::snprintf(fileName.data(), fileName.size(), "%s", owl::ModuleFileName(instance).c_str());
    static owl::TModule module(fileName.data(), instance, true);
    TheState().module = &module;
}

} // namespace

void Attach(HINSTANCE instance) {
    State& state = TheState();
    if (state.users++ > 0) {
        return;
    }
    state.startUpFlags = 0;
    BuildModule(instance);
    if (!state.messages) {
        state.messages.emplace("Orvanta", instance);
    }
    owl::RegisterMenuTemplate(resources::kSpectrumMenu, resources::kSpectrumMenuItems);
    owl::RegisterMenuTemplate(resources::kMapsMenu, resources::kMapsMenuItems);
    resources::RegisterDialogs();
}

void Detach() {
    State& state = TheState();
    if (state.users > 0 && --state.users == 0) {
        resources::ForgetDialogs();
        owl::RegisterMenuTemplate(resources::kMapsMenu, {});
        owl::RegisterMenuTemplate(resources::kSpectrumMenu, {});
        state.messages.reset();
    }
}

owl::TModule** ModulePointer() {
    State& state = TheState();
    if (state.module == nullptr) {
        BuildModule(nullptr);
    }
    return &state.module;
}

const PModule* MessageModule() {
    const State& state = TheState();
    return state.messages ? &*state.messages : nullptr;
}

} // namespace orvanta::module
