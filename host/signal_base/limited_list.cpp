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

} // namespace orvanta::signal
