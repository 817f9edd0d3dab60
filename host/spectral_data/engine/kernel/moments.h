// SPDX-License-Identifier: GPL-3.0-or-later
// Means and squared deviations over epochs, and sums over bins.
#pragma once

#include "spectra_contract/api.h"

#include <cstddef>
#include <cstdint>

namespace orvanta::spectral {

/// Epochs that are taken together; sums of this many are made before they go to double.
inline constexpr std::size_t kBatchEpochs = 8;

/// What the moments are of: the values, their roots, or their natural logarithms (NaN for values not above
/// 0). The logarithm is within 4 units in the last place of T.
enum class Quantity { Value, Root, Logarithm };

/// Adds a batch to the moments: its mean and squared deviations are found in T around its own mean, then
/// merged in double (Chan, Golub & LeVeque 1979), so that nothing cancels.
/// \param values epochs × count values, epochs \p stride apart; count a multiple of the lanes, epochs 1 to
/// kBatchEpochs
/// \param before epochs that \p mean and \p m2 (count values each) stand for already
ORVANTA_API void AddBatch(Quantity quantity, const float* values, std::size_t stride, std::size_t epochs,
                          std::size_t count, std::uint64_t before, double* mean, double* m2);
ORVANTA_API void AddBatch(Quantity quantity, const double* values, std::size_t stride, std::size_t epochs,
                          std::size_t count, std::uint64_t before, double* mean, double* m2);

/// factor × the sum of \p count rows (each of all lanes), to one row.
ORVANTA_API void SumRows(const float* rows, std::size_t count, float factor, float* sum);
ORVANTA_API void SumRows(const double* rows, std::size_t count, double factor, double* sum);

} // namespace orvanta::spectral
