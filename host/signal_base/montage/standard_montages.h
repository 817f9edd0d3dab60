// SPDX-License-Identifier: GPL-3.0-or-later
// The montages that follow from a recording's electrodes.
#pragma once

#include "spectra_contract/montage.h"

#include <memory>
#include <vector>

namespace orvanta::signal {

using Sensors = std::vector<std::shared_ptr<SensorType>>;

/// Every EEG sensor as it was recorded, labelled with its recorded reference where the label tells.
MontageType AsRecordedMontage(const Sensors& sensors);
/// Every other electrode against \p reference, those left out that cannot be compared with it; empty for
/// null.
MontageType ReferenceMontage(const Sensors& sensors, const SensorType* reference);
/// Cz when recorded, else Fz or Pz, else the first electrode that is no ear, among those recorded against the
/// reference of most; null without electrodes.
const SensorType* DefaultReference(const Sensors& sensors);
/// Every electrode against the mean of all that are not marked bad. Contacts inside the skull take part only
/// when there is no electrode on the scalp, electrodes recorded against another reference than most and those
/// in raw values not at all; empty when no reference is that of most.
/// \param chosen the mean is of those of them that are here, when they are two or more
MontageType AverageMontage(const Sensors& sensors, const SensorList& chosen = {});

/// All montages that can be made, in this order: as recorded; longitudinal bipolar; transverse bipolar;
/// average reference; reference; linked ears; linked mastoids. As recorded is always there, and serves as the
/// reference montage where none can be made.
std::unique_ptr<MontageList> StandardMontages(const Sensors& sensors);

} // namespace orvanta::signal
