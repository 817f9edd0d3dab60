// SPDX-License-Identifier: GPL-3.0-or-later
// Where a command's results go.
#pragma once

#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

namespace orvanta::cli {

/// An option that names a file to write, and what it was given.
struct OutputOption {
    const char* option;
    std::string target; ///< empty: not asked for
};

/// Refuses outputs that would replace one of the inputs or each other. \throws UsageError
void CheckConflicts(const std::vector<OutputOption>& outputs, const std::vector<std::string>& inputs);

/// The same, and refuses files that could not be written. \throws also as CheckWritable
void CheckOutputs(const std::vector<OutputOption>& outputs, const std::vector<std::string>& inputs);

/// Refuses a file that could not be written, before it is worked for. Leaves no trace.
/// \throws std::runtime_error "FILE: reason (remedy)"
void CheckWritable(const std::string& file);

/// Writes text to standard output for "-", else to a file that is either the old or the new one, whole.
/// \throws UsageError or std::runtime_error "FILE: reason (remedy)"
void WriteOutput(const std::string& target, std::string_view text);

/// Fixed number of decimals, locale-free; "n/a" when not finite.
std::string FixedText(double value, int decimals);

/// At most eight columns that keep about three significant digits, with an exponent where they need one;
/// "n/a" when not finite.
std::string CompactText(double value);

/// "h:mm:ss" of a whole number of seconds, rounded to nearest.
std::string DurationText(double seconds);

/// One line of comma-separated fields, quoted where they need it (RFC 4180, but a bare line feed ends it).
std::string CsvLine(std::initializer_list<std::string_view> fields);

/// The names of the columns of every CSV that is written: trace, kind, band, measure, value, unit.
std::string CsvHeading();

/// Of things, for people: "1 map", "2 maps". \param one the word for one of them
std::string Counted(std::size_t count, std::string_view one);

/// Pads with blanks to \p width columns, counting UTF-8 characters; negative widths align to the right.
std::string Pad(std::string_view text, int width);

} // namespace orvanta::cli
