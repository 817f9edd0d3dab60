// SPDX-License-Identifier: GPL-3.0-or-later
// Spectra of combinations and products of spectra, bin beside bin.
#pragma once

#include "spectra_contract/api.h"

#include <cstddef>

namespace orvanta::spectral {

/// Σ weight × spectrum. A spectrum is \p pitch real parts and then as many imaginary ones; pitch is a
/// multiple of the lanes, everything is aligned. \param spectrum where the sum goes; may be null \param power
/// pitch values, the squared magnitude
ORVANTA_API void Combine(const float* const* terms, const float* weights, std::size_t count,
                         std::size_t pitch, float* spectrum, float* power);
ORVANTA_API void Combine(const double* const* terms, const double* weights, std::size_t count,
                         std::size_t pitch, double* spectrum, double* power);

/// Adds a · conj(b), summed over \p epochs spectra that lie \p stride values apart, to pitch real and pitch
/// imaginary parts.
ORVANTA_API void AddCross(const float* a, const float* b, std::size_t stride, std::size_t epochs,
                          std::size_t pitch, double* sum);
ORVANTA_API void AddCross(const double* a, const double* b, std::size_t stride, std::size_t epochs,
                          std::size_t pitch, double* sum);

} // namespace orvanta::spectral
