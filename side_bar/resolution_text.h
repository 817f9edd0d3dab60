// SPDX-License-Identifier: GPL-3.0-or-later
// What a window length means for the spectrum.
#pragma once

#include <QString>

#include <cstdint>

namespace orvanta::side_bar {

/// Samples of one window and of its transform.
struct WindowLength {
    std::int64_t samples = 0; ///< n = trunc(seconds · rate + 0.5); kept within ±2⁵³
    std::int64_t padded = 1;  ///< p, the smallest power of two that is not below n, at least 1

    std::int64_t Padding() const { return padded - samples; }
    bool operator==(const WindowLength&) const = default;
};

/// \param seconds finite, of any size and sign
/// \param rate sampling rate, Hz
WindowLength WindowLengthOf(double seconds, std::uint32_t rate);

/// The texts of the three fields.
struct ResolutionTexts {
    QString samples;    ///< "500  (512)": n and p
    QString resolution; ///< "0.97700": rate / p in Hz, 3 significant digits; "***" without a sample
    QString padding;    ///< "12  (2%)": zeros, and their whole percentage of p
};

ResolutionTexts ResolutionTextsOf(double seconds, std::uint32_t rate);

} // namespace orvanta::side_bar
