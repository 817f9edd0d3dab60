// SPDX-License-Identifier: GPL-3.0-or-later
// The statistics program, which reads spectra files.
#pragma once

#include <string>

class GenericPlatform;

namespace orvanta::spectrum_view {

/// True when the statistics program of the settings can be read.
bool HasStatisticsProgram(const GenericPlatform& platform);

/// Starts the statistics program of the settings, in its own folder, on a spectra file. Nothing happens when
/// one of the two cannot be read. A program that does not start is logged.
void LaunchStatistics(const GenericPlatform& platform, const std::string& spectraFile);

} // namespace orvanta::spectrum_view
