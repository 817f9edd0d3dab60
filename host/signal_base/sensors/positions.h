// SPDX-License-Identifier: GPL-3.0-or-later
// The electrode positions of the 10-20, 10-10 and 10-05 systems.
#pragma once

#include "spectra_contract/sensor.h"

#include <string>
#include <string_view>
#include <unordered_map>

namespace orvanta::signal {

/// Every standard position by its name in lower case; the names T3, T4, T5, T6 of the 10-20 system stand
/// beside T7, T8, P7, P8, and the ears A1, A2 and mastoids M1, M2 beside the scalp.
///
/// Built from proportions on the sphere of radius 1 (Oostenveld and Praamstra 2001, Clin Neurophysiol
/// 112:713): the midline from nasion over vertex to inion spans 225°, so that 10 % are 22.5° and the ring
/// Fpz-T7-Oz-T8 is the equator. The ring, and the ring through nasion, T9, inion and T10 22.5° below it, are
/// divided in steps of 5 % of each half. Each row across the head is the circle through its two points on the
/// ring and its point on the midline, each half divided in eighths.
ORVANTA_API const std::unordered_map<std::string, ElectInfo>& StandardPositions();

/// The 10-10 name of an electrode that has two ("T3" is "T7"); other names as they are. Case ignored.
std::string ModernName(std::string_view name);

/// True for the ears and mastoids (A1, A2, M1, M2), case ignored: references rather than scalp.
bool IsEar(std::string_view name);

} // namespace orvanta::signal
