// SPDX-License-Identifier: GPL-3.0-or-later
// Types of lines that share a gain and a colour.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace orvanta::review {

enum class TraceGroup : std::uint8_t { Eeg, Eog, Ecg, Emg, Respiration, Other };
inline constexpr std::size_t kTraceGroups = 6;
inline constexpr std::array kAllGroups{TraceGroup::Eeg, TraceGroup::Eog,         TraceGroup::Ecg,
                                       TraceGroup::Emg, TraceGroup::Respiration, TraceGroup::Other};

/// \param type a code of Sensor::Type
TraceGroup GroupOf(std::uint32_t type);
/// "EEG", "EOG", ...
const char* NameOf(TraceGroup group);

/// A number for each group.
class TraceGains {
public:
    double& operator[](TraceGroup group) { return values_[static_cast<std::size_t>(group)]; }
    double operator[](TraceGroup group) const { return values_[static_cast<std::size_t>(group)]; }

    bool operator==(const TraceGains&) const = default;

private:
    // What is usual on paper: µV/mm.
    std::array<double, kTraceGroups> values_{7, 15, 50, 10, 10, 10};
};

} // namespace orvanta::review
