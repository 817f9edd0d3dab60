// SPDX-License-Identifier: GPL-3.0-or-later
// Epochs that a cartoon steps through.
#pragma once

#include "spectra_contract/time.h"

#include <optional>
#include <span>

namespace orvanta::chart {

/// Items by the number of their epoch. Constant once made.
class ORVANTA_API EpochSteps {
public:
    EpochSteps() = default;
    explicit EpochSteps(const XTimeList& list);

    /// One more than the last epoch's number, so that gaps count; 0 without any.
    std::uint64_t Count() const;
    /// The first epoch of the last full stretch of so many.
    std::uint64_t LastStart(std::uint64_t length) const;
    /// The items of the epochs first to first + length - 1, the epochs numbered from 0, items of one epoch in
    /// their order.
    XTimeList Stretch(std::uint64_t first, std::uint64_t length) const;
    /// From the earliest begin to the latest end of these epochs' items; nothing without any.
    std::optional<XTimeInterval> Time(std::uint64_t first, std::uint64_t length) const;

private:
    std::span<const XTimeItem> Items(std::uint64_t first, std::uint64_t length) const;

    std::vector<XTimeItem> items_; ///< by epoch
};

/// A cartoon that plays. Times in milliseconds of one clock.
struct ORVANTA_API Playing {
    std::uint64_t from = 0; ///< the epoch at the start
    std::int64_t since = 0; ///< when it was shown
    int speed = 5;          ///< steps per second

    /// The first epoch to be shown now: what came too late is passed over. Beyond \p last it begins again at
    /// 0 where \p loop is set, else nothing is to be shown any more.
    std::optional<std::uint64_t> At(std::int64_t now, std::uint64_t last, bool loop) const;
    /// Milliseconds until the next epoch is due, above 0.
    std::int64_t Wait(std::int64_t now) const;

private:
    std::uint64_t StepsUntil(std::int64_t now) const;
};

} // namespace orvanta::chart
