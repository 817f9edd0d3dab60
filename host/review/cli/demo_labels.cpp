// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/cli/demo_labels.h"

#include <array>

namespace orvanta::cli {

namespace {

constexpr std::array kTenTwenty = {"Fp1", "Fp2", "F7", "F3", "Fz", "F4", "F8", "T7", "C3", "Cz",
                                   "C4",  "T8",  "P7", "P3", "Pz", "P4", "P8", "O1", "O2"};
constexpr std::array kTenTen = {
    "Fpz", "Oz",  "AF7",  "AF3", "AFz", "AF4", "AF8", "F5",   "F1",  "F2",   "F6",  "FT7", "FC5",
    "FC3", "FC1", "FCz",  "FC2", "FC4", "FC6", "FT8", "C5",   "C1",  "C2",   "C6",  "TP7", "CP5",
    "CP3", "CP1", "CPz",  "CP2", "CP4", "CP6", "TP8", "P5",   "P1",  "P2",   "P6",  "PO7", "PO3",
    "POz", "PO4", "PO8",  "Iz",  "F9",  "F10", "FT9", "FT10", "TP9", "TP10", "P9",  "P10", "T9",
    "T10", "PO9", "PO10", "AF5", "AF1", "AF2", "AF6", "PO5",  "PO1", "PO2",  "PO6", "I1",  "I2"};

/// Rows between the rows of the 10-10 system: name near the midline and on the ring.
constexpr std::array<std::array<const char*, 2>, 8> kHalfRows = {{{"AFp", "AFp"},
                                                                  {"AFF", "AFF"},
                                                                  {"FFC", "FFT"},
                                                                  {"FCC", "FTT"},
                                                                  {"CCP", "TTP"},
                                                                  {"CPP", "TPP"},
                                                                  {"PPO", "PPO"},
                                                                  {"POO", "POO"}}};

std::vector<std::string> TenFive() {
    std::vector<std::string> names;
    for (const auto& [inner, outer] : kHalfRows) {
        names.push_back(std::string(inner) + "z");
        for (int number = 1; number <= 8; ++number) {
            const std::string row = number <= 6 ? inner : outer;
            names.push_back(row + std::to_string(number));
            names.push_back(row + std::to_string(number) + "h");
        }
    }
    return names;
}

} // namespace

std::vector<std::string> DemoLabels(unsigned count) {
    std::vector<std::string> labels(kTenTwenty.begin(), kTenTwenty.end());
    labels.insert(labels.end(), kTenTen.begin(), kTenTen.end());
    const std::vector<std::string> tenFive = TenFive();
    labels.insert(labels.end(), tenFive.begin(), tenFive.end());
    while (labels.size() < count) {
        labels.push_back("E" + std::to_string(labels.size() + 1));
    }
    labels.resize(count);
    return labels;
}

} // namespace orvanta::cli
