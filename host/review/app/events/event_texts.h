// SPDX-License-Identifier: GPL-3.0-or-later
// Texts about events, in the user's language and numerals.
#pragma once

#include "spectra_contract/recording.h"

#include <QCollator>
#include <QString>

#include <cstddef>
#include <optional>
#include <string>

namespace orvanta::review {

/// A text of section EVENTS of the message store.
QString EventText(const char* key, const char* builtIn);

/// Compares labels by the user's alphabet: case comes last, "s9" before "s10".
QCollator Alphabet();

/// "Add Artifact".
std::string AddText(const std::string& label);
/// "Change Artifact".
std::string ChangeText(const std::string& label);
/// "Delete Artifact".
std::string DeleteText(const std::string& label);
/// "Delete 3 Events".
std::string DeleteText(std::size_t events);

/// "Spot" or "State".
QString ClassText(EventClass eventClass);
/// "Mine" or "Recording".
QString SourceText(EventSource source);

/// Shortest text of a time in seconds that is read again as it is: "12.5".
QString SecondsText(const XTime& time);
/// A time typed as seconds, "12.5", or as hours, minutes and seconds, "1:02:03.5" or "2:03.5"; none for any
/// other text, and beyond 1e9 s.
std::optional<XTime> ParseSeconds(const QString& text);
/// "10:20:30.500" on the clock; from 0 in a recording without a start time.
QString ClockText(const EEGFileInfoType& recording, const XTime& time);

} // namespace orvanta::review
