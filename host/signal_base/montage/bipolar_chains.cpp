// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/signal_base/montage/bipolar_chains.h"

#include "host/signal_base/montage/builders.h"
#include "host/signal_base/sensors/references.h"

namespace orvanta::signal {

namespace {

using Chain = std::vector<const char*>;

const std::vector<Chain> kLongitudinal{{"Fp1", "F7", "T7", "P7", "O1"},
                                       {"Fp1", "F3", "C3", "P3", "O1"},
                                       {"Fz", "Cz", "Pz"},
                                       {"Fp2", "F4", "C4", "P4", "O2"},
                                       {"Fp2", "F8", "T8", "P8", "O2"}};
const std::vector<Chain> kTransverse{{"F7", "Fp1", "Fp2", "F8"},
                                     {"F7", "F3", "Fz", "F4", "F8"},
                                     {"T7", "C3", "Cz", "C4", "T8"},
                                     {"P7", "P3", "Pz", "P4", "P8"},
                                     {"P7", "O1", "O2", "P8"}};

MontageType Link(const char* name, const std::vector<Chain>& chains, const Sensors& sensors) {
    std::vector<std::shared_ptr<ChnType>> channels;
    for (const Chain& chain : chains) {
        const SensorType* last = nullptr;
        std::size_t lastAt = 0;
        for (std::size_t at = 0; at < chain.size(); ++at) {
            const SensorType* next = FindElectrode(sensors, chain[at]);
            if (next == nullptr) {
                continue;
            }
            if (last != nullptr && at - lastAt <= 2 && Comparable(*last, *next)) {
                channels.push_back(MakeDifference(*last, *next));
            }
            last = next;
            lastAt = at;
        }
    }
    return MakeMontage(name, MontageType::Kind::Bipolar, std::move(channels));
}

} // namespace

MontageType LongitudinalMontage(const Sensors& sensors) {
    return Link("Longitudinal bipolar", kLongitudinal, sensors);
}

MontageType TransverseMontage(const Sensors& sensors) {
    return Link("Transverse bipolar", kTransverse, sensors);
}

} // namespace orvanta::signal
