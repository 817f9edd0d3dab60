// SPDX-License-Identifier: GPL-3.0-or-later
// Checks that several commands make of their arguments.
#pragma once

#include <CLI/CLI.hpp>

#include <cmath>
#include <string>

namespace orvanta::cli {

/// An empty name is an empty variable of a script more often than a wish.
inline CLI::Validator IsNotEmpty() {
    return {[](const std::string& name) { return name.empty() ? std::string("is empty") : std::string(); },
            ""};
}

/// For a file that is saved whole or not at all, which standard output cannot promise.
inline CLI::Validator NamesAFile() {
    return {[](const std::string& name) {
                return name.empty() || name == "-" ? std::string("needs a file name") : std::string();
            },
            ""};
}

/// A whole number from \p least to \p most. CLI11's own range says of 1.5 that it is not in it.
inline CLI::Validator IsWholeIn(int least, int most) {
    return {[least, most](const std::string& text) {
                int value = 0;
                const bool fits = CLI::detail::lexical_cast(text, value) && value >= least && value <= most;
                return fits ? std::string()
                            : text + " is no whole number from " + std::to_string(least) + " to " +
                                  std::to_string(most);
            },
            ""};
}

/// A number from \p least to \p most. CLI11's own range lets "nan" pass.
inline CLI::Validator IsNumberIn(double least, double most) {
    return {[range = CLI::Range(least, most)](const std::string& text) {
                double value = 0;
                if (CLI::detail::lexical_cast(text, value) && std::isnan(value)) {
                    return text + " is no number";
                }
                return range(text);
            },
            ""};
}

} // namespace orvanta::cli
