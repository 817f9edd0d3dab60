// SPDX-License-Identifier: GPL-3.0-or-later
// Steps in making montages.
#pragma once

#include "host/signal_base/montage/montage_impl.h"
#include "host/signal_base/montage/standard_montages.h"

#include <string>

namespace orvanta::signal {

/// \param terms at least one; the first names the position
std::shared_ptr<ChnType> MakeChannel(std::string name, std::vector<ChannelTerm> terms,
                                     CommonAverage commonAverage = nullptr);
/// first − second, labelled "first-second".
std::shared_ptr<ChnType> MakeDifference(const SensorType& first, const SensorType& second);
MontageType MakeMontage(std::string name, MontageType::Kind kind,
                        std::vector<std::shared_ptr<ChnType>> channels);
/// A copy under another name.
MontageType Renamed(const MontageType& montage, std::string name);

/// The EEG sensors that recorded a single electrode, in file order.
std::vector<const SensorType*> Electrodes(const Sensors& sensors);
/// The first of them that is the standard electrode \p name by its old or new name; null when there is none.
const SensorType* FindElectrode(const Sensors& sensors, const std::string& name);

} // namespace orvanta::signal
