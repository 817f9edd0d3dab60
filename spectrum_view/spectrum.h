// SPDX-License-Identifier: GPL-3.0-or-later
// The spectrum view.
#pragma once

#include "host/chart_view/the_child.h"
#include "spectra_contract/spectra_types.h"
#include "spectrum_view/state/view_state.h"
#include "spectrum_view/traces/over_time_plots.h"
#include "spectrum_view/traces/trace_list.h"

#include <array>
#include <cstdint>
#include <vector>

class EEGFileInfoType;
class QComboBox;
class QLabel;
class TTableWnd;
class SpectraMgr;
class TFormListener;
class TSideBarFormBase;
class XTimeList;

namespace owl {
class TCommandEnabler;
}

namespace orvanta::spectrum_view {
struct BatchRun;
struct BatchStep;
} // namespace orvanta::spectrum_view

/// Shows one plot per trace of the main analysis, and of the secondary one for comparison, in a grid or on
/// the scalp. Neither the recording nor the manager is owned; both must outlive the view. GUI thread.
class ORVANTA_API Spectrum : public TheChild {
public:
    /// Reads the user's settings; computes nothing. \param flag kept as it is
    Spectrum(GlobalWindow& window, EEGFileInfoType* recording, SpectraMgr* manager, bool flag);
    ~Spectrum() override;

    bool GetFlag() const { return flag_; }
    const orvanta::spectrum_view::ViewState& GetState() const { return state_; }
    /// What all spectrum views share.
    static const orvanta::spectrum_view::DisplaySettings& GetDisplay();
    /// None while the analyses are not the ones that the traces were listed for.
    std::span<const orvanta::spectrum_view::TraceEntry> GetTraces() const;

    void SetShowTitle(bool show) { state_.showTitle = show; }
    /// Of the searched vertical range, above 0; of all spectrum views.
    void SetGain(double gain);
    /// A panel that the application's side bar has too while the view has the focus. Not owned; null for
    /// none.
    void SetExtraPanel(QWidget* panel) { extraPanel_ = panel; }
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
    /// Puts the side bar with its panels beside the view, once.
    void CreateSideBar();
    /// Lists the recording's montages in the tool bar, with the one in use.
    void FillMontages();
    void DrawStatusBar() const;

    void CmMean() { ChangeDataMode(SPECT::Data::Mode::Mean); }
    void CmTimeFreq() { ChangeDataMode(SPECT::Data::Mode::TimeFrequency); }
    void CmCSA() { ChangeDataMode(SPECT::Data::Mode::CSA); }
    void CmHeadView() { ChangeViewMode(Layout::Mode::Scalp); }
    void CmGridView() { ChangeViewMode(Layout::Mode::Grid); }
    void CmRecompute();
    /// Asks for the settings of a new analysis. Nothing while it already asks.
    void CmNewSpectrum();
    /// Edits the settings of the main analysis; makes one when there is none.
    void CmEditOptions();
    /// Moves the trace cursor to the next selection of the main analysis.
    void CmNextSelection();
    void CmPreviousTrace();
    void CmNextTrace();
    void CmWide();
    void CmNarrow();
    void CmSetMaxAxis();
    void CmSetBands();
    void CmSpectraInfo();
    void CmSelectFont();
    void CmNormalizeNone() { Normalize(SPECT::Normalisation::None); }
    void CmNormalizeByF() { Normalize(SPECT::Normalisation::ByF); }
    void CmNormalizeBySqrtF() { Normalize(SPECT::Normalisation::BySqrtF); }
    void CmNormalizeByLnF() { Normalize(SPECT::Normalisation::ByLnF); }
    void CmNormalizeByLog10F() { Normalize(SPECT::Normalisation::ByLog10F); }
    void CmNormalizeDb() { Normalize(SPECT::Normalisation::Db); }
    /// Lets the user choose a file and comment on the main analysis, and saves it.
    /// \return the chosen path, whether or not the file could be written; empty when nothing was chosen;
    /// "SPECTRADATA UNAVAILABLE ERROR" when the analysis was gone by then
    virtual std::string SaveSpectraFile();
    void CmSaveSpectra();
    /// Saves, and starts the statistics program on the file.
    void CmSaveSpectraAndLaunchStat();
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

