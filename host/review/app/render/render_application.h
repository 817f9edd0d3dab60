// SPDX-License-Identifier: GPL-3.0-or-later
// What drawing without a display needs.
#pragma once

#include "host/review/app/application.h"

namespace orvanta::review {

/// Qt without a display, windows as light as paper.
class RenderApplication {
public:
    /// \param fineness device pixels per pixel of what views draw as pictures
    explicit RenderApplication(double fineness = 1);

private:
    Application application_;
};

/// \throws cli::Interrupted when the user asked to stop
void StopWhenInterrupted();

} // namespace orvanta::review
