// SPDX-License-Identifier: GPL-3.0-or-later
// Two compared analyses as JSON, as CSV and as a table for people.
#pragma once

#include "host/review/cli/report.h"
#include "host/spectral_data/results/comparison_of.h"

#include <string>

namespace orvanta::cli {

struct Comparison {
    EEGFileInfoType& recording;
    const SpectraMgr& manager;
    const SpectMacroResult& main;
    const SpectMacroResult& secondary;
};

/// The main analysis as in a computation, with p, ratio, t and df per trace, the secondary analysis's means,
/// and the effective numbers of epochs.
JsonObject ToJson(const Comparison& comparison);

/// One line per trace, band and measure: of the main analysis, of the secondary one, and their ratio; and per
/// band the percentage of bins with p below 0.05.
std::string ToCsv(const Comparison& comparison);

/// What was compared, and per channel and band the ratio and the percentage of bins with p below 0.05, for
/// people.
std::string ToText(const Comparison& comparison);

} // namespace orvanta::cli
