// SPDX-License-Identifier: GPL-3.0-or-later
#include "spectrum_view/saving/batch_plan.h"

#include <algorithm>
#include <array>

namespace orvanta::spectrum_view {

namespace {

constexpr std::array<const char*, 4> kWindows = {"Rectangular", "Hamming", "Hanning", "Triangular"};

void AddEvents(std::vector<BatchStep>& steps, const EventsCountMap& types,
               const std::set<std::string>& rejected) {
    for (const auto& [type, count] : types) {
        if (!rejected.contains(type.GetLabel())) {
            steps.push_back({{}, {}, type.GetLabel(), true});
        }
    }
}

} // namespace

std::vector<BatchStep> BatchSteps(unsigned key, const EventsCountMap& types,
                                  const std::set<std::string>& rejected) {
    std::vector<BatchStep> steps;
    switch (key) {
    case '1':
    case '2':
    case '4':
        steps.push_back({static_cast<double>(key - '0'), {}, {}, false});
        for (const char* window : kWindows) {
            steps.push_back({{}, window, {}, false});
            AddEvents(steps, types, rejected);
        }
        break;
    case 'E':
        AddEvents(steps, types, rejected);
        break;
    case 'W':
        for (const char* window : kWindows) {
            steps.push_back({{}, window, {}, true});
        }
        break;
    default:
        break;
    }
    return steps;
}

std::vector<unsigned> BatchKeys(unsigned key) {
    return key == 'A' ? std::vector<unsigned>{'1', '2', '4'} : std::vector<unsigned>();
}

std::size_t CountBatchFiles(unsigned key, const EventsCountMap& types,
                            const std::set<std::string>& rejected) {
    std::size_t files = 0;
    for (const unsigned pressed : BatchKeys(key)) {
        files += CountBatchFiles(pressed, types, rejected);
    }
    const std::vector<BatchStep> steps = BatchSteps(key, types, rejected);
    return files + static_cast<std::size_t>(std::ranges::count_if(steps, &BatchStep::saves));
}

} // namespace orvanta::spectrum_view
