// SPDX-License-Identifier: GPL-3.0-or-later
// The spectrum view's part of the user's settings.
#pragma once

#include "spectrum_view/state/view_state.h"

class SpectraMgr;
class UserType;

namespace orvanta::spectrum_view {

/// Section of the view's own settings; the axis ranges lie in "EntityString_0" to "EntityString_3".
inline constexpr const char* kSection = "Spectrum";
/// So many axis ranges are stored, whatever the number of entities.
inline constexpr unsigned kStoredScales = 4;

/// What a new view starts with. Sets the entity of \p manager, and in \p display the mode (mean), the stored
/// flags, labels, axes text and measures box (shown) and the frequency range of the entity, clamped to half
/// of \p loadedRate (Hz). What is missing has the defaults.
ViewState OpenState(const UserType& user, SpectraMgr& manager, double loadedRate, DisplaySettings& display);

/// Stores entity, grid, common scale, the flags for SD, points and lines, and four axis ranges.
void SaveState(UserType& user, const SpectraMgr& manager, const ViewState& view,
               const DisplaySettings& display);

} // namespace orvanta::spectrum_view
