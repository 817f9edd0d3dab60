// SPDX-License-Identifier: GPL-3.0-or-later
#include "spectrum_view/painting/labels.h"

namespace orvanta::spectrum_view {

std::string TraceLabel(const std::string& name, const std::string& unit) {
    return unit.empty() ? name : name + " (" + unit + ") ";
}

std::string ViewTitle(const std::string& recording, const std::string& main, const std::string& interval,
                      const std::optional<std::string>& threshold) {
    const std::string title = recording + " (" + main + ") " + interval;
    return threshold ? title + " p-scale: " + *threshold : title;
}

} // namespace orvanta::spectrum_view
