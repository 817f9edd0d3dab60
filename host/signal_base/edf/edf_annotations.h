// SPDX-License-Identifier: GPL-3.0-or-later
// Annotations and record times of an EDF+ or BDF+ file.
#pragma once

#include "host/signal_base/data_file.h"
#include "host/signal_base/edf/edf_header.h"
#include "host/signal_base/edf/record_clock.h"
#include "host/signal_base/edf/repair_list.h"

#include <cstdint>
#include <vector>

namespace orvanta::signal {

/// What the annotation signals say.
struct EdfAnnotations {
    RecordClock clock;                   ///< every data record in use
    std::vector<Annotation> annotations; ///< ascending onsets, in seconds since the first sample
};

/// Reads the annotation signals of data records 0 to \p records; only their bytes where that is cheaper than
/// reading whole records. Records from \p declared on count only as long as they carry a time, since what
/// follows the last record may be something else. Needs `header.record_seconds`.
/// \throws RecordingError when the file cannot be read
EdfAnnotations ReadEdfAnnotations(const DataFile& file, const EdfHeader& header, std::uint64_t records,
                                  std::uint64_t declared, RepairList& repairs);

/// The time between the first two of \p records data records; none when they do not tell.
std::optional<double> EdfRecordSpacing(const DataFile& file, const EdfHeader& header, std::uint64_t records);

} // namespace orvanta::signal
