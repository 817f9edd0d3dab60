// SPDX-License-Identifier: GPL-3.0-or-later
// Window function files: whatever is read has values, all of them finite.
#include "host/spectral_data/settings/tapers.h"

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <stdexcept>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using orvanta::spectral::Taper;
    try {
        const Taper taper = Taper::Parse("fuzz.wnd", {reinterpret_cast<const char*>(data), size});
        for (const std::uint32_t n : {1u, 2u, 7u, 16u}) {
            for (const double value : taper.Values(n)) {
                if (!std::isfinite(value)) {
                    std::abort();
                }
            }
        }
    } catch (const std::runtime_error&) {
        return 0;
    }
    return 0;
}
