// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/signal_base/sensors/references.h"

#include "host/signal_base/limited_list.h"
#include "host/signal_base/text.h"

#include <map>

namespace orvanta::signal {

bool Comparable(const SensorType& a, const SensorType& b) {
    return SameText(a.GetReference(), b.GetReference()) && a.GetUnit() != kRawUnit && b.GetUnit() != kRawUnit;
}

void ReportReferences(const std::vector<std::shared_ptr<SensorType>>& sensors,
                      std::vector<std::string>& remarks) {
    std::map<std::string, std::vector<std::string>> electrodes;
    for (const auto& sensor : sensors) {
        if (!sensor->GetElectrode().empty()) {
            electrodes[sensor->GetReference()].push_back(sensor->GetName());
        }
    }
    if (electrodes.size() < 2) {
        return;
    }
    std::vector<std::string> groups;
    for (const auto& [reference, names] : electrodes) {
        groups.push_back(NameList(names) +
                         (reference.empty() ? " against one not told" : " against " + reference));
    }
    std::string text;
    for (const std::string& group : groups) {
        text += (text.empty() ? "" : "; ") + group;
        if (text.size() > 400) {
            text += "; and others";
            break;
        }
    }
    remarks.push_back("electrodes were recorded against different references (" + text +
                      "): standard montages combine only those of one reference");
}

} // namespace orvanta::signal
