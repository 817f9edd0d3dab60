// SPDX-License-Identifier: GPL-3.0-or-later
#include "spectrum_view/painting/vertical_range.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace orvanta::spectrum_view {

namespace {

constexpr double kOverTimeFactor = 5.0;
constexpr int kPhaseDivisions = 4;

} // namespace

void ValueSearch::Include(std::span<const double> values, const FrequencyAxis& axis) {
    const std::size_t end =
        axis.iTop < values.size() ? static_cast<std::size_t>(axis.iTop) + 1 : values.size();
    for (std::size_t bin = axis.iBottom; bin < end; ++bin) {
        if (std::isfinite(values[bin])) {
            min_ = std::min(min_, values[bin]);
            max_ = std::max(max_, values[bin]);
        }
    }
}

bool IsSearched(const RangeRules& rules) {
    const bool fixed =
        rules.entity == SPECT::Entity::Type::Coherence || rules.entity == SPECT::Entity::Type::Phase;
    return !fixed && rules.scale.AutoScale;
}

VerticalRange RangeOf(const RangeRules& rules, const ValueSearch& found) {
    if (rules.entity == SPECT::Entity::Type::Coherence) {
        return {0, 1.0, 0};
    }
    if (rules.entity == SPECT::Entity::Type::Phase) {
        const double half = rules.degrees ? 180 : std::numbers::pi;
        return {-half, half, kPhaseDivisions};
    }
    if (!rules.scale.AutoScale) {
        return {rules.scale.MinY, rules.scale.MaxY, 0};
    }
    const double factor = rules.mode == SPECT::Data::Mode::CSA ? kOverTimeFactor : 1.0;
    return {found.Min(), found.Max() * factor * rules.gain, 0};
}

} // namespace orvanta::spectrum_view
