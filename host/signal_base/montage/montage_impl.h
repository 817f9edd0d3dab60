// SPDX-License-Identifier: GPL-3.0-or-later
// The state of channels and montages.
#pragma once

#include "spectra_contract/montage.h"

struct ChnType::Impl {
    std::string name;
    std::string position;
    std::vector<ChannelTerm> terms;
    std::vector<const SensorType*> commonAverage;
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

/// A copy of a channel that shares nothing with it.
std::shared_ptr<ChnType> CopyChannel(const ChnType& channel);

} // namespace orvanta::signal
