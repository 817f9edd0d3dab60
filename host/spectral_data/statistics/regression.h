// SPDX-License-Identifier: GPL-3.0-or-later
// Least-squares line through one predictor.
#pragma once

#include "spectra_contract/api.h"

#include <cstdint>
#include <span>

namespace orvanta::spectral {

/// y = slope·x + intercept by ordinary least squares, with the correlation. NaN where not computable (fewer
/// than 2 pairs, or no spread in x; the correlation also for no spread in y).
struct Line {
    double r = 0;
    double slope = 0;
    double intercept = 0;
    std::uint64_t count = 0;
};
/// The line through pairs as they come: means and sums of products of deviations from them, brought up to
/// date with each pair (Welford 1962) and counted from the first one, so that a large common offset costs no
/// digits. Pairs with a value that is not finite are left out.
class ORVANTA_API LineFit {
public:
    void Add(double x, double y);
    Line Result() const;

private:
    std::uint64_t count_ = 0;
    double originX_ = 0, originY_ = 0; ///< the first pair
    double meanX_ = 0, meanY_ = 0;     ///< from the origin
    double xx_ = 0, yy_ = 0, xy_ = 0;
};

/// The line through all pairs. \throws std::invalid_argument when \p x and \p y differ in length
ORVANTA_API Line FitLine(std::span<const double> x, std::span<const double> y);

} // namespace orvanta::spectral
