// SPDX-License-Identifier: GPL-3.0-or-later
// The header of an EDF, EDF+, BDF or BDF+ file.
#pragma once

#include "host/signal_base/data_file.h"
#include "host/signal_base/edf/repair_list.h"
#include "host/signal_base/recording_data.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace orvanta::signal {

constexpr std::size_t kMaxEdfRecordBytes = std::size_t{256} << 20;

/// A channel with at least one sample per data record. `header.rate_hz` is set once the duration of a data
/// record is known.
struct EdfSignal {
    SignalHeader header;
    SignalLayout layout;
    std::size_t channel = 0; ///< in the file, counted from 1
    std::optional<double> digital_min, digital_max;
};

struct EdfHeader {
    SampleFormat sample_format = SampleFormat::Int16; ///< Int16 in EDF, Int24 in BDF
    bool plus = false;                                ///< EDF+ or BDF+
    bool discontinuous = false;                       ///< EDF+D or BDF+D
    std::string patient;
    std::string record;
    std::optional<StartTime> start;
    std::optional<double> record_seconds;        ///< none when the field is of no use
    std::optional<std::uint64_t> record_count;   ///< none when the field is of no use
    std::string record_count_text, seconds_text; ///< the fields as they are, in quotes
    std::uint64_t first_byte = 0;                ///< of the first data record
    std::size_t record_bytes = 0;                ///< 1 to kMaxEdfRecordBytes
    std::vector<EdfSignal> signals;

    /// "EDF", "EDF+C", "EDF+D", "BDF", "BDF+C" or "BDF+D".
    std::string FormatName() const;
};

/// Reads and checks the header; what can be repaired is listed in \p repairs.
/// \throws RecordingError when it is no such header or cannot be understood
EdfHeader ReadEdfHeader(const DataFile& file, RepairList& repairs);

} // namespace orvanta::signal
