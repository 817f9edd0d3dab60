// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/spectral_data/engine/setup.h"

#include "host/spectral_data/engine/kernel/moments.h"
#include "host/spectral_data/engine/kernel/transform.h"
#include "host/spectral_data/engine/raw_window.h"

#include <algorithm>
#include <bit>
#include <cmath>

namespace orvanta::spectral {

namespace {

/// A group's powers of one batch, and all spectra of one batch, should stay in the caches next to a core.
constexpr std::size_t kPowerBytes = std::size_t{5} << 17;
constexpr std::size_t kSpectraBytes = std::size_t{1} << 21;
constexpr std::size_t kRowsBytes = std::size_t{1} << 20;

} // namespace

template <class T>
Setup<T>::Setup(const signal::BlockSource& from, const EngineRequest& asked)
    // A single value is transformed like a pair whose second is zero: the only bin kept is the same.
    : source(from), request(asked), plan(PlanFor<T>(std::max(2U, asked.padded))), lanes(Lanes<T>()),
      groups((asked.sensors.size() + lanes - 1) / lanes), bins(asked.bins),
      pitch((bins + lanes - 1) / lanes * lanes), taper(asked.window), scale(groups * lanes),
      spectra(!asked.derived.empty() || !asked.pairs.empty()) {
    double energy = 0;
    for (std::size_t i = 0; i < asked.taper.size(); ++i) {
        taper[i] = static_cast<T>(asked.taper[i]);
        energy += asked.taper[i] * asked.taper[i];
    }
    whole = std::ranges::none_of(asked.sensors, [&](const EngineSensor& sensor) {
        return from.Layout(sensor.signal).format == signal::SampleFormat::Float32;
    });
    prescale.assign(Sensors(), 1);
    for (std::size_t s = 0; s < Sensors(); ++s) {
        double gain = asked.sensors[s].gain;
        if (from.Layout(asked.sensors[s].signal).format == signal::SampleFormat::Float32 && gain != 0) {
            // Volts squared and divided by rate and energy would leave the range of float.
            const int exponent = std::clamp(std::ilogb(gain), -100, 100);
            prescale[s] = std::ldexp(1.0F, exponent);
            gain = std::ldexp(gain, -exponent);
        }
        scale[s] = static_cast<T>(gain / std::sqrt(2 * asked.rate_hz * energy));
    }

    slot.assign(Sensors() + asked.derived.size(), kNone);
    row.assign(asked.derived.size(), kNone);
    slots = groups * lanes;
    for (std::size_t s = 0; s < Sensors(); ++s) {
        slot[s] = static_cast<std::uint32_t>(s);
    }
    const auto keep = [&](std::uint32_t node) {
        if (slot[node] == kNone) {
            slot[node] = static_cast<std::uint32_t>(slots++);
        }
    };
    for (std::size_t i = 0; i < asked.derived.size(); ++i) {
        for (const NodeTerm& term : asked.derived[i].terms) {
            keep(term.node);
        }
        if (asked.derived[i].accumulated) {
            row[i] = static_cast<std::uint32_t>(derivedRows++);
        }
    }
    for (const NodePair& pair : asked.pairs) {
        keep(pair.a);
        keep(pair.b);
    }

    batchEpochs = std::max<std::size_t>(1, kPowerBytes / (CheckedProduct(bins, lanes) * sizeof(T)));
    if (spectra) {
        const std::size_t bytes = CheckedProduct(slots, 2 * pitch * sizeof(T));
        batchEpochs = std::min(batchEpochs, std::max<std::size_t>(1, kSpectraBytes / bytes));
    }
    batchEpochs = std::bit_floor(std::min(batchEpochs, kBatchEpochs));
    const std::uint64_t perBlock = from.Layout(asked.sensors[0].signal).samples;
    const std::uint64_t blocks = RawWindow::kReadBytes / std::max<std::size_t>(1, from.BlockBytes());
    batchSpan =
        std::min<std::uint64_t>(blocks < 3 ? 0 : (blocks - 2) * perBlock, kRowsBytes / (lanes * sizeof(T)));
    batchSpan = std::max<std::uint64_t>(batchSpan, asked.window);
}

template <class T>
Batch Setup<T>::BatchAt(std::size_t first, std::size_t last) const {
    Batch batch{first, 1, static_cast<std::uint64_t>(request.epochs[first]), 0};
    const auto endOf = [&](std::size_t e) {
        return static_cast<std::uint64_t>(request.epochs[e]) + request.window;
    };
    while (batch.count < batchEpochs && first + batch.count < last &&
           endOf(first + batch.count) - batch.begin <= batchSpan) {
        ++batch.count;
    }
    batch.end = endOf(first + batch.count - 1);
    return batch;
}

template struct Setup<float>;
template struct Setup<double>;

} // namespace orvanta::spectral
