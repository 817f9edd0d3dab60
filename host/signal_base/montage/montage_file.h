// SPDX-License-Identifier: GPL-3.0-or-later
// The text of a user montage file, before its names are matched with a recording's sensors.
#pragma once

#include "host/signal_base/recording_error.h"
#include "spectra_contract/montage.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

class TraceInfoType;

namespace orvanta::signal {

/// A montage file that makes no sense, or does not fit a recording.
class ORVANTA_API MontageError : public RecordingError {
public:
    MontageError(const std::string& file, std::size_t line, const std::string& reason,
                 const std::string& remedy)
        : RecordingError(file, "line " + std::to_string(line) + ": " + reason, remedy), line_(line) {}

    /// Counted from 1.
    std::size_t Line() const { return line_; }

private:
    std::size_t line_;
};

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
/// \throws MontageError about \p file; RecordingError when it has no channel at all
ORVANTA_API std::vector<MontageText> ParseMontages(std::string_view text, const std::string& file);

/// The text of such a file as UTF-8. \throws RecordingError when it cannot be read
ORVANTA_API std::string ReadMontageText(const std::string& path);

/// The montage, made of a recording's sensors. \param file that it stands in
/// \throws MontageError for a sensor that is not there, no EEG, or twice in a channel under two names
ORVANTA_API MontageType MakeUserMontage(const MontageText& montage, const std::string& file,
                                        const TraceInfoType& sensors);

/// A montage as such a text, without a name; its common average, if any, is left out.
ORVANTA_API std::string FormatMontage(const MontageType& montage);

} // namespace orvanta::signal
