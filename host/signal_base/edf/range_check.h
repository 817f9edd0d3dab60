// SPDX-License-Identifier: GPL-3.0-or-later
// Samples outside the digital range that the header promises.
#pragma once

#include "host/signal_base/edf/edf_header.h"
#include "host/signal_base/edf/repair_list.h"

namespace orvanta::signal {

/// Counts the samples outside their digital range in the first data records (4 MiB of them, at least one) and
/// lists them as kept, with the stretch that was looked at. Nothing is read when every range holds all that
/// the sample format can. Needs `header.record_seconds`. \throws RecordingError when the file cannot be read
void CheckEdfRanges(const EdfHeader& header, const BlockSource& source, RepairList& repairs);

} // namespace orvanta::signal
