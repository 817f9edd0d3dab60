// SPDX-License-Identifier: GPL-3.0-or-later
// orvanta render --cartoon: the maps of one epoch after the other.
#pragma once

#include "host/review/app/review_entry.h"

namespace orvanta::review {

/// The whole command: frames in a folder, or a video. \return exit status
int RunRenderCartoon(const RenderCartoonRequest& request);

} // namespace orvanta::review
