// SPDX-License-Identifier: GPL-3.0-or-later
// What a transform of one length needs to know beforehand.
#pragma once

#include "host/spectral_data/engine/aligned_array.h"
#include "spectra_contract/api.h"

#include <array>
#include <cstdint>
#include <memory>

namespace orvanta::spectral {

/// Binary logarithm of the radix with which a complex transform of length 2^log2 is split first.
constexpr unsigned FirstRadixLog2(unsigned log2) {
    return log2 == 4 ? 2 : log2 < 3 ? log2 : 3;
}

/// Twiddle factors and output order of the real transform of length p, done as a complex one of length p/2.
template <class T>
struct FftPlan {
    /// \param padded p, a power of two from 2 to 2^31. \throws std::invalid_argument for another length
    explicit FftPlan(std::uint32_t padded);

    std::uint32_t length = 0; ///< N = p/2, complex values
    unsigned log2 = 0;        ///< of N
    /// Per complex sub-length 2^l that is split by radix R: for j = 0 … 2^l/R − 1 and q = 1 … R − 1 the
    /// factor exp(−2πi·j·q/2^l) as cosine and sine.
    std::array<AlignedArray<T>, 32> twiddles;
    /// exp(−2πi·k/p) for k = 0 … N/2 as cosine and sine.
    AlignedArray<T> split;
    /// Where value k of the complex transform lies in the work array, k = 0 … N − 1.
    AlignedArray<std::uint32_t> position;
};

extern template struct ORVANTA_API FftPlan<float>;
extern template struct ORVANTA_API FftPlan<double>;

/// The plan for length \p padded, made at the first call and kept. Safe from every thread.
template <class T>
std::shared_ptr<const FftPlan<T>> PlanFor(std::uint32_t padded);

extern template ORVANTA_API std::shared_ptr<const FftPlan<float>> PlanFor<float>(std::uint32_t);
extern template ORVANTA_API std::shared_ptr<const FftPlan<double>> PlanFor<double>(std::uint32_t);

} // namespace orvanta::spectral
