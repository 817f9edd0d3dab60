// SPDX-License-Identifier: GPL-3.0-or-later
// Any text is a montage file or refused with an error; what was read keeps what the parser promises.
#include "host/signal_base/montage/montage_file.h"

#include "host/signal_base/recording_error.h"

#include <cmath>
#include <cstdint>
#include <cstdlib>

using namespace orvanta::signal;

namespace {

void Require(bool holds) {
    if (!holds) {
        std::abort();
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    try {
        const auto montages = ParseMontages({reinterpret_cast<const char*>(data), size}, "fuzz.txt");
        Require(!montages.empty());
        for (const MontageText& montage : montages) {
            Require(!montage.name.empty() && !montage.channels.empty());
            for (const MontageLine& channel : montage.channels) {
                Require(!channel.label.empty() && !channel.terms.empty());
                for (const MontageTerm& term : channel.terms) {
                    Require(!term.sensor.empty() && std::isfinite(term.weight) && term.weight != 0);
                }
            }
        }
    } catch (const RecordingError&) {
        return 0;
    }
    return 0;
}
