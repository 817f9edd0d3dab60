// SPDX-License-Identifier: GPL-3.0-or-later
#include "spectral_maps/cartoon_steps.h"

#include <algorithm>

namespace orvanta::spectral_maps {

std::vector<CartoonStep> StepsOf(const XTimeList& list, std::size_t most, const SampleOf& sampleOf) {
    std::size_t count = 1;
    for (const XTimeItem& item : list) {
        count = std::max(count, std::size_t{item.Step} + 1);
    }
    std::vector<CartoonStep> steps(std::min(count, most));
    for (const XTimeItem& item : list) {
        if (item.Step < steps.size()) {
            CartoonStep& step = steps[item.Step];
            step.start = std::min(step.start, sampleOf(item.Interval.GetBeginPtr()));
            step.end = sampleOf(item.Interval.GetEndPtr());
        }
    }
    return steps;
}

} // namespace orvanta::spectral_maps
