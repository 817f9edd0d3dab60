// SPDX-License-Identifier: GPL-3.0-or-later
// The text of a BIDS channels table.
#pragma once

#include "spectra_contract/api.h"

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace orvanta::signal {

/// What a row of the table says of a channel.
struct ChannelMark {
    std::string name; ///< as it stands in the table
    bool bad = false;

    bool operator==(const ChannelMark&) const = default;
};

/// A channel as it is to stand in the table.
struct ChannelRow {
    std::string name;   ///< as recorded; a row of this name is its row
    std::string sensor; ///< the short name; a row of this name is its row as well
    std::string type;   ///< one of BIDS: "EEG", "EOG", ...
    std::string units;  ///< as recorded
    bool bad = false;
    bool changed = false; ///< the mark goes into the table; else that of the table stays
};

/// The rows that have a status: \p text is a table with tabs between columns and a head of column names in
/// any order and case. "name" must be there; "status" is "good" or "bad", in any case, "n/a" or empty where
/// nothing is said. Another status is named in \p repairs and not used.
/// \throws RecordingError about \p file when it has no head or no column of names
ORVANTA_API std::vector<ChannelMark> ParseChannelsTable(std::string_view text, const std::string& file,
                                                        std::vector<std::string>& repairs);

/// \p table with the marks of the changed channels. All else in it stays as it is: other columns, other rows,
/// the order, the line ends. A channel without a row gets one when its mark has changed; columns that are
/// missing for that are added at the end. An empty \p table makes a new one of all channels.
/// \throws RecordingError about \p file when \p table is no channels table
ORVANTA_API std::string WriteChannelsTable(std::string_view table, const std::string& file,
                                           std::span<const ChannelRow> channels);

} // namespace orvanta::signal
