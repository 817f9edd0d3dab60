// SPDX-License-Identifier: GPL-3.0-or-later
// Maps for a user who has none yet.
#pragma once

class GenericPlatform;

namespace orvanta::review {

/// Stores what the first eight maps show, each with a scale from 0: the absolute power of delta, theta, alpha
/// and beta, and below each its share of the whole. Nothing when the user has settings of maps.
void InstallStarterMaps(GenericPlatform& platform);

} // namespace orvanta::review
