// SPDX-License-Identifier: GPL-3.0-or-later
// Texts that the module asks its host for by their number.
#pragma once

class PModule;

namespace orvanta::review {

/// Makes them known in the user's language, which is set by then.
/// \param messages of the module; null for English
void SupplyHostStrings(const PModule* messages);

} // namespace orvanta::review
