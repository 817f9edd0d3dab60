// SPDX-License-Identifier: GPL-3.0-or-later
// Montage and page of a picture, where the request leaves them open.
#pragma once

#include "host/review/app/review_entry.h"

namespace orvanta::review {

/// Name of the montage for the layout and the entity: in the grid the first whose channels are pairs of
/// electrodes, on the scalp the recording's own, for coherence and phase the reference montage.
/// \throws spectral::NothingComputable when the recording has none
std::string DefaultMontage(const RenderRequest& request, const EEGFileInfoType& recording);

/// The page with the montage that is current: rows or columns that are 0 become as many as all of its
/// channels need, about as many of one as of the other.
/// \throws cli::UsageError for a mode that the entity does not have, a frequency range that is none or lies
/// beyond the data; spectral::NothingComputable for a montage that the layout cannot show
SpectrumPage PageFor(const RenderRequest& request, const EEGFileInfoType& recording);

} // namespace orvanta::review
