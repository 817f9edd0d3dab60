// SPDX-License-Identifier: GPL-3.0-or-later
// What was wrong with a file and what was done about it.
#pragma once

#include <cstddef>
#include <string>
#include <utility>
#include <vector>

namespace orvanta::signal {

/// Collects repairs in the order of their discovery. The same repair of several channels becomes one line.
class RepairList {
public:
    /// A repair whose text names its place; the same text again changes nothing.
    void Add(std::string text);
    /// A repair of channel \p channel (counted from 1).
    void AddChannel(std::size_t channel, const std::string& text);
    /// One line each, such as "channels 1 to 4, 7: decimal comma in the physical minimum read as a point".
    std::vector<std::string> Lines() const;

private:
    struct Repair {
        std::string text;
        std::vector<std::size_t> channels; ///< empty for a repair of the file
    };
    std::vector<Repair> repairs_;
};

/// "channel 3" or "channels 1 to 4, 7" for ascending numbers.
std::string ChannelsText(const std::vector<std::size_t>& channels);

} // namespace orvanta::signal
