// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/spectral_data/engine/raw_window.h"

#include "host/spectral_data/engine/setup.h"

#include <algorithm>
#include <cstring>

namespace orvanta::spectral {

void RawWindow::Hold(std::uint64_t first, std::uint64_t last) {
    const std::size_t blockBytes = source_.BlockBytes();
    const std::size_t bytes = CheckedProduct(last - first, blockBytes);
    // What is held already and still wanted; nothing when the window jumps or goes back.
    const std::uint64_t keep = first >= first_ && first < last_ ? std::min(last_, last) - first : 0;
    if (bytes > capacity_) {
        auto larger = std::make_unique_for_overwrite<std::byte[]>(bytes);
        if (keep > 0) {
            std::memcpy(larger.get(), Block(first), keep * blockBytes);
        }
        bytes_ = std::move(larger);
        capacity_ = bytes;
    } else if (keep > 0 && first != first_) {
        std::memmove(bytes_.get(), Block(first), keep * blockBytes);
    }
    first_ = first;
    last_ = first + keep;
    const std::uint64_t atOnce =
        std::max<std::uint64_t>(1, kReadBytes / std::max<std::size_t>(1, blockBytes));
    while (last_ < last) {
        const std::uint64_t count = std::min(atOnce, last - last_);
        source_.Read(last_, count, bytes_.get() + (last_ - first_) * blockBytes);
        last_ += count;
    }
}

} // namespace orvanta::spectral
