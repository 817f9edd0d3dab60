// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/spectral_data/engine/lane_reader.h"

#include "host/spectral_data/engine/kernel/interleave.h"

#include <algorithm>
#include <type_traits>

namespace orvanta::spectral {

namespace {

/// Samples of a lane that are decoded at a time; a group's tile stays in the first cache.
constexpr std::size_t kTile = 128;
static_assert(kTile % kRunRows == 0);

/// A place in a signal's samples.
struct Cursor {
    const signal::SignalLayout* layout = nullptr;
    float factor = 1;
    std::uint64_t block = 0;
    std::uint32_t sample = 0;

    template <class Stored>
    void Take(const RawWindow& raw, std::size_t count, Stored* values) {
        Stored* to = values;
        for (std::size_t left = count; left > 0;) {
            const std::size_t run = std::min<std::size_t>(left, layout->samples - sample);
            Decode(layout->format, raw.Block(block) + layout->offset + sample * layout->stride,
                   layout->stride, run, to);
            to += run;
            left -= run;
            sample += static_cast<std::uint32_t>(run);
            if (sample == layout->samples) {
                sample = 0;
                ++block;
            }
        }
        if constexpr (std::is_same_v<Stored, float>) {
            if (factor != 1) {
                std::for_each_n(values, count, [this](float& value) { value *= factor; });
            }
        }
    }
};

} // namespace

template <class T>
template <class Stored>
void LaneReader<T>::FillAs(const RawWindow& raw, std::span<const LaneStart> lanes, std::size_t rows,
                           AlignedArray<Stored>& tile) {
    std::vector<Cursor> cursors;
    for (const LaneStart& lane : lanes) {
        const signal::SignalLayout& layout = setup_.source.Layout(setup_.request.sensors[lane.sensor].signal);
        cursors.push_back({&layout, setup_.prescale[lane.sensor], lane.sample / layout.samples,
                           static_cast<std::uint32_t>(lane.sample % layout.samples)});
    }
    if (tile.size() == 0) {
        tile = AlignedArray<Stored>(setup_.lanes * kTile);
    }
    std::fill(tile.data() + lanes.size() * kTile, tile.data() + tile.size(), Stored{});
    for (std::size_t row = 0; row < rows; row += kTile) {
        const std::size_t count = std::min(kTile, rows - row);
        for (std::size_t lane = 0; lane < cursors.size(); ++lane) {
            cursors[lane].Take(raw, count, tile.data() + lane * kTile);
        }
        const std::size_t whole = (count + kRunRows - 1) / kRunRows * kRunRows;
        T* out = rows_.data() + row * setup_.lanes;
        if constexpr (std::is_integral_v<Stored>) {
            Interleave(tile.data(), kTile, whole, out, sums_.data() + row / kRunRows * setup_.lanes);
        } else {
            Interleave(tile.data(), kTile, whole, out);
        }
    }
}

template <class T>
void LaneReader<T>::Fill(const RawWindow& raw, std::span<const LaneStart> lanes, std::size_t rows) {
    const std::size_t capacity = (rows + kRunRows - 1) / kRunRows * kRunRows;
    if (rows_.size() < capacity * setup_.lanes) {
        rows_ = AlignedArray<T>(CheckedProduct(capacity, setup_.lanes));
        sums_ = AlignedArray<double>(capacity / kRunRows * setup_.lanes);
    }
    if (setup_.whole) {
        FillAs(raw, lanes, rows, wholeTile_);
    } else {
        FillAs(raw, lanes, rows, realTile_);
    }
}

template <class T>
void LaneReader<T>::Mean(std::size_t first, T* mean) const {
    // Sums of whole numbers are exact in any order. Those of reals are not, so they are made in the order of
    // the epoch: the same bits wherever the epoch lies in the rows.
    MeanOfRows(rows_.data(), setup_.whole ? sums_.data() : nullptr, first, setup_.request.window, mean);
}

template class LaneReader<float>;
template class LaneReader<double>;

} // namespace orvanta::spectral
