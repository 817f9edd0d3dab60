// SPDX-License-Identifier: GPL-3.0-or-later
// Steps on the way to the first page, for the log.
#pragma once

#include <string>

namespace orvanta::review {

/// Tells a step, and the processor time of the program so far: with the time of the line, how long each took.
void LogStep(const std::string& step);

} // namespace orvanta::review
