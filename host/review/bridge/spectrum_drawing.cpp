// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/bridge/spectrum_drawing.h"

#include "spectra_contract/platform.h"
#include "spectra_contract/spectra_mgr.h"
#include "spectrum_view/spectrum.h"

#include <string>

namespace orvanta::review {

namespace {

/// What the view reads when it is made.
void PutSettings(UserType& user, const SpectraMgr& manager, const SpectrumPage& page) {
    constexpr const char* kView = "Spectrum";
    const int entity = static_cast<int>(manager.GetMeasEntity());
    user.PutInt(kView, "MeasEntity", entity);
    user.PutInt(kView, "NumRows", page.rows);
    user.PutInt(kView, "NumCols", page.columns);
    user.PutInt(kView, "bCommonScale", page.commonScale ? 1 : 0);
    user.PutInt(kView, "m_bShowSD", page.sd ? 1 : 0);
    user.PutInt(kView, "ShowPoints", page.points ? 1 : 0);
    user.PutInt(kView, "ShowLines", page.lines ? 1 : 0);
    const std::string scale = "EntityString_" + std::to_string(entity);
    user.PutDouble(scale.c_str(), "MinX", page.range.bottom);
    user.PutDouble(scale.c_str(), "MaxX", page.range.top);
}

/// What every new view shows until it is told otherwise.
void Choose(Spectrum& view, const SpectrumPage& page) {
    view.ChangeViewMode(page.layout);
    view.ChangeDataMode(page.mode);
    view.SetShowTitle(page.title);
    if (!page.labels) {
        view.CmShowLabel();
    }
    if (!page.axesText) {
        view.CmShowAxesText();
    }
    if (!page.measuresBox) {
        view.CmShowMeasures();
    }
}

std::vector<DrawnPlot> PlotsOf(const Spectrum& view) {
    std::vector<DrawnPlot> plots;
    for (const spectrum_view::TraceEntry& trace : view.GetTraces()) {
        plots.push_back({trace.main == nullptr ? std::string() : trace.main->GetName(), trace.rectangle});
    }
    return plots;
}

} // namespace

std::vector<DrawnPlot> DrawSpectrumPage(GlobalWindow& window, EEGFileInfoType& recording, SpectraMgr& manager,
                                        const SpectrumPage& page, const owl::TSize& size, owl::TDC& dc) {
    PutSettings(*window.GetUser(), manager, page);
    Spectrum view(window, &recording, &manager, false);
    view.Create();
    view.resize(size.cx, size.cy);
    Choose(view, page);
    owl::TRect all{0, 0, size.cx, size.cy};
    view.Draw(dc, true, all);
    std::vector<DrawnPlot> plots = PlotsOf(view);
    view.Destroy();
    return plots;
}

} // namespace orvanta::review
