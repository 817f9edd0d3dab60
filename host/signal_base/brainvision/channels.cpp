// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/signal_base/brainvision/channels.h"

#include "host/signal_base/limited_list.h"
#include "host/signal_base/text.h"
#include "host/signal_base/text_encoding.h"
#include "host/signal_base/unique_labels.h"

#include <optional>
#include <set>

namespace orvanta::signal::brainvision {

namespace {

std::string Place(std::size_t channel) {
    return "channel " + std::to_string(channel) + ": ";
}

/// Number of the channel that a key "ch<n>" means, 0 for any other key.
std::size_t ChannelOf(const IniEntry& entry, std::size_t count) {
    if (entry.section != "channelinfos" || !entry.key.starts_with("ch")) {
        return 0;
    }
    const std::optional<std::int64_t> number = ParseWhole(std::string_view(entry.key).substr(2));
    return number && *number >= 1 && static_cast<std::uint64_t>(*number) <= count
               ? static_cast<std::size_t>(*number)
               : 0;
}

SignalHeader Describe(std::size_t channel, std::string_view description, LimitedList& list) {
    std::vector<std::string> fields = SplitFields(description);
    fields.resize(4);
    SignalHeader signal;
    signal.label = fields[0];
    signal.unit = fields[3].empty() ? "µV" : fields[3];
    if (!fields[2].empty()) {
        const std::optional<RepairedNumber> resolution = ParseNumberOrComma(fields[2]);
        signal.calibrated = resolution && resolution->value != 0;
        signal.gain = signal.calibrated ? resolution->value : 1;
        if (signal.calibrated && resolution->comma) {
            list.Add(Place(channel) + "decimal comma in the resolution " + Quoted(fields[2]) +
                     " read as a point");
        }
    }
    if (!signal.calibrated) {
        list.Add(Place(channel) + "resolution " + Quoted(fields[2]) +
                 " is no usable number, values left raw");
    }
    if (signal.label.empty()) {
        signal.label = "Ch" + std::to_string(channel);
        list.Add(Place(channel) + "has no name, called " + signal.label);
    }
    return signal;
}

} // namespace

std::size_t CountDescribed(const std::vector<IniEntry>& entries) {
    std::set<std::size_t> numbers;
    for (const IniEntry& entry : entries) {
        numbers.insert(ChannelOf(entry, entries.size()));
    }
    std::size_t count = 0;
    while (numbers.contains(count + 1)) {
        ++count;
    }
    return count;
}

std::vector<SignalHeader> ReadChannels(const std::vector<IniEntry>& entries, std::size_t count,
                                       double rate_hz, std::vector<std::string>& repairs) {
    LimitedList list(repairs, "");
    std::vector<std::optional<SignalHeader>> found(count);
    for (const IniEntry& entry : entries) {
        const std::size_t channel = ChannelOf(entry, count);
        if (channel == 0) {
            continue;
        }
        if (found[channel - 1]) {
            list.Add(Place(channel) + "described again in line " + std::to_string(entry.line) +
                     ", the first description holds");
            continue;
        }
        found[channel - 1] = Describe(channel, entry.value, list);
    }
    std::vector<SignalHeader> signals;
    for (std::size_t i = 0; i < count; ++i) {
        if (!found[i]) {
            found[i].emplace().label = "Ch" + std::to_string(i + 1);
            found[i]->calibrated = false;
            list.Add(Place(i + 1) + "not described, called " + found[i]->label + ", values left raw");
        }
        signals.push_back(std::move(*found[i]));
        signals.back().rate_hz = rate_hz;
    }
    for (const std::size_t renamed : MakeLabelsUnique(signals)) {
        list.Add(Place(renamed + 1) + "shares its name with another, called " +
                 Quoted(signals[renamed].label));
    }
    return signals;
}

} // namespace orvanta::signal::brainvision
