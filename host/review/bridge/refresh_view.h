// SPDX-License-Identifier: GPL-3.0-or-later
// Views of analyses brought up to date.
#pragma once

class EEGFileInfoType;
class TheChild;

namespace orvanta::review {

/// Lets a spectrum view have the layout that the montage in use can fill: the grid shows bipolar channels,
/// and the scalp would change a montage whose channels have no place there.
void FollowRecordingMontage(TheChild& view, const EEGFileInfoType& recording);

/// Computes what the view shows and is not up to date, draws it anew, and lets its panels fill themselves.
void RefreshAnalysisView(TheChild& view);

} // namespace orvanta::review
