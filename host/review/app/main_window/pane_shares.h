// SPDX-License-Identifier: GPL-3.0-or-later
// How the views are arranged and what room each gets.
#pragma once

#include <array>
#include <optional>
#include <string>

namespace orvanta::review {

enum class Arrangement {
    TracesAbove,  ///< the traces above, the others beside each other
    TracesBeside, ///< the traces on the left, the others on top of each other
    Rows,         ///< each below the other
};

/// Shares of the room, each of the two that it lies between, from kLeastShare to 1 - kLeastShare.
struct PaneShares {
    double traces = 0.5;   ///< of traces and the others together
    double spectrum = 0.6; ///< of spectrum and maps

    bool operator==(const PaneShares&) const = default;
};

constexpr double kLeastShare = 0.02;

/// What stands beside a view, such as the list of its analyses.
struct SidePanel {
    std::optional<bool> shown; ///< by the user's choice; else while there is room for both
    int width = 0;             ///< logical pixels; 0 as wide as it wants to be

    bool operator==(const SidePanel&) const = default;
};

/// As the user left it; as a new user finds it.
struct PaneLayout {
    Arrangement arrangement = Arrangement::TracesAbove;
    std::array<PaneShares, 3> shares{PaneShares{}, PaneShares{}, PaneShares{0.45, 0.5}}; ///< by arrangement
    SidePanel panel;

    PaneShares& Shares() { return shares.at(static_cast<std::size_t>(arrangement)); }

    bool operator==(const PaneLayout&) const = default;
};

/// Shares to four decimals.
std::string TextOf(const PaneLayout& layout);
/// Nothing for a text that makes no sense.
std::optional<PaneLayout> PaneLayoutOf(const std::string& text);

} // namespace orvanta::review
