// SPDX-License-Identifier: GPL-3.0-or-later
// Which electrodes form the average reference, as the user chose; remembered by name for all recordings.
#pragma once

#include "host/toolkit/window_handle.h"

#include <string>

class EEGFileInfoType;
class GenericPlatform;

namespace orvanta::review {

class ModuleBridge;

/// Lets the recording's average reference be that of the remembered electrodes that it has; of all where
/// nothing is remembered or it has fewer than two of them.
void RestoreAverageElectrodes(EEGFileInfoType& recording, const GenericPlatform& platform);

/// Lets the user choose among the electrodes of the average reference that are not bad. With fewer than two
/// chosen, or when there is no such montage, a message comes up and nothing changes. All electrodes are
/// remembered as no choice.
void ChooseAverageElectrodes(HWND parent, ModuleBridge& bridge, EEGFileInfoType& recording,
                             GenericPlatform& platform);

/// "The average reference is the mean of 8 of 19 electrodes." Empty when it is that of all.
std::string AverageRemark(const EEGFileInfoType& recording);

} // namespace orvanta::review
