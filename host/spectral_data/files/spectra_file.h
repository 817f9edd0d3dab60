// SPDX-License-Identifier: GPL-3.0-or-later
// The spectra file: an analysis as XML.
#pragma once

#include "spectra_contract/api.h"
#include "spectra_contract/spectra_macro.h"
#include "spectra_contract/spectra_types.h"

#include <cstdint>
#include <string>
#include <vector>

namespace orvanta::spectral {

/// One trace's numbers; NaN is written as "n/a".
struct SpectraFileTrace {
    std::string kind; ///< "sensor" or "channel"
    std::string name;
    std::vector<double> mean;                  ///< per bin
    std::vector<double> sd;                    ///< per bin
    std::vector<std::vector<double>> measures; ///< band × measure, bands 0 to 7
};

/// All that a spectra file says.
struct SpectraFileContent {
    std::string recording_file, recording_label, recording_format,
        recording_start; ///< start ISO 8601, or empty
    double recording_seconds = 0;
    SpectraMacro macro;
    std::string montage;
    std::string entity, unit;
    double rate_hz = 0;
    std::uint64_t window_samples = 0, fft_samples = 0;
    double resolution_hz = 0;
    struct Epoch {
        double begin_s = 0, end_s = 0;
    };
    std::vector<Epoch> epochs;
    const SpectralComments* comments = nullptr; ///< may be null
    SPECT::Band bands[SPECT::BandCount];
    double total_lo = 0, total_hi = 0;
    std::vector<std::string> measure_names, measure_units;
    std::vector<double> frequencies_hz;
    std::vector<SpectraFileTrace> traces;
    std::vector<std::string> repairs;
};

/// The file's text: XML that resources/spectra.xsd describes. What is not finite is "n/a".
/// \throws std::out_of_range when a trace has more measures than there are names and units
ORVANTA_API std::string FormatSpectraFile(const SpectraFileContent& content);
/// Writes the file atomically; numbers locale-free, in shortest round-trip form. \throws std::runtime_error
ORVANTA_API void WriteSpectraFile(const std::string& path, const SpectraFileContent& content);

} // namespace orvanta::spectral
