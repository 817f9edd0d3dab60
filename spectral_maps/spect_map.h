// SPDX-License-Identifier: GPL-3.0-or-later
// The maps view.
#pragma once

#include "host/chart_view/maps/cartoon_stat.h"
#include "spectra_contract/sensor.h"
#include "spectra_contract/spectra_types.h"

#include <array>
#include <cstdint>
#include <exception>
#include <optional>
#include <string>
#include <vector>

class EEGFileInfoType;
class SpectMacroResult;
class SpectraMgr;
class TSpectralMapWindow;

namespace owl {
class TCommandEnabler;
}

/// Shows measures of bands of the main analysis as topographic maps, one for each choice of band and measure,
/// or, as a cartoon, one of the same choice for each epoch. Neither the recording nor the manager is owned;
/// both must outlive the view. GUI thread.
class ORVANTA_API SpectMap : public CartoonStat, private orvanta::chart::MapSource {
public:
    /// \param threeD maps on heads
    /// \param electrodes of the recording's EEG sensors, in their order
    SpectMap(GlobalWindow& window, EEGFileInfoType* recording, SpectraMgr* manager, bool threeD,
             const std::vector<ElectInfo>& electrodes);
    ~SpectMap() override;

    bool GetCartoonMode() const { return cartoonMode_; }
    void SetCartoonMode(bool on);
    /// What the maps of a cartoon show.
    const SPECT::PlotSet& GetCommonPlotSet() const { return plotSet_; }
    /// Lets the user choose what a map shows.
    /// \return the number of maps; -1 for an index behind the last one, -2 where there is no such map
    LPARAM SetMapOptions(WPARAM mapIndex, LPARAM);

    void CmRecompute();
    /// Edits the settings of the main analysis; makes one when there is none.
    void CmOptions();
    void CmSetBands();
    void CmSpectraInfo();
    void CmCartoonMode();
    /// Moves the trace cursor to the next selection of the main analysis.
    void CmNextSelection();
    void CmCopy2ClpBrd() override { MultiMapWin::CmCopy2ClpBrd(); }
    void CmChoosePalette() override { MultiMapWin::CmChoosePalette(); }
    void CmConfigureMap() override;
    void CmSelectFont() override;
    void CmElectrodes() override;
    void CmTable() override { MultiMapWin::CmTable(); }
    void CmLock() override;

    void CeCartoonMode(owl::TCommandEnabler& item);
    void CeNextSelection(owl::TCommandEnabler& item);
    void CeTable(owl::TCommandEnabler& item);

    LPARAM EvTransp(WPARAM position, LPARAM unused) override {
        return MultiMapWin::EvTransp(position, unused);
    }
    LPARAM EvTable(WPARAM picked, LPARAM unused) override;

    void SetMapValues(bool fetch) override;
    void ResetAll() override;
    void ResetWindows(std::uint16_t rows, std::uint16_t columns) override;
    int ComputeAllMapsValues() override;
    void UpdateMaps(const XTimeList& list) override;
    /// Leaves the list as it is: the epochs come with the data.
    void GetEventList(XTimeList& list) override;
    bool SetRange() override;
    void GetClipboardFirstRaw(std::string& row) override;
    TMapWindow* CreateMap(int index) override;

    void StoreUserSettings() const override;
    /// Stores the settings.
    void Destroy(int retVal = 0) override;
    /// Sees to it that there is an analysis before the first maps are shown.
    void Draw(owl::TDC& dc, bool erase, owl::TRect& rect) override;
    const owl::TResponseEntry* Find(const owl::TEventKey& key) const override;

protected:
    static const owl::TResponseTable __entries; // NOLINT(clang-diagnostic-reserved-identifier): the family's

    void SetupWindow() override;
    void LoadUserSettings() override;
    void CreateGadgets() override;
    void DrawStatusBar() override {}

    void EvSetFocus(HWND lost);
    void EvKillFocus(HWND gets);
    /// Points the other views at the electrode, in a cartoon at the map's epoch, too.
    LPARAM EvElectrodeClicked(WPARAM mapIndex, LPARAM electrode);

private:
    std::optional<XTimeList> Fetch() override;
    std::optional<orvanta::chart::ValueRange> CartoonRange() override;

    /// The epochs of the main analysis; none without it.
    XTimeList EventsOfMain() const;
    /// Of what is loaded, Hz.
    double HighestFrequency() const;
    bool IsMainStale(const XTimeList& events) const;
    /// \return false when the user cancelled \throws what the computation throws
    bool BringUpToDate(const XTimeList& events);
    /// The sensors that the values of a map belong to, in their order.
    SensorList Sensors() const;
    /// Whether the maps were filled, or could not be, from what is there now.
    bool ShowsWhatIsThere() const { return shown_ == ShownNow(); }
    /// Of the cartoon.
    void UpdateSteps(const XTimeList& list);
    void UpdateMap(std::size_t index, const TSpectralMapWindow& map);
    void ClearMaps(std::size_t from);
    /// Null for an index without a map, or with one of another kind.
    TSpectralMapWindow* SpectralMap(std::size_t index) const;
    /// What the first map shows; nothing without it.
    std::optional<SPECT::PlotSet> FirstPlotSet() const;
    /// Why the maps have nothing to show; empty when they have.
    std::string Missing() const;
    void TellMissing() const;
    std::string UnitOf(const SPECT::PlotSet& plotSet) const;
    void DropData();
    void ShowFirstMaps();
    /// Fetches when the main analysis is not the one, or not as, the maps show it.
    void Follow();

    /// What the values on the maps were made from.
    struct Shown {
        std::uint64_t generation = 0; ///< of the main analysis; 0 without it
        SPECT::Entity::Type entity = SPECT::Entity::Type::Power;

        bool operator==(const Shown&) const = default;
    };
    Shown ShownNow() const;

    /// The range of a cartoon, and what it was worked out for.
    struct KnownRange {
        Shown of;
        std::int32_t band = 0, measure = 0;
        std::array<double, 4> edges{}; ///< of the band and the total band, Hz

        std::optional<orvanta::chart::ValueRange> range;

        bool IsFor(const KnownRange& other) const {
            return of == other.of && band == other.band && measure == other.measure && edges == other.edges;
        }
    };
    KnownRange RangeWanted() const;

    SpectraMgr* spectraMgr_;
    EEGFileInfoType* fileInfo_;
    QPointer<QWidget> sideBarPanel_; ///< in the side bar while the view has the focus; none so far
    SPECT::PlotSet plotSet_;
    bool cartoonMode_ = false;
    std::optional<Shown> shown_;
    std::optional<KnownRange> known_;
    std::exception_ptr othersFailure_; ///< why an analysis that the maps do not show was not computed
};
