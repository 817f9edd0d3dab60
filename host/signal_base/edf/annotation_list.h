// SPDX-License-Identifier: GPL-3.0-or-later
// Time-stamped annotation lists of EDF+ and BDF+.
#pragma once

#include <optional>
#include <string_view>
#include <vector>

namespace orvanta::signal {

/// Times further from the start than this (31 years) are no times.
constexpr double kMaxAnnotationSeconds = 1e9;

/// One list: a time, perhaps a duration, and texts. The views point into the bytes that were taken apart.
struct AnnotationList {
    std::optional<double> onset_s; ///< seconds since the start of the file; none when it is no time
    std::optional<double> duration_s;
    bool bad_duration = false; ///< there is one, but it is no time of 0 or more
    bool comma = false;        ///< a time has a decimal comma, taken as a point
    bool terminated = true;    ///< ends with its two end marks
    std::string_view bytes;    ///< all of it, without the end mark
    std::vector<std::string_view> texts;

    /// The first text of the first list of a data record is empty: its onset is that of the record.
    bool KeepsTime() const { return onset_s && !texts.empty() && texts.front().empty(); }
};

/// Takes apart the bytes of one annotation signal in one data record: lists of the form
/// "onset [0x15 duration] 0x14 text 0x14 ... text 0x14 0x00", padded with 0x00. \p lists is overwritten.
void SplitAnnotationLists(std::string_view bytes, std::vector<AnnotationList>& lists);

} // namespace orvanta::signal
