// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/signal_base/limited_list.h"

#include <utility>

namespace orvanta::signal {

LimitedList::LimitedList(std::vector<std::string>& lines, std::string prefix)
    : lines_(lines), prefix_(std::move(prefix)) {}

LimitedList::~LimitedList() {
    if (count_ > kLimit) {
        lines_.push_back(prefix_ + "and " + std::to_string(count_ - kLimit) + " more");
    }
}

void LimitedList::Add(const std::string& text) {
    if (++count_ <= kLimit) {
        lines_.push_back(prefix_ + text);
    }
}

std::string NameList(const std::vector<std::string>& names) {
    constexpr std::size_t kMost = 8;
    std::string text;
    for (std::size_t i = 0; i < names.size() && i < kMost; ++i) {
        text += (i == 0 ? "" : ", ") + names[i];
    }
    return names.size() <= kMost ? text : text + " and " + std::to_string(names.size() - kMost) + " more";
}

} // namespace orvanta::signal
