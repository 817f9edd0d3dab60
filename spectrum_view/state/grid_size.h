// SPDX-License-Identifier: GPL-3.0-or-later
// Rows and columns of the grid, and paging through its traces.
#pragma once

#include <cstdint>

namespace orvanta::spectrum_view {

inline constexpr std::uint64_t kMostCells = 65536;

struct GridSize {
    std::uint64_t rows = 4;
    std::uint64_t columns = 4;

    constexpr std::uint64_t Cells() const { return rows * columns; }

    bool operator==(const GridSize&) const = default;
};

/// The grid that stored or chosen numbers ask for: below 0 counts as 0, and more than 65536 cells as none.
constexpr GridSize GridSizeOf(std::int64_t rows, std::int64_t columns) {
    const std::uint64_t r = rows > 0 ? static_cast<std::uint64_t>(rows) : 0;
    const std::uint64_t c = columns > 0 ? static_cast<std::uint64_t>(columns) : 0;
    return c != 0 && r > kMostCells / c ? GridSize{0, 0} : GridSize{r, c};
}

/// The grid that was picked: columns in the lower, rows in the upper 16 of 32 bits.
constexpr GridSize PickedGridSize(std::uint64_t picked) {
    constexpr unsigned kBits = 16;
    constexpr std::uint64_t kLow = (1U << kBits) - 1;
    return GridSizeOf(static_cast<std::int64_t>(picked >> kBits & kLow),
                      static_cast<std::int64_t>(picked & kLow));
}

/// First trace of the next page of \p cells; \p first when there is no trace of the \p count behind this
/// page.
constexpr std::uint64_t NextPage(std::uint64_t first, std::uint64_t cells, std::uint64_t count) {
    return first + cells < count ? first + cells : first;
}

/// First trace of the page before.
constexpr std::uint64_t PreviousPage(std::uint64_t first, std::uint64_t cells) {
    return first >= cells ? first - cells : 0;
}

} // namespace orvanta::spectrum_view
