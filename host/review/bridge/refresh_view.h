// SPDX-License-Identifier: GPL-3.0-or-later
// Views of analyses brought up to date.
#pragma once

class TheChild;

namespace orvanta::review {

/// Computes what the view shows and is not up to date, draws it anew, and lets its panels fill themselves.
void RefreshAnalysisView(TheChild& view);

} // namespace orvanta::review
