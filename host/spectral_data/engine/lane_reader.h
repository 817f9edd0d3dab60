// SPDX-License-Identifier: GPL-3.0-or-later
// Samples of a group of lanes, as the transform takes them.
#pragma once

#include "host/spectral_data/engine/raw_window.h"
#include "host/spectral_data/engine/setup.h"

#include <span>

namespace orvanta::spectral {

/// Where a lane's samples begin.
struct LaneStart {
    std::uint32_t sensor = 0;
    std::uint64_t sample = 0;
};

/// Turns stored samples into rows with one value of each lane, exactly: whole numbers up to 24 bits and reals
/// of 32 bits fit T. The mean comes off later, epoch by epoch, so a large offset costs no digits.
template <class T>
class LaneReader {
public:
    explicit LaneReader(const Setup<T>& setup) : setup_(setup) {}

    /// Converts \p rows samples of every lane; lanes beyond \p lanes are zero. The blocks must be held.
    void Fill(const RawWindow& raw, std::span<const LaneStart> lanes, std::size_t rows);
    const T* Row(std::size_t row) const { return rows_.data() + row * setup_.lanes; }
    /// Mean of each lane over the window that begins at row \p first. \param mean two rows
    void Mean(std::size_t first, T* mean) const;

private:
    template <class Stored>
    void FillAs(const RawWindow& raw, std::span<const LaneStart> lanes, std::size_t rows,
                AlignedArray<Stored>& tile);

    const Setup<T>& setup_;
    AlignedArray<T> rows_;
    AlignedArray<double> sums_;
    AlignedArray<std::int32_t> wholeTile_;
    AlignedArray<float> realTile_;
};

extern template class LaneReader<float>;
extern template class LaneReader<double>;

} // namespace orvanta::spectral
