// SPDX-License-Identifier: GPL-3.0-or-later
// The analysed epochs as they are shaded in the traces.
#pragma once

#include "host/review/app/traces/trace_view.h"
#include "spectra_contract/spectra_types.h"

#include <QPalette>

#include <cstdint>
#include <vector>

class SpectraMgr;

namespace orvanta::review {

/// What pictures of the analyses depend on; cheap to look at.
struct AnalysisState {
    std::uint64_t main = 0, secondary = 0; ///< generations; 0 for none that is computed
    SPECT::Entity::Type entity = SPECT::Entity::Type::Power;
    QRgb base = 0;

    bool operator==(const AnalysisState&) const = default;
};

AnalysisState AnalysisStateOf(const SpectraMgr& manager, const QPalette& palette);

/// Epochs of the main and of the secondary analysis, in tones of the analyses' colours that can be seen on
/// the ground; with equal colours the secondary one's are amber. Epochs that overlap or touch are one
/// stretch.
std::vector<Shade> EpochShades(const SpectraMgr& manager, EEGFileInfoType& recording,
                               const QPalette& palette);

/// The stretches that the intervals cover, in time order.
std::vector<XTimeInterval> Covered(const XTimeList& intervals);

} // namespace orvanta::review
