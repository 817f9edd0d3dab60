// SPDX-License-Identifier: GPL-3.0-or-later
// Work that is always long.
#pragma once

#include "host/toolkit/services.h"

namespace orvanta::test {

/// The clock in use while it lives: each look at it is 40 ms later.
class FastClock final : public owl::Clock {
public:
    FastClock() : services_(owl::CurrentServices()) {
        services_.clock = this;
        earlier_ = owl::ReplaceServices(&services_);
    }
    ~FastClock() override { owl::ReplaceServices(earlier_); }
    FastClock(const FastClock&) = delete;
    FastClock& operator=(const FastClock&) = delete;

    std::int64_t Milliseconds() const override { return now_ += 40; }

private:
    owl::Services services_;
    const owl::Services* earlier_;
    mutable std::int64_t now_ = 0;
};

} // namespace orvanta::test
