// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/spectral_data/engine/engine.h"

#include "host/spectral_data/engine/accumulators.h"
#include "host/spectral_data/engine/chunk_worker.h"
#include "host/spectral_data/engine/ordered_work.h"
#include "host/spectral_data/engine/setup.h"

#include <algorithm>

namespace orvanta::spectral {

namespace {

/// Into how many chunks the epochs are cut. It must not depend on the threads, or their number would show in
/// the last digits; enough to keep eight threads busy to the end, few enough for merging to cost nothing.
constexpr std::size_t kChunks = 32;

template <class T>
bool AccumulateAs(const signal::BlockSource& source, const EngineRequest& request, EngineResult& result,
                  GenericProgress* progress) {
    const Setup<T> setup(source, request);
    const std::size_t epochs = request.epochs.size();
    std::vector<float> stored(
        CheckedProduct(CheckedProduct(setup.Sensors() + setup.derivedRows, epochs), request.store_bins));
    const std::size_t batches = (epochs + setup.batchEpochs - 1) / setup.batchEpochs;
    const std::size_t perChunk =
        std::max<std::size_t>(1, (batches + kChunks - 1) / kChunks) * setup.batchEpochs;
    const std::size_t chunks = (epochs + perChunk - 1) / perChunk;

    Accumulators all(setup);
    const std::uint64_t affordable =
        std::max<std::uint64_t>(1, request.working_bytes / std::max<std::size_t>(1, all.Bytes()));
    const unsigned workers = WorkerCount(request.threads, std::min<std::uint64_t>(chunks, affordable));
    std::vector<std::unique_ptr<ChunkWorker<T>>> own(workers);
    WorkState state;
    const auto work = [&](unsigned worker, std::size_t chunk) {
        if (!own[worker]) {
            // Made by its thread, so that its memory is near to it.
            own[worker] = std::make_unique<ChunkWorker<T>>(setup, stored);
        }
        own[worker]->Run(chunk * perChunk, std::min(epochs, (chunk + 1) * perChunk), state);
    };
    const auto finish = [&](unsigned worker, std::size_t) { all.Merge(own[worker]->Gathered()); };
    if (!RunOrdered(chunks, workers, work, finish, state, epochs, progress)) {
        return false;
    }
    WriteResult(setup, all, result);
    result.stored = std::move(stored);
    return true;
}

} // namespace

bool Accumulate(const signal::BlockSource& source, const EngineRequest& request, EngineResult& result,
                GenericProgress* progress) {
    CheckRequest(source, request);
    return request.precision == Precision::Float ? AccumulateAs<float>(source, request, result, progress)
                                                 : AccumulateAs<double>(source, request, result, progress);
}

} // namespace orvanta::spectral
