// SPDX-License-Identifier: GPL-3.0-or-later
// The spectrum view.
#pragma once

#include "host/chart_view/the_child.h"
#include "spectra_contract/spectra_types.h"
#include "spectrum_view/state/view_state.h"
#include "spectrum_view/traces/over_time_plots.h"
#include "spectrum_view/traces/trace_list.h"

#include <array>

class EEGFileInfoType;
class QComboBox;
class QLabel;
class TTableWnd;
class SpectraMgr;
class XTimeList;

/// Shows one plot per trace of the main analysis, and of the secondary one for comparison, in a grid or on
/// the scalp. Neither the recording nor the manager is owned; both must outlive the view. GUI thread.
class ORVANTA_API Spectrum : public TheChild {
public:
    /// Reads the user's settings; computes nothing. \param flag kept as it is
    Spectrum(GlobalWindow& window, EEGFileInfoType* recording, SpectraMgr* manager, bool flag);
    ~Spectrum() override;

    bool GetFlag() const { return flag_; }
    const orvanta::spectrum_view::ViewState& GetState() const { return state_; }
    /// None while the analyses are not the ones that the traces were listed for.
    std::span<const orvanta::spectrum_view::TraceEntry> GetTraces() const;

    void SetShowTitle(bool show) { state_.showTitle = show; }
    /// The epochs of the main analysis; none without it.
    void GetEventList(XTimeList& list) const;
    /// \return the mode until now; 0 when it is the same
    int ChangeDataMode(SPECT::Data::Mode mode);
    int ChangeViewMode(Layout::Mode mode);
    /// Switches to the montage and the mode that the layout and the entity need.
    void AdjustSpectraOptions();
    /// Computes what is not up to date. A failure leaves what was there. \param quiet without progress
    void CheckAndRecompute(bool quiet);
    void UpdateStatusBar();
    void DrawStatusBar() const;

    void CmMean() { ChangeDataMode(SPECT::Data::Mode::Mean); }
    void CmTimeFreq() { ChangeDataMode(SPECT::Data::Mode::TimeFrequency); }
    void CmCSA() { ChangeDataMode(SPECT::Data::Mode::CSA); }
    void CmHeadView() { ChangeViewMode(Layout::Mode::Scalp); }
    void CmGridView() { ChangeViewMode(Layout::Mode::Grid); }
    void CmRecompute();
    void CmCopy2ClpBrd();
    void CmMeasures();
    /// Opens the picker for the size of the grid at the mouse.
    void CmSpectraTable();
    void CmSetCommon();
    /// \param id number of the first entity's command, and as many more as the entity's index
    void CmSetEntity(unsigned id);
    void CmShowPoints() { Toggle(&orvanta::spectrum_view::DisplaySettings::showPoints); }
    void CmShowLines() { Toggle(&orvanta::spectrum_view::DisplaySettings::showLines); }
    void CmShowSD() { Toggle(&orvanta::spectrum_view::DisplaySettings::showSd); }
    void CmShowLabel() { Toggle(&orvanta::spectrum_view::DisplaySettings::showLabels); }
    void CmShowAxesText() { Toggle(&orvanta::spectrum_view::DisplaySettings::showAxesText); }
    void CmShowMeasures() { Toggle(&orvanta::spectrum_view::DisplaySettings::showMeasuresBox); }

    /// Stores the settings.
    void Destroy(int retVal = 0) override;
    /// Lists the traces anew and draws those that meet the rectangle.
    void Draw(owl::TDC& dc, bool erase, owl::TRect& rect) override;
    const owl::TResponseEntry* Find(const owl::TEventKey& key) const override;

protected:
    static const owl::TResponseTable __entries; // NOLINT(bugprone-reserved-identifier): the family's name

    void SetupWindow() override;
    void CreateGadgets() override;

    void EvSize(unsigned sizeType, const owl::TSize& size);
    void EvSetFocus(HWND lost);
    /// The user chose the montage of this index.
    LPARAM EvCbMontage(WPARAM index, LPARAM);
    /// The user picked a grid. The first trace stays.
    LPARAM EvTable(WPARAM picked, LPARAM);

private:
    void SetCephalicList();
    void SetBipolarList();
    void SetViewCoords();

    void Toggle(bool orvanta::spectrum_view::DisplaySettings::*flag);
    void CheckEntityItems();
    void FillMontages();
    double LoadedRate() const;

    EEGFileInfoType* recording_;
    SpectraMgr* manager_;
    bool flag_;
    orvanta::spectrum_view::ViewState state_;
    orvanta::spectrum_view::TraceList traces_;
    orvanta::spectrum_view::OverTimePlots overTime_;
    QComboBox* montages_ = nullptr; ///< owned by the tool bar, as the texts
    QPointer<TTableWnd> picker_;
    std::array<QLabel*, 3> status_{}; ///< entity, horizontal and vertical unit; null before set-up
};
