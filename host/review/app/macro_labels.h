// SPDX-License-Identifier: GPL-3.0-or-later
// Macros of a folder, and event labels when there is no recording to give them.
#pragma once

#include <string>
#include <vector>

class EventsManager;
class SpectraMacro;

namespace orvanta::review {

/// The macros in a folder that can be read. \param folder with trailing separator
std::vector<SpectraMacro> MacrosIn(const std::string& folder);

/// Adds one event for every label that the macros name, so that a form lists them and keeps them: of states
/// for accepted states and for rejected events, of spots for accepted spots.
void AddLabelsOf(const std::vector<SpectraMacro>& macros, EventsManager& events);

} // namespace orvanta::review
