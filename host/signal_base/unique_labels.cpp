// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/signal_base/unique_labels.h"

#include <map>
#include <set>
#include <string>

namespace orvanta::signal {

std::vector<std::size_t> MakeLabelsUnique(std::vector<SignalHeader>& signals) {
    std::set<std::string> taken;
    for (const SignalHeader& signal : signals) {
        taken.insert(signal.label);
    }
    std::vector<std::size_t> renamed;
    // The last number tried per label, so that thousands of equal labels stay quick.
    std::map<std::string, unsigned> numbers;
    for (std::size_t i = 0; i < signals.size(); ++i) {
        std::string& label = signals[i].label;
        unsigned& number = numbers[label];
        if (++number == 1) {
            continue;
        }
        std::string unique = label + "-" + std::to_string(number);
        while (!taken.insert(unique).second) {
            unique = label + "-" + std::to_string(++number);
        }
        label = unique;
        renamed.push_back(i);
    }
    return renamed;
}

} // namespace orvanta::signal
