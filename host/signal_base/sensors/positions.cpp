// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/signal_base/sensors/positions.h"

#include "host/signal_base/recording.h"
#include "host/signal_base/text.h"

#include <array>
#include <cmath>
#include <numbers>
#include <utility>

namespace orvanta::signal {

namespace {

using PositionMap = std::unordered_map<std::string, ElectInfo>;

constexpr double kDegree = std::numbers::pi / 180;
constexpr double kTenPercent = 22.5 * kDegree;

/// Old names and the ones that replaced them.
constexpr std::array<std::pair<const char*, const char*>, 4> kRenamed{
    {{"T3", "T7"}, {"T4", "T8"}, {"T5", "P7"}, {"T6", "P8"}}};

/// A row across the head: its name near the midline, its name on and beyond the ring, and where it crosses
/// midline and ring, in percent from the nasion.
struct Row {
    const char* inner;
    const char* outer;
    double percent;
};
constexpr std::array<Row, 15> kRows{{{"AFp", "AFp", 15},
                                     {"AF", "AF", 20},
                                     {"AFF", "AFF", 25},
                                     {"F", "F", 30},
                                     {"FFC", "FFT", 35},
                                     {"FC", "FT", 40},
                                     {"FCC", "FTT", 45},
                                     {"C", "T", 50},
                                     {"CCP", "TTP", 55},
                                     {"CP", "TP", 60},
                                     {"CPP", "TPP", 65},
                                     {"P", "P", 70},
                                     {"PPO", "PPO", 75},
                                     {"PO", "PO", 80},
                                     {"POO", "POO", 85}}};

/// On the midline, `percent` of the way from nasion to inion.
HeadPosition OnMidline(double percent) {
    const double fromVertex = (50 - percent) / 10 * kTenPercent;
    return {0, std::sin(fromVertex), std::cos(fromVertex)};
}

/// On the left half of the ring `stepsBelow` × 10 % below the equator, `percent` of the way from front to
/// back.
HeadPosition OnRing(double percent, double stepsBelow) {
    const double azimuth = percent / 100 * std::numbers::pi;
    const double elevation = -stepsBelow * kTenPercent;
    return {-std::sin(azimuth) * std::cos(elevation), std::cos(azimuth) * std::cos(elevation),
            std::sin(elevation)};
}

/// On the circle through a point of the left ring, its mirror image and a point of the midline; `share` of
/// the way from the ring to the midline.
HeadPosition OnRow(const HeadPosition& ring, const HeadPosition& midline, double share) {
    // In the plane of the three: x as on the head, height from the chord between the ring points.
    const double half = -ring.x;
    const double dy = midline.y - ring.y;
    const double dz = midline.z - ring.z;
    const double height = std::hypot(dy, dz);
    const double centre = (height * height - half * half) / (2 * height);
    const double angle = std::atan2(half, -centre) * (1 - share);
    const double radius = height - centre;
    const double up = (centre + radius * std::cos(angle)) / height;
    return {-radius * std::sin(angle), ring.y + up * dy, ring.z + up * dz};
}

/// Without the rounding of the sines, so that the midline is at exactly 0; never -0.
double Tidy(double coordinate) {
    return std::round(coordinate * 1e12) / 1e12 + 0.0;
}

void Put(PositionMap& map, const std::string& name, const HeadPosition& position) {
    map[LowerCase(name)] = {name, {Tidy(position.x), Tidy(position.y), Tidy(position.z)}, true};
}

/// A position on the left, named with an odd number and perhaps "h", and its mirror image.
void PutPair(PositionMap& map, const std::string& row, int odd, const char* suffix,
             const HeadPosition& left) {
    Put(map, row + std::to_string(odd) + suffix, left);
    Put(map, row + std::to_string(odd + 1) + suffix, {-left.x, left.y, left.z});
}

void PutRow(PositionMap& map, const Row& row) {
    const HeadPosition midline = OnMidline(row.percent);
    const HeadPosition ring = OnRing(row.percent, 0);
    Put(map, std::string(row.inner) + "z", midline);
    PutPair(map, row.outer, 9, "", OnRing(row.percent, 1));
    PutPair(map, row.outer, 9, "h", OnRing(row.percent, 0.5));
    PutPair(map, row.outer, 7, "", ring);
    PutPair(map, row.outer, 7, "h", OnRow(ring, midline, 1.0 / 8));
    for (int odd = 5; odd >= 1; odd -= 2) {
        PutPair(map, row.inner, odd, "", OnRow(ring, midline, (7 - odd) / 8.0));
        PutPair(map, row.inner, odd, "h", OnRow(ring, midline, (8 - odd) / 8.0));
    }
}

/// The foremost and hindmost places, which are no rows: `percent` is that of the numbers 1 and 2.
void PutEnd(PositionMap& map, const char* name, double stepsBelow, double middle, double percent) {
    Put(map, std::string(name) + "z", OnRing(middle, stepsBelow));
    PutPair(map, name, 1, "", OnRing(percent, stepsBelow));
    PutPair(map, name, 1, "h", OnRing((middle + percent) / 2, stepsBelow));
}

PositionMap BuildPositions() {
    PositionMap map;
    for (const Row& row : kRows) {
        PutRow(map, row);
    }
    PutEnd(map, "Fp", 0, 0, 10);
    PutEnd(map, "NFp", 0.5, 0, 10);
    PutEnd(map, "N", 1, 0, 10);
    PutEnd(map, "O", 0, 100, 90);
    PutEnd(map, "OI", 0.5, 100, 90);
    PutEnd(map, "I", 1, 100, 90);
    // Ear lobes and mastoids are no positions of the system; they lie half a step below T9 and TP9.
    PutPair(map, "A", 1, "", OnRing(50, 1.5));
    PutPair(map, "M", 1, "", OnRing(60, 1.5));
    for (const auto& [old, name] : kRenamed) {
        Put(map, old, map.at(LowerCase(name)).Position);
    }
    return map;
}

} // namespace

const PositionMap& StandardPositions() {
    static const PositionMap positions = BuildPositions();
    return positions;
}

std::string ModernName(std::string_view name) {
    for (const auto& [old, modern] : kRenamed) {
        if (SameText(old, name)) {
            return modern;
        }
    }
    return std::string(name);
}

bool IsEar(std::string_view name) {
    return SameText(name, "A1") || SameText(name, "A2") || SameText(name, "M1") || SameText(name, "M2");
}

ElectInfo StandardPosition(const std::string& name) {
    const auto found = StandardPositions().find(LowerCase(name));
    return found == StandardPositions().end() ? ElectInfo{name, {}, false} : found->second;
}

} // namespace orvanta::signal
