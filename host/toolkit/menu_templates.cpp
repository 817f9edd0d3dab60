// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/toolkit/menu_templates.h"

#include <map>

namespace owl {

namespace {

std::map<unsigned, std::span<const MenuItem>>& Templates() {
    static std::map<unsigned, std::span<const MenuItem>> templates;
    return templates;
}

} // namespace

void RegisterMenuTemplate(unsigned number, std::span<const MenuItem> items) {
    if (items.empty()) {
        Templates().erase(number);
    } else {
        Templates()[number] = items;
    }
}

std::span<const MenuItem> MenuTemplate(unsigned number) {
    const auto found = Templates().find(number);
    return found != Templates().end() ? found->second : std::span<const MenuItem>();
}

} // namespace owl
