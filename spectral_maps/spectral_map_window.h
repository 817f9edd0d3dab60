// SPDX-License-Identifier: GPL-3.0-or-later
// One map of a band's measure.
#pragma once

#include "host/chart_view/maps/map_window.h"
#include "spectra_contract/spectra_types.h"

class GlobalWindow;
class UserType;

/// A map with its own band, measure and scale, kept in its section of the user's settings. GUI thread.
class ORVANTA_API TSpectralMapWindow : public TMapWindow {
public:
    /// Reads its settings. The arguments are those of the base.
    TSpectralMapWindow(owl::TWindow* parent, GlobalWindow& window, const std::vector<ElectInfo>& electrodes,
                       bool showElectrodes, bool threeD, int palette, const char* name, int index,
                       int contours);
    ~TSpectralMapWindow() override;

    void GetPlotSet(SPECT::PlotSet& plotSet) const { plotSet = plotSet_; }
    /// \param save in the user's settings, too
    void SetPlotSet(const SPECT::PlotSet& plotSet, bool save);

    const owl::TResponseEntry* Find(const owl::TEventKey& key) const override;

protected:
    static const owl::TResponseTable __entries; // NOLINT(clang-diagnostic-reserved-identifier): the family's

    void SetupWindow() override;
    /// Tells the view, which lets the user choose what the map shows.
    void EvLButtonDblClk(unsigned modKeys, const owl::TPoint& point);

private:
    SPECT::PlotSet plotSet_;
    UserType* user_;
};
