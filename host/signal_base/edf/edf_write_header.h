// SPDX-License-Identifier: GPL-3.0-or-later
// The header of an EDF+ file that is written.
#pragma once

#include "host/signal_base/edf/edf_writer.h"

#include <string>
#include <vector>

namespace orvanta::signal {

/// Most bytes that the time of a data record takes: sign, digits, marks.
constexpr std::size_t kEdfTimeKeepingBytes = 24;

/// physical value = gain × stored value + offset, as a reader computes it from the rounded header fields.
struct EdfScale {
    double gain = 1;
    double offset = 0;
};

/// Checks the header. \throws std::invalid_argument for what EDF+ cannot hold
std::vector<EdfScale> EdfScales(const EdfWriterHeader& header);
/// The header's bytes; the annotation signal comes last. \throws std::invalid_argument as EdfScales
std::string EdfHeaderBytes(const EdfWriterHeader& header);
/// Seconds in decimal digits, to the microsecond, without zeros at the end.
std::string EdfTimeText(double seconds);

} // namespace orvanta::signal
