// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/chart_view/maps/epoch_steps.h"

#include <algorithm>

namespace orvanta::chart {

namespace {

constexpr std::int64_t kSecond = 1000;

} // namespace

EpochSteps::EpochSteps(const XTimeList& list) : items_(list.begin(), list.end()) {
    std::ranges::stable_sort(items_, {}, &XTimeItem::Step);
}

std::uint64_t EpochSteps::Count() const {
    return items_.empty() ? 0 : std::uint64_t{items_.back().Step} + 1;
}

std::uint64_t EpochSteps::LastStart(std::uint64_t length) const {
    return Count() > length ? Count() - length : 0;
}

std::span<const XTimeItem> EpochSteps::Items(std::uint64_t first, std::uint64_t length) const {
    const auto from = std::ranges::lower_bound(
        items_, first, {}, [](const XTimeItem& item) { return std::uint64_t{item.Step}; });
    const auto to =
        std::find_if(from, items_.end(), [&](const XTimeItem& item) { return item.Step - first >= length; });
    return {from, to};
}

XTimeList EpochSteps::Stretch(std::uint64_t first, std::uint64_t length) const {
    XTimeList stretch;
    for (const XTimeItem& item : Items(first, length)) {
        stretch.push_back(item.Interval, static_cast<std::uint32_t>(item.Step - first));
    }
    return stretch;
}

std::optional<XTimeInterval> EpochSteps::Time(std::uint64_t first, std::uint64_t length) const {
    const std::span<const XTimeItem> items = Items(first, length);
    if (items.empty()) {
        return {};
    }
    XTime begin = *items.front().Interval.GetBeginPtr();
    XTime end = *items.front().Interval.GetEndPtr();
    for (const XTimeItem& item : items) {
        begin = std::min(begin, *item.Interval.GetBeginPtr());
        end = std::max(end, *item.Interval.GetEndPtr());
    }
    return XTimeInterval(begin, end);
}

std::uint64_t Playing::StepsUntil(std::int64_t now) const {
    return static_cast<std::uint64_t>(std::max<std::int64_t>(0, now - since) * speed / kSecond);
}

std::optional<std::uint64_t> Playing::At(std::int64_t now, std::uint64_t last, bool loop) const {
    const std::uint64_t epoch = from + StepsUntil(now);
    if (epoch <= last) {
        return epoch;
    }
    if (loop) {
        return epoch % (last + 1);
    }
    return {};
}

std::int64_t Playing::Wait(std::int64_t now) const {
    const auto next = static_cast<std::int64_t>(StepsUntil(now)) + 1;
    const std::int64_t due = since + (next * kSecond + speed - 1) / speed; // not a little too early
    return due - now;
}

} // namespace orvanta::chart
