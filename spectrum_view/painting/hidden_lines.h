// SPDX-License-Identifier: GPL-3.0-or-later
// Curves one behind the other, each hidden where one before it stands as high.
#pragma once

#include "host/toolkit/geometry.h"

#include <span>
#include <vector>

namespace orvanta::spectrum_view {

/// The upper outline of the curves drawn so far, one row per pixel column.
class Horizon {
public:
    /// Columns \p left … \p right − 1, at first with nothing in them.
    Horizon(int left, int right);

    /// Takes in a curve behind those before: \p points from left to right, joined by straight lines, one row
    /// per column rounded to nearest. A column without a curve before hides nothing.
    /// \return the stretches in front, to be joined by lines; a single pixel as two equal points. Valid until
    /// the next call.
    std::span<const std::vector<owl::TPoint>> Add(std::span<const owl::TPoint> points);

private:
    void Visit(int x, int y, bool isVertex);
    void EndStretch();

    int left_;
    std::vector<int> rows_;
    std::vector<std::vector<owl::TPoint>> stretches_; ///< kept for their memory
    std::size_t count_ = 0;
    bool isOpen_ = false;
    owl::TPoint last_; ///< visible pixel visited last
};

} // namespace orvanta::spectrum_view
