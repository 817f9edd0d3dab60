// SPDX-License-Identifier: GPL-3.0-or-later
// Regression of contrast values on spectral power.
#pragma once

#include "host/spectral_data/results/analysis.h"
#include "spectra_contract/api.h"
#include "spectra_contract/bci_regression.h"
#include "spectra_contract/platform.h"
#include "spectra_contract/spectra_types.h"

#include <list>
#include <memory>
#include <set>
#include <string>
#include <vector>

namespace orvanta::spectral {

/// The epochs of one analysis, all with one class value.
struct ContrastGroup {
    std::shared_ptr<const Analysis> analysis; ///< null when not computed
    int contrast = 0;
    std::string name = {};
};

/// One group for each analysis, null ones left out.
ORVANTA_API std::vector<ContrastGroup> GroupsOf(const std::list<SpectMacroResult*>& analyses);
/// Those that can be fitted together: computed, with the bins of the first that is.
ORVANTA_API std::vector<ContrastGroup> Comparable(const std::vector<ContrastGroup>& groups);

enum class RegressionCode : int {
    Done = 0,
    NoObservations = -10, ///< no computed epoch
    NoContrast = -20,     ///< fewer than two different contrast values
    NoPredictors = -30,   ///< no sensor that all analyses have, or no bin in the range
    ReversedRange = -40,  ///< low above high
    ReadFailed = -50,     ///< epochs that were not kept could not be read again
    Cancelled = -60,      ///< the user asked to stop
};

/// Ordinary least squares of the contrast value (y) on log10 of the power in µV²/Hz (x) over all epochs, for
/// each sensor and bin with low <= f <= high in Hz: R, slope K, intercept M, count. Rows by sensor in
/// recording order, then by frequency. An epoch without power at a bin does not count there. Groups that are
/// not comparable are left out. \p results is emptied first and stays empty unless done. \param progress may
/// be null
ORVANTA_API RegressionCode RegressContrast(const std::vector<ContrastGroup>& groups,
                                           const std::set<const SensorType*>& sensors, double low_hz,
                                           double high_hz, std::list<BCIReg>& results,
                                           GenericProgress* progress = nullptr);

} // namespace orvanta::spectral
