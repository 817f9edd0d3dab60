// SPDX-License-Identifier: GPL-3.0-or-later
// orvanta render: a page of the maps view in a file.
#pragma once

#include "host/review/app/module_bridge.h"
#include "host/review/app/review_entry.h"

namespace orvanta::review {

/// The page with rows and columns that are 0 filled in: as many as the maps need, about as many of one as of
/// the other. A cartoon has one map where nothing is said.
/// \throws cli::UsageError for an unknown palette, a grid without room for the maps, and measures of several
/// units that shall have one scale
MapsPage MapsPageFor(const MapsPage& page, SPECT::Entity::Type entity, bool cartoon);

/// The analysis that a request asks for, computed, and its page.
class MapRendering {
public:
    /// \param cartoon keep the spectra of epochs
    /// \throws cli::UsageError, signal::RecordingError, spectral::NothingComputable, cli::Interrupted
    MapRendering(const PictureRequest& request, const MapsPage& page, bool cartoon);

    const MapsPage& Page() const { return page_; }
    /// Draws the page. \return its maps
    std::vector<DrawnMap> Draw(ModuleBridge& bridge, owl::TDC& dc);
    void DrawCartoon(ModuleBridge& bridge, const TakeFrame& take);

private:
    const PictureRequest& request_;
    cli::AnalysisRun run_;
    MapsPage page_;
};

/// The whole command. \return exit status
int RunRenderMaps(const RenderMapsRequest& request);

} // namespace orvanta::review
