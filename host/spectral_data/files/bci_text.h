// SPDX-License-Identifier: GPL-3.0-or-later
// The text files of a regression: tab-separated columns under a line with their names, as docs/formats.md
// tells.
#pragma once

#include "host/spectral_data/results/bci_regression.h"
#include "spectra_contract/api.h"
#include "spectra_contract/spectra_types.h"

#include <cstdint>
#include <list>
#include <span>
#include <string>

namespace orvanta::spectral {

/// The file of a regression's results.
ORVANTA_API std::string FormatBCIRegressions(const std::list<BCIReg>& results);

/// The first line of the file of epochs: one column per bin of the analysis, named by its frequency in Hz.
std::string FullSpectraHead(const Analysis& analysis);
/// Appends the line of one epoch. \param power µV²/Hz per bin; what is not finite becomes "n/a"
void AppendFullSpectraRow(std::string& text, const ContrastGroup& group, std::uint64_t epoch,
                          const std::string& sensor, std::span<const float> power);

} // namespace orvanta::spectral
