// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/signal_base/events_tsv/table_columns.h"

#include "host/signal_base/text.h"

#include <algorithm>

namespace orvanta::signal {

namespace {

constexpr char kQuote = '"';

} // namespace

std::string_view TakeColumn(std::string_view& line) {
    const std::size_t end = std::min(line.find('\t'), line.size());
    const std::string_view column = Trim(line.substr(0, end));
    line.remove_prefix(std::min(end + 1, line.size()));
    return column;
}

bool IsMissing(std::string_view cell) {
    return cell.empty() || SameText(cell, "n/a");
}

std::string Unquoted(std::string_view cell) {
    if (cell.size() < 2 || cell.front() != kQuote || cell.back() != kQuote) {
        return std::string(cell);
    }
    std::string text;
    for (std::string_view inside = cell.substr(1, cell.size() - 2); !inside.empty();) {
        const bool quote = inside.front() == kQuote;
        if (quote && !inside.substr(1).starts_with(kQuote)) {
            return std::string(cell); // the marks belong to the text
        }
        text += inside.front();
        inside.remove_prefix(quote ? 2 : 1);
    }
    return text;
}

std::string QuotedWhereNeeded(std::string_view text) {
    if (!text.starts_with(kQuote)) {
        return std::string(text);
    }
    std::string cell(1, kQuote);
    for (const char sign : text) {
        cell.append(sign == kQuote ? 2 : 1, sign);
    }
    return cell + kQuote;
}

TableHead::TableHead(std::string_view line) {
    for (std::size_t place = 0; !line.empty(); ++place) {
        const std::string_view name = TakeColumn(line);
        const auto* const known = std::find_if(kNames.begin(), kNames.end(),
                                               [&](std::string_view other) { return SameText(name, other); });
        if (known != kNames.end() && !Has(Column(known - kNames.begin()))) {
            places_[std::size_t(known - kNames.begin())] = place;
            last_ = place;
        }
    }
}

TableHead::Row TableHead::Split(std::string_view line) const {
    Row row;
    for (std::size_t place = 0; place <= last_ && !line.empty(); ++place) {
        const std::string_view text = TakeColumn(line);
        const auto* const used = std::find(places_.begin(), places_.end(), place);
        if (used != places_.end()) {
            row[std::size_t(used - places_.begin())] = text;
        }
    }
    return row;
}

} // namespace orvanta::signal
