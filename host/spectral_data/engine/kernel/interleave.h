// SPDX-License-Identifier: GPL-3.0-or-later
// Stored samples to rows of lanes and back, and the means of lanes.
#pragma once

#include "host/signal_base/block_source.h"
#include "spectra_contract/api.h"

#include <cstddef>
#include <cstdint>

namespace orvanta::spectral {

/// Rows come in runs of this many; a run's sums are kept.
inline constexpr std::size_t kRunRows = 16;

/// Stored samples to values, exactly. \p source may be read only at the samples themselves.
ORVANTA_API void Decode(signal::SampleFormat format, const std::byte* source, std::size_t stride,
                        std::size_t count, std::int32_t* values);
ORVANTA_API void Decode(signal::SampleFormat format, const std::byte* source, std::size_t stride,
                        std::size_t count, float* values);

/// Lanes<T>() sequences, \p pitch values apart, to \p rows rows (a multiple of kRunRows). Whole numbers also
/// give their sums: one row of double for each run of rows, exact for numbers of 24 bits.
ORVANTA_API void Interleave(const std::int32_t* values, std::size_t pitch, std::size_t rows, float* out,
                            double* sums);
ORVANTA_API void Interleave(const std::int32_t* values, std::size_t pitch, std::size_t rows, double* out,
                            double* sums);
ORVANTA_API void Interleave(const float* values, std::size_t pitch, std::size_t rows, float* out);
ORVANTA_API void Interleave(const float* values, std::size_t pitch, std::size_t rows, double* out);

/// \p rows rows (rounded up to a multiple of the lanes), \p stride values apart, to as many sequences as
/// there are lanes, \p pitch values apart.
ORVANTA_API void Deinterleave(const float* in, std::size_t stride, std::size_t rows, float* out,
                              std::size_t pitch);
ORVANTA_API void Deinterleave(const double* in, std::size_t stride, std::size_t rows, double* out,
                              std::size_t pitch);

/// Mean of each lane over the rows [first, first + count), count at least 1. Summed in double; with the run
/// sums (or null) that Interleave gave, whole numbers give the same bits wherever the rows begin.
/// \param mean two rows: the mean as T, and what it lacks
ORVANTA_API void MeanOfRows(const float* rows, const double* sums, std::size_t first, std::size_t count,
                            float* mean);
ORVANTA_API void MeanOfRows(const double* rows, const double* sums, std::size_t first, std::size_t count,
                            double* mean);

} // namespace orvanta::spectral
