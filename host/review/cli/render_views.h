// SPDX-License-Identifier: GPL-3.0-or-later
// The options of orvanta render that belong to one view.
#pragma once

#include "host/review/app/review_entry.h"

#include <CLI/CLI.hpp>

#include <map>
#include <memory>
#include <string>
#include <vector>

namespace orvanta::cli {

/// A page of the maps view as it is asked for.
struct MapsChoice {
    review::MapsPage page; ///< without maps
    std::vector<std::string> maps;
    std::string scaleRange;
    bool cartoon = false;
    double framesPerSecond = 25;

    /// The page with its maps. \throws UsageError
    review::MapsPage Page() const;
};

void AddSpectrumView(CLI::App& command, review::RenderRequest& request);
void AddMapsView(CLI::App& command, MapsChoice& choice);

/// An option that takes one of some names, case ignored.
template <typename Value>
void AddChoice(CLI::App& command, const char* name, const char* what,
               const std::map<std::string, Value>& values, Value& value) {
    command.add_option(name, value, what)
        ->transform(CLI::Validator(CLI::CheckedTransformer(values, CLI::ignore_case)).description(""))
        ->type_name("NAME");
}

} // namespace orvanta::cli
