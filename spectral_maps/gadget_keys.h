// SPDX-License-Identifier: GPL-3.0-or-later
// Keys of the tool buttons that show a state.
#pragma once

namespace orvanta::spectral_maps {

inline constexpr int kLockGadget = 7;
inline constexpr int kElectrodesGadget = 16;

} // namespace orvanta::spectral_maps
