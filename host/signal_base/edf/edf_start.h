// SPDX-License-Identifier: GPL-3.0-or-later
// The start of an EDF or BDF recording.
#pragma once

#include "host/signal_base/edf/edf_fields.h"
#include "host/signal_base/recording_data.h"

namespace orvanta::signal {

/// The start from the header's date (two-digit years from 85 on are 1985 to 1999, others 2000 to 2084) and
/// time; in an EDF+ or BDF+ header (\p plus) the "Startdate dd-MMM-yyyy" of the recording field goes before
/// the date. None, with a repair listed, when date or time is impossible.
std::optional<StartTime> ReadEdfStart(EdfFields& fields, bool plus);

/// \p start moved by \p seconds, rounded to microseconds; |seconds| at most 1e9.
StartTime Moved(const StartTime& start, double seconds);

} // namespace orvanta::signal
