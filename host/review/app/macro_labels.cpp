// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/app/macro_labels.h"

#include "host/toolkit/services.h"
#include "spectra_contract/events.h"
#include "spectra_contract/spectra_macro.h"

#include <set>

namespace orvanta::review {

std::vector<SpectraMacro> MacrosIn(const std::string& folder) {
    constexpr int kUnreadable = 2; // of SpectraMacro::Load
    std::vector<SpectraMacro> macros;
    for (const std::string& name : owl::CurrentServices().files->FilesIn(folder, ".smx")) {
        SpectraMacro macro;
        if (macro.Load(folder + name) != kUnreadable) {
            macros.push_back(macro);
        }
    }
    return macros;
}

void AddLabelsOf(const std::vector<SpectraMacro>& macros, EventsManager& events) {
    std::set<XEventType> types;
    const auto add = [&types](const std::set<std::string>& labels, EventClass eventClass) {
        for (const std::string& label : labels) {
            types.emplace(label, eventClass);
        }
    };
    for (const SpectraMacro& macro : macros) {
        add(macro.GetAcceptStateList(), EventClass::State);
        add(macro.GetRejectEventsList(), EventClass::State);
        add(macro.GetAcceptSpotList(), EventClass::Spot);
    }
    for (const XEventType& type : types) {
        events.Add({type.GetLabel(), type.GetClass(), {}});
    }
}

} // namespace orvanta::review
