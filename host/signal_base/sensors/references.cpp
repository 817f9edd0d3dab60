// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/signal_base/sensors/references.h"

#include "host/signal_base/limited_list.h"
#include "host/signal_base/text.h"

#include <map>

namespace orvanta::signal {

namespace {

constexpr std::size_t kLongRemark = 400; ///< characters after which the rest is summed up

} // namespace

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
    std::string text;
    for (const auto& [reference, names] : electrodes) {
        if (text.size() > kLongRemark) {
            text += "; and others";
            break;
        }
        text += (text.empty() ? "" : "; ") + NameList(names) +
                (reference.empty() ? " against one not told" : " against " + reference);
    }
    remarks.push_back("electrodes were recorded against different references (" + text +
                      "): standard montages combine only those of one reference");
}

} // namespace orvanta::signal
