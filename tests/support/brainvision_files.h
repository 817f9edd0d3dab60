// SPDX-License-Identifier: GPL-3.0-or-later
// BrainVision recordings made on the spot: header, markers, data.
#pragma once

#include "tests/support/temp_folder.h"

#include <string>
#include <vector>

namespace orvanta::test {

/// What the three files hold. Defaults make a small sound recording: 2 channels, 4 data points at 1000 Hz.
struct BrainVisionFiles {
    std::string stem = "rec";
    std::string interval = "1000"; ///< SamplingInterval, µs
    bool vectorized = false;
    bool float32 = false;
    /// After "Ch<n>=": name, reference, resolution, unit.
    std::vector<std::string> channels = {"Fp1,,0.5,µV", "Fp2,,0.5,µV"};
    /// Stored values, one list per channel, of equal lengths.
    std::vector<std::vector<double>> values = {{1, 2, 3, 4}, {-1, -2, -3, -4}};
    /// After "Mk<n>=": type, description, position, size, channel[, date].
    std::vector<std::string> markers = {"New Segment,,1,1,0,20240229235959000500"};
    std::string common_infos; ///< further lines of [Common Infos], such as "DataPoints=4\n"
};

std::string HeaderText(const BrainVisionFiles& files);
std::string MarkerText(const BrainVisionFiles& files);
std::string DataBytes(const BrainVisionFiles& files);

/// Writes all three files and answers the header's path.
std::string WriteBrainVision(const TempFolder& folder, const BrainVisionFiles& files);

} // namespace orvanta::test