    // What the commands' menu items and buttons look like.
    void CeCommonScale(owl::TCommandEnabler& item);
    void CeNextTrace(owl::TCommandEnabler& item);
    void CePreviousTrace(owl::TCommandEnabler& item);
    void CeNextSelection(owl::TCommandEnabler& item);
    void CeWide(owl::TCommandEnabler& item);
    void CeNarrow(owl::TCommandEnabler& item);
    void CeFullOpt(owl::TCommandEnabler& item);
    void CeMean(owl::TCommandEnabler& item);
    void CeTimeFreq(owl::TCommandEnabler& item);
    void CeCSA(owl::TCommandEnabler& item);
    void CeGridView(owl::TCommandEnabler& item);
    void CeHeadView(owl::TCommandEnabler& item);
    void CeTable(owl::TCommandEnabler& item);
    void CeShowPoints(owl::TCommandEnabler& item);
    void CeShowLines(owl::TCommandEnabler& item);
    void CeShowSD(owl::TCommandEnabler& item);
    void CeShowMeasures(owl::TCommandEnabler& item);
    void CeShowAxesText(owl::TCommandEnabler& item);
    void CeShowLabel(owl::TCommandEnabler& item);
    void CeNormalizeNone(owl::TCommandEnabler& item);
    void CeNormalizeDb(owl::TCommandEnabler& item);
    void CeNormalizeByF(owl::TCommandEnabler& item);
    void CeNormalizeBySqrtF(owl::TCommandEnabler& item);
    void CeNormalizeByLog10F(owl::TCommandEnabler& item);
    void CeNormalizeByLnF(owl::TCommandEnabler& item);
    void CeSetEntity(owl::TCommandEnabler& item);

    void StoreUserSettings() const override;
    /// Stores the settings.
    void Destroy(int retVal = 0) override;
    /// Lists the traces anew and draws those that meet the rectangle.
    void Draw(owl::TDC& dc, bool erase, owl::TRect& rect) override;
    const owl::TResponseEntry* Find(const owl::TEventKey& key) const override;

protected:
    static const owl::TResponseTable __entries; // NOLINT(clang-diagnostic-reserved-identifier): the family's

    void SetupWindow() override;
    void CreateGadgets() override;

    void EvSize(unsigned sizeType, const owl::TSize& size);
    void EvSetFocus(HWND lost);
    void EvKillFocus(HWND gets);
    void EvKeyDown(unsigned key, unsigned repeat, unsigned flags);
    void EvLButtonDown(unsigned modKeys, const owl::TPoint& point);
    void EvLButtonUp(unsigned modKeys, const owl::TPoint& point);
    void EvLButtonDblClk(unsigned modKeys, const owl::TPoint& point);
    void EvMouseWheel(unsigned modKeys, int delta, const owl::TPoint& point);
    /// The user chose the montage of this index.
    LPARAM EvCbMontage(WPARAM index, LPARAM);
    /// The user picked a grid. The first trace stays.
    LPARAM EvTable(WPARAM picked, LPARAM);

private:
    void RemoveSideBar();
    /// Lets every panel fill itself anew.
    void NotifyPanels();
    /// What the key saves while Ctrl and Shift are held: spectra under many settings, one file each.
    void SaveBatch(unsigned key);
    /// Ends early, as the batch, when the user cancels or the view goes.
    void TakeSteps(const std::vector<orvanta::spectrum_view::BatchStep>& steps, const std::string& folder);
    void SaveBatchFile(const std::string& folder);

    void SetCephalicList();
    void SetBipolarList();
    void SetViewCoords();

    /// What the application's side bar has while the view has the focus.
    std::vector<QWidget*> Panels() const;
    /// Out of the application's side bar.
    void TakePanelsBack();

    /// Name of the trace whose plot is there; empty for none.
    std::string TraceAt(const owl::TPoint& point) const;
    /// The grid starts with this trace.
    void ShowFrom(std::uint64_t trace);
    /// Axis ranges of the measured entity.
    SPECT::Scale& CurrentScale();
    void ShowZoomed();
    void Toggle(bool orvanta::spectrum_view::DisplaySettings::*flag);
    void Normalize(SPECT::Normalisation normalisation);
    void CheckEntityItems();
    double LoadedRate() const;

    EEGFileInfoType* recording_;
    SpectraMgr* manager_;
    bool flag_;
    bool asking_ = false; ///< for the settings of a new analysis
    orvanta::spectrum_view::ViewState state_;
    orvanta::spectrum_view::TraceList traces_;
    orvanta::spectrum_view::OverTimePlots overTime_;
    QComboBox* montages_ = nullptr;                     ///< owned by the tool bar, as the texts
    orvanta::spectrum_view::BatchRun* batch_ = nullptr; ///< while files are being saved; of SaveBatch
    QPointer<TTableWnd> picker_;
    QPointer<TSideBarFormBase> sideBar_; ///< and its panels; null before the first focus
    QPointer<TFormListener> spectraPanel_, regressionPanel_;
    QPointer<QWidget> extraPanel_;
    std::string pressed_;             ///< trace on which the mouse button went down
    std::array<QLabel*, 3> status_{}; ///< entity, horizontal and vertical unit; null before set-up
};
