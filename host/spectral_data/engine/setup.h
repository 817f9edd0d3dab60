// SPDX-License-Identifier: GPL-3.0-or-later
// A request, checked and brought into the kernels' terms.
#pragma once

#include "host/spectral_data/engine/aligned_array.h"
#include "host/spectral_data/engine/engine.h"
#include "host/spectral_data/engine/fft_plan.h"

#include <cstddef>
#include <cstdint>
#include <limits>
#include <memory>
#include <vector>

namespace orvanta::spectral {

/// \throws std::invalid_argument that says what contradicts what
void CheckRequest(const signal::BlockSource& source, const EngineRequest& request);

/// \throws std::bad_alloc when the product does not fit
std::size_t CheckedProduct(std::size_t a, std::size_t b);

/// Consecutive epochs that are read, converted and accumulated together, and the samples they span.
struct Batch {
    std::size_t first = 0;
    std::size_t count = 0;
    std::uint64_t begin = 0;
    std::uint64_t end = 0;
};

/// What every thread needs to know and none changes. Sensors are dealt to groups of as many as a vector has
/// lanes; in the last group lanes may be idle.
template <class T>
struct Setup {
    static constexpr std::uint32_t kNone = std::numeric_limits<std::uint32_t>::max();

    /// \p request must have passed CheckRequest; both must outlive this.
    Setup(const signal::BlockSource& source, const EngineRequest& request);

    /// The batch that begins with epoch \p first and ends before \p last. Depends on the request only.
    Batch BatchAt(std::size_t first, std::size_t last) const;
    std::size_t Sensors() const { return request.sensors.size(); }

    const signal::BlockSource& source;
    const EngineRequest& request;
    std::shared_ptr<const FftPlan<T>> plan;
    std::size_t lanes = 0;
    std::size_t groups = 0;
    std::size_t bins = 0;
    std::size_t pitch = 0; ///< bins, rounded up to whole vectors
    bool whole = false;    ///< every stored sample is a whole number
    AlignedArray<T> taper;
    AlignedArray<T> scale;           ///< per lane of every group
    std::vector<float> prescale;     ///< per sensor: power of two that brings stored reals near to µV
    bool spectra = false;            ///< something needs the transforms, not only their power
    std::vector<std::uint32_t> slot; ///< per node, where its spectrum is kept; kNone where it is not
    std::size_t slots = 0;
    std::vector<std::uint32_t> row; ///< per derived node, among the accumulated ones; kNone for helpers
    std::size_t derivedRows = 0;
    std::size_t batchEpochs = 1;
    std::uint64_t batchSpan = 0; ///< samples
};

extern template struct Setup<float>;
extern template struct Setup<double>;

} // namespace orvanta::spectral
