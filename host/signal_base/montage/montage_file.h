// SPDX-License-Identifier: GPL-3.0-or-later
// The text of a user montage file, before its names are matched with a recording's sensors.
#pragma once

#include "spectra_contract/api.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace orvanta::signal {

/// One sensor's share in a channel.
struct MontageTerm {
    double weight = 1; ///< with its sign; finite and not 0
    std::string sensor;

    bool operator==(const MontageTerm&) const = default;
};

/// One channel: a line of the file.
struct MontageLine {
    std::string label;
    std::vector<MontageTerm> terms; ///< at least one, no sensor twice
    std::size_t line = 0;           ///< counted from 1

    bool operator==(const MontageLine&) const = default;
};

/// One montage: its channels in the order of the file, at least one, no label twice.
struct MontageText {
    std::string name;
    std::vector<MontageLine> channels;

    bool operator==(const MontageText&) const = default;
};

/// Reads the montages in \p text, at least one. A line is blank, "[name]" (starts a montage; channels before
/// the first one belong to a montage named as the stem of \p file) or a channel:
///
///     label = +Fp1 -F3
///     Cz = Cz -0.5*A1 -0.5*A2
///     left = "EEG 001" - "EEG 002"    # names with blanks stand in quotes
///
/// A sign is one only at the start of a term, so that names may contain "-"; the first term may go without.
/// "#" at the start of a line or after a blank starts a comment.
/// \throws RecordingError about \p file that names the line
ORVANTA_API std::vector<MontageText> ParseMontages(std::string_view text, const std::string& file);

} // namespace orvanta::signal
