// SPDX-License-Identifier: GPL-3.0-or-later
// Ranges of the settings of an analysis.
#pragma once

#include <cstddef>
#include <cstdint>

namespace orvanta::spectral {

constexpr double kMaxFFTSeconds = 3600;
constexpr std::uint32_t kMaxPaddedSamples = 1u << 24; ///< longest transform
constexpr unsigned kMaxOverlapPerc = 99;
constexpr std::uint32_t kMaxSpotSteps = 256;
constexpr std::uint32_t kMaxSpotStepMS = 32000;
constexpr std::uint64_t kMaxEpochs = 1'000'000'000'000;
constexpr std::uint32_t kMaxColor = 0x00FFFFFF;

// What a macro file may hold.
constexpr std::size_t kMaxMacroBytes = 4u << 20;
constexpr std::size_t kMaxLabels = 10000; ///< per list
constexpr std::size_t kMaxTextBytes = 4096;

} // namespace orvanta::spectral
