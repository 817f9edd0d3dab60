// SPDX-License-Identifier: GPL-3.0-or-later
#include "spectral_maps/spectral_map_window.h"

#include "host/chart_view/global_window.h"
#include "host/chart_view/maps/plot_set_store.h"
#include "spectral_maps/command_ids.h"

using namespace orvanta::spectral_maps;

constinit const owl::TResponseTable TSpectralMapWindow::__entries = {
    owl::On<owl::WindowEvent::LButtonDblClk, &TSpectralMapWindow::EvLButtonDblClk>(),
};

const owl::TResponseEntry* TSpectralMapWindow::Find(const owl::TEventKey& key) const {
    return owl::FindFirst<TMapWindow>(__entries, *this, key);
}

TSpectralMapWindow::TSpectralMapWindow(owl::TWindow* parent, GlobalWindow& window,
                                       const std::vector<ElectInfo>& electrodes, bool showElectrodes,
                                       bool threeD, int palette, const char* name, int index, int contours)
    : TMapWindow(parent, window.GetPlatform(), electrodes, showElectrodes, threeD, palette, name, index,
                 contours),
      user_(window.GetUser()) {
    plotSet_ = orvanta::chart::LoadPlotSet(*user_, GetSection());
}

TSpectralMapWindow::~TSpectralMapWindow() = default;

void TSpectralMapWindow::SetupWindow() {
    TMapWindow::SetupWindow();
    SetRange(plotSet_.LoScale, plotSet_.HiScale, plotSet_.bAutoScale, plotSet_.bZeroMin);
}

void TSpectralMapWindow::SetPlotSet(const SPECT::PlotSet& plotSet, bool save) {
    plotSet_ = plotSet;
    SetRange(plotSet_.LoScale, plotSet_.HiScale, plotSet_.bAutoScale, plotSet_.bZeroMin);
    if (save) {
        orvanta::chart::SavePlotSet(*user_, GetSection(), plotSet_);
    }
}

void TSpectralMapWindow::EvLButtonDblClk(unsigned modKeys, const owl::TPoint& point) {
    TMapWindow::EvLButtonDblClk(modKeys, point);
    if (auto* view = dynamic_cast<owl::TWindow*>(parentWidget())) {
        view->SendMessage(kMapOptions, static_cast<WPARAM>(GetIndex()));
    }
}
