// SPDX-License-Identifier: GPL-3.0-or-later
// What surrounds the regression of contrast values on log10 power (SpectraMgr::ComputeBCIRegression): its
// sensors, the points behind a result, and its files.
#pragma once

#include "spectra_contract/api.h"
#include "spectra_contract/spectra_types.h"

#include <list>
#include <set>
#include <string>
#include <vector>

class GenericProgress;
class SpectMacroResult;

/// One epoch in a regression.
struct BCIPoint {
    double LogPower = 0; ///< x: log10 of the power in µV²/Hz
    double Contrast = 0; ///< y: the contrast value of the epoch's analysis

    bool operator==(const BCIPoint&) const = default;
};

/// The sensors of the analysis's spectra with a known scalp position; none before computing.
ORVANTA_API std::set<const SensorType*> GetBCISensors(const SpectMacroResult& main);

/// The epochs that a result was fitted to, analysis by analysis, each in order of time; those without power
/// at the bin are left out. GUI thread. \param analyses those that were handed to the regression
/// \throws std::exception when epochs that were not kept cannot be read again
ORVANTA_API std::vector<BCIPoint> GetBCIPoints(const std::list<SpectMacroResult*>& analyses,
                                               const BCIReg& result);

/// Writes the results as text, a row each, as docs/formats.md tells; atomic.
/// \throws std::runtime_error "PATH: reason (remedy)"
ORVANTA_API void SaveBCIRegressions(const std::string& path, const std::list<BCIReg>& results);

/// Writes what the results were fitted to as text, as docs/formats.md tells: the power of every epoch of the
/// analyses at the sensors of the results, all bins; atomic. GUI thread. \param progress may be null
/// \return false when cancelled, which leaves no file
/// \throws std::runtime_error as above, and std::exception as GetBCIPoints
ORVANTA_API bool SaveBCIFullSpectra(const std::string& path, const std::list<BCIReg>& results,
                                    const std::list<SpectMacroResult*>& analyses, GenericProgress* progress);
