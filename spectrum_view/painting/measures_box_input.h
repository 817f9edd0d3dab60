// SPDX-License-Identifier: GPL-3.0-or-later
// What the painter of a measures box is given.
#pragma once

#include "host/toolkit/dc.h"
#include "host/toolkit/geometry.h"
#include "spectra_contract/spectra_types.h"

#include <array>
#include <cstdint>
#include <string>

namespace orvanta::spectrum_view {

/// One band of the table, defined or not.
struct MeasuresRow {
    double lo = 0; ///< Hz
    double hi = 0; ///< Hz
    std::string name;
    std::array<std::string, SPECT::Meas::Count> values; ///< as shown, by measure; may be empty when undefined
};

struct MeasuresBoxInput {
    std::uint64_t columns = 0;                            ///< of the grid
    std::uint64_t rows = 0;                               ///< of the grid
    owl::TRect cell;                                      ///< the cell of the box
    owl::TRect firstCell;                                 ///< cell 0, from which the column width comes
    owl::TFont font;                                      ///< the view's; the box scales its height
    std::array<std::string, SPECT::Meas::Count> measures; ///< names
    std::array<MeasuresRow, SPECT::BandCount> bands;
};

} // namespace orvanta::spectrum_view
