// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/signal_base/edf/repair_list.h"

#include <algorithm>

namespace orvanta::signal {

void RepairList::Add(std::string text) {
    const bool known = std::any_of(repairs_.begin(), repairs_.end(), [&](const Repair& repair) {
        return repair.channels.empty() && repair.text == text;
    });
    if (!known) {
        repairs_.push_back({std::move(text), {}});
    }
}

void RepairList::AddChannel(std::size_t channel, const std::string& text) {
    const auto known = std::find_if(repairs_.begin(), repairs_.end(), [&](const Repair& repair) {
        return !repair.channels.empty() && repair.text == text;
    });
    if (known == repairs_.end()) {
        repairs_.push_back({text, {channel}});
    } else if (known->channels.back() != channel) {
        known->channels.push_back(channel);
    }
}

std::vector<std::string> RepairList::Lines() const {
    std::vector<std::string> lines;
    for (const Repair& repair : repairs_) {
        lines.push_back(repair.channels.empty() ? repair.text
                                                : ChannelsText(repair.channels) + ": " + repair.text);
    }
    return lines;
}

std::string ChannelsText(const std::vector<std::size_t>& channels) {
    std::string text = channels.size() == 1 ? "channel " : "channels ";
    for (std::size_t i = 0; i < channels.size();) {
        std::size_t last = i;
        while (last + 1 < channels.size() && channels[last + 1] == channels[last] + 1) {
            ++last;
        }
        text += i == 0 ? "" : ", ";
        text += std::to_string(channels[i]);
        if (last > i) {
            text += (last == i + 1 ? ", " : " to ") + std::to_string(channels[last]);
        }
        i = last + 1;
    }
    return text;
}

} // namespace orvanta::signal
