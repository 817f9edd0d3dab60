// SPDX-License-Identifier: GPL-3.0-or-later
// Numbers of the maps view's commands and messages.
#pragma once

namespace orvanta::spectral_maps {

inline constexpr unsigned kCmView = 9328; ///< the menu's title item, a command of the application
inline constexpr unsigned kCmPalette = 14081;
inline constexpr unsigned kCmTopView = 14100;
inline constexpr unsigned kCmFrontView = 14101;
inline constexpr unsigned kCmLeftView = 14102;
inline constexpr unsigned kCmRightView = 14103;
inline constexpr unsigned kCmBackView = 14104;
inline constexpr unsigned kCmRecompute = 14130;
inline constexpr unsigned kCmOptions = 14140;
inline constexpr unsigned kCmElectrodes = 14141;
inline constexpr unsigned kCmSetBands = 14142;
inline constexpr unsigned kCmConfigure = 14143;
inline constexpr unsigned kCmSelectFont = 14144;
inline constexpr unsigned kCmLock = 14150;
inline constexpr unsigned kCmTable = 14160; ///< also the message of the size that was picked
inline constexpr unsigned kCmCartoon = 14170;
inline constexpr unsigned kCmCopy = 14180;
inline constexpr unsigned kCmNextSelection = 14190;
inline constexpr unsigned kCmSpectraInfo = 14200;

inline constexpr unsigned kTransparency = 16329; ///< of the slider
inline constexpr unsigned kMapOptions = 16333;   ///< of a map that was double-clicked, with its number

} // namespace orvanta::spectral_maps
