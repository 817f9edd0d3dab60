// SPDX-License-Identifier: GPL-3.0-or-later
// Event labels when there is no recording to give them.
#pragma once

#include <vector>

class EventsManager;
class SpectraMacro;

namespace orvanta::review {

/// Adds one event for every label that the macros name, so that a form lists them and keeps them: of states
/// for accepted states and for rejected events, of spots for accepted spots.
void AddLabelsOf(const std::vector<SpectraMacro>& macros, EventsManager& events);

} // namespace orvanta::review
