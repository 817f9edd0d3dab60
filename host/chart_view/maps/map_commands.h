// SPDX-License-Identifier: GPL-3.0-or-later
// Numbers of the commands and messages of a view of maps.
#pragma once

namespace orvanta::chart {

inline constexpr unsigned kChoosePalette = 14081;
inline constexpr unsigned kFromTop = 14100;
inline constexpr unsigned kFromFront = 14101;
inline constexpr unsigned kFromLeft = 14102;
inline constexpr unsigned kFromRight = 14103;
inline constexpr unsigned kFromBack = 14104;
inline constexpr unsigned kElectrodes = 14141;
inline constexpr unsigned kConfigureMap = 14143;
inline constexpr unsigned kSelectFont = 14144;
inline constexpr unsigned kLock = 14150;
inline constexpr unsigned kGrid = 14160; ///< also of the message with the size that was picked
inline constexpr unsigned kNames = 14161;
inline constexpr unsigned kValues = 14162;
inline constexpr unsigned kSinglePalette = 14163;
inline constexpr unsigned kValuesTable = 14164;
inline constexpr unsigned kCopyMeasures = 14180;

// Messages to the view.
inline constexpr unsigned kTransparency = 16329; ///< the slider moved
/// What a map shows is to be chosen; first argument its number. Views whose maps have nothing to choose do
/// not answer.
inline constexpr unsigned kMapOptions = 16333;

} // namespace orvanta::chart
