// SPDX-License-Identifier: GPL-3.0-or-later
// What a reader finds in a file, before sensors, montages and events are made of it.
#pragma once

#include "host/signal_base/block_source.h"
#include "spectra_contract/api.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace orvanta::signal {

/// One signal as described by the file.
struct SignalHeader {
    std::string label; ///< UTF-8, trimmed, as recorded (unique: duplicates carry a suffix)
    std::string transducer;
    std::string prefilter;
    std::string unit; ///< UTF-8, trimmed, as recorded
    double rate_hz = 0;
    double gain = 1; ///< physical value = gain × stored value + offset, in `unit`
    double offset = 0;
    bool calibrated = true;   ///< false when the file gives no usable calibration and the values are raw
    bool annotations = false; ///< an annotation signal
    bool status = false;      ///< a trigger or status signal
};

/// A mark inside the recording or in the table beside it. Times are seconds since the first sample.
struct Annotation {
    double onset_s = 0;
    std::optional<double> duration_s;
    std::string text;     ///< UTF-8
    std::size_t line = 0; ///< in the events table, from 2 on; 0 for a mark inside the recording
};

/// The events table beside a recording, where the user's events are kept.
struct EventsTableFile {
    std::string path; ///< also of one that is yet to be written; empty: there is no place for one
    std::optional<std::string> text; ///< as it was read; none when there was no table or it could not be read
};

/// A stretch of blocks without a gap.
struct BlockSegment {
    std::uint64_t first_block = 0;
    std::uint64_t count = 0;
    double start_s = 0; ///< seconds since the recording's first sample
};

/// A date and time without a zone; microseconds for the part below a second.
struct StartTime {
    int year = 0, month = 0, day = 0, hour = 0, minute = 0, second = 0, microsecond = 0;

    bool operator==(const StartTime&) const = default;
};

/// A recording as a reader hands it over.
struct RecordingData {
    std::string path;
    std::vector<std::string> files; ///< every file that was read, \p path included
    std::string format;             ///< "EDF", "EDF+C", "EDF+D", "BDF", "BDF+C", "BDF+D", "BrainVision"
    std::string patient;
    std::string record;
    std::optional<StartTime> start;
    double block_seconds = 0;
    std::vector<SignalHeader> signals; ///< in file order; index = signal index of the source
    std::vector<BlockSegment> segments;
    std::vector<Annotation> annotations;
    EventsTableFile events_table;
    std::vector<std::string> repairs; ///< one line each: what was wrong and what was done
    std::shared_ptr<const BlockSource> source;
};

/// Opens an EDF, EDF+, BDF or BDF+ file. \throws RecordingError
ORVANTA_API RecordingData ReadEdf(const std::string& path);
/// Opens a BrainVision recording by its header (.vhdr), marker (.vmrk) or data (.eeg) file. \throws
/// RecordingError
ORVANTA_API RecordingData ReadBrainVision(const std::string& path);
/// Appends the events of a BIDS events table (onset, duration, trial_type or value columns). Rows that cannot
/// be understood are left out and named in \p repairs.
/// \return the table's text
/// \throws RecordingError when the table as a whole is none
ORVANTA_API std::string ReadEventsTsv(const std::string& path, std::vector<Annotation>& annotations,
                                      std::vector<std::string>& repairs);

} // namespace orvanta::signal
