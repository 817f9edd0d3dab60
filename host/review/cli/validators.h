// SPDX-License-Identifier: GPL-3.0-or-later
// Checks that several commands make of their arguments.
#pragma once

#include <CLI/CLI.hpp>

#include <string>

namespace orvanta::cli {

/// An empty name is an empty variable of a script more often than a wish.
inline CLI::Validator IsNotEmpty() {
    return {[](const std::string& name) { return name.empty() ? std::string("is empty") : std::string(); },
            ""};
}

} // namespace orvanta::cli
