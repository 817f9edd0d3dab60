// SPDX-License-Identifier: GPL-3.0-or-later
// Numbered pieces of work on several threads, their results taken in order.
#pragma once

#include "host/spectral_data/engine/chunk_worker.h"

#include <functional>

class GenericProgress;

namespace orvanta::spectral {

/// Calls work(worker, piece) for the pieces 0 … pieces − 1 on \p workers threads, each worker one at a time,
/// and finish(worker, piece) after it in the pieces' order, one at a time. Progress (may be null) is told and
/// asked on this thread only.
/// \param total epochs that state.epochsDone counts up to
/// \return false when cancelled
/// \throws what work or finish threw first; the rest is then given up
bool RunOrdered(std::size_t pieces, unsigned workers, const std::function<void(unsigned, std::size_t)>& work,
                const std::function<void(unsigned, std::size_t)>& finish, WorkState& state,
                std::uint64_t total, GenericProgress* progress);

/// Threads for a request that asks for \p asked (0: one per core), of which no more than \p pieces have work.
unsigned WorkerCount(unsigned asked, std::size_t pieces);

} // namespace orvanta::spectral
