// SPDX-License-Identifier: GPL-3.0-or-later
// Real Fourier transforms of as many sequences at once as a vector has lanes.
#pragma once

#include "host/spectral_data/engine/fft_plan.h"
#include "spectra_contract/api.h"

#include <cstddef>

namespace orvanta::spectral {

/// Lanes of the widest vectors of this machine.
template <class T>
std::size_t Lanes();
template <>
ORVANTA_API std::size_t Lanes<float>();
template <>
ORVANTA_API std::size_t Lanes<double>();

/// One epoch of Lanes<T>() sequences. All arrays are aligned, row-major, a row being one value of every lane.
template <class T>
struct TransformJob {
    const FftPlan<T>* plan = nullptr;
    const T* samples = nullptr; ///< window rows
    const T* mean = nullptr;    ///< two rows whose sum is taken off every sample: the mean, and what it lacks
    const T* taper = nullptr;   ///< window values
    std::size_t window = 0;     ///< n, at most p
    std::size_t bins = 0;       ///< kept, at most p/2 + 1
    const T* scale = nullptr;   ///< one row a; X is times 2a, but times √2·a at k = 0 and k = p/2
    T* work = nullptr;          ///< p rows
    T* power = nullptr;         ///< bins rows, |X|² of the scaled X
    T* spectrum = nullptr;      ///< bins pairs of rows, real and imaginary part of the scaled X; may be null
};

/// Takes the mean off, tapers, pads with zeros to p and transforms. The sign of the exponent is negative.
/// The powers do not depend on whether the spectrum is asked for.
ORVANTA_API void Transform(const TransformJob<float>& job);
ORVANTA_API void Transform(const TransformJob<double>& job);

} // namespace orvanta::spectral
