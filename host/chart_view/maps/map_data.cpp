// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/chart_view/maps/map_data.h"

#include "host/chart_view/maps/map_texts.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace orvanta::chart {

double MapData::ValueOf(std::size_t electrode) const {
    return electrode < values.size() ? values[electrode] : std::numeric_limits<double>::quiet_NaN();
}

bool MapData::IsUsed(std::size_t electrode) const {
    return missing.empty() && electrodes[electrode].Known && std::isfinite(ValueOf(electrode));
}

std::size_t MapData::CountUsed() const {
    std::size_t count = 0;
    for (std::size_t i = 0; i < electrodes.size(); ++i) {
        count += IsUsed(i) ? 1U : 0U;
    }
    return count;
}

std::optional<ValueRange> RangeOf(std::span<const double> values) {
    std::optional<ValueRange> range;
    for (const double value : values) {
        if (std::isfinite(value)) {
            range = range ? ValueRange{std::min(range->low, value), std::max(range->high, value)}
                          : ValueRange{value, value};
        }
    }
    return range;
}

ValueRange ScaleOf(const MapData& data) {
    ValueRange scale{data.low, data.high};
    bool fromZero = data.zeroMin;
    if (data.autoScale) {
        std::vector<double> shown;
        for (std::size_t i = 0; i < data.electrodes.size(); ++i) {
            if (data.IsUsed(i)) {
                shown.push_back(data.values[i]);
            }
        }
        fromZero = fromZero || data.low == 0;
        scale = RangeOf(shown).value_or(scale);
    }
    if (fromZero) {
        scale.low = 0;
    }
    if (!std::isfinite(scale.low) || !std::isfinite(scale.high)) {
        return {0, 0};
    }
    return {scale.low, std::max(scale.low, scale.high)};
}

std::string NoticeOf(const MapData& data) {
    if (data.electrodes.empty()) {
        return MapText("noElectrodes", "No electrodes");
    }
    if (std::none_of(data.electrodes.begin(), data.electrodes.end(),
                     [](const ElectInfo& electrode) { return electrode.Known; })) {
        return MapText("noPlaces", "No electrode has a known place on the head");
    }
    if (!data.missing.empty()) {
        return data.missing;
    }
    return data.CountUsed() == 0 ? MapText("noValues", "No values") : std::string();
}

} // namespace orvanta::chart
