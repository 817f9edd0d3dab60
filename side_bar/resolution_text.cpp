// SPDX-License-Identifier: GPL-3.0-or-later
#include "side_bar/resolution_text.h"

#include "side_bar/user_numbers.h"

#include <algorithm>

namespace orvanta::side_bar {

WindowLength WindowLengthOf(double seconds, std::uint32_t rate) {
    // Whole numbers are exact up to here, and a hundredfold padding stays within 64 bits.
    constexpr double kMostSamples = 9007199254740992.0;
    WindowLength length;
    length.samples = static_cast<std::int64_t>(std::clamp(seconds * rate + 0.5, -kMostSamples, kMostSamples));
    while (length.padded < length.samples) {
        length.padded *= 2;
    }
    return length;
}

ResolutionTexts ResolutionTextsOf(double seconds, std::uint32_t rate) {
    const WindowLength length = WindowLengthOf(seconds, rate);
    const double resolution = static_cast<double>(rate) / static_cast<double>(length.padded);
    return {QString("%1  (%2)").arg(length.samples).arg(length.padded),
            length.samples < 1 ? QString("***") : FixedText(resolution, 3, 5),
            QString("%1  (%2%)").arg(length.Padding()).arg(length.Padding() * 100 / length.padded)};
}

} // namespace orvanta::side_bar
