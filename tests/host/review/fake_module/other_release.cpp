// SPDX-License-Identifier: GPL-3.0-or-later
// A module that was built for another release of the window layer: it knows no caller's version.
#include <cstdint>

extern "C" __attribute__((visibility("default"))) void* GetModulePtr(std::uint32_t /*version*/) {
    return nullptr;
}
