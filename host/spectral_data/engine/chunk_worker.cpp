// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/spectral_data/engine/chunk_worker.h"

#include "host/spectral_data/engine/kernel/combine.h"
#include "host/spectral_data/engine/kernel/interleave.h"
#include "host/spectral_data/engine/kernel/moments.h"
#include "host/spectral_data/engine/kernel/transform.h"

#include <algorithm>
#include <numeric>

namespace orvanta::spectral {

template <class T>
ChunkWorker<T>::ChunkWorker(const Setup<T>& setup, std::span<float> stored)
    : setup_(setup), stored_(stored), gathered_(setup), raw_(setup.source), reader_(setup),
      mean_(2 * setup.lanes), work_(CheckedProduct(2 * std::size_t{setup.plan->length}, setup.lanes)),
      powers_(setup.batchEpochs * CheckedProduct(setup.pitch, setup.lanes)),
      bands_(setup.batchEpochs * CheckedProduct(setup.request.bands.size() + 1, setup.lanes)) {
    if (setup.spectra) {
        spectrum_ = AlignedArray<T>(2 * setup.pitch * setup.lanes);
        spectra_ = AlignedArray<T>(setup.batchEpochs * CheckedProduct(setup.slots, 2 * setup.pitch));
    }
    if (setup.spectra || !stored.empty()) {
        turned_ = AlignedArray<T>(setup.pitch * setup.lanes);
    }
}

template <class T>
void ChunkWorker<T>::Run(std::size_t first, std::size_t last, WorkState& state) {
    gathered_.Clear();
    const std::uint64_t perBlock = setup_.source.Layout(setup_.request.sensors[0].signal).samples;
    for (std::size_t epoch = first; epoch < last && !state.stop;) {
        const Batch batch = setup_.BatchAt(epoch, last);
        raw_.Hold(batch.begin / perBlock, (batch.end + perBlock - 1) / perBlock);
        for (std::size_t group = 0; group < setup_.groups; ++group) {
            AddGroup(batch, group);
        }
        for (std::size_t node = 0; node < setup_.request.derived.size(); ++node) {
            AddDerived(batch, node);
        }
        for (std::size_t pair = 0; pair < setup_.request.pairs.size(); ++pair) {
            const NodePair& nodes = setup_.request.pairs[pair];
            AddCross(Spectrum(0, setup_.slot[nodes.a]), Spectrum(0, setup_.slot[nodes.b]),
                     setup_.slots * 2 * setup_.pitch, batch.count, setup_.pitch,
                     gathered_.cross.data() + pair * 2 * setup_.pitch);
        }
        gathered_.epochs += batch.count;
        state.epochsDone += batch.count;
        epoch += batch.count;
    }
}

template <class T>
void ChunkWorker<T>::AddGroup(const Batch& batch, std::size_t group) {
    const std::size_t lanes = setup_.lanes;
    starts_.clear();
    for (std::size_t s = group * lanes; s < std::min((group + 1) * lanes, setup_.Sensors()); ++s) {
        starts_.push_back({static_cast<std::uint32_t>(s), batch.begin});
    }
    reader_.Fill(raw_, starts_, batch.end - batch.begin);

    const std::size_t stride = setup_.bins * lanes;
    for (std::size_t e = 0; e < batch.count; ++e) {
        const auto row = static_cast<std::size_t>(
            static_cast<std::uint64_t>(setup_.request.epochs[batch.first + e]) - batch.begin);
        reader_.Mean(row, mean_.data());
        TransformJob<T> job;
        job.plan = setup_.plan.get();
        job.samples = reader_.Row(row);
        job.mean = mean_.data();
        job.taper = setup_.taper.data();
        job.window = setup_.request.window;
        job.bins = setup_.bins;
        job.scale = setup_.scale.data() + group * lanes;
        job.work = work_.data();
        job.power = powers_.data() + e * stride;
        job.spectrum = setup_.spectra ? spectrum_.data() : nullptr;
        Transform(job);
        if (setup_.spectra) {
            KeepSpectra(e, group);
        }
    }

    AddPowers(gathered_.power.GroupAt(group), stride, stride, batch);
    if (const auto& bands = setup_.request.bands; !bands.empty()) {
        const auto width = static_cast<T>(setup_.request.rate_hz / setup_.request.padded);
        for (std::size_t e = 0; e < batch.count; ++e) {
            for (std::size_t b = 0; b < bands.size(); ++b) {
                SumRows(powers_.data() + e * stride + bands[b].first * lanes, bands[b].last - bands[b].first,
                        width, bands_.data() + (e * bands.size() + b) * lanes);
            }
        }
        MomentTable& table = gathered_.bandPower;
        const std::size_t at = table.GroupAt(group);
        AddBatch(Quantity::Value, bands_.data(), bands.size() * lanes, batch.count, bands.size() * lanes,
                 gathered_.epochs, table.Mean(at), table.M2(at));
    }
    if (!stored_.empty()) {
        StoreGroup(batch, group);
    }
}

template <class T>
void ChunkWorker<T>::AddPowers(std::size_t at, std::size_t count, std::size_t stride, const Batch& batch) {
    const auto add = [&](Quantity quantity, MomentTable& table) {
        AddBatch(quantity, powers_.data(), stride, batch.count, count, gathered_.epochs, table.Mean(at),
                 table.M2(at));
    };
    add(Quantity::Value, gathered_.power);
    if (setup_.request.amplitude) {
        add(Quantity::Root, gathered_.amplitude);
    }
    if (setup_.request.log_power) {
        add(Quantity::Logarithm, gathered_.logPower);
    }
}

template <class T>
void ChunkWorker<T>::KeepSpectra(std::size_t epoch, std::size_t group) {
    const std::size_t lanes = setup_.lanes;
    const std::size_t apart = 2 * setup_.pitch;
    T* first = Spectrum(epoch, group * lanes);
    Deinterleave(spectrum_.data(), 2 * lanes, setup_.pitch, first, apart);
    Deinterleave(spectrum_.data() + lanes, 2 * lanes, setup_.pitch, first + setup_.pitch, apart);
}

template <class T>
void ChunkWorker<T>::AddDerived(const Batch& batch, std::size_t node) {
    const std::size_t index = setup_.Sensors() + node;
    const DerivedNode& derived = setup_.request.derived[node];
    const bool kept = setup_.slot[index] != Setup<T>::kNone;
    const std::size_t pitch = setup_.pitch;
    std::vector<const T*> terms(derived.terms.size());
    std::vector<T> weights;
    for (const NodeTerm& term : derived.terms) {
        weights.push_back(static_cast<T>(term.weight));
    }
    for (std::size_t e = 0; e < batch.count; ++e) {
        for (std::size_t t = 0; t < terms.size(); ++t) {
            terms[t] = Spectrum(e, setup_.slot[derived.terms[t].node]);
        }
        Combine(terms.data(), weights.data(), terms.size(), pitch,
                kept ? Spectrum(e, setup_.slot[index]) : nullptr, powers_.data() + e * pitch);
    }
    if (!derived.accumulated) {
        return;
    }
    const std::size_t row = setup_.row[node];
    AddPowers(gathered_.power.DerivedAt(row), pitch, pitch, batch);
    if (const auto& bands = setup_.request.bands; !bands.empty()) {
        MomentTable& table = gathered_.bandPower;
        const std::size_t columns = table.DerivedValues();
        const double width = setup_.request.rate_hz / setup_.request.padded;
        for (std::size_t e = 0; e < batch.count; ++e) {
            const T* powers = powers_.data() + e * pitch;
            for (std::size_t b = 0; b < bands.size(); ++b) {
                const double sum = std::accumulate(powers + bands[b].first, powers + bands[b].last, 0.0);
                bands_[e * columns + b] = static_cast<T>(sum * width);
            }
        }
        const std::size_t at = table.DerivedAt(row);
        AddBatch(Quantity::Value, bands_.data(), columns, batch.count, columns, gathered_.epochs,
                 table.Mean(at), table.M2(at));
    }
    if (!stored_.empty()) {
        for (std::size_t e = 0; e < batch.count; ++e) {
            StoreRow(setup_.Sensors() + row, batch.first + e, powers_.data() + e * pitch);
        }
    }
}

template <class T>
void ChunkWorker<T>::StoreGroup(const Batch& batch, std::size_t group) {
    for (std::size_t e = 0; e < batch.count; ++e) {
        Deinterleave(powers_.data() + e * setup_.bins * setup_.lanes, setup_.lanes, setup_.request.store_bins,
                     turned_.data(), setup_.pitch);
        for (std::size_t lane = 0; lane < starts_.size(); ++lane) {
            StoreRow(group * setup_.lanes + lane, batch.first + e, turned_.data() + lane * setup_.pitch);
        }
    }
}

template <class T>
void ChunkWorker<T>::StoreRow(std::size_t row, std::size_t epoch, const T* powers) {
    const std::size_t count = setup_.request.store_bins;
    float* to = stored_.data() + (row * setup_.request.epochs.size() + epoch) * count;
    std::transform(powers, powers + count, to, [](T power) { return static_cast<float>(power); });
}

template class ChunkWorker<float>;
template class ChunkWorker<double>;

} // namespace orvanta::spectral
