// SPDX-License-Identifier: GPL-3.0-or-later
// What is remembered of a recording from one day to the next.
#pragma once

#include "host/review/app/spectrum_look.h"
#include "host/signal_base/channels_tsv/channels_table.h"
#include <cstddef>

#include <optional>
#include <string>
#include <vector>

class GenericGUI;

namespace orvanta::review {

class Document;

/// Settings of one analysis that was made.
struct SavedAnalysis {
    std::string file;     ///< of the macro; empty for none
    std::string settings; ///< content of a macro file

    bool operator==(const SavedAnalysis&) const = default;
};

/// Place, events table, montage and analyses of one recording.
struct Session {
    double position = 0; ///< seconds since the recording's first sample
    std::string events;  ///< table that the user keeps elsewhere; empty for the recording's
    std::string montage;
    std::vector<SavedAnalysis> analyses;
    std::optional<std::size_t> main, secondary; ///< among them
    bool heads = false;                         ///< maps on heads, not flat ones
    /// Of channels, those that could not be written beside the recording.
    std::vector<signal::ChannelMark> marks = {};
    std::optional<SpectrumLook> spectrum = {}; ///< of the view; none while it is not shown

    bool operator==(const Session&) const = default;
};

Session SessionOf(const Document& document);
/// Loads the events, makes the analyses, not computed, and goes to montage and place. What no longer fits the
/// recording is left out. \param gui must outlive the document
/// \return what is worth knowing about the events, a sentence each
std::vector<std::string> Restore(const Session& session, Document& document, const GenericGUI& gui);

/// The file of a recording's session. \param folder with trailing separator
std::string SessionFile(const std::string& folder, const std::string& recording);
/// Nothing for a file that is missing or makes no sense, which is logged.
std::optional<Session> LoadSession(const std::string& file);
/// \throws std::runtime_error "FILE: reason (remedy)"
void SaveSession(const std::string& file, const Session& session);

} // namespace orvanta::review
