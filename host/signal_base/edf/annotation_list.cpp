// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/signal_base/edf/annotation_list.h"

#include "host/signal_base/text.h"

#include <cmath>

namespace orvanta::signal {

namespace {

constexpr char kTextMark = '\x14';
constexpr char kDurationMark = '\x15';

std::optional<double> ParseTime(std::string_view text, AnnotationList& list) {
    const std::optional<RepairedNumber> seconds = ParseNumberOrComma(text);
    if (!seconds || std::abs(seconds->value) > kMaxAnnotationSeconds) {
        return std::nullopt;
    }
    list.comma = list.comma || seconds->comma;
    return seconds->value;
}

void SplitOne(std::string_view bytes, AnnotationList& list) {
    list.bytes = bytes;
    const std::string_view times = bytes.substr(0, bytes.find(kTextMark));
    const std::size_t mark = times.find(kDurationMark);
    list.onset_s = ParseTime(times.substr(0, mark), list);
    if (mark != std::string_view::npos) {
        list.duration_s = ParseTime(times.substr(mark + 1), list);
        list.bad_duration = !list.duration_s || *list.duration_s < 0;
        if (list.bad_duration) {
            list.duration_s.reset();
        }
    }
    list.terminated = list.terminated && bytes.ends_with(kTextMark);
    for (std::size_t at = times.size() + 1; at < bytes.size();) {
        const std::string_view text = bytes.substr(at, bytes.find(kTextMark, at) - at);
        list.texts.push_back(text);
        at += text.size() + 1;
    }
}

} // namespace

void SplitAnnotationLists(std::string_view bytes, std::vector<AnnotationList>& lists) {
    lists.clear();
    while (!bytes.empty()) {
        const std::size_t end = bytes.find('\0');
        if (end != 0) {
            AnnotationList& list = lists.emplace_back();
            list.terminated = end != std::string_view::npos;
            SplitOne(bytes.substr(0, end), list);
        }
        if (end == std::string_view::npos) {
            return;
        }
        bytes.remove_prefix(end + 1);
    }
}

} // namespace orvanta::signal
