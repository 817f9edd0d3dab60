// SPDX-License-Identifier: GPL-3.0-or-later
// Numbers of the spectrum view's commands.
#pragma once

namespace orvanta::spectrum_view {

inline constexpr unsigned kCmView = 9344; ///< the menu's title item, a command of the application
inline constexpr unsigned kCmMean = 14346;
inline constexpr unsigned kCmTimeFreq = 14347;
inline constexpr unsigned kCmCsa = 14348;
inline constexpr unsigned kCmHeadView = 14356;
inline constexpr unsigned kCmGridView = 14357;
inline constexpr unsigned kCmRecompute = 14376;
inline constexpr unsigned kCmSetBands = 14386;
inline constexpr unsigned kCmMeasures = 14396;
inline constexpr unsigned kCmSpectraTable = 14406;
inline constexpr unsigned kCmPreviousTrace = 14416;
inline constexpr unsigned kCmNextTrace = 14417;
inline constexpr unsigned kCmSetCommon = 14426;
inline constexpr unsigned kCmSaveSpectra = 14437;
inline constexpr unsigned kCmSaveAndLaunch = 14438;
inline constexpr unsigned kCmCopyMeasures = 14439;
inline constexpr unsigned kCmEditOptions = 14447;
inline constexpr unsigned kCmSelectFont = 14448;
inline constexpr unsigned kCmSetMaxAxis = 14449;
inline constexpr unsigned kCmWide = 14450;
inline constexpr unsigned kCmNarrow = 14451;
inline constexpr unsigned kCmSetEntity = 14456; ///< of entity 0; seven numbers from here
inline constexpr unsigned kCmLastEntity = 14462;
inline constexpr unsigned kCmNextSelection = 14476;
inline constexpr unsigned kCmSpectraInfo = 14486;
inline constexpr unsigned kCmShowPoints = 14496;
inline constexpr unsigned kCmShowLines = 14497;
inline constexpr unsigned kCmShowSd = 14498;
inline constexpr unsigned kCmShowMeasures = 14499;
inline constexpr unsigned kCmShowAxesText = 14500;
inline constexpr unsigned kCmShowLabels = 14501;
inline constexpr unsigned kCmNormalizeNone = 14506;
inline constexpr unsigned kCmNormalizeDb = 14507;
inline constexpr unsigned kCmNormalizeByF = 14508;
inline constexpr unsigned kCmNormalizeBySqrtF = 14509;
inline constexpr unsigned kCmNormalizeByLog10F = 14510;
inline constexpr unsigned kCmNormalizeByLnF = 14511;

inline constexpr unsigned kMontageSelector = 14537; ///< a control of the tool bar
inline constexpr unsigned kGridPicked = 14539;      ///< answer of the picker for the size of the grid

} // namespace orvanta::spectrum_view
