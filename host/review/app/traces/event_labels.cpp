// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/app/traces/event_labels.h"

#include "host/review/app/events/usual_labels.h"

#include <algorithm>
#include <map>

namespace orvanta::review {

namespace {

constexpr char kBetween = '\t';

void AddOnce(std::vector<std::string>& labels, const std::string& label, std::size_t most) {
    if (!label.empty() && labels.size() < most && std::ranges::find(labels, label) == labels.end()) {
        labels.push_back(label);
    }
}

} // namespace

std::vector<std::string> WithRecent(std::vector<std::string> recent, const std::string& label) {
    std::erase(recent, label);
    recent.insert(recent.begin(), label);
    recent.resize(std::min(recent.size(), kRecentLabels));
    return recent;
}

std::vector<std::string> OfferedLabels(const std::vector<std::string>& recent,
                                       const std::vector<EventRecord>& events, EventClass eventClass) {
    std::vector<std::string> labels;
    for (const std::string& label : recent) {
        AddOnce(labels, label, kRecentLabels);
    }
    std::map<std::string, std::size_t> counts;
    for (const EventRecord& event : events) {
        if (event.Class == eventClass) {
            ++counts[event.Label];
        }
    }
    std::vector<std::pair<std::string, std::size_t>> frequent(counts.begin(), counts.end());
    std::ranges::stable_sort(frequent, [](const auto& a, const auto& b) { return a.second > b.second; });
    for (const auto& [label, count] : frequent) {
        AddOnce(labels, label, kOfferedLabels);
    }
    const auto offer = [&labels](const auto& usual) {
        for (const char* label : usual) {
            AddOnce(labels, label, kOfferedLabels);
        }
    };
    if (eventClass == EventClass::State) {
        offer(kArtifactLabels);
        offer(kStateLabels);
    } else {
        offer(kSpotLabels);
    }
    return labels;
}

std::string JoinedNames(const std::vector<std::string>& names) {
    std::string text;
    for (const std::string& name : names) {
        text += (text.empty() ? std::string() : std::string(1, kBetween)) + name;
    }
    return text;
}

std::vector<std::string> SplitNames(const std::string& text) {
    std::vector<std::string> names;
    for (std::size_t begin = 0; begin <= text.size();) {
        const std::size_t end = std::min(text.find(kBetween, begin), text.size());
        if (end > begin) {
            names.push_back(text.substr(begin, end - begin));
        }
        begin = end + 1;
    }
    return names;
}

} // namespace orvanta::review
