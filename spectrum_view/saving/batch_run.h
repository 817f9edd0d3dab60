// SPDX-License-Identifier: GPL-3.0-or-later
// A batch of files under way.
#pragma once

#include "spectrum_view/saving/batch_failures.h"
#include "spectrum_view/saving/batch_progress.h"

#include <memory>
#include <utility>

namespace orvanta::spectrum_view {

/// From the press of the key to the last file, also of a key that stands for several. Settings changed are no
/// business of it: they stay as the batch set them.
struct BatchRun {
    BatchRun(GenericPlatform& host, BatchProgress::MakeDisplay make, std::size_t files,
             const PModule* messages, std::shared_ptr<const void> kept)
        : progress(std::move(make), files, messages), platform(host, failures), samples(std::move(kept)) {}

    void NextFile(const std::string& name) {
        failures.NextFile(name);
        progress.Next(name);
    }
    bool IsOver() const { return ended || progress.IsCancelled(); }

    BatchProgress progress;
    BatchFailures failures;
    PlatformWithGui platform;            ///< for saving
    std::shared_ptr<const void> samples; ///< keeps them in memory
    bool pressing = false;               ///< the key that comes next is pressed by the batch
    bool ended = false;                  ///< with the view or the analysis
};

} // namespace orvanta::spectrum_view
