// SPDX-License-Identifier: GPL-3.0-or-later
// The vertical range of a trace.
#pragma once

#include "spectra_contract/spectra_types.h"
#include "spectrum_view/painting/frequency_axis.h"

#include <limits>
#include <span>

namespace orvanta::spectrum_view {

struct VerticalRange {
    double min = 0;
    double max = 0;
    int divisions = 0; ///< of the axis; 0 for as many as are round

    double Span() const { return max - min; }
    /// A trace without a range is not drawn.
    bool IsDrawable() const { return Span() > 0; }

    bool operator==(const VerticalRange&) const = default;
};

/// Smallest and largest value of the searched bins. Starts at the largest and the smallest positive normal
/// double, so zeros alone give a tiny range, and nothing found gives none.
class ValueSearch {
public:
    /// Takes in the values of bins iBottom … iTop; those that are not finite are passed over.
    void Include(std::span<const double> values, const FrequencyAxis& axis);
    double Min() const { return min_; }
    double Max() const { return max_; }

private:
    double min_ = std::numeric_limits<double>::max(); // 1.7976931348623157e+308
    double max_ = std::numeric_limits<double>::min(); // 2.2250738585072014e-308
};

/// What the range follows besides the values.
struct RangeRules {
    SPECT::Entity::Type entity = SPECT::Entity::Type::Amplitude;
    SPECT::Data::Mode mode = SPECT::Data::Mode::Mean;
    bool degrees = true; ///< phase in degrees
    SPECT::Scale scale;  ///< of the entity
    double gain = 1.0;
};

/// True when the range comes from the values, so that they have to be searched.
bool IsSearched(const RangeRules& rules);

/// Coherence 0 to 1; phase ±180 or ±π in 4 divisions; else without AutoScale MinY to MaxY; else the values
/// found, the maximum times 5 for the compressed array, and times the gain.
/// \param found over the trace's main and secondary values, or those of all traces with a common scale
VerticalRange RangeOf(const RangeRules& rules, const ValueSearch& found);

} // namespace orvanta::spectrum_view
