// SPDX-License-Identifier: GPL-3.0-or-later
// orvanta render: a page of the spectrum view in a file.
#pragma once

#include "host/review/app/module_bridge.h"
#include "host/review/app/render/picture_file.h"
#include "host/review/app/review_entry.h"

namespace orvanta::review {

/// The analyses that a request asks for, computed, with montage and page chosen where the request leaves
/// that open: in the grid the first montage of electrode pairs, and cells for all of its channels; on the
/// scalp the recording's own montage, for coherence and phase the reference montage.
class Rendering {
public:
    /// \throws cli::UsageError, signal::RecordingError, spectral::NothingComputable, cli::Interrupted
    explicit Rendering(const RenderRequest& request);

    const SpectrumPage& Page() const { return page_; }
    SpectraMgr& Manager() { return run_.Manager(); }
    /// Draws the page. \return its plots
    std::vector<DrawnPlot> Draw(ModuleBridge& bridge, owl::TDC& dc);

private:
    const RenderRequest& request_;
    cli::AnalysisRun run_;
    SpectrumPage page_;

    void Compute();
};

/// The whole command. \return exit status
int RunRender(const RenderRequest& request);

} // namespace orvanta::review
