// SPDX-License-Identifier: GPL-3.0-or-later
// The protocol names that users have entered for their spectra files.
#pragma once

#include <array>
#include <chrono>
#include <string>
#include <string_view>
#include <vector>

class GenericPlatform;

namespace orvanta::spectrum_view {

/// What one box for a protocol name remembers.
struct ProtocolHistory {
    std::vector<std::string> names;
    std::string last; ///< used last; may be empty

    bool operator==(const ProtocolHistory&) const = default;
};

/// Of the protocols 1, 2 and 3.
using CommentsHistory = std::array<ProtocolHistory, 3>;

/// Where the history lies.
struct HistoryFiles {
    std::string read;
    std::string saved;

    bool operator==(const HistoryFiles&) const = default;
};

/// "spectra.xml" beside the running program. Where its folder cannot be written, as after an installation for
/// all users, names are saved in a folder of the user, and read there once they have been.
/// \param platform knows the user's folder; without it all is beside the program
HistoryFiles CommentsHistoryFiles(const GenericPlatform* platform);

/// Names in the order of the file, an item without a label left out. What is missing or damaged gives
/// nothing.
CommentsHistory ParseHistory(std::string_view xml);

/// The file's content: root "DOC", in it "Protocol1" to "Protocol3", each with the attribute "Last" unless
/// that is empty, and an "Item" with its "Label" for each name, the last one included, once, in the order of
/// the bytes. Empty names are left out.
std::string HistoryXml(const CommentsHistory& history);

/// \p shown, and the names that others have added to the file between \p loaded and \p now.
CommentsHistory WithNamesOfOthers(CommentsHistory shown, const CommentsHistory& loaded,
                                  const CommentsHistory& now);

/// Nothing from a file that is missing or cannot be read.
CommentsHistory LoadHistory(const std::string& file);

/// Replaces the file as a whole by what is shown. Names are never removed by a user, so those that another
/// program added since \p loaded was read stay; programs that save at once do so one after the other. A
/// failure leaves the file as it was and is logged; so does another program that saves for longer than
/// \p patience, a few hundred saves.
void SaveHistory(const std::string& file, const CommentsHistory& shown, const CommentsHistory& loaded,
                 std::chrono::milliseconds patience = std::chrono::seconds(5));

} // namespace orvanta::spectrum_view
