// SPDX-License-Identifier: GPL-3.0-or-later
// Regressions as rows of a list.
#pragma once

#include "spectra_contract/spectra_types.h"

#include <QString>
#include <Qt>

namespace orvanta::side_bar {

enum RegressionColumn : int { kSensor, kFrequency, kR, kK, kM, kCount, kRegressionColumns };

/// A correlation of this size or more counts as medium (Cohen 1988, "Statistical Power Analysis", section
/// 3.2). It is a size of effect and no test: overlapping epochs are not independent.
constexpr double kCorrelationLimit = 0.3;

/// Whether the row stands out: |R| at or above the limit. Not so when R is not computable.
bool StandsOut(const BCIReg& row);

/// What a cell shows, in the user's numerals; "n/a" for what is not computable.
QString RegressionText(const BCIReg& row, int column);

/// Whether \p a stands above \p b in a list sorted by the column: names as text, case ignored, all else by
/// value. What is not computable stands below everything in both orders.
bool StandsAbove(const BCIReg& a, const BCIReg& b, int column, Qt::SortOrder order);

} // namespace orvanta::side_bar
