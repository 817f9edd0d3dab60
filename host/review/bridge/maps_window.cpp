// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/bridge/maps_window.h"

#include "host/chart_view/maps/map_commands.h"
#include "host/review/app/gallery/view_frame.h"
#include "host/review/bridge/map_electrodes.h"
#include "host/review/bridge/maps_settings.h"
#include "spectral_maps/spect_map.h"

namespace orvanta::review {

namespace {

/// The five bands and the share of alpha.
MapsPage PageOf(MapsKind kind) {
    MapsPage page;
    for (const int band : {0, 1, 2, 3, 4}) {
        page.maps.push_back({0, band, 0, 50, true, false});
    }
    page.maps.push_back({2, 2, 0, 100, false, true});
    page.rows = 2;
    page.columns = 3;
    if (kind == MapsKind::Cartoon) {
        page.maps = {{0, 2, 0, 50, true, true}};
        page.palette = "inferno";
    }
    return page;
}

} // namespace

void ShowMapsWindow(const GallerySample& sample, SpectraMgr& manager, const QSize& size, MapsKind kind,
                    const TakePicture& take) {
    constexpr std::uint64_t kStep = 12;
    ViewFrame window(sample.platform);
    PutMapsSettings(window, PageOf(kind));
    auto* view = new SpectMap(window, &sample.recording, &manager, kind == MapsKind::Heads,
                              MapElectrodes(sample.recording));
    window.Take(*view);
    window.resize(size);
    view->Create();
    if (kind == MapsKind::Flat) {
        view->RunCommand(chart::kValuesTable);
    } else if (kind == MapsKind::Heads) {
        view->RunCommand(chart::kFromBack);
    } else {
        view->SetCartoonMode(true);
        view->ShowStep(kStep);
    }
    take(window);
    view->Destroy();
}

} // namespace orvanta::review
