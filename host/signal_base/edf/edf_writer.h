// SPDX-License-Identifier: GPL-3.0-or-later
// Writes EDF+ files.
#pragma once

#include "host/signal_base/recording_data.h"
#include "spectra_contract/api.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace orvanta::signal {

/// A signal to be written. Header texts are printable ASCII and fit their fields (label 16, unit 8,
/// transducer and prefilter 80 characters); "µV" is written as "uV".
struct EdfWriterSignal {
    std::string label;
    std::string unit = "uV";
    std::uint32_t samples = 0; ///< per data record
    double physical_min = -3276.8;
    double physical_max = 3276.7;
    std::string transducer;
    std::string prefilter;
};

struct EdfWriterHeader {
    std::string patient = "X X X X"; ///< the four subfields of EDF+
    std::string recording = "X X X"; ///< what follows the start date: three subfields
    std::optional<StartTime> start;  ///< 1985 to 2084; without one the date reads as unknown
    double record_seconds = 1;
    std::uint64_t record_count = 0;     ///< data records that will be written
    std::size_t annotation_bytes = 256; ///< per data record, even, at least 32
    std::vector<EdfWriterSignal> signals;
};

/// Writes an EDF+C file of 16-bit samples, data record by data record, to a temporary file that takes the
/// name at the end. The same input gives the same bytes. Not for several threads at once.
class ORVANTA_API EdfWriter {
public:
    /// \throws std::invalid_argument for a header that EDF+ cannot hold
    /// \throws std::runtime_error "PATH: reason (remedy)" when the file cannot be written
    EdfWriter(const std::string& path, const EdfWriterHeader& header);
    /// Removes what was not finished.
    ~EdfWriter();
    EdfWriter(const EdfWriter&) = delete;
    EdfWriter& operator=(const EdfWriter&) = delete;

    /// Writes the next data record: for every signal its samples in its unit, rounded to the nearest step;
    /// what lies outside the physical range is written as the end of the range. Annotations (in seconds since
    /// the first sample, anywhere in the recording) that find no room wait for the next data record.
    /// \throws std::invalid_argument for a wrong number of samples, a NaN, an annotation longer than a data
    /// record can hold, or more data records than announced
    /// \throws std::runtime_error when the file cannot be written
    void WriteRecord(std::span<const std::vector<double>> samples,
                     const std::vector<Annotation>& annotations = {});
    /// Puts the file in place; the last call. \throws std::invalid_argument when data records are missing or
    /// annotations found no room; std::runtime_error when the file cannot be written
    void Finish();

private:
    struct Impl;
    std::unique_ptr<Impl> impl_;
};

} // namespace orvanta::signal
