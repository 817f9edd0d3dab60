// SPDX-License-Identifier: GPL-3.0-or-later
// The state of channels and montages.
#pragma once

#include "spectra_contract/montage.h"

namespace orvanta::signal {

/// Sensors whose mean the channels of a montage share; null for none. Shared, or an average of n electrodes
/// would hold n² of them.
using CommonAverage = std::shared_ptr<const std::vector<const SensorType*>>;

} // namespace orvanta::signal

struct ChnType::Impl {
    std::string name;
    std::string position;
    std::vector<ChannelTerm> terms;
    orvanta::signal::CommonAverage commonAverage;
};

struct MontageType::Impl {
    std::string name;
    Kind kind = Kind::AsRecorded;
    std::vector<std::shared_ptr<ChnType>> channels;
};

struct MontageList::Impl {
    std::vector<std::shared_ptr<MontageType>> montages;
    std::size_t current = 0;
    std::size_t unipolar = 0;
    std::size_t reference = 0;
};

namespace orvanta::signal {

/// Equal sensors in equal order.
bool SameAverage(const ChnType& a, const ChnType& b);

} // namespace orvanta::signal
