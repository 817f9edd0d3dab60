// SPDX-License-Identifier: GPL-3.0-or-later
// The table of band measures that goes to the clipboard.
#pragma once

#include "spectra_contract/spectra_types.h"

#include <functional>
#include <string>
#include <vector>

class SpectraMgr;
class SpectrumSingle;

namespace orvanta::spectrum_view {

struct NamedSpectrum {
    std::string name;
    const SpectrumSingle* spectrum = nullptr; ///< not null
};

/// A band or measure by its index, 0 to 7.
struct TableKey {
    int index = 0;
    std::string name;

    bool operator==(const TableKey&) const = default;
};

/// The rows and columns of every trace, in their order.
struct TableChoice {
    std::vector<TableKey> bands;
    std::vector<TableKey> measures;
};

/// The bands and measures that are selected in the shared settings, whatever the width of a band.
TableChoice SelectedForTable(const SpectraMgr& manager);

using FormatNumber = std::function<std::string(double)>;

/// One block per trace: its name and those of the measures, then a line per band with its name and values,
/// then an empty line. Fields are separated by tabs, lines end with "\r\n".
/// \param format called with each value, NaN for one that is not computable
/// \param tellFailure called when a value cannot be had; its line then ends before that value. Without it the
/// exception leaves.
std::string MeasuresTable(const std::vector<NamedSpectrum>& traces, const TableChoice& choice,
                          const FormatNumber& format, const std::function<void()>& tellFailure = {});

} // namespace orvanta::spectrum_view
